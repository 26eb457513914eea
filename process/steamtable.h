/// \file
/// Saturated steam, as a humidifier takes it.
#pragma once

namespace moistair {

inline constexpr double lowestSteam = 32, highestSteam = 350;  ///< [deg F]

/// Enthalpy of saturated steam [Btu/lb] at a temperature within those; no value outside of them.
/// Source: Keenan, Keyes, Hill and Moore, Steam Tables (1969); linear between its entries; within
/// 0.4 Btu/lb of the formulation of IAPWS (1995).
double steamEnthalpy(double temp);

/// Temperature of saturated steam [deg F] of a pressure [in Hg, absolute]; no value outside of the table's
/// temperatures.
double steamTemperature(double pressure);

}  // namespace moistair
