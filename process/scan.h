/// \file
/// The roots of a function that may have more than one, looked for in order.
#pragma once

#include <array>
#include <cmath>

#include "engine/crossing.h"

namespace moistair {

struct Roots {
  std::array<double, 8> at{};
  std::size_t count = 0;

  void add(double x) {
    if (count < at.size()) at[count++] = x;
  }
  void add(const Roots& more) {
    for (std::size_t i = 0; i < more.count; ++i) add(more.at[i]);
  }
};

/// Where |f| is least between x0 and x2, by golden sections around x1; stops as soon as f changes its sign.
template <class F>
double turnBetween(const F& f, double x0, double x1, double x2) {
  constexpr double golden = 0.381966011250105;
  double best = f(x1);
  const bool positive = best > 0;
  for (int count = 0; count < 60 && (best > 0) == positive; ++count) {
    const bool towardsEnd = std::abs(x2 - x1) > std::abs(x1 - x0);
    const double x = x1 + golden * ((towardsEnd ? x2 : x0) - x1);
    const double fx = f(x);
    if (std::abs(fx) < std::abs(best) || (fx > 0) != positive) {
      (towardsEnd ? x0 : x2) = x1;
      x1 = x;
      best = fx;
    } else {
      (towardsEnd ? x2 : x0) = x;
    }
  }
  return x1;
}

/// The first few roots of f from `from` on, which may be above or below `to`. f is looked at in so many steps; where it
/// comes near 0 between two of them and turns, the turn decides, so that two close roots are not missed. A root at
/// `from` itself does not count, one at `to` does within `rounding`; places where f has no value are passed over.
template <class F>
Roots rootsOf(const F& f, double from, double to, int steps, double rounding = 0) {
  Roots roots;
  const int last =
      steps > 1 ? steps + 2 : 1;  // with one more look close to either end, to see a turn within the first step
  const auto place = [&](int i) {
    constexpr double close = 0.001;
    const double step = i == 1 ? close : i == last - 1 ? steps - close : i - 1;
    return from + (to - from) * step / steps;
  };
  double x0 = noValue, f0 = noValue, x1 = from, f1 = f(x1);
  for (int i = 1; i <= last; ++i) {
    const double x2 = i == last ? to : place(i);
    const double f2 = f(x2);
    if (f2 == 0 || (i == last && std::abs(f2) <= rounding)) {
      roots.add(x2);
    } else if (f1 * f2 < 0) {
      roots.add(crossing(f, x1, f1, x2, f2));
    } else if (f0 * f1 > 0 && f1 * f2 > 0 && std::abs(f1) <= std::abs(f0) && std::abs(f1) <= std::abs(f2)) {
      const double turn = turnBetween(f, x0, x1, x2);
      const double ft = f(turn);
      if (ft * f1 < 0) {
        roots.add(crossing(f, x0, f0, turn, ft));
        roots.add(crossing(f, turn, ft, x2, f2));
      }
    }
    x0 = x1;
    f0 = f1;
    x1 = x2;
    f1 = f2;
  }
  return roots;
}

}  // namespace moistair
