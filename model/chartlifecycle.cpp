#include "model/chartlifecycle.h"

#include "chart/drawchart.h"
#include "chart/scales.h"

namespace moistair {

namespace {

constexpr const char* alreadyDrawn =
    "Do one of the followings to draw new chart - 1) Change chart ranges 2) Reset atmos. pressure 3) Clear graph ";

}  // namespace

std::optional<Refusal> ChartLifecycle::testLimits(const LimitTexts& texts) {
  if (const char* fault = validateLimits(texts, limits_)) return Refusal{fault, true};
  return std::nullopt;
}

std::optional<Refusal> ChartLifecycle::startDraw(const LimitTexts& texts) {
  if (const auto refusal = testLimits(texts)) return refusal;
  if (hasCurrentChart()) return Refusal{alreadyDrawn};
  canvas_.cls();
  return std::nullopt;
}

void ChartLifecycle::drawChart(WindowSize window) {
  canvas_.cls();
  frame_ = plotFrame(limits_);
  moistair::drawChart(chart(window), values_.chartType, headerLine(values_.pressureEntry));
  rememberLimits(limits_, values_.drawn);
}

void ChartLifecycle::clearChart() {
  canvas_.cls();
  canvas_.dropPicture();
  forgetLimits(values_.drawn);
}

void ChartLifecycle::restart(WindowSize window) {
  clearChart();
  printHeader(canvas_, window, headerLine(values_.pressureEntry));
}

std::optional<Refusal> ChartLifecycle::drawLine(LineKind kind, const LimitTexts& texts, std::string_view value,
                                                WindowSize window) {
  readLimits(texts);
  if (!hasCurrentChart()) return Refusal{drawAxisFirst, true};
  if (!moistair::drawLine(chart(window), kind, value)) return Refusal{lineNotFeasible};
  return std::nullopt;
}

void ChartLifecycle::restore(const ChartState& chartState) {
  values_.drawn = chartState.drawn;
  frame_ = chartState.frame;
}

}  // namespace moistair
