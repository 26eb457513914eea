#include "chart/propertylines.h"
#include "chart/tracing.h"
#include "engine/moistair.h"
#include "text/value.h"

namespace moistair {

namespace {

/// Moves on by a degree in the open part of the chart and by a tenth near its left, right and upper edges; the steps of
/// one pass add up.
double nextdb(double db, double w, const ChartLimits& limits) {
  if (db - limits.lowdb < 1) db += 0.1;
  const bool nearupperedge = !(limits.highhr - w > 0.001);
  if (db - limits.lowdb >= 1 && !nearupperedge && limits.highdb - db > 1) db += 1;
  if (nearupperedge) db += 0.1;
  if (!(limits.highdb - db > 1)) db += 0.1;
  return db;
}

void printlabel(const Chart& chart, double rh) { chart.canvas.Print("Rh=" + printednumber(rh)); }

}  // namespace

bool tracerhline(const Chart& chart, double rh, double& w) {
  if (!(rh >= 0 && rh <= 100) || !traceable(chart.area)) return false;
  const ChartLimits& limits = chart.area.limits;
  bool drawn = false;
  double db = 0;
  Position last;
  do {
    db = nextdb(db, w, limits);
    assign(w, psychro_wrh(db, rh, chart.atmpressure));
    const Position here = positionof(chart.area, db, w, last);
    if (last.x > 0 && limits.contain(db, w)) {
      chart.canvas.Line(last.x, last.y, here.x, here.y, colors::relativehumidity);
      chart.canvas.Refresh();
      drawn = true;
    }
    last = here;
  } while (db <= 120);
  return drawn;
}

bool drawrhline(const Chart& chart, double rh) {
  double w = 0;
  const bool drawn = tracerhline(chart, rh, w);
  if (drawn) printlabel(chart, rh);
  return drawn;
}

void drawrhlines(const Chart& chart) {
  double w = 0;
  for (const double rh : {100.0, 80.0, 60.0, 40.0, 20.0, 10.0}) {
    if (tracerhline(chart, rh, w)) printlabel(chart, rh);
  }
}

void drawsatline(const Chart& chart) { drawrhline(chart, 100); }

}  // namespace moistair
