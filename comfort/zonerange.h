/// \file
/// The dry bulbs that a zone has at a humidity ratio, and what its edges are due to.
#pragma once

#include "comfort/zone.h"

namespace moistair {

/// What an end of a range is due to, next to the places of an envelope's limits.
namespace limitedBy {
inline constexpr int saturation = -1;
inline constexpr int vote = -2;
inline constexpr int method = -3;  ///< which does not hold beyond it
inline constexpr int window = -4;
}  // namespace limitedBy

/// Dry bulbs [deg F] at a humidity ratio, not above saturation; the zone's highest humidity ratio does not count.
LimitedRange dryBulbsWithin(const ComfortZone& zone, double w, double atm);
LimitedRange dryBulbsWithin(const AdaptiveZone& zone, double w, double atm);

/// Highest humidity ratio of a zone; infinite if it has none.
double topRatio(const Zone& zone, double atm);

}  // namespace moistair
