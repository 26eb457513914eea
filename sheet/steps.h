/// \file
/// Round steps for scales and families of lines.
#pragma once

#include <cmath>
#include <initializer_list>
#include <vector>

#include "text/numberformat.h"

namespace moistair {

/// The smallest of some rising steps that is at least so large; the last if none is.
inline double stepFrom(std::initializer_list<double> steps, double least) {
  for (const double step : steps) {
    if (step >= least) return step;
  }
  return *(steps.end() - 1);
}

/// The multiples of a step from low to high, ends included. A thousand at most.
inline std::vector<double> multiples(double low, double high, double step) {
  constexpr double slack = 1e-6;
  constexpr std::size_t most = 1000;
  std::vector<double> numbers;
  for (double count = std::ceil(low / step - slack); count * step <= high + slack * step; ++count) {
    if (numbers.size() == most) break;
    numbers.push_back(count * step);
  }
  return numbers;
}

/// Whether a number is a multiple of a step, but for its rounding.
inline bool isMultiple(double number, double step) {
  const double count = number / step;
  return std::abs(count - std::round(count)) < 1e-6;
}

/// So many decimals show every multiple of a step.
inline int decimalsOf(double step) {
  int decimals = 0;
  while (decimals < 6 && !isMultiple(step, 1)) {
    step *= 10;
    ++decimals;
  }
  return decimals;
}

}  // namespace moistair
