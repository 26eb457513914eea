#include "chart/propertylines.h"
#include "chart/tracing.h"
#include "engine/moistair.h"
#include "text/value.h"

namespace moistair {

namespace {

/// Moves on by a degree in the open part of the chart and by a tenth near its left, right and upper edges; the steps of
/// one pass add up.
double nextDb(double db, double w, const ChartLimits& limits) {
  if (db - limits.lowDb < 1) db += 0.1;
  const bool nearUpperEdge = !(limits.highHr - w > 0.001);
  if (db - limits.lowDb >= 1 && !nearUpperEdge && limits.highDb - db > 1) db += 1;
  if (nearUpperEdge) db += 0.1;
  if (!(limits.highDb - db > 1)) db += 0.1;
  return db;
}

void printLabel(const Chart& chart, double rh) { chart.canvas.print("Rh=" + printedNumber(rh)); }

}  // namespace

bool traceRhLine(const Chart& chart, double rh, double& w) {
  if (!(rh >= 0 && rh <= 100) || !traceable(chart.area)) return false;
  const ChartLimits& limits = chart.area.limits;
  bool drawn = false;
  double db = 0;
  TracedPoint last;
  do {
    db = nextDb(db, w, limits);
    assign(w, psychro_wrh(db, rh, chart.atmPressure));
    const TracedPoint here = tracedPoint(chart.area, db, w, last);
    if (last.x > 0 && limits.contain(db, w)) {
      chart.canvas.line(last.x, last.y, here.x, here.y, colors::relativeHumidity);
      chart.canvas.refresh();
      drawn = true;
    }
    last = here;
  } while (db <= 120);
  return drawn;
}

bool drawRhLine(const Chart& chart, double rh) {
  double w = 0;
  const bool drawn = traceRhLine(chart, rh, w);
  if (drawn) printLabel(chart, rh);
  return drawn;
}

void drawRhLines(const Chart& chart) {
  double w = 0;
  for (const double rh : {100.0, 80.0, 60.0, 40.0, 20.0, 10.0}) {
    if (traceRhLine(chart, rh, w)) printLabel(chart, rh);
  }
}

void drawSatLine(const Chart& chart) { drawRhLine(chart, 100); }

}  // namespace moistair
