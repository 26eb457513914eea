#include "engine/openfinders.h"

#include "engine/moistair.h"
#include "engine/solvers.h"

namespace moistair {

namespace {

constexpr double highestratio = 0.03;

std::optional<DryBulbRange> openrangeofrh(double rh, double atm) {
  std::optional<DryBulbRange> range;
  if (!(rh >= 0 && rh <= 100)) return range;
  for (int db = 1; db <= 120; ++db) {
    const double w = psychro_wrh(db, rh, atm);
    if (!(w >= 0 && w <= highestratio)) continue;
    if (!range) range = DryBulbRange{db - 1.0, 0};
    range->high = db;
  }
  return range;
}

std::optional<DryBulbRange> openrangeofh(double h, double atm) {
  std::optional<DryBulbRange> range;
  for (int db = 119; db >= 0; --db) {
    const double wb = psychro_wb(db, h, atm);
    const double w = psychro_w(db, wb, atm);
    const double rh = psychro_rh(db, wb, atm);
    if (!(w > 0 && w <= highestratio && rh >= 0 && rh <= 100)) continue;
    if (!range) range = DryBulbRange{0, db + 2.0};
    range->low = db - 1;
  }
  return range;
}

std::optional<DryBulbRange> openrangeofspvol(double v, double atm) {
  std::optional<DryBulbRange> range;
  if (!(v > 0 && v <= 78)) return range;
  for (int db = 119; db >= 0; --db) {
    const auto wet = wbwithdbandspvol(db, v, atm);
    if (wet.iterations == iterationlimit) break;
    if (wet.iterations == 0) continue;
    const double w = psychro_w(db, wet.x, atm);
    const double rh = psychro_rh(db, wet.x, atm);
    if (!(w > 0 && w <= highestratio && rh <= 100)) continue;
    if (!range) range = DryBulbRange{0, db + 1.0};
    range->low = db;
  }
  return range;
}

}  // namespace

const RangeFinders& openrangefinders() {
  static const RangeFinders finders{openrangeofrh, openrangeofh, openrangeofspvol};
  return finders;
}

}  // namespace moistair
