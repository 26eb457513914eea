#include "chart/propertylines.h"
#include "chart/tracing.h"
#include "engine/moistair.h"
#include "engine/solvers.h"

namespace moistair {

namespace {

/// Step between the lines of the family, by the volume of the first.
double familyStep(double first) {
  if (first > 50) return 2;
  if (first > 20) return 1;
  if (first > 10) return 0.5;
  if (first > 5) return 0.2;
  return 0.1;
}

TracedPoint exactPoint(const Chart& chart, double db, double v, TracedPoint near) {
  const SearchResult wb = wbWithDbAndV(db, v, chart.atmPressure, chart.mode);
  return tracedPoint(chart.area, db, psychro_w(db, wb.x, chart.atmPressure), near);
}

}  // namespace

bool traceVolLine(const Chart& chart, double v) {
  if (!(v > 0 && v <= 78) || !traceable(chart.area)) return false;
  const ChartLimits& limits = chart.area.limits;
  bool drawn = false;
  double db = limits.highDb;
  double w = 0;
  double rh = 0;
  TracedPoint last;
  double lastDb = db;
  bool lastNear = false;  // only about there, since nothing is drawn from there
  do {
    db -= 0.1;
    const auto [wb, near] = wbOfAirWithDbAndV(db, v, chart.atmPressure, chart.mode);
    if (wb.iterations > 0 && !wb.failed()) {
      const double pv = psychro_pv1(db, wb.x, chart.atmPressure);
      assign(w, ratioOf(pv, chart.atmPressure));
      assign(rh, humidityOf(pv, psychro_pvs(db)));
      const TracedPoint here = tracedPoint(chart.area, db, w, last);
      if (isSegment(limits, db, w, rh, last, here)) {
        if (lastNear) last = exactPoint(chart, lastDb, v, last);
        chart.canvas.line(last.x, last.y, here.x, here.y, colors::specificVolume);
        if (!drawn) chart.canvas.print("v=" + printedNumber(v));
        drawn = true;
        chart.canvas.refresh();
      }
      last = here;
      lastDb = db;
      lastNear = near;
    }
    if (last.x > 0 && last.y > 0 && wb.failed()) break;
  } while (db >= limits.lowDb);
  return drawn;
}

/// No line lies above 78 cu ft/lb, so from a huge largest volume the family starts at its first value that can be
/// drawn.
void drawVolLines(const Chart& chart) {
  constexpr double highest = 78;
  const double largest =
      spvolWithDbAndHr(chart.area.limits.highDb, chart.area.limits.highHr, chart.atmPressure, chart.mode);
  double v = std::nearbyint(largest) + 1;
  const double step = familyStep(v);
  if (v > highest) v -= std::ceil((v - highest) / step) * step;
  for (; v >= 0.5; v -= step) traceVolLine(chart, v);
}

}  // namespace moistair
