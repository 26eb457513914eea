#include "chart/chartframe.h"

#include <algorithm>

#include "text/value.h"

namespace moistair {

namespace {

template <std::size_t size>
bool offered(double limit, const std::array<const char*, size>& list) {
  return std::any_of(list.begin(), list.end(), [&](const char* item) { return strictnumber(item) == limit; });
}

}  // namespace

PlotFrame plotframe(const ChartLimits& limits) {
  const double hrspan = limits.highhr - limits.lowhr;
  const double dbspan = limits.highdb - limits.lowdb;
  return {hrspan, dbspan, hrspan * 6000 / 4500, dbspan * 12 / 10};
}

PlotArea plotarea(const ChartLimits& limits, const WindowSize& window) { return {limits, plotframe(limits), window}; }

double PlotArea::plotx(double db) const { return quotient(window.width * (db - limits.lowdb), frame.dbscale) + left(); }

double PlotArea::ploty(double hr) const {
  return bottom() - quotient(window.height * (hr - limits.lowhr), frame.hrscale);
}

void readlimits(const LimitTexts& texts, ChartLimits& limits) {
  assign(limits.lowdb, strictnumber(texts.lowdb));
  assign(limits.highdb, strictnumber(texts.highdb));
  assign(limits.lowhr, strictnumber(texts.lowhr));
  assign(limits.highhr, strictnumber(texts.highhr));
}

const char* validatelimits(const LimitTexts& texts, ChartLimits& limits) {
  assign(limits.lowdb, strictnumber(texts.lowdb));
  if (!offered(limits.lowdb, drybulblimits)) {
    return "Choose Lower Dry bulb temperature for chart only from the drop down menu";
  }
  assign(limits.highdb, strictnumber(texts.highdb));
  if (!offered(limits.highdb, drybulblimits)) {
    return "Choose Higher Dry bulb temperature for chart only from the drop down menu";
  }
  assign(limits.lowhr, strictnumber(texts.lowhr));
  if (!offered(limits.lowhr, humidityratiolimits)) {
    return "Choose Lower humidity ratio for chart only from the drop down menu";
  }
  assign(limits.highhr, strictnumber(texts.highhr));
  if (!offered(limits.highhr, humidityratiolimits)) {
    return "Choose Higher humidity ratio for chart only from the drop down menu";
  }
  if (!(limits.highdb > limits.lowdb)) {
    return "Higher limit of dry bulb temperature must be greater than lower limit of dry bulb temperature";
  }
  if (!(limits.highhr > limits.lowhr)) {
    return "Higher limit of humidity ratio must be greater than lower limit of humidity ratio";
  }
  return nullptr;
}

bool checkdrawn(const ChartLimits& limits, const DrawnLimits& drawn) {
  return limits ==
         ChartLimits{drawn.lowdb.lenient(), drawn.highdb.lenient(), drawn.lowhr.lenient(), drawn.highhr.lenient()};
}

void rememberlimits(const ChartLimits& limits, DrawnLimits& drawn) {
  drawn.lowdb.set(limits.lowdb);
  drawn.highdb.set(limits.highdb);
  drawn.lowhr.set(limits.lowhr);
  drawn.highhr.set(limits.highhr);
}

void forgetlimits(DrawnLimits& drawn) { drawn.lowdb.set(121); }

}  // namespace moistair
