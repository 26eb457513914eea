#include "model/chartcommands.h"

#include <utility>

#include "chart/mixingline.h"
#include "chart/pointmark.h"
#include "chart/scales.h"

namespace moistair {

namespace {

/// The text that was stored when a pressure was set.
std::string currentPressureText(const Pressure& pressure) {
  const std::string text = pressureFor(pressure.entry).inhg.value_or(defaultPressureText);
  return samePressure(lenientNumber(text), pressure.atm) ? text : numberText(pressure.atm);
}

}  // namespace

void ChartCommands::start(WindowSize window) {
  const double atm = lifecycle_.atmPressure();
  printHeader(canvas_, window, startHeaderLine(atm));
  Document document = newDocument({{PressureUnit::standard, printedNumber(atm)}, atm});
  document.pressure = {values_.pressureEntry, atm};
  document.chartState = lifecycle_.chartState();
  history_ = History(std::move(document));
  notify();
}

std::optional<Refusal> ChartCommands::startDraw(const LimitTexts& texts) {
  const auto refusal = lifecycle_.startDraw(texts);
  const Document& now = document();
  if (!refusal && now.entries.size() > now.background) record(clearing(now));
  return refusal;
}

void ChartCommands::drawChart(WindowSize window) {
  lifecycle_.drawChart(window);
  record(drawing(document(), {setting(), DrawnChart{values_.chartType}}));
}

void ChartCommands::clearChart() {
  lifecycle_.clearChart();
  record(emptying(document()));
}

void ChartCommands::changePressure(const PressureEntry& entry, WindowSize window) {
  values_.pressureEntry = entry;
  lifecycle_.restart(window);
  record(pressureChange(document(), {entry, lifecycle_.atmPressure()}));
}

void ChartCommands::adoptFilePressure() {
  values_.pressure.setText(currentPressureText(document().pressure));
  notify();
}

std::optional<Refusal> ChartCommands::drawLine(LineKind kind, const LimitTexts& texts, std::string_view value,
                                               WindowSize window) {
  const auto refusal = lifecycle_.drawLine(kind, texts, value, window);
  if (!refusal) record(addition(document(), {setting(), PropertyLine{kind, std::string(value)}}));
  return refusal;
}

bool ChartCommands::markPoint(const PairInput& input, const StatePoint& shown, const LimitTexts& texts,
                              std::string_view identification, WindowSize window) {
  Entry entry{setting(), MarkedPoint{{{{input.kind1.value_or(PropertyKind::db), input.value1},
                                       {input.kind2.value_or(PropertyKind::db), input.value2}}},
                                     shown,
                                     std::string(identification)}};
  entry.setting.limits = {};  // a list's text that is no number counts as 0
  moistair::readLimits(texts, entry.setting.limits);
  if (draw(entry, canvas_, window) != nullptr) return false;
  record(addition(document(), std::move(entry)));
  return true;
}

const char* ChartCommands::drawMixture(const MixingProblem& problem, const ChartLimits& limits, WindowSize window) {
  if (const char* rejection = drawMixingLine(canvas_, problem, plotArea(limits, window))) return rejection;
  const Setting setting{limits, {problem.pressure.entry, problem.pressure.atm}};
  record(addition(document(), {setting, MixingLine{{problem.streams[0], problem.streams[1], problem.mixed}}}));
  return nullptr;
}

const char* ChartCommands::add(Entry entry, WindowSize window) {
  if (const char* message = draw(entry, canvas_, window)) return message;
  record(addition(document(), std::move(entry)));
  return nullptr;
}

void ChartCommands::keepPicture() {
  canvas_.keepPicture();
  history_.keepPicture();
  notify();
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
  history_ = History(std::move(document));
  values_.pressureEntry = this->document().pressure.entry;
  values_.pressure.setText(currentPressureText(this->document().pressure));
  bringBack(this->document().pressure, window);
}

void ChartCommands::retitle(TitleBlock titleBlock) {
  history_.carryOut(retitling(document(), std::move(titleBlock)));
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

Setting ChartCommands::setting() const {
  return {lifecycle_.plotArea({}).limits, {values_.pressureEntry, lifecycle_.atmPressure()}};
}

/// A command of the chart has been carried out on the canvas.
void ChartCommands::record(Change change) {
  change.chartState = lifecycle_.chartState();
  history_.carryOut(std::move(change));
  notify();
}

/// The session goes back to what the document says. The current pressure stays unless it was another one that was set.
void ChartCommands::bringBack(const Pressure& earlier, WindowSize window) {
  const Pressure& pressure = document().pressure;
  if (pressure != earlier) {
    values_.pressureEntry = pressure.entry;
    values_.pressure.setText(currentPressureText(pressure));
  }
  lifecycle_.restore(document().chartState);
  layout(window);
  notify();
}

void ChartCommands::notify() const {
  if (changed) changed();
}

}  // namespace moistair
