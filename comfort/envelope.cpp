#include "comfort/envelope.h"

#include <algorithm>
#include <cmath>

#include "engine/pressureunits.h"
#include "engine/saturation.h"
#include "engine/vaporterms.h"

namespace moistair {

namespace {

double ratioOfPressure(double pv, double atm) { return pv < atm ? ratioOf(pv, atm) : unbounded; }

/// Elevation of a pressure [ft], psychro_atm run backward; no value for a pressure of 0 and below.
double elevationOf(double atm) {
  if (!(atm > 0)) return noValue;
  return valueOf((1 - std::pow(atm * psiPerInhg / 14.696, 1 / 5.2559)) / 6.8754e-06);
}

/// Air whose dew point is this one. Below the turn of the dew point's equation, which is far below any frost, there is
/// none: then even dry air is too moist for a highest value, and moist enough for a lowest.
double ratioOfDewPoint(double dp, double atm) {
  const double pv = pressureOfDewPoint(dp);
  return hasValue(pv) ? ratioOfPressure(pv, atm) : 0;
}

/// No air is as wet as a wet bulb above its dry bulb, and all is wetter than one at absolute zero.
double ratioOfWetBulb(double db, double wb, double atm) {
  if (wb <= absoluteZero) return -unbounded;
  if (wb > db || !(psychro_pvs(wb) < atm)) return unbounded;
  return psychro_w(db, wb, atm);
}

/// Humidity ratio at a dry bulb with a value of a property; all of them rise with the humidity ratio.
double ratioOfValue(PropertyKind kind, double value, double db, double atm) {
  switch (kind) {
    case PropertyKind::wb: return ratioOfWetBulb(db, value, atm);
    case PropertyKind::rh: return ratioOfPressure(value / 100 * psychro_pvs(db), atm);
    case PropertyKind::w: return value;
    case PropertyKind::h: return ratioOfEnthalpy(db, value);
    case PropertyKind::dp: return ratioOfDewPoint(value, atm);
    case PropertyKind::v: return ratioOfVolume(db, value, atm);
    case PropertyKind::pv: return ratioOfPressure(value, atm);
    case PropertyKind::db: break;
  }
  return noValue;
}

}  // namespace

void LimitedRange::raiseLow(double value, int by) {
  if (!(value > low)) return;
  low = value;
  lowBy = by;
}

void LimitedRange::lowerHigh(double value, int by) {
  if (!(value < high)) return;
  high = value;
  highBy = by;
}

Outcome checkEnvelope(const Envelope& envelope) {
  if (envelope.limits.empty()) return Error{ErrorCode::outOfRange, "limits", "must have at least one property"};
  for (auto at = envelope.limits.begin(); at != envelope.limits.end(); ++at) {
    const auto same = [&](const PropertyLimits& other) { return other.kind == at->kind; };
    if (std::any_of(envelope.limits.begin(), at, same)) {
      return Error{ErrorCode::duplicate, nameOf(at->kind), "is limited twice"};
    }
    if (!(at->low <= at->high)) {
      return Error{ErrorCode::outOfRange, nameOf(at->kind), "the lowest value must not be above the highest"};
    }
  }
  const auto top = [](const PropertyLimits& at) { return at.kind == PropertyKind::db && at.high < unbounded; };
  if (!envelope.derating) return {};
  if (!(envelope.derating->perThousandFeet >= 0) || !hasValue(envelope.derating->above)) {
    return Error{ErrorCode::outOfRange, "derating", "must be at least 0 deg F to 1000 ft"};
  }
  if (std::none_of(envelope.limits.begin(), envelope.limits.end(), top)) {
    return Error{ErrorCode::outOfRange, "derating", "needs a highest dry bulb"};
  }
  return {};
}

PropertyLimits dryBulbsOf(const Envelope& envelope, double atm) {
  PropertyLimits limits;
  for (const PropertyLimits& at : envelope.limits) {
    if (at.kind == PropertyKind::db) limits = at;
  }
  if (envelope.derating) {
    const double above = std::max(0.0, elevationOf(atm) - envelope.derating->above);
    limits.high -= above / 1000 * envelope.derating->perThousandFeet;
  }
  return limits;
}

LimitedRange ratiosWithin(const Envelope& envelope, double db, double atm) {
  LimitedRange range{0, saturationRatio(db, atm), -1, -1};
  for (std::size_t i = 0; i < envelope.limits.size(); ++i) {
    const auto& [kind, low, high] = envelope.limits[i];
    if (kind == PropertyKind::db) continue;
    if (low > -unbounded) range.raiseLow(ratioOfValue(kind, low, db, atm), static_cast<int>(i));
    if (high < unbounded) range.lowerHigh(ratioOfValue(kind, high, db, atm), static_cast<int>(i));
  }
  return range;
}

}  // namespace moistair
