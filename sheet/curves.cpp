#include "sheet/curves.h"

#include <algorithm>

#include "engine/moistair.h"
#include "engine/saturation.h"
#include "engine/vaporterms.h"
#include "sheet/geometry.h"
#include "sheet/halving.h"

namespace moistair {

namespace {

constexpr double tolerance = 0.1;  // pixels
constexpr int samples = 96;        // in which a stretch that shows is looked for

double distanceToLine(SheetPoint point, SheetPoint from, SheetPoint to) {
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
  void between(double fromDb, SheetPoint from, double toDb, SheetPoint to, int depth) {
    constexpr int deepest = 12;
    const double middleDb = (fromDb + toDb) / 2;
    const SheetPoint middle = at(middleDb);
    const auto off = [&](double db) { return distanceToLine(at(db), from, to); };
    const bool straight = distanceToLine(middle, from, to) < tolerance * 0.8 &&
                          off((fromDb + middleDb) / 2) < tolerance * 0.8 &&
                          off((middleDb + toDb) / 2) < tolerance * 0.8;
    if (straight || depth == deepest) {
      points.push_back(to);
      return;
    }
    between(fromDb, from, middleDb, middle, depth + 1);
    between(middleDb, middle, toDb, to, depth + 1);
  }
};

bool shows(const SheetPlot& plot, double db, double w) {
  const double slack = 0.01 / plot.perW();
  return w >= plot.limits.lowHr - slack && w <= plot.limits.highHr + slack &&
         w <= saturationRatio(db, plot.atm) + slack;
}

}  // namespace

bool SheetPlot::holds(SheetPoint place) const {
  const double dryBulb = db(place.x);
  const double ratio = w(place.y);
  return limits.contain(dryBulb, ratio) && ratio <= saturationRatio(dryBulb, atm);
}

LineFunction lineFunction(LineKind kind, double value, double atm) {
  switch (kind) {
    case LineKind::relativeHumidity: return [=](double db) { return psychro_wrh(db, value, atm); };
    case LineKind::wetBulb:
      return [=, ps = psychro_pvs(value)](double db) { return ratioOf(vaporPressureOf(db, value, atm, ps), atm); };
    case LineKind::enthalpy: return [=](double db) { return ratioOfEnthalpy(db, value); };
    case LineKind::specificVolume: break;
  }
  return [=](double db) { return ratioOfVolume(db, value, atm); };
}

std::vector<SheetPoint> traced(const SheetPlot& plot, const LineFunction& w, double fromDb, double toDb) {
  std::vector<SheetPoint> points;
  Tracer tracer{plot, w, points};
  points.push_back(tracer.at(fromDb));
  tracer.between(fromDb, points.front(), toDb, tracer.at(toDb), 0);
  return points;
}

std::vector<std::vector<SheetPoint>> visibleStretches(const SheetPlot& plot, const LineFunction& w) {
  const auto isSeen = [&](double db) { return shows(plot, db, w(db)); };
  const double step = (plot.limits.highDb - plot.limits.lowDb) / samples;
  std::vector<std::vector<SheetPoint>> stretches;
  bool seen = false;
  double begin = 0;
  for (int i = 0; i <= samples; ++i) {
    const double db = i == samples ? plot.limits.highDb : plot.limits.lowDb + i * step;
    const bool now = isSeen(db);
    if (now && !seen) begin = i == 0 ? db : lastWith(isSeen, db, db - step);
    const bool ends = seen && (!now || i == samples);
    if (ends) stretches.push_back(traced(plot, w, begin, now ? db : lastWith(isSeen, db - step, db)));
    seen = now;
  }
  return stretches;
}

std::vector<std::vector<SheetPoint>> visibleLine(const SheetPlot& plot, LineKind kind, double value, double atm) {
  return visibleStretches(plot, lineFunction(kind, value, atm));
}

}  // namespace moistair
