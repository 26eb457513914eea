/// \file
/// The equations of moistair.h in terms of dry bulb and vapor pressure, run backward.
///
/// All properties but the wet bulb follow from the dry bulb and the vapor pressure alone, by the steps at the end of
/// moistair.h. `exactSolutions` solves these for what is not given. Units are those of moistair.h; there is no value
/// for a division by zero.
#pragma once

#include <cmath>

#include "engine/moistair.h"
#include "text/value.h"

namespace moistair {

/// Temperature as the saturation pressure takes it [K], and where its equation changes from ice to water.
inline double kelvinOf(double temp) { return (temp - absoluteZero) * kelvinsPerDegree; }
inline constexpr double icePoint = 273.15;

inline double ratioOfEnthalpy(double db, double h) { return quotient(h - dryAirHeat * db, vaporEnthalpy(db)); }
inline double dryBulbOfEnthalpy(double h, double w) { return quotient(h - vaporEnthalpyAtZero * w, sensibleHeat(w)); }

inline double ratioOfVolume(double db, double v, double atm) {
  return quotient((v * atm - volumeFactor(db)) * grainsAsRoomy, volumeFactor(db) * grainsPerPound);
}
inline double dryBulbOfVolume(double v, double w, double atm) {
  return valueOf(quotient(v * atm, dryAirConstant * roominess(w)) + volumeZero);
}

/// One of the two forms of the dew point, a quadratic in the logarithm a of the vapor pressure.
struct DewPointForm {
  double constant, linear, square;

  double at(double a) const { return constant + linear * a + square * (a * a); }
  /// Where it turns: no dew point is below the one there.
  double turn() const { return -linear / (2 * square); }
  /// The a of a dew point, on the side on which the dew point rises. No value below the turn.
  double of(double dewPoint) const {
    return quotient(std::sqrt(linear * linear - 4 * square * (constant - dewPoint)) - linear, 2 * square);
  }
};

inline constexpr DewPointForm frostPoint{71.98, 24.873, 0.8927};
inline constexpr DewPointForm waterPoint{79.047, 30.579, 1.8893};

/// The vapor pressure from which on the second form holds [in Hg].
inline constexpr double formsMeet = 0.18036;

/// The last dew point of the first form and the first of the second [deg F]; no vapor pressure has one between them.
struct DewPointGap {
  double before = psychro_dp(std::nextafter(formsMeet, 0.0));
  double after = psychro_dp(formsMeet);

  bool holds(double dewPoint) const { return dewPoint > before && dewPoint < after; }
};

inline const DewPointGap& dewPointGap() {
  static const DewPointGap gap;
  return gap;
}

/// Vapor pressure of a dew point [in Hg]: psychro_dp run backward, and where the forms meet for one in the gap.
inline double pressureOfDewPoint(double dewPoint) {
  if (dewPointGap().holds(dewPoint)) return formsMeet;
  return std::exp((dewPoint < dewPointGap().after ? frostPoint : waterPoint).of(dewPoint));
}

}  // namespace moistair
