#include "chart/chartfinders.h"

#include "chart/tracing.h"
#include "engine/solvers.h"

namespace moistair {

namespace {

/// The dry bulb from which a walk down in whole degrees starts. No step above 120 counts, so the part above 123 is
/// leapt over; no value for a limit so high that no walk would ever come down from it.
double walkStart(double highDb) {
  const double start = leapDown(highDb, 123);
  return start < 124 ? start : noValue;
}

/// Whether a step of a walk to the left counts.
bool counts(const ChartLimits& limits, double db, double w, double rh, TracedPoint last, TracedPoint here) {
  return db <= 120 && hasValue(here.y) && isSegment(limits, db, w, rh, last, here);
}

}  // namespace

std::optional<DryBulbRange> dbRangeOfRh(double rh, double atm, const PlotArea& area) {
  std::optional<DryBulbRange> range;
  if (!(rh >= 0 && rh <= 100)) return range;
  TracedPoint last;
  for (int db = 1; db <= 121; ++db) {
    const double w = ratioOfRh(pvsAt(db), rh, atm);
    const TracedPoint here = tracedPoint(area, db, w, last);
    if (last.x > 0 && area.limits.contain(db, w)) {
      if (here.y > 0 && !range) range = DryBulbRange{db - 1.0, 0};
      if (range) range->high = db;
    }
    last = here;
  }
  return range;
}

std::optional<DryBulbRange> dbRangeOfH(double h, double atm, const PlotArea& area) {
  std::optional<DryBulbRange> range;
  const WetBulbWalk wetBulb(h, atm);
  TracedPoint last;
  double db = walkStart(area.limits.highDb);
  do {
    db -= 1;
    const double pv = psychro_pv1(db, wetBulb(db), atm);
    const double w = ratioOf(pv, atm);
    const double rh = humidityOf(pv, pvsAt(db));
    const TracedPoint here = tracedPoint(area, db, w, last);
    if (w <= greatestRatio && rh >= 0 && counts(area.limits, db, w, rh, last, here)) {
      if (!range) range = DryBulbRange{0, db + 2};
      range->low = db - 1;
    }
    last = here;
  } while (db >= 0 && db >= area.limits.lowDb);
  return range;
}

std::optional<DryBulbRange> dbRangeOfSpvol(double v, double atm, const PlotArea& area) {
  std::optional<DryBulbRange> range;
  if (!(v > 0 && v <= 78)) return range;
  TracedPoint last;
  double db = walkStart(area.limits.highDb);
  do {
    db -= 1;
    const SearchResult wb = wbOfAirWithDbAndV(db, v, atm).wb;
    if (wb.iterations > 0 && !wb.failed()) {
      const double pv = psychro_pv1(db, wb.x, atm);
      const double w = ratioOf(pv, atm);
      const double rh = humidityOf(pv, pvsAt(db));
      const TracedPoint here = tracedPoint(area, db, w, last);
      if (counts(area.limits, db, w, rh, last, here)) {
        if (!range) range = DryBulbRange{0, db + 1};
        range->low = db;
      }
      last = here;
    }
    if (last.x > 0 && last.y > 0 && wb.failed()) break;
  } while (db >= area.limits.lowDb && db > absoluteZero);
  return range;
}

RangeFinders chartRangeFinders(std::function<PlotArea()> area) {
  return {[area](double rh, double atm) { return dbRangeOfRh(rh, atm, area()); },
          [area](double h, double atm) { return dbRangeOfH(h, atm, area()); },
          [area](double v, double atm) { return dbRangeOfSpvol(v, atm, area()); }};
}

}  // namespace moistair
