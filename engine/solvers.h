/// \file
/// Running the property functions backward.
///
/// The functions of moistair.h go one way only, from dry bulb and wet bulb to the other properties. Two means go the
/// other way: `bracketSearch`, a bisection that every inverse of the program is an instance of, and `psychro_wb`, a
/// walk down the saturation curve in steps of a tenth of a degree. Bounds, tolerances and steps are part of the
/// product: they decide the last digits of what the user reads.
///
/// Every search ends: a bisection after 100 iterations at the latest, the walk at absolute zero.
#pragma once

#include <cmath>
#include <utility>

#include "engine/searched.h"
#include "engine/state.h"
#include "text/value.h"

namespace moistair {

/// How a search decides which half of the bracket to keep.
enum class Direction {
  slopeProbe,  ///< by comparing f(x + 0.01) with f(x), again at every step
  falls,       ///< f above the target raises the lower bound, f below it lowers the upper bound
};

struct Bracket {
  double low = 0;
  double high = 120;
  double tolerance = 1e-07;
  Direction direction = Direction::slopeProbe;
};

inline constexpr int iterationLimit = 100;

/// Where a search ended. `failed` is false for a search that its guard kept from running: x is then the midpoint of the
/// bounds, and the caller goes on with that.
struct SearchResult {
  double x = 0;
  int iterations = 0;  ///< 0 if the guard was false

  bool failed() const { return iterations == iterationLimit; }
};

/// A property function as moistair.h has it and nothing else: a search with it is the reference, which defines the
/// result.
template <class F>
struct DirectEvaluation {
  const F& f;
  double operator()(double x) const { return f.directly(x); }
};

/// A function that can forecast where it takes a target.
template <class F>
concept HasForecast = requires(const F& f) {
  f.window(0.0, 0.0);
};

/// A window whose ends f itself was asked at.
struct RootForecast {
  Window window{-beyond, beyond};
  double atLow = noValue, atHigh = noValue;  ///< what f is there; no value at an infinite end

  bool anything() const { return window.low > -beyond || window.high < beyond; }
  bool below(double x) const { return x <= window.low; }
  bool above(double x) const { return x >= window.high; }
};

/// The window of a function, once f itself lies beyond the tolerance at both ends; else there is no forecast.
template <class F>
RootForecast verifiedWindow(const F& f, double target, const Bracket& bracket) {
  if constexpr (HasForecast<F>) {
    const Window window = f.window(target, bracket.tolerance);
    const bool against = window.rises && bracket.direction == Direction::falls;
    if (!(window.low <= window.high) || against) return {};
    RootForecast forecast{{-beyond, beyond, window.rises}};
    const double clear = 1.01 * bracket.tolerance;
    const auto clears = [&](double fx, bool above) { return above ? fx > target + clear : fx < target - clear; };
    if (window.low > bracket.low) {
      forecast.window.low = std::fmin(window.low, bracket.high);
      forecast.atLow = f(forecast.window.low);
      if (!clears(forecast.atLow, !window.rises)) return {};
    }
    if (window.high < bracket.high) {
      forecast.window.high = std::fmax(window.high, bracket.low);
      forecast.atHigh = f(forecast.window.high);
      if (!clears(forecast.atHigh, window.rises)) return {};
    }
    return forecast;
  }
  return {};
}

/// What f is as far as a search asks: outside the window beyond the target, and within, where f is as good as straight,
/// the chord between its ends. Only next to a value that decides, f itself is asked.
template <class F>
double forecastValue(const F& f, double x, double target, double tolerance, const RootForecast& forecast) {
  if (forecast.below(x)) return forecast.window.rises ? -beyond : beyond;
  if (forecast.above(x)) return forecast.window.rises ? beyond : -beyond;
  const double rise = forecast.atHigh - forecast.atLow;
  const double chord =
      forecast.atLow + rise * ((x - forecast.window.low) / (forecast.window.high - forecast.window.low));
  const double off = std::abs(chord - target);
  const bool clear = off > 0.03 * tolerance && std::abs(off - tolerance) > 0.03 * tolerance;
  return clear && std::abs(rise) < 4 * tolerance ? chord : f(x);
}

/// How far a bisection has come.
struct Halving {
  double low, high;
  double x;
  int iterations = 0;
  bool above = false;  ///< the last halving was for an f above the target, so the iteration may hold another one
};

/// Carries out the halvings that a window decides, those before the first midpoint inside it. Not more than iterations
/// are left, and none once midpoints no longer move.
void halveOutside(Halving& at, const Window& window);

/// Bisects for the x at which f takes the target value, moving up to twice in an iteration. It has converged when f(x)
/// is within the tolerance; convergence in the hundredth iteration counts as failure. An f without a value moves
/// nothing and never converges. A guard is a condition tested once, before the first iteration.
///
/// Away from the root of a monotonic function each halving follows from x alone. Where f foretells its root and is
/// certified to lie beyond the tolerance on either side of it, only midpoints between these two are evaluated, and no
/// probe is: the search begins where these midpoints begin.
/// @param f property function of the search variable, all else held fixed
template <class F>
SearchResult bracketSearch(const F& f, double target, const Bracket& bracket, bool guard = true) {
  constexpr double probe = 0.01;
  Halving at{bracket.low, bracket.high, (bracket.high + bracket.low) / 2};
  if (!guard) return {at.x, 0};
  const RootForecast forecast = verifiedWindow(f, target, bracket);
  if (forecast.anything()) halveOutside(at, forecast.window);
  const auto value = [&](double x) {
    return forecast.anything() ? forecastValue(f, x, target, bracket.tolerance, forecast) : f(x);
  };
  double fx = value(at.x);
  const auto rising = [&] {
    if (forecast.anything()) return forecast.window.rises;
    return bracket.direction == Direction::slopeProbe && f(at.x + probe) > fx;
  };
  const auto halve = [&](bool above) {
    (above == rising() ? at.high : at.low) = at.x;
    at.x = (at.high + at.low) / 2;
    fx = value(at.x);
  };
  const auto converged = [&] { return std::abs(fx - target) < bracket.tolerance; };
  const bool between = at.iterations > 0 && !at.above;
  if (between && (converged() || at.iterations == iterationLimit)) return {at.x, at.iterations};
  do {
    const double low = at.low;
    const double high = at.high;
    const bool whole = !std::exchange(at.above, false);
    if (whole) ++at.iterations;
    if (whole && fx > target) halve(true);
    if (fx < target) halve(false);
    // A bracket that no halving moves any more never converges: the rest of its iterations need not be gone through.
    const bool stuck = whole && at.low == low && at.high == high && !converged();
    if (HasForecast<F> && stuck) at.iterations = iterationLimit;
  } while (!converged() && at.iterations < iterationLimit);
  return {at.x, at.iterations};
}

/// The same, by the way that is asked for.
template <class F>
SearchResult bracketSearch(const F& f, double target, const Bracket& bracket, bool guard, SearchMode mode) {
  return mode == SearchMode::reference ? bracketSearch(DirectEvaluation<F>{f}, target, bracket, guard)
                                       : bracketSearch(f, target, bracket, guard);
}

/// Guard of a search whose target must lie strictly between what f gives at the bounds of the bracket.
template <class F>
bool liesBetween(const F& f, double target, const Bracket& bracket = {}) {
  return target < f(bracket.high) && target > f(bracket.low);
}

/// The walks of psychro_wb at an enthalpy and a pressure, for one dry bulb after the other. Where the walks end depends
/// on the dry bulb by the rounding of their steps only: the temperature at which saturated air has the enthalpy is
/// looked for once, and a step that is clear of it is not evaluated.
class WetBulbWalk {
public:
  WetBulbWalk(double h, double atm, SearchMode mode = SearchMode::accelerated);
  double operator()(double db) const;

private:
  /// Whether the saturation enthalpy at a temperature is below h.
  bool below(double temp) const;
  double walkDown(double temp, double step) const;

  double h_, atm_;
  double hottest_ = -beyond;
  Window crossing_{-beyond, beyond};  ///< of the saturation enthalpy with h; holds up to `hottest_`
};

/// Where a walk down from a temperature in steps of 1 arrives just above `stop`, or the temperature itself if it starts
/// below that. Whole numbers come off exactly as one by one, so a walk whose steps above `stop` cannot end it may leap.
/// From 2^53 up a step of 1 no longer moves a number, and there is no leap.
double leapDown(double temp, double stop);

/// Wet bulb of a dry bulb and an enthalpy [deg F], found by walking down the saturation curve: the first of the steps
/// of 0.1 below the dry bulb (or the dry bulb + 1) whose saturation enthalpy is below h, so it lies up to 0.1 below the
/// exact crossing. An h above saturation gives db + 1. Steps are repeated subtractions and carry their rounding.
/// No value if the walk reaches absolute zero, or if an argument has none.
/// @param db dry bulb [deg F]
/// @param h enthalpy [Btu/lb of dry air]
/// @param atm atmospheric pressure [in Hg]
double psychro_wb(double db, double h, double atm, SearchMode mode = SearchMode::accelerated);

/// Enthalpy [Btu/lb of dry air] of a dry bulb [deg F] and a relative humidity [percent]. No value if the search fails;
/// computed from a wet bulb of 60 where the relative humidity is out of reach of wet bulbs from 0 to 120.
double psychro_h1(double db, double rh, double atm, SearchMode mode = SearchMode::accelerated);

/// Dry bulb [deg F, 0 to 120] at which a relative humidity [percent] has a humidity ratio hr.
/// No value if there is none in that range; 60 for an rh outside 0 to 100.
double dbWithRhAndHr(double rh, double w, double atm, SearchMode mode = SearchMode::accelerated);

/// Wet bulb [deg F, 0 to 120] at which a dry bulb has the humidity ratio hr, and the iterations it took.
SearchResult wbWithDbAndW(double db, double w, double atm, SearchMode mode = SearchMode::accelerated);

/// Wet bulb [deg F, 0 to 120] at which a dry bulb has the specific volume v, and the iterations it took: 0 where v is
/// out of reach of wet bulbs from 0 to 120.
SearchResult wbWithDbAndV(double db, double v, double atm, SearchMode mode = SearchMode::accelerated);

/// The same for a walk that only counts states of air: not searched, but near enough, where the state is sure to be
/// found and is sure to have no vapor or to lie above saturation.
struct NearResult {
  SearchResult wb;
  bool near = false;
};
NearResult wbOfAirWithDbAndV(double db, double v, double atm, SearchMode mode = SearchMode::accelerated);

/// Specific volume [cu ft/lb of dry air] of a dry bulb [deg F] and a humidity ratio. No value if the search fails;
/// computed from a wet bulb of 60 where hr is out of reach of wet bulbs from 0 to 120.
double spvolWithDbAndHr(double db, double w, double atm, SearchMode mode = SearchMode::accelerated);

}  // namespace moistair
