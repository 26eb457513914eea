// Everything that draws all of the document again: undo, redo, changes of entries, another document.
#include "model/chartcommands.h"

#include <utility>

namespace moistair {

namespace {

/// The text that was stored when a pressure was set.
std::string currentPressureText(const Pressure& pressure) {
  const std::string text = pressureFor(pressure.entry).inhg.value_or(defaultPressureText);
  return samePressure(lenientNumber(text), pressure.atm) ? text : numberText(pressure.atm);
}

}  // namespace

void ChartCommands::adoptFilePressure() {
  history_.current().pressure.setText(currentPressureText(document().pressure));
  notify();
}

const char* ChartCommands::add(Entry entry, WindowSize window) {
  if (const char* message = draw(entry, canvas_, window)) return message;
  record(addition(document(), std::move(entry)));
  return nullptr;
}

void ChartCommands::layout(WindowSize window) { canvas_.show(drawingOf(document(), window)); }

void ChartCommands::undo(WindowSize window) {
  const Pressure earlier = document().pressure;
  history_.undo();
  bringBack(earlier, window);
}

void ChartCommands::redo(WindowSize window) {
  const Pressure earlier = document().pressure;
  history_.redo();
  bringBack(earlier, window);
}

void ChartCommands::change(Change change, WindowSize window) {
  const Pressure earlier = document().pressure;
  history_.carryOut(std::move(change));
  bringBack(earlier, window);
}

void ChartCommands::open(Document document, WindowSize window) {
  const Entry* chart = lastChart(document);
  if (chart != nullptr) chooseType(std::get<DrawnChart>(chart->content).type);
  history_.current().pressure.setText(currentPressureText(document.pressure));
  replace(std::move(document));
  layout(window);
  notify();
}

void ChartCommands::retitle(TitleBlock titleBlock) {
  history_.carryOut(retitling(document(), std::move(titleBlock)));
  notify();
}

void ChartCommands::rezone(ZoneLayer zoneLayer) {
  history_.carryOut(rezoning(document(), std::move(zoneLayer)));
  notify();
}

void ChartCommands::markSaved() {
  history_.markSaved();
  notify();
}

void ChartCommands::markUnsaved() {
  history_.markUnsaved();
  notify();
}

/// A command of the chart has been carried out on the canvas.
void ChartCommands::record(Change change) {
  history_.carryOut(std::move(change));
  notify();
}

/// The current pressure stays unless it was another one that was set.
void ChartCommands::bringBack(const Pressure& earlier, WindowSize window) {
  const Pressure& pressure = document().pressure;
  if (pressure != earlier) history_.current().pressure.setText(currentPressureText(pressure));
  layout(window);
  notify();
}

/// Nothing to undo; what the next command works with stays.
void ChartCommands::replace(Document document) {
  document.current = history_.document().current;
  history_ = History(std::move(document));
}

void ChartCommands::notify(ChangedPart part) const {
  if (changed) changed(part);
}

}  // namespace moistair
