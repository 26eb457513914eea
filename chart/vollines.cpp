#include "chart/propertylines.h"
#include "chart/tracing.h"
#include "engine/moistair.h"
#include "engine/solvers.h"

namespace moistair {

namespace {

/// Step between the lines of the family, by the volume of the first.
double familystep(double first) {
  if (first > 50) return 2;
  if (first > 20) return 1;
  if (first > 10) return 0.5;
  if (first > 5) return 0.2;
  return 0.1;
}

Position exactposition(const Chart& chart, double db, double v, Position near) {
  const SearchResult wb = wbwithdbandspvol(db, v, chart.atmpressure, chart.way);
  return positionof(chart.area, db, psychro_w(db, wb.x, chart.atmpressure), near);
}

}  // namespace

bool tracevolline(const Chart& chart, double v) {
  if (!(v > 0 && v <= 78) || !traceable(chart.area)) return false;
  const ChartLimits& limits = chart.area.limits;
  bool drawn = false;
  double db = limits.highdb;
  double w = 0;
  double rh = 0;
  Position last;
  double lastdb = db;
  bool lastnear = false;  // only about there, since nothing is drawn from there
  do {
    db -= 0.1;
    const auto [wb, near] = wbofairwithdbandspvol(db, v, chart.atmpressure, chart.way);
    if (wb.iterations > 0 && !wb.failed()) {
      const double pv = psychro_pv1(db, wb.x, chart.atmpressure);
      assign(w, ratioof(pv, chart.atmpressure));
      assign(rh, humidityof(pv, psychro_pvs(db)));
      const Position here = positionof(chart.area, db, w, last);
      if (issegment(limits, db, w, rh, last, here)) {
        if (lastnear) last = exactposition(chart, lastdb, v, last);
        chart.canvas.Line(last.x, last.y, here.x, here.y, colors::specificvolume);
        if (!drawn) chart.canvas.Print("v=" + printednumber(v));
        drawn = true;
        chart.canvas.Refresh();
      }
      last = here;
      lastdb = db;
      lastnear = near;
    }
    if (last.x > 0 && last.y > 0 && wb.failed()) break;
  } while (db >= limits.lowdb);
  return drawn;
}

/// No line lies above 78 cu ft/lb, so from a huge largest volume the family starts at its first value that can be
/// drawn.
void drawvollines(const Chart& chart) {
  constexpr double highest = 78;
  const double largest =
      spvolwithdbandhr(chart.area.limits.highdb, chart.area.limits.highhr, chart.atmpressure, chart.way);
  double v = std::nearbyint(largest) + 1;
  const double step = familystep(v);
  if (v > highest) v -= std::ceil((v - highest) / step) * step;
  for (; v >= 0.5; v -= step) tracevolline(chart, v);
}

}  // namespace moistair
