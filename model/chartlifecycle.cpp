#include "model/chartlifecycle.h"

#include "chart/drawchart.h"
#include "chart/scales.h"

namespace moistair {

namespace {

constexpr const char* chartstandsalready =
    "Do one of the followings to draw new chart - 1) Change chart ranges 2) Reset atmos. pressure 3) Clear graph ";

}  // namespace

std::optional<Refusal> ChartLifecycle::testlimits(const LimitTexts& texts) {
  if (const char* fault = validatelimits(texts, limits_)) return Refusal{fault, true};
  return std::nullopt;
}

std::optional<Refusal> ChartLifecycle::startdraw(const LimitTexts& texts) {
  if (const auto refusal = testlimits(texts)) return refusal;
  if (chartstands()) return Refusal{chartstandsalready};
  canvas_.Cls();
  return std::nullopt;
}

void ChartLifecycle::drawchart(WindowSize window) {
  canvas_.Cls();
  frame_ = plotframe(limits_);
  moistair::drawchart(chart(window), values_.charttype, headerline(values_.pressureentry));
  rememberlimits(limits_, values_.drawn);
}

void ChartLifecycle::clearchart() {
  canvas_.Cls();
  canvas_.DropPicture();
  forgetlimits(values_.drawn);
}

void ChartLifecycle::restart(WindowSize window) {
  clearchart();
  printheader(canvas_, window, headerline(values_.pressureentry));
}

std::optional<Refusal> ChartLifecycle::drawline(LineKind kind, const LimitTexts& texts, std::string_view value,
                                                WindowSize window) {
  readlimits(texts);
  if (!chartstands()) return Refusal{drawaxisfirst, true};
  if (!moistair::drawline(chart(window), kind, value)) return Refusal{linenotfeasible};
  return std::nullopt;
}

void ChartLifecycle::restore(const ChartStand& stand) {
  values_.drawn = stand.drawn;
  frame_ = stand.frame;
}

}  // namespace moistair
