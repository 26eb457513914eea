/// \file
/// Properties of moist air in English units.
///
/// Pure functions, the bottom of the program: the searches, the chart, the mixing balance and the pressure window all
/// call them. A state is given by dry bulb, wet bulb and atmospheric pressure, and every other property is a function
/// of those three; `psychro_wrh` alone starts from the relative humidity and `psychro_dp` from the vapor pressure.
///
/// Units: temperatures in deg F, pressures in in Hg, relative humidity in percent, humidity ratio in lb of water per lb
/// of dry air, enthalpy in Btu per lb of dry air, specific volume in cu ft per lb of dry air, elevation in ft.
///
/// The constants are part of the product: what an engineer reads off the chart depends on each digit of them, also
/// where one is a little off its ideal (0.555556 for 5/9). Results are not clamped: a wet bulb far below the dry
/// bulb gives a negative vapor pressure, and the searches rely on it. Where a function has no value it returns NaN
/// (value.h).
#pragma once

#include "text/value.h"

namespace moistair {

/// The atmospheric pressure that the program starts with [in Hg].
inline constexpr double defaultPressure = 29.92126;

/// No state that the program shows has a higher humidity ratio, and no chart goes beyond it [lb/lb].
inline constexpr double greatestRatio = 0.03;

/// Absolute zero [deg F]: no temperature at or below it has a saturation pressure.
inline constexpr double absoluteZero = -459.67;

/// Base-10 logarithm, as ln(number) / ln(10). No value unless number is above 0.
double log10(double number);

/// Saturation vapor pressure over ice or water [in Hg].
/// @param temp temperature [deg F]. No value at absolute zero (-459.67) and below, nor where the pressure overflows.
/// Source: Hyland and Wexler (1983), constant term shifted by ln 1000 for kPa; over ice below 273.15 K.
double psychro_pvs(double temp);

/// Slope of the logarithm of that pressure by the temperature [1/deg F]. No value at absolute zero and below.
double lnSaturationSlope(double temp);

/// Vapor pressure of a state [in Hg], negative where the wet bulb lies far below the dry bulb.
/// @param db dry bulb [deg F]
/// @param wb wet bulb [deg F]; up to 32 the psychrometer equation over ice holds, above it the adiabatic balance.
/// @param atm atmospheric pressure [in Hg]. No value where it equals the saturation pressure at wb, wb above 32.
/// Source: psychrometer equation with the coefficient 0.0005704 per deg F; ASHRAE Handbook, Fundamentals,
/// Psychrometrics: humidity ratio from the wet bulb, with the constants of steam tables in Btu/lb.
double psychro_pv1(double db, double wb, double atm);

/// Dew point of a vapor pressure [deg F]. No value unless this_pv [in Hg] is above 0.
/// The two forms do not meet: at 0.18036 in Hg the result jumps from 31.996 to 32.214, and no vapor pressure has a dew
/// point between those.
/// Source: ASHRAE Handbook, Fundamentals (1977): quadratic in the logarithm of the vapor pressure, below and above 32
/// F.
double psychro_dp(double this_pv);

/// Enthalpy of a state [Btu/lb of dry air], 0 for dry air at 0 deg F. No value where psychro_w has none.
/// Source: ASHRAE Handbook, Fundamentals: h = 0.24 t + W (1061 + 0.444 t).
double psychro_h(double db, double wb, double atm);

/// Relative humidity of a state [percent], above 100 for a wet bulb above the dry bulb.
/// No value where psychro_pv1 or psychro_pvs(db) has none.
double psychro_rh(double db, double wb, double atm);

/// Specific volume of a state [cu ft/lb of dry air]. No value for an atm of 0 and where psychro_w has none.
/// Source: perfect gas, 0.754 (t + 459.7) (1 + 7000 W / 4360) / p.
double psychro_v(double db, double wb, double atm);

/// Humidity ratio of a state [lb/lb of dry air]. No value where the vapor pressure equals atm.
/// Source: perfect gases, W = 0.62198 pv / (p - pv).
double psychro_w(double db, double wb, double atm);

/// Humidity ratio of a dry bulb [deg F] and a relative humidity [percent], worked in standard atmospheres.
/// It does not go through the wet bulb and so differs a little from psychro_w of the same state.
/// No value where the vapor pressure equals atm [in Hg].
double psychro_wrh(double db, double rh, double atm);

/// Atmospheric pressure at an elevation [ft], in in Hg. No value from about 145446 ft up, where the base goes negative.
/// Source: standard atmosphere, 14.696 (1 - 6.8754e-06 Z)^5.2559 pounds/sq inch.
double psychro_atm(double elev);

/// \name The constants of the equations
/// Those that look alike and differ belong to different equations, and stay apart.
/// \{

/// Kelvins to the degree Fahrenheit, as the saturation pressure takes them.
inline constexpr double kelvinsPerDegree = 0.555556;

/// Molar mass of water over that of dry air.
inline constexpr double massRatio = 0.62198;

/// The wet bulb up to which the psychrometer equation over ice holds [deg F].
inline constexpr double iceWetBulb = 32;

/// Of the psychrometer equation over ice, per kelvin of what the wet bulb lies below the dry bulb.
inline constexpr double psychrometerTerm = 0.0005704;
inline constexpr double degreesPerKelvin = 1.8;

/// Specific heat of dry air [Btu/lb to the deg F].
inline constexpr double dryAirHeat = 0.24;

/// Enthalpy of water vapor at 0 deg F [Btu/lb] and its specific heat [Btu/lb to the deg F], of the enthalpy.
inline constexpr double vaporEnthalpyAtZero = 1061;
inline constexpr double vaporHeat = 0.444;

/// The same of the adiabatic balance: the heat that evaporates water, and the specific heat.
inline constexpr double balanceHeat = 1093.049;
inline constexpr double balanceVaporHeat = 0.441;

/// Of the specific volume: the gas constant of dry air [in Hg cu ft/lb to the deg F], absolute zero [deg F], and the
/// grains of water that take as much room as a pound of dry air.
inline constexpr double dryAirConstant = 0.754;
inline constexpr double volumeZero = -459.7;
inline constexpr double grainsPerPound = 7000;
inline constexpr double grainsAsRoomy = 4360;

/// Standard atmospheres to the inch of mercury.
inline constexpr double atmospheresPerInHg = 0.03342105;
/// \}

/// \name The same equations in steps
/// For whoever has a term at hand already: a search the saturation pressure of a temperature that stays, a whole state
/// its vapor pressure. Each function above is made of these, so they give the same digits.
/// \{

/// Vapor pressure of a humidity ratio w: psychro_w run backward.
inline double pressureOfRatio(double w, double atm) { return valueOf(atm * quotient(w, massRatio + w)); }

/// psychro_pv1 by the saturation pressure ps [in Hg] at the wet bulb.
inline double vaporPressureOf(double db, double wb, double atm, double ps) {
  if (wb <= iceWetBulb) return valueOf(ps - (psychrometerTerm * atm * (db - wb)) / degreesPerKelvin);
  const double ws = quotient(ps, atm - ps) * massRatio;
  const double c = dryAirHeat + balanceVaporHeat * ws;
  const double d = balanceHeat + balanceVaporHeat * (db - wb);
  return pressureOfRatio(ws - quotient(c * (db - wb), d), atm);
}

/// psychro_rh by the vapor pressure pv and the saturation pressure ps at the dry bulb [in Hg].
inline double humidityOf(double pv, double ps) { return quotient(100 * pv, ps); }

/// psychro_w by the vapor pressure pv [in Hg].
inline double ratioOf(double pv, double atm) { return quotient(massRatio * pv, atm - pv); }

/// Enthalpy of the vapor in it by the dry bulb [Btu/lb].
inline double vaporEnthalpy(double db) { return vaporEnthalpyAtZero + vaporHeat * db; }

/// Heat that warms air with so much water by a degree [Btu/lb of dry air to the deg F].
inline double sensibleHeat(double w) { return dryAirHeat + vaporHeat * w; }

/// psychro_h by the humidity ratio w.
inline double enthalpyOf(double db, double w) { return valueOf(dryAirHeat * db + vaporEnthalpy(db) * w); }

/// psychro_v by the humidity ratio w; its first factor follows from the dry bulb alone.
inline double volumeFactor(double db) { return dryAirConstant * (db - volumeZero); }
inline double roominess(double w) { return 1 + (grainsPerPound * w) / grainsAsRoomy; }
inline double volumeOf(double factor, double w, double atm) { return quotient(factor * roominess(w), atm); }

/// psychro_wrh by the saturation pressure ps [in Hg] at the dry bulb.
inline double ratioOfRh(double ps, double rh, double atm) {
  const double d = (ps * atmospheresPerInHg * rh) / 100;
  return quotient(d * massRatio, atm * atmospheresPerInHg - d);
}
/// \}

}  // namespace moistair
