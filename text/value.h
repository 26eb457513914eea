/// \file
/// How a calculation says that it has no value.
///
/// Moist-air equations have gaps: a logarithm of a vapor pressure below zero, a division by zero where the vapor
/// pressure reaches the atmospheric pressure, an overflow. Such a result is "no value" and is a NaN; an infinity never
/// leaves a function. Comparisons with no value are false, so write every test in the form that has to be true for the
/// work to go on, and never negate it.
#pragma once

#include <cmath>
#include <limits>

namespace moistair {

inline constexpr double noValue = std::numeric_limits<double>::quiet_NaN();

inline bool hasValue(double number) { return std::isfinite(number); }

/// The number itself, or no value for an infinity.
inline double valueOf(double number) { return hasValue(number) ? number : noValue; }

/// numerator / denominator; no value for a division by zero and wherever either side has none, so that an infinity
/// below the fraction stroke cannot turn into an invented 0.
inline double quotient(double numerator, double denominator) {
  if (!hasValue(numerator) || !hasValue(denominator)) return noValue;
  return valueOf(numerator / denominator);
}

/// Assigns only when there is a value: a step that fails leaves its target as it was.
inline void assign(double& target, double number) {
  if (hasValue(number)) target = number;
}

}  // namespace moistair
