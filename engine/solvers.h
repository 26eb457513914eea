/// \file
/// Running the property functions backwards.
///
/// The functions of moistair.h go one way only, from dry bulb and wet bulb to the other properties. Two means go the
/// other way: `bracketsearch`, a bisection that every inverse of the program is an instance of, and `psychro_wb`, a
/// walk down the saturation curve in steps of a tenth of a degree. Bounds, tolerances and steps are part of the
/// product: they decide the last digits of what the user reads.
///
/// Every search ends: a bisection after 100 iterations at the latest, the walk at absolute zero.
#pragma once

#include <cmath>

#include "engine/value.h"

namespace moistair {

/// How a search decides which half of the bracket to keep.
enum class Direction {
  slopeprobe,  ///< by comparing f(x + 0.01) with f(x), anew at every step
  falls,       ///< f above the target raises the lower bound, f below it lowers the upper bound
};

struct Bracket {
  double low = 0;
  double high = 120;
  double tolerance = 1e-07;
  Direction direction = Direction::slopeprobe;
};

inline constexpr int iterationlimit = 100;

/// Where a search ended. `failed` is false for a search that its guard kept from running: x is then the midpoint of the
/// bounds, and the caller goes on with that.
struct SearchResult {
  double x = 0;
  int iterations = 0;  ///< 0 if the guard was false

  bool failed() const { return iterations == iterationlimit; }
};

/// Bisects for the x at which f takes the target value, moving up to twice in an iteration. It has converged when f(x)
/// is within the tolerance; convergence in the hundredth iteration counts as failure. An f without a value moves
/// nothing and never converges. A guard is a condition tested once, before the first iteration.
/// @param f property function of the search variable, all else held fixed
template <class F>
SearchResult bracketsearch(const F& f, double target, const Bracket& bracket, bool guard = true) {
  constexpr double probe = 0.01;
  double low = bracket.low;
  double high = bracket.high;
  SearchResult result{(high + low) / 2, 0};
  if (!guard) return result;
  double& x = result.x;
  double fx = f(x);
  const auto halve = [&](bool above) {
    const bool rising = bracket.direction == Direction::slopeprobe && f(x + probe) > fx;
    (above == rising ? high : low) = x;
    x = (high + low) / 2;
    fx = f(x);
  };
  do {
    ++result.iterations;
    if (fx > target) halve(true);
    if (fx < target) halve(false);
  } while (!(std::abs(fx - target) < bracket.tolerance) && result.iterations < iterationlimit);
  return result;
}

/// Guard of a search whose target must lie strictly between what f gives at the bounds of the bracket.
template <class F>
bool liesbetween(const F& f, double target, const Bracket& bracket = {}) {
  return target < f(bracket.high) && target > f(bracket.low);
}

/// Where a walk down from a temperature in steps of 1 arrives just above `stop`, or the temperature itself if it starts
/// below that. Whole numbers come off exactly as one by one, so a walk whose steps above `stop` cannot end it may leap.
/// From 2^53 up a step of 1 no longer moves a number, and there is no leap.
double leapdown(double temp, double stop);

/// Wet bulb of a dry bulb and an enthalpy [deg F], found by walking down the saturation curve: the first of the steps
/// of 0.1 below the dry bulb (or the dry bulb + 1) whose saturation enthalpy is below h, so it lies up to 0.1 below the
/// exact crossing. An h above saturation gives db + 1. Steps are repeated subtractions and carry their rounding.
/// No value if the walk reaches absolute zero, or if an argument has none.
/// @param db dry bulb [deg F]
/// @param h enthalpy [Btu/lb of dry air]
/// @param atm atmospheric pressure [in Hg]
double psychro_wb(double db, double h, double atm);

/// Enthalpy [Btu/lb of dry air] of a dry bulb [deg F] and a relative humidity [percent]. No value if the search fails;
/// computed from a wet bulb of 60 where the relative humidity is out of reach of wet bulbs from 0 to 120.
double psychro_h1(double db, double rh, double atm);

/// Dry bulb [deg F, 0 to 120] at which a relative humidity [percent] has a humidity ratio hr.
/// No value if there is none in that range; 60 for an rh outside 0 to 100.
double dbwithrhandhr(double rh, double hr, double atm);

/// Wet bulb [deg F, 0 to 120] at which a dry bulb has the humidity ratio hr, and the iterations it took.
SearchResult wbwithdbandhr(double db, double hr, double atm);

/// Wet bulb [deg F, 0 to 120] at which a dry bulb has the specific volume v, and the iterations it took: 0 where v is
/// out of reach of wet bulbs from 0 to 120.
SearchResult wbwithdbandspvol(double db, double v, double atm);

/// Specific volume [cu ft/lb of dry air] of a dry bulb [deg F] and a humidity ratio. No value if the search fails;
/// computed from a wet bulb of 60 where hr is out of reach of wet bulbs from 0 to 120.
double spvolwithdbandhr(double db, double hr, double atm);

}  // namespace moistair
