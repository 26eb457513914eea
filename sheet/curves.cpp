#include "sheet/curves.h"

#include <algorithm>

#include "engine/moistair.h"
#include "engine/saturation.h"
#include "engine/vaporterms.h"
#include "sheet/geometry.h"

namespace moistair {

namespace {

constexpr double tolerance = 0.1;  // pixels
constexpr int samples = 96;        // in which a stretch that shows is looked for

double distancetoline(SheetPoint point, SheetPoint from, SheetPoint to) {
  const double size = distance(from, to);
  return size > 0 ? std::abs(cross(to - from, point - from)) / size : distance(point, from);
}

struct Tracer {
  const SheetPlot& plot;
  const LineFunction& w;
  std::vector<SheetPoint>& points;

  SheetPoint at(double db) const { return plot.at(db, w(db)); }

  /// Adds what lies between two points, and the second. Three places between them are looked at, so that a turn in one
  /// half is not missed.
  void between(double fromdb, SheetPoint from, double todb, SheetPoint to, int depth) {
    constexpr int deepest = 12;
    const double middledb = (fromdb + todb) / 2;
    const SheetPoint middle = at(middledb);
    const auto off = [&](double db) { return distancetoline(at(db), from, to); };
    const bool straight = distancetoline(middle, from, to) < tolerance * 0.8 &&
                          off((fromdb + middledb) / 2) < tolerance * 0.8 &&
                          off((middledb + todb) / 2) < tolerance * 0.8;
    if (straight || depth == deepest) {
      points.push_back(to);
      return;
    }
    between(fromdb, from, middledb, middle, depth + 1);
    between(middledb, middle, todb, to, depth + 1);
  }
};

bool shows(const SheetPlot& plot, double db, double w) {
  const double slack = 0.01 / plot.perw();
  return w >= plot.limits.lowhr - slack && w <= plot.limits.highhr + slack &&
         w <= saturationratio(db, plot.atm) + slack;
}

}  // namespace

bool SheetPlot::holds(SheetPoint place) const {
  const double drybulb = db(place.x);
  const double ratio = w(place.y);
  return limits.contain(drybulb, ratio) && ratio <= saturationratio(drybulb, atm);
}

LineFunction linefunction(LineKind kind, double value, double atm) {
  switch (kind) {
    case LineKind::relativehumidity: return [=](double db) { return psychro_wrh(db, value, atm); };
    case LineKind::wetbulb:
      return [=, ps = psychro_pvs(value)](double db) { return ratioof(vaporpressureof(db, value, atm, ps), atm); };
    case LineKind::enthalpy: return [=](double db) { return ratioofenthalpy(db, value); };
    case LineKind::specificvolume: break;
  }
  return [=](double db) { return ratioofvolume(db, value, atm); };
}

std::vector<SheetPoint> traced(const SheetPlot& plot, const LineFunction& w, double fromdb, double todb) {
  std::vector<SheetPoint> points;
  Tracer tracer{plot, w, points};
  points.push_back(tracer.at(fromdb));
  tracer.between(fromdb, points.front(), todb, tracer.at(todb), 0);
  return points;
}

std::vector<std::vector<SheetPoint>> visibleStretches(const SheetPlot& plot, const LineFunction& w) {
  const auto isseen = [&](double db) { return shows(plot, db, w(db)); };
  const double step = (plot.limits.highdb - plot.limits.lowdb) / samples;
  std::vector<std::vector<SheetPoint>> stretches;
  bool seen = false;
  double begin = 0;
  for (int i = 0; i <= samples; ++i) {
    const double db = i == samples ? plot.limits.highdb : plot.limits.lowdb + i * step;
    const bool now = isseen(db);
    if (now && !seen) begin = i == 0 ? db : lastwith(isseen, db, db - step);
    const bool ends = seen && (!now || i == samples);
    if (ends) stretches.push_back(traced(plot, w, begin, now ? db : lastwith(isseen, db - step, db)));
    seen = now;
  }
  return stretches;
}

std::vector<std::vector<SheetPoint>> visibleline(const SheetPlot& plot, LineKind kind, double value, double atm) {
  return visibleStretches(plot, linefunction(kind, value, atm));
}

}  // namespace moistair
