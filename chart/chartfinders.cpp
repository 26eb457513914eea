#include "chart/chartfinders.h"

#include "chart/tracing.h"
#include "engine/solvers.h"

namespace moistair {

namespace {

/// The dry bulb from which a walk down in whole degrees starts. No step above 120 counts, so the part above 123 is
/// leapt over; no value for a limit so high that no walk would ever come down from it.
double walkstart(double highdb) {
  const double start = leapdown(highdb, 123);
  return start < 124 ? start : novalue;
}

/// Whether a step of a walk to the left counts.
bool counts(const ChartLimits& limits, double db, double w, double rh, Position last, Position here) {
  return db <= 120 && hasvalue(here.y) && issegment(limits, db, w, rh, last, here);
}

}  // namespace

std::optional<DryBulbRange> dbrangeofrh(double rh, double atm, const PlotArea& area) {
  std::optional<DryBulbRange> range;
  if (!(rh >= 0 && rh <= 100)) return range;
  Position last;
  for (int db = 1; db <= 121; ++db) {
    const double w = ratioofrh(pvsat(db), rh, atm);
    const Position here = positionof(area, db, w, last);
    if (last.x > 0 && area.limits.contain(db, w)) {
      if (here.y > 0 && !range) range = DryBulbRange{db - 1.0, 0};
      if (range) range->high = db;
    }
    last = here;
  }
  return range;
}

std::optional<DryBulbRange> dbrangeofh(double h, double atm, const PlotArea& area) {
  std::optional<DryBulbRange> range;
  const WetBulbWalk wetbulb(h, atm);
  Position last;
  double db = walkstart(area.limits.highdb);
  do {
    db -= 1;
    const double pv = psychro_pv1(db, wetbulb(db), atm);
    const double w = ratioof(pv, atm);
    const double rh = humidityof(pv, pvsat(db));
    const Position here = positionof(area, db, w, last);
    if (w <= greatestRatio && rh >= 0 && counts(area.limits, db, w, rh, last, here)) {
      if (!range) range = DryBulbRange{0, db + 2};
      range->low = db - 1;
    }
    last = here;
  } while (db >= 0 && db >= area.limits.lowdb);
  return range;
}

std::optional<DryBulbRange> dbrangeofspvol(double v, double atm, const PlotArea& area) {
  std::optional<DryBulbRange> range;
  if (!(v > 0 && v <= 78)) return range;
  Position last;
  double db = walkstart(area.limits.highdb);
  do {
    db -= 1;
    const SearchResult wb = wbofairwithdbandspvol(db, v, atm).wb;
    if (wb.iterations > 0 && !wb.failed()) {
      const double pv = psychro_pv1(db, wb.x, atm);
      const double w = ratioof(pv, atm);
      const double rh = humidityof(pv, pvsat(db));
      const Position here = positionof(area, db, w, last);
      if (counts(area.limits, db, w, rh, last, here)) {
        if (!range) range = DryBulbRange{0, db + 1};
        range->low = db;
      }
      last = here;
    }
    if (last.x > 0 && last.y > 0 && wb.failed()) break;
  } while (db >= area.limits.lowdb && db > absolutezero);
  return range;
}

RangeFinders chartrangefinders(std::function<PlotArea()> area) {
  return {[area](double rh, double atm) { return dbrangeofrh(rh, atm, area()); },
          [area](double h, double atm) { return dbrangeofh(h, atm, area()); },
          [area](double v, double atm) { return dbrangeofspvol(v, atm, area()); }};
}

}  // namespace moistair
