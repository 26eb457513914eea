/// \file
/// The straight line of a cooling coil and the saturation curve.
///
/// Saturated air's humidity ratio is convex in the dry bulb but for its step at freezing, so the line less the curve is
/// concave on either side of it. Newton's method comes to the first crossing from one side and cannot pass it; where
/// the line never meets the curve it turns back.
#pragma once

#include "process/air.h"

namespace moistair {

/// Dry bulb at which the line from `entering` through `leaving`, carried on beyond it, first meets saturation; that of
/// `leaving` if it is saturated. No value if it does not meet it down to -60 deg F. Within the step at freezing, the
/// temperature of the step.
double apparatusDewPoint(const AirState& entering, const AirState& leaving, const Site& site);

/// Where the line is above saturation between two states below it; no values if it is not.
struct Passage {
  double warm = noValue, cold = noValue;  ///< dry bulbs
};
Passage passageThroughFog(const AirState& entering, const AirState& leaving, const Site& site);

/// The point of saturation that the steepest line from `entering` touches: no lower sensible heat ratio can be had.
AirState touchingPoint(const AirState& entering, const Site& site);

}  // namespace moistair
