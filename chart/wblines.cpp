#include "chart/propertylines.h"
#include "chart/tracing.h"
#include "engine/moistair.h"
#include "engine/solvers.h"

namespace moistair {

namespace {

/// Walks from just under highdb to just below lowdb in steps of 1 deg F. A pass whose wet bulb has no value draws
/// nothing.
/// @param wetbulb the wet bulb at a dry bulb
/// @param firstsegment called once, behind the first segment
template <class WetBulb, class FirstSegment>
bool traceleftwards(const Chart& chart, Color color, const WetBulb& wetbulb, const FirstSegment& firstsegment) {
  if (!traceable(chart.area)) return false;
  const ChartLimits& limits = chart.area.limits;
  bool drawn = false;
  double db = limits.highdb;
  double w = 0;
  double rh = 0;
  Position last;
  do {
    db -= 1;
    const double wb = wetbulb(db);
    if (!hasvalue(wb)) continue;
    const double pv = psychro_pv1(db, wb, chart.atmpressure);
    assign(w, ratioof(pv, chart.atmpressure));
    assign(rh, humidityof(pv, pvsat(db)));
    const Position here = positionof(chart.area, db, w, last);
    if (issegment(limits, db, w, rh, last, here)) {
      chart.canvas.Line(last.x, last.y, here.x, here.y, color);
      chart.canvas.Refresh();
      if (!drawn) firstsegment();
      drawn = true;
    }
    last = here;
  } while (db >= limits.lowdb);
  return drawn;
}

}  // namespace

bool tracewbline(const Chart& chart, double wb) {
  return traceleftwards(
      chart, colors::wetbulb, [&](double) { return wb; }, [] {});
}

bool traceenthline(const Chart& chart, double h) {
  const WetBulbWalk wetbulb(h, chart.atmpressure, chart.way);
  return traceleftwards(chart, colors::enthalpy, wetbulb, [&] { chart.canvas.Print("h=" + printednumber(h)); });
}

bool drawwbline(const Chart& chart, double wb) {
  const bool drawn = tracewbline(chart, wb);
  if (drawn) chart.canvas.Print("WB=" + printednumber(wb));
  return drawn;
}

void drawwblines(const Chart& chart) {
  for (int wb = 10; wb <= 120; wb += 10) drawwbline(chart, wb);
}

}  // namespace moistair
