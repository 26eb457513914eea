// The life of the chart: what may be drawn on it, and when.
//
// A chart is current while the limits in the lists are those it was drawn for; only then may lines be added, and only
// otherwise may a new one be drawn. Clearing the canvas or changing the pressure ends it, leaving it between the two
// halves of drawing does not. Each command here tests, draws on the canvas, and changes the document by the same
// step, in this order.
#include "chart/mixingline.h"
#include "chart/scales.h"
#include "model/chartcommands.h"

namespace moistair {

namespace {

constexpr const char* alreadyDrawn =
    "Do one of the followings to draw new chart - 1) Change chart ranges 2) Reset atmos. pressure 3) Clear graph ";

}  // namespace

void ChartCommands::start(WindowSize window) {
  NumberText& pressure = history_.current().pressure;
  if (!(pressure.lenient() > 0)) pressure.setText(defaultPressureText);
  const double atm = pressure.lenient();
  printHeader(canvas_, window, startHeaderLine(atm));
  Document document = newDocument({{PressureUnit::standard, printedNumber(atm)}, atm});
  document.pressure = {{}, atm};
  replace(std::move(document));
}

void ChartCommands::setCurrentPressure(const std::string& inhg) {
  history_.current().pressure.setText(inhg);
  notify(ChangedPart::currentPressure);
}

void ChartCommands::changePressure(const PressureEntry& entry, WindowSize window) {
  canvas_.cls();
  canvas_.dropPicture();
  printHeader(canvas_, window, headerLine(entry));
  record(pressureChange(document(), {entry, document().atm()}));
}

void ChartCommands::readLimits(const LimitTexts& texts) { moistair::readLimits(texts, history_.current().limits); }

Outcome ChartCommands::testLimits(const LimitTexts& texts) {
  if (const char* fault = validateLimits(texts, history_.current().limits)) {
    return Error{ErrorCode::outOfRange, {}, fault};
  }
  return {};
}

Outcome ChartCommands::startDraw(const LimitTexts& texts) {
  if (Outcome tested = testLimits(texts); !tested) return tested;
  const Document& now = document();
  if (hasCurrentChart(now)) return Error{ErrorCode::duplicate, {}, alreadyDrawn};
  canvas_.cls();
  if (now.entries.size() > now.background) record(clearing(now));
  return {};
}

void ChartCommands::drawChart(WindowSize window) {
  const Document& now = document();
  canvas_.cls();
  const Entry chart{now.setting(), DrawnChart{now.current.chartType}};
  draw(chart, canvas_, window);
  record(drawing(now, chart));
}

void ChartCommands::clearChart() {
  canvas_.cls();
  canvas_.dropPicture();
  record(emptying(document()));
}

Outcome ChartCommands::drawLine(LineKind kind, const LimitTexts& texts, std::string_view value, WindowSize window) {
  readLimits(texts);
  const Document& now = document();
  if (!hasCurrentChart(now)) return Error{ErrorCode::waiting, {}, drawAxisFirst};
  if (!moistair::drawLine({canvas_, plotArea(window), now.atm()}, kind, value))
    return Error{ErrorCode::noResult, {}, lineNotFeasible};
  record(addition(now, {now.setting(), PropertyLine{kind, std::string(value)}}));
  return {};
}

bool ChartCommands::markPoint(const PairInput& input, const StatePoint& shown, const LimitTexts& texts,
                              std::string_view identification, WindowSize window) {
  Entry entry{document().setting(), MarkedPoint{{{{input.kind1.value_or(PropertyKind::db), input.value1},
                                                  {input.kind2.value_or(PropertyKind::db), input.value2}}},
                                                shown,
                                                std::string(identification)}};
  entry.setting.limits = {};  // a list's text that is no number counts as 0
  moistair::readLimits(texts, entry.setting.limits);
  return add(std::move(entry), window) == nullptr;
}

const char* ChartCommands::drawMixture(const MixingProblem& problem, const ChartLimits& limits, WindowSize window) {
  if (const char* rejection = drawMixingLine(canvas_, problem, moistair::plotArea(limits, window))) return rejection;
  const Setting setting{limits, {problem.pressure.entry, problem.pressure.atm}};
  record(addition(document(), {setting, MixingLine{{problem.streams[0], problem.streams[1], problem.mixed}}}));
  return nullptr;
}

void ChartCommands::keepPicture() {
  canvas_.keepPicture();
  history_.keepPicture();
  notify();
}

PlotArea ChartCommands::plotArea(WindowSize window) const {
  return {document().current.limits, document().chartState.frame, window};
}

}  // namespace moistair
