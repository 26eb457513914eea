#include "model/chartcommands.h"

#include <utility>

#include "chart/mixingline.h"
#include "chart/pointmark.h"
#include "chart/scales.h"

namespace moistair {

namespace {

/// The text that was stored when a pressure was set.
std::string textinforce(const Pressure& pressure) {
  const std::string text = pressurefor(pressure.entry).inhg.value_or(defaultpressuretext);
  return lenientnumber(text) == pressure.atm ? text : numbertext(pressure.atm);
}

}  // namespace

void ChartCommands::start(WindowSize window) {
  const double atm = lifecycle_.atmpressure();
  printheader(canvas_, window, startheaderline(atm));
  Document document = newdocument({{PressureUnit::standard, printednumber(atm)}, atm});
  document.pressure = {values_.pressureentry, atm};
  document.stand = lifecycle_.stand();
  history_ = History(std::move(document));
  tell();
}

std::optional<Refusal> ChartCommands::startdraw(const LimitTexts& texts) {
  const auto refusal = lifecycle_.startdraw(texts);
  const Document& now = document();
  if (!refusal && now.entries.size() > now.background) record(clearing(now));
  return refusal;
}

void ChartCommands::drawchart(WindowSize window) {
  lifecycle_.drawchart(window);
  record(drawing(document(), {setting(), DrawnChart{values_.charttype}}));
}

void ChartCommands::clearchart() {
  lifecycle_.clearchart();
  record(emptying(document()));
}

void ChartCommands::changepressure(const PressureEntry& entry, WindowSize window) {
  values_.pressureentry = entry;
  lifecycle_.restart(window);
  record(repressuring(document(), {entry, lifecycle_.atmpressure()}));
}

void ChartCommands::takeheaderpressure() {
  values_.pressure.settext(textinforce(document().pressure));
  tell();
}

std::optional<Refusal> ChartCommands::drawline(LineKind kind, const LimitTexts& texts, std::string_view value,
                                               WindowSize window) {
  const auto refusal = lifecycle_.drawline(kind, texts, value, window);
  if (!refusal) record(addition(document(), {setting(), PropertyLine{kind, std::string(value)}}));
  return refusal;
}

bool ChartCommands::markpoint(const PairInput& input, const StatePoint& shown, const LimitTexts& texts,
                              std::string_view identification, WindowSize window) {
  Entry entry{setting(), MarkedPoint{{{{input.kind1.value_or(PropertyKind::db), input.value1},
                                       {input.kind2.value_or(PropertyKind::db), input.value2}}},
                                     shown,
                                     std::string(identification)}};
  entry.setting.limits = {};  // a list's text that is no number counts as 0
  moistair::readlimits(texts, entry.setting.limits);
  if (draw(entry, canvas_, window) != nullptr) return false;
  record(addition(document(), std::move(entry)));
  return true;
}

const char* ChartCommands::drawmixture(const MixingProblem& problem, const ChartLimits& limits, WindowSize window) {
  if (const char* rejection = drawmixingline(canvas_, problem, plotarea(limits, window))) return rejection;
  const Setting setting{limits, {problem.pressure.entry, problem.pressure.atm}};
  record(addition(document(), {setting, MixingLine{{problem.streams[0], problem.streams[1], problem.mixed}}}));
  return nullptr;
}

const char* ChartCommands::add(Entry entry, WindowSize window) {
  if (const char* message = draw(entry, canvas_, window)) return message;
  record(addition(document(), std::move(entry)));
  return nullptr;
}

void ChartCommands::keeppicture() {
  canvas_.KeepPicture();
  history_.keeppicture();
  tell();
}

void ChartCommands::layout(WindowSize window) { canvas_.show(drawingof(document(), window)); }

void ChartCommands::undo(WindowSize window) {
  const Pressure earlier = document().pressure;
  history_.undo();
  bringback(earlier, window);
}

void ChartCommands::redo(WindowSize window) {
  const Pressure earlier = document().pressure;
  history_.redo();
  bringback(earlier, window);
}

void ChartCommands::change(Change change, WindowSize window) {
  const Pressure earlier = document().pressure;
  history_.carryout(std::move(change));
  bringback(earlier, window);
}

void ChartCommands::open(Document document, WindowSize window) {
  history_ = History(std::move(document));
  values_.pressureentry = this->document().pressure.entry;
  values_.pressure.settext(textinforce(this->document().pressure));
  bringback(this->document().pressure, window);
}

void ChartCommands::retitle(TitleBlock titleblock) {
  history_.carryout(retitling(document(), std::move(titleblock)));
  tell();
}

void ChartCommands::marksaved() {
  history_.marksaved();
  tell();
}

void ChartCommands::markunsaved() {
  history_.markunsaved();
  tell();
}

Setting ChartCommands::setting() const {
  return {lifecycle_.plotarea({}).limits, {values_.pressureentry, lifecycle_.atmpressure()}};
}

/// A command of the chart has been carried out on the canvas.
void ChartCommands::record(Change change) {
  change.stand = lifecycle_.stand();
  history_.carryout(std::move(change));
  tell();
}

/// The session goes back to what the document says. The pressure in force stays unless it was another one that was set.
void ChartCommands::bringback(const Pressure& earlier, WindowSize window) {
  const Pressure& pressure = document().pressure;
  if (pressure != earlier) {
    values_.pressureentry = pressure.entry;
    values_.pressure.settext(textinforce(pressure));
  }
  lifecycle_.restore(document().stand);
  layout(window);
  tell();
}

void ChartCommands::tell() const {
  if (changed) changed();
}

}  // namespace moistair
