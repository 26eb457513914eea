#include "engine/openfinders.h"

#include "engine/moistair.h"
#include "engine/solvers.h"

namespace moistair {

namespace {

std::optional<DryBulbRange> openrangeofrh(double rh, double atm) {
  std::optional<DryBulbRange> range;
  if (!(rh >= 0 && rh <= 100)) return range;
  for (int db = 1; db <= 120; ++db) {
    const double w = ratioofrh(pvsat(db), rh, atm);
    if (!(w >= 0 && w <= greatestRatio)) continue;
    if (!range) range = DryBulbRange{db - 1.0, 0};
    range->high = db;
  }
  return range;
}

std::optional<DryBulbRange> openrangeofh(double h, double atm, Way way) {
  std::optional<DryBulbRange> range;
  const WetBulbWalk wetbulb(h, atm, way);
  for (int db = 119; db >= 0; --db) {
    const double wb = wetbulb(db);
    const double pv = psychro_pv1(db, wb, atm);
    const double w = ratioof(pv, atm);
    const double rh = humidityof(pv, pvsat(db));
    if (!(w > 0 && w <= greatestRatio && rh >= 0 && rh <= 100)) continue;
    if (!range) range = DryBulbRange{0, db + 2.0};
    range->low = db - 1;
  }
  return range;
}

std::optional<DryBulbRange> openrangeofspvol(double v, double atm, Way way) {
  std::optional<DryBulbRange> range;
  if (!(v > 0 && v <= 78)) return range;
  for (int db = 119; db >= 0; --db) {
    const auto wet = wbofairwithdbandspvol(db, v, atm, way).wb;
    if (wet.iterations == iterationlimit) break;
    if (wet.iterations == 0) continue;
    const double pv = psychro_pv1(db, wet.x, atm);
    const double w = ratioof(pv, atm);
    const double rh = humidityof(pv, pvsat(db));
    if (!(w > 0 && w <= greatestRatio && rh <= 100)) continue;
    if (!range) range = DryBulbRange{0, db + 1.0};
    range->low = db;
  }
  return range;
}

}  // namespace

const RangeFinders& openrangefinders(Way way) {
  const auto finders = [](Way along) {
    return RangeFinders{openrangeofrh, [=](double h, double atm) { return openrangeofh(h, atm, along); },
                        [=](double v, double atm) { return openrangeofspvol(v, atm, along); }, along};
  };
  static const RangeFinders quick = finders(Way::quick);
  static const RangeFinders plain = finders(Way::plain);
  return way == Way::quick ? quick : plain;
}

}  // namespace moistair
