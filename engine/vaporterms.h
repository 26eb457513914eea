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
inline double kelvinof(double temp) { return (temp - absolutezero) * kelvinsPerDegree; }
inline constexpr double icepoint = 273.15;

inline double ratioofenthalpy(double db, double h) { return quotient(h - dryAirHeat * db, vaporEnthalpy(db)); }
inline double drybulbofenthalpy(double h, double w) { return quotient(h - vaporEnthalpyAtZero * w, sensibleHeat(w)); }

inline double ratioofvolume(double db, double v, double atm) {
  return quotient((v * atm - volumefactor(db)) * grainsAsRoomy, volumefactor(db) * grainsPerPound);
}
inline double drybulbofvolume(double v, double w, double atm) {
  return valueof(quotient(v * atm, dryAirConstant * roominess(w)) + volumeZero);
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

/// The last dew point of the first form and the first of the second [deg F]; no vapour pressure has one between them.
struct DewPointGap {
  double before = psychro_dp(std::nextafter(formsmeet, 0.0));
  double after = psychro_dp(formsmeet);

  bool holds(double dewpoint) const { return dewpoint > before && dewpoint < after; }
};

inline const DewPointGap& dewPointGap() {
  static const DewPointGap gap;
  return gap;
}

/// Vapour pressure of a dew point [in Hg]: psychro_dp run backwards, and where the forms meet for one in the gap.
inline double pressureOfDewPoint(double dewpoint) {
  if (dewPointGap().holds(dewpoint)) return formsmeet;
  return std::exp((dewpoint < dewPointGap().after ? frostpoint : waterpoint).of(dewpoint));
}

}  // namespace moistair
