#include "chart/propertylines.h"
#include "chart/tracing.h"
#include "engine/moistair.h"
#include "engine/solvers.h"

namespace moistair {

namespace {

/// Walks from just under highDb to just below lowDb in steps of 1 deg F. A pass whose wet bulb has no value draws
/// nothing.
/// @param wetBulb the wet bulb at a dry bulb
/// @param firstSegment called once, behind the first segment
template <class WetBulb, class FirstSegment>
bool traceLeftwards(const Chart& chart, Color color, const WetBulb& wetBulb, const FirstSegment& firstSegment) {
  if (!traceable(chart.area)) return false;
  const ChartLimits& limits = chart.area.limits;
  bool drawn = false;
  double db = limits.highDb;
  double w = 0;
  double rh = 0;
  TracedPoint last;
  do {
    db -= 1;
    const double wb = wetBulb(db);
    if (!hasValue(wb)) continue;
    const double pv = psychro_pv1(db, wb, chart.atmPressure);
    assign(w, ratioOf(pv, chart.atmPressure));
    assign(rh, humidityOf(pv, pvsAt(db)));
    const TracedPoint here = tracedPoint(chart.area, db, w, last);
    if (isSegment(limits, db, w, rh, last, here)) {
      chart.canvas.line(last.x, last.y, here.x, here.y, color);
      chart.canvas.refresh();
      if (!drawn) firstSegment();
      drawn = true;
    }
    last = here;
  } while (db >= limits.lowDb);
  return drawn;
}

}  // namespace

bool traceWbLine(const Chart& chart, double wb) {
  return traceLeftwards(
      chart, colors::wetBulb, [&](double) { return wb; }, [] {});
}

bool traceEnthLine(const Chart& chart, double h) {
  const WetBulbWalk wetBulb(h, chart.atmPressure, chart.mode);
  return traceLeftwards(chart, colors::enthalpy, wetBulb, [&] { chart.canvas.print("h=" + printedNumber(h)); });
}

bool drawWbLine(const Chart& chart, double wb) {
  const bool drawn = traceWbLine(chart, wb);
  if (drawn) chart.canvas.print("WB=" + printedNumber(wb));
  return drawn;
}

void drawWbLines(const Chart& chart) {
  for (int wb = 10; wb <= 120; wb += 10) drawWbLine(chart, wb);
}

}  // namespace moistair
