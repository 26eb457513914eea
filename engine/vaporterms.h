/// \file
/// The equations of moistair.h in terms of dry bulb and vapour pressure, run backwards.
///
/// All properties but the wet bulb follow from the dry bulb and the vapour pressure alone, by the steps at the end of
/// moistair.h. `answers` solves these for what is not given. Units are those of moistair.h; there is no value for a
/// division by zero.
#pragma once

#include <cmath>

#include "engine/moistair.h"
#include "text/value.h"

namespace moistair {

/// Temperature as the saturation pressure takes it [K], and where its equation changes from ice to water.
inline constexpr double kelvinperdegree = 0.555556;
inline double kelvinof(double temp) { return (temp + 459.67) * kelvinperdegree; }
inline constexpr double icepoint = 273.15;

inline double pressureofratio(double w, double atm) { return valueof(atm * quotient(w, massratio + w)); }

inline double ratioofenthalpy(double db, double h) { return quotient(h - 0.24 * db, 1061 + 0.444 * db); }
inline double drybulbofenthalpy(double h, double w) { return quotient(h - 1061 * w, 0.24 + 0.444 * w); }

inline double ratioofvolume(double db, double v, double atm) {
  return quotient((v * atm - volumefactor(db)) * 4360, volumefactor(db) * 7000);
}
inline double drybulbofvolume(double v, double w, double atm) {
  return valueof(quotient(v * atm, 0.754 * (1 + (7000 * w) / 4360)) - 459.7);
}

/// One of the two forms of the dew point, a quadratic in the logarithm a of the vapour pressure.
struct DewPointForm {
  double constant, linear, square;

  double at(double a) const { return constant + linear * a + square * (a * a); }
  /// Where it turns: no dew point is below the one there.
  double turn() const { return -linear / (2 * square); }
  /// The a of a dew point, on the side on which the dew point rises. No value below the turn.
  double of(double dewpoint) const {
    return quotient(std::sqrt(linear * linear - 4 * square * (constant - dewpoint)) - linear, 2 * square);
  }
};

inline constexpr DewPointForm frostpoint{71.98, 24.873, 0.8927};
inline constexpr DewPointForm waterpoint{79.047, 30.579, 1.8893};

/// The vapour pressure from which on the second form holds [in Hg].
inline constexpr double formsmeet = 0.18036;

}  // namespace moistair
