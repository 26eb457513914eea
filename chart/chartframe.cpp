#include "chart/chartframe.h"

#include <algorithm>

#include "text/value.h"

namespace moistair {

namespace {

template <std::size_t size>
bool offered(double limit, const std::array<const char*, size>& list) {
  return std::any_of(list.begin(), list.end(), [&](const char* item) { return strictNumber(item) == limit; });
}

}  // namespace

PlotFrame plotFrame(const ChartLimits& limits) {
  const double hrSpan = limits.highHr - limits.lowHr;
  const double dbSpan = limits.highDb - limits.lowDb;
  return {hrSpan, dbSpan, hrSpan * 6000 / 4500, dbSpan * 12 / 10};
}

PlotArea plotArea(const ChartLimits& limits, const WindowSize& window) { return {limits, plotFrame(limits), window}; }

double PlotArea::plotX(double db) const { return quotient(window.width * (db - limits.lowDb), frame.dbScale) + left(); }

double PlotArea::plotY(double w) const {
  return bottom() - quotient(window.height * (w - limits.lowHr), frame.hrScale);
}

void readLimits(const LimitTexts& texts, ChartLimits& limits) {
  assign(limits.lowDb, strictNumber(texts.lowDb));
  assign(limits.highDb, strictNumber(texts.highDb));
  assign(limits.lowHr, strictNumber(texts.lowHr));
  assign(limits.highHr, strictNumber(texts.highHr));
}

const char* validateLimits(const LimitTexts& texts, ChartLimits& limits) {
  assign(limits.lowDb, strictNumber(texts.lowDb));
  if (!offered(limits.lowDb, dryBulbLimits)) {
    return "Choose Lower Dry bulb temperature for chart only from the drop down menu";
  }
  assign(limits.highDb, strictNumber(texts.highDb));
  if (!offered(limits.highDb, dryBulbLimits)) {
    return "Choose Higher Dry bulb temperature for chart only from the drop down menu";
  }
  assign(limits.lowHr, strictNumber(texts.lowHr));
  if (!offered(limits.lowHr, humidityRatioLimits)) {
    return "Choose Lower humidity ratio for chart only from the drop down menu";
  }
  assign(limits.highHr, strictNumber(texts.highHr));
  if (!offered(limits.highHr, humidityRatioLimits)) {
    return "Choose Higher humidity ratio for chart only from the drop down menu";
  }
  if (!(limits.highDb > limits.lowDb)) {
    return "Higher limit of dry bulb temperature must be greater than lower limit of dry bulb temperature";
  }
  if (!(limits.highHr > limits.lowHr)) {
    return "Higher limit of humidity ratio must be greater than lower limit of humidity ratio";
  }
  return nullptr;
}

bool checkDrawn(const ChartLimits& limits, const DrawnLimits& drawn) {
  return limits ==
         ChartLimits{drawn.lowDb.lenient(), drawn.highDb.lenient(), drawn.lowHr.lenient(), drawn.highHr.lenient()};
}

void rememberLimits(const ChartLimits& limits, DrawnLimits& drawn) {
  drawn.lowDb.set(limits.lowDb);
  drawn.highDb.set(limits.highDb);
  drawn.lowHr.set(limits.lowHr);
  drawn.highHr.set(limits.highHr);
}

void forgetLimits(DrawnLimits& drawn) { drawn.lowDb.set(121); }

}  // namespace moistair
