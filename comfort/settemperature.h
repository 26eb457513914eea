/// \file
/// Standard effective temperature (SET): the room of still air and standard clothing in which a person would have the
/// same skin temperature and the same sweat. It says how much moving air cools.
///
/// The body is two nodes, core and skin, followed for an hour. All in SI, in which the published model is written.
#pragma once

namespace moistair {

inline constexpr double feetPerMinute = 196.8504;      ///< to the m/s
inline constexpr double kilopascalPerInHg = 3.386389;  ///< at 32 deg F
inline constexpr double stillAir = 0.1;                ///< what still air is calculated with [m/s]

inline double celsius(double fahrenheit) { return (fahrenheit - 32) / 1.8; }

/// Everything about a body and its surroundings but the speed of the air.
struct StillBody {
  double airTemperature;      ///< [deg C]
  double radiantTemperature;  ///< [deg C]
  double vaporPressure;       ///< [kPa]
  double met, clo;
  double pressure;  ///< atmospheric [kPa]
};

/// The same body in a room that is cooler by `effect` [K], air and surfaces, at the same relative humidity.
StillBody coolerBy(const StillBody& body, double effect);

/// Standard effective temperature [deg C] at an air speed [m/s]. No value where the model comes to no balance.
/// Source: Gagge, Fobelets and Berglund (1986), as in ANSI/ASHRAE Standard 55-2020, appendix D.
double standardEffectiveTemperature(const StillBody& body, double speed);

/// By how much air and surfaces have to be cooler for still air to feel the same [K], 0 to 40. No value where no
/// cooler room of still air does: in hot dry air, which heats more the faster it is.
/// Source: ANSI/ASHRAE Standard 55-2020, appendix D.
double coolingEffect(const StillBody& body, double speed);

}  // namespace moistair
