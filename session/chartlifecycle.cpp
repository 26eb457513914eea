#include "session/chartlifecycle.h"

#include <utility>

#include "chart/chartfinders.h"
#include "chart/drawchart.h"
#include "chart/propertylines.h"
#include "engine/value.h"

namespace moistair {

namespace {

constexpr const char* chartstandsalready =
    "Do one of the followings to draw new chart - 1) Change chart ranges 2) Reset atmos. pressure 3) Clear graph ";

bool draw(LineKind kind, const Chart& chart, double value) {
  switch (kind) {
    case LineKind::relativehumidity: return drawrhline(chart, value);
    case LineKind::wetbulb: return drawwbline(chart, value);
    case LineKind::enthalpy: return traceenthline(chart, value);
    case LineKind::specificvolume: break;
  }
  return tracevolline(chart, value);
}

}  // namespace

bool ChartLifecycle::chartstands(const LimitTexts& texts) {
  readlimits(texts, limits_);
  return checkdrawn(limits_, values_.drawn);
}

std::optional<Refusal> ChartLifecycle::testlimits(const LimitTexts& texts) {
  if (const char* fault = validatelimits(texts, limits_)) return Refusal{fault, true};
  return std::nullopt;
}

std::optional<Refusal> ChartLifecycle::startdraw(const LimitTexts& texts) {
  if (const auto refusal = testlimits(texts)) return refusal;
  if (checkdrawn(limits_, values_.drawn)) return Refusal{chartstandsalready};
  canvas_.Cls();
  return std::nullopt;
}

void ChartLifecycle::drawchart(WindowSize window) {
  canvas_.Cls();
  frame_ = plotframe(limits_);
  const bool standard = lenientnumber(values_.charttype) == 1;
  moistair::drawchart(chart(window), standard ? ChartType::standard : ChartType::blank, header());
  rememberlimits(limits_, values_.drawn);
}

void ChartLifecycle::clearchart() {
  canvas_.Cls();
  canvas_.DropPicture();
  forgetlimits(values_.drawn);
}

void ChartLifecycle::restart(WindowSize window) {
  clearchart();
  printheader(canvas_, window, header());
}

std::optional<Refusal> ChartLifecycle::drawline(LineKind kind, const LimitTexts& texts, std::string_view value,
                                                WindowSize window) {
  if (!chartstands(texts)) return Refusal{drawaxisfirst, true};
  double number = 0;
  assign(number, strictnumber(value));
  if (!draw(kind, chart(window), number)) return Refusal{linenotfeasible};
  return std::nullopt;
}

PlotArea ChartLifecycle::plotarea(const LimitTexts& texts, WindowSize window) {
  readlimits(texts, limits_);
  return {limits_, frame_, window};
}

RangeFinders chartrangefinders(ChartLifecycle& lifecycle, ChartLook look, std::function<void()> nothingfound) {
  const auto area = [&lifecycle, look = std::move(look)] { return lifecycle.plotarea(look.limits(), look.window()); };
  return {[area, nothingfound = std::move(nothingfound)](double rh, double atm) {
            const auto range = dbrangeofrh(rh, atm, area());
            if (!range) nothingfound();
            return range;
          },
          [area](double h, double atm) { return dbrangeofh(h, atm, area()); },
          [area](double v, double atm) { return dbrangeofspvol(v, atm, area()); }};
}

}  // namespace moistair
