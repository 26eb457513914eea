/// \file
/// Where a function of one variable takes the value 0, between two places with values on either side of it.
#pragma once

#include <algorithm>
#include <cmath>
#include <utility>

#include "text/value.h"

namespace moistair {

/// Where f takes the value 0 between two x at which it lies on either side of it: inverse quadratic interpolation where
/// three points promise that it works, else halving.
/// fa and fb are f(a) and f(b). Ends after at most 200 evaluations; the x with the smaller |f| of the last bracket.
/// Source: Chandrupatla, Advances in Engineering Software 28 (1997).
template <class F>
double crossing(const F& f, double a, double fa, double b, double fb) {
  if (fa == 0) return a;
  if (fb == 0) return b;
  double t = 0.5;
  for (int count = 0; count < 200; ++count) {
    const double x = a + t * (b - a);
    const double fx = f(x);
    double c = a;
    double fc = fa;
    if ((fx > 0) != (fa > 0)) {
      c = std::exchange(b, a);
      fc = std::exchange(fb, fa);
    }
    a = x;
    fa = fx;
    const double best = std::abs(fa) < std::abs(fb) ? a : b;
    const double finest = (1e-13 + 4e-16 * std::abs(best)) / std::abs(b - a);
    if (fx == 0 || !(finest < 0.5)) return best;
    const double xi = (a - b) / (c - b);
    const double phi = (fa - fb) / (fc - fb);
    t = 0.5;
    if (phi * phi < xi && (1 - phi) * (1 - phi) < 1 - xi) {
      const double guess = fa / (fb - fa) * fc / (fb - fc) + (c - a) / (b - a) * fa / (fc - fa) * fb / (fc - fb);
      if (hasValue(guess)) t = std::clamp(guess, finest, 1 - finest);
    }
  }
  return a;
}

}  // namespace moistair
