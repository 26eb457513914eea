/// \file
/// The wet bulb of a dry bulb and a humidity ratio, and the temperature at which a vapor pressure saturates air.
///
/// Both run an equation backward to the last digits of a double by Newton's steps, a few of them, over any range of
/// dry bulbs: winter air and heaters, which no search of a chart knows. Units are those of moistair.h.
#pragma once

#include "text/value.h"

namespace moistair {

/// The wet bulbs of a state. Near 32 deg F there can be one over ice and one over water, or none at all.
struct WetBulbs {
  double overIce = noValue;
  double overWater = noValue;

  double shown() const { return hasValue(overWater) ? overWater : overIce; }
  bool two() const { return hasValue(overWater) && hasValue(overIce); }
};

WetBulbs wetBulbsOf(double db, double w, double atm);

/// The temperature of a saturation pressure [in Hg]; within the step at freezing that before it. No value for dry air.
double temperatureOfSaturation(double pvs);

/// Slope of the humidity ratio of saturated air by the dry bulb [1/deg F]; infinite where water boils.
double saturationSlopeOf(double db, double atm);

}  // namespace moistair
