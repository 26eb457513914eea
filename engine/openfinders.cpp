#include "engine/openfinders.h"

#include "engine/moistair.h"
#include "engine/solvers.h"

namespace moistair {

namespace {

std::optional<DryBulbRange> openRangeOfRh(double rh, double atm) {
  std::optional<DryBulbRange> range;
  if (!(rh >= 0 && rh <= 100)) return range;
  for (int db = 1; db <= 120; ++db) {
    const double w = ratioOfRh(pvsAt(db), rh, atm);
    if (!(w >= 0 && w <= greatestRatio)) continue;
    if (!range) range = DryBulbRange{db - 1.0, 0};
    range->high = db;
  }
  return range;
}

std::optional<DryBulbRange> openRangeOfH(double h, double atm, SearchMode mode) {
  std::optional<DryBulbRange> range;
  const WetBulbWalk wetBulb(h, atm, mode);
  for (int db = 119; db >= 0; --db) {
    const double wb = wetBulb(db);
    const double pv = psychro_pv1(db, wb, atm);
    const double w = ratioOf(pv, atm);
    const double rh = humidityOf(pv, pvsAt(db));
    if (!(w > 0 && w <= greatestRatio && rh >= 0 && rh <= 100)) continue;
    if (!range) range = DryBulbRange{0, db + 2.0};
    range->low = db - 1;
  }
  return range;
}

std::optional<DryBulbRange> openRangeOfV(double v, double atm, SearchMode mode) {
  std::optional<DryBulbRange> range;
  if (!(v > 0 && v <= 78)) return range;
  for (int db = 119; db >= 0; --db) {
    const auto wet = wbOfAirWithDbAndV(db, v, atm, mode).wb;
    if (wet.iterations == iterationLimit) break;
    if (wet.iterations == 0) continue;
    const double pv = psychro_pv1(db, wet.x, atm);
    const double w = ratioOf(pv, atm);
    const double rh = humidityOf(pv, pvsAt(db));
    if (!(w > 0 && w <= greatestRatio && rh <= 100)) continue;
    if (!range) range = DryBulbRange{0, db + 1.0};
    range->low = db;
  }
  return range;
}

}  // namespace

const RangeFinders& openRangeFinders(SearchMode mode) {
  const auto finders = [](SearchMode along) {
    return RangeFinders{openRangeOfRh, [=](double h, double atm) { return openRangeOfH(h, atm, along); },
                        [=](double v, double atm) { return openRangeOfV(v, atm, along); }, along};
  };
  static const RangeFinders accelerated = finders(SearchMode::accelerated);
  static const RangeFinders reference = finders(SearchMode::reference);
  return mode == SearchMode::accelerated ? accelerated : reference;
}

}  // namespace moistair
