#include "engine/exactsolutions.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

#include "engine/crossing.h"
#include "engine/moistair.h"
#include "engine/saturation.h"
#include "engine/vaporterms.h"
#include "text/value.h"

namespace moistair {

namespace {

using enum PropertyKind;

constexpr double infinite = std::numeric_limits<double>::infinity();

/// What the equations round away, as a part of a value: a bound is kept and a value reached to within this.
constexpr double rounding = 1e-11;

/// The first wet bulb of the adiabatic balance.
const double waterWetBulb = std::nextafter(iceWetBulb, infinite);

/// Why there is nothing beyond an end of a stretch.
struct Cause {
  NoSolution reason = NoSolution::none;
  PropertyKind kind = db;
};

constexpr Cause tooDry{NoSolution::belowBound, w};
constexpr Cause tooMoist{NoSolution::aboveBound, w};
constexpr Cause tooCold{NoSolution::belowBound, db};
constexpr Cause tooHot{NoSolution::aboveBound, db};
constexpr Cause wetBulbTooCold{NoSolution::belowBound, wb};
constexpr Cause saturated{NoSolution::saturation};
constexpr Cause atFreezing{NoSolution::freezingStep};

/// Where a property neither steps nor turns, and what ends it on either side.
struct Interval {
  double low, high;
  Cause beyondLow, beyondHigh;
};

/// The part of a stretch up to `high`, with the cause of that end; empty (low above high) if nothing is left of it.
Interval clipUpper(Interval interval, double high, const Cause& beyondHigh) {
  if (high > interval.high) return interval;
  interval.high = high;
  interval.beyondHigh = beyondHigh;
  return interval;
}

/// One pair at one pressure, and what has been found for it.
struct PairProblem {
  Given first, second;
  double atm;
  const StateBounds& bounds;
  bool wetBulbs;                                          ///< whether a state has to have a wet bulb
  double driest = pressureOfRatio(bound(w).above, atm);   ///< vapor pressure that a state is above
  double moistest = pressureOfRatio(bound(w).upTo, atm);  ///< vapor pressure of the highest humidity ratio
  std::vector<StatePoint> states{};
  Cause cause{NoSolution::pressure};
  double distance = infinite;  ///< of the value from what lies behind the cause

  Range bound(PropertyKind kind) const { return boundOf(kind, bounds); }

  /// Keeps the cause that lies nearest to the value: 0 for a state that is none only because of it.
  void exclude(const Cause& reason, double distanceToIt = 0) {
    if (!(distanceToIt < distance)) return;
    distance = distanceToIt;
    cause = reason;
  }
};

/// Takes the x of a stretch at which f has the target value.
template <class F, class Take>
void solve(PairProblem& problem, const F& f, double target, const Interval& interval, const Take& take) {
  if (!(interval.low <= interval.high)) return;
  const auto offset = [&](double x) { return f(x) - target; };
  const double low = offset(interval.low);
  const double high = offset(interval.high);
  const bool lowNearer = std::abs(low) < std::abs(high);
  const double distance = lowNearer ? std::abs(low) : std::abs(high);
  if (distance <= rounding * std::abs(target)) {
    take(lowNearer ? interval.low : interval.high);
  } else if ((low < 0 && high > 0) || (low > 0 && high < 0)) {
    take(crossing(offset, interval.low, low, interval.high, high));
  } else {
    problem.exclude(lowNearer ? interval.beyondLow : interval.beyondHigh, distance);
  }
}

/// The same where f steps with the saturation pressure of x.
template <class F, class Take>
void solveAroundFreezing(PairProblem& problem, const F& f, double target, Interval interval, const Take& take) {
  solve(problem, f, target, clipUpper(interval, freezingStep().before, atFreezing), take);
  if (interval.low < freezingStep().after) {
    interval.low = freezingStep().after;
    interval.beyondLow = atFreezing;
  }
  solve(problem, f, target, interval, take);
}

/// The temperature of a saturation pressure, within the bounds of dry bulbs; that before the step for one within it.
double temperatureOf(const Range& dryBulbs, double pvs) {
  const auto [bottom, top] = dryBulbs;
  const auto offset = [&](double temp) { return psychro_pvs(temp) - pvs; };
  if (!(offset(bottom) < 0)) return bottom;
  if (!(offset(top) > 0)) return top;
  const auto& [before, after] = freezingStep();
  if (offset(before) > 0) return crossing(offset, bottom, offset(bottom), before, offset(before));
  return offset(after) < 0 ? crossing(offset, after, offset(after), top, offset(top)) : before;
}

/// The vapor pressure that a property other than the two temperatures has at a dry bulb.
double pressureOf(const Given& given, double dryBulb, double atm) {
  switch (given.kind) {
    case rh: return given.value / 100 * psychro_pvs(dryBulb);
    case w: return pressureOfRatio(given.value, atm);
    case h: return pressureOfRatio(ratioOfEnthalpy(dryBulb, given.value), atm);
    case v: return pressureOfRatio(ratioOfVolume(dryBulb, given.value, atm), atm);
    case dp: return pressureOfDewPoint(given.value);
    default: return noValue;
  }
}

/// Whether any state may have the value.
bool mayHave(PairProblem& problem, const Given& given) {
  const Range range = problem.bound(given.kind);
  if (given.kind == dp) {
    if (!(given.value > frostPoint.at(frostPoint.turn()))) problem.exclude(tooDry);
    if (dewPointGap().holds(given.value)) problem.exclude({NoSolution::dewPointGap});
  } else if (!(given.value > range.above)) {
    problem.exclude({NoSolution::belowBound, given.kind});
  } else if (!(given.value <= range.upTo * (1 + rounding))) {
    problem.exclude(given.kind == rh ? saturated : Cause{NoSolution::aboveBound, given.kind});
  }
  return problem.distance > 0;
}

/// The bound that a state breaks by more than rounding.
std::optional<Cause> boundViolation(StatePoint state, const StateBounds& bounds) {
  for (const PropertyKind kind : {db, wb, w, rh}) {
    const double upTo = boundOf(kind, bounds).upTo;
    if (state.at(kind) <= upTo * (1 + rounding)) state.at(kind) = std::min(state.at(kind), upTo);
  }
  const auto broken = violatedBound(state, bounds);
  if (!broken) return std::nullopt;
  const bool above = state.at(broken->kind) > broken->range.upTo;
  if (broken->kind == rh && above) return saturated;
  return Cause{above ? NoSolution::aboveBound : NoSolution::belowBound, broken->kind};
}

/// Keeps a state if it has both values. It has not where the pressure is beyond all measure and the equations hold no
/// digits any more.
void takeState(PairProblem& problem, double dryBulb, double wetBulb) {
  const StatePoint state = stateAt(dryBulb, wetBulb, problem.atm);
  for (const Given& given : {problem.first, problem.second}) {
    const double finest = 1e-6 * propertyOf(given.kind).visible;
    if (!(std::abs(state.at(given.kind) - given.value) <= finest)) return problem.exclude({NoSolution::pressure});
  }
  if (const auto broken = boundViolation(state, problem.bounds)) return problem.exclude(*broken);
  const auto same = [&](const StatePoint& other) {
    return std::abs(state.db - other.db) < 1e-9 && std::abs(state.wb - other.wb) < 1e-9;
  };
  if (std::none_of(problem.states.begin(), problem.states.end(), same)) problem.states.push_back(state);
}

/// A state by its dry bulb and vapor pressure, without a wet bulb.
StatePoint stateWithoutWetBulb(double dryBulb, double pv, double atm) {
  StatePoint state;
  state.db = dryBulb;
  state.wb = noValue;
  state.pv = pv;
  state.rh = humidityOf(pv, psychro_pvs(dryBulb));
  state.w = ratioOf(pv, atm);
  state.h = enthalpyOf(dryBulb, state.w);
  state.dp = psychro_dp(pv);
  state.v = volumeOf(volumeFactor(dryBulb), state.w, atm);
  return state;
}

/// All wet bulbs of a dry bulb and a vapor pressure.
void takeWetBulbs(PairProblem& problem, double dryBulb, double pv) {
  const double saturation = psychro_pvs(dryBulb);
  if (!(dryBulb > problem.bound(db).above)) return problem.exclude(tooCold);
  if (!(dryBulb <= problem.bound(db).upTo)) return problem.exclude(tooHot);
  if (!(pv > problem.driest)) return problem.exclude(tooDry);
  if (!(pv <= saturation * (1 + rounding))) return problem.exclude(saturated);
  if (!(pv <= problem.moistest * (1 + rounding))) return problem.exclude(tooMoist);
  if (!problem.wetBulbs) return problem.states.push_back(stateWithoutWetBulb(dryBulb, pv, problem.atm));
  const auto f = [&](double x) { return psychro_pv1(dryBulb, x, problem.atm); };
  const auto take = [&](double x) { takeState(problem, dryBulb, x); };
  const Interval ice{problem.bound(wb).above, iceWetBulb, wetBulbTooCold, atFreezing};
  solveAroundFreezing(problem, f, pv, clipUpper(ice, dryBulb, saturated), take);
  // Where water would boil the balance has a pole, and long before it more water than any state.
  const double top = saturation > problem.atm / 2 ? temperatureOf(problem.bound(db), problem.atm / 2) : dryBulb;
  solve(problem, f, pv, clipUpper({waterWetBulb, top, atFreezing, tooMoist}, dryBulb, saturated), take);
}

/// Where a function that bends one way only turns, between low and high; low if it does not.
template <class F>
double turnOf(const F& f, double low, double high) {
  constexpr double probe = 0.01;
  const auto slope = [&](double x) { return f(x + probe) - f(x - probe); };
  const double first = slope(low);
  const double last = slope(high);
  return (first < 0 && last > 0) || (first > 0 && last < 0) ? crossing(slope, low, first, high, last) : low;
}

/// Along a wet bulb the vapor pressure falls with the dry bulb, from saturation or the highest humidity ratio down to
/// dry air. The enthalpy hardly changes at all and can turn once.
void alongWetBulb(PairProblem& problem, double wetBulb, const Given& other) {
  Interval all{wetBulb, problem.bound(db).upTo, saturated, tooHot};
  const auto pv = [&](double x) { return psychro_pv1(x, wetBulb, problem.atm); };
  const auto cutAt = [&](double pressure) {
    const auto offset = [&](double x) { return pv(x) - pressure; };
    return crossing(offset, all.low, offset(all.low), all.high, offset(all.high));
  };
  const bool boiling = wetBulb > iceWetBulb && !(psychro_pvs(wetBulb) < problem.atm);
  if (boiling || pv(all.high) > problem.moistest) return problem.exclude(tooMoist);
  if (pv(all.low) > problem.moistest) all = {cutAt(problem.moistest), all.high, tooMoist, tooHot};
  if (pv(all.high) < 0) all = clipUpper(all, cutAt(0), tooDry);

  const auto take = [&](double x) { takeState(problem, x, wetBulb); };
  const auto property = [&](double (*of)(double, double, double)) {
    return [&problem, wetBulb, of](double x) { return of(x, wetBulb, problem.atm); };
  };
  switch (other.kind) {
    case rh: return solveAroundFreezing(problem, property(psychro_rh), other.value, all, take);
    case v: return solve(problem, property(psychro_v), other.value, all, take);
    case h: {
      const auto enthalpy = property(psychro_h);
      const double turn = turnOf(enthalpy, all.low, all.high);
      Interval upperPart = all;
      upperPart.low = turn;
      if (turn > all.low) solve(problem, enthalpy, other.value, clipUpper(all, turn, all.beyondHigh), take);
      return solve(problem, enthalpy, other.value, upperPart, take);
    }
    default: return solve(problem, pv, pressureOf(other, wetBulb, problem.atm), all, take);
  }
}

/// Along a relative humidity all else rises with the dry bulb, with the step of the saturation pressure.
void alongHumidity(PairProblem& problem, const Given& humidity, const Given& other) {
  const auto pv = [&](double x) { return pressureOf(humidity, x, problem.atm); };
  const auto f = [&](double x) {
    const double pressure = pv(x);
    if (other.kind == w || other.kind == dp) return pressure;
    const double ratio = ratioOf(pressure, problem.atm);
    return other.kind == h ? enthalpyOf(x, ratio) : volumeOf(volumeFactor(x), ratio, problem.atm);
  };
  const bool ofPressure = other.kind == w || other.kind == dp;
  const double target = ofPressure ? pressureOf(other, noValue, problem.atm) : other.value;
  Interval all{problem.bound(db).above, problem.bound(db).upTo, tooCold, tooHot};
  if (pv(all.high) > problem.moistest) {
    all = clipUpper(all, temperatureOf(problem.bound(db), problem.moistest * 100 / humidity.value), tooMoist);
  }
  solveAroundFreezing(problem, f, target, all, [&](double x) { takeWetBulbs(problem, x, pv(x)); });
}

/// A humidity ratio or a dew point leaves one dry bulb to an enthalpy or a volume.
void alongPressure(PairProblem& problem, const Given& moisture, const Given& other) {
  const double pv = pressureOf(moisture, noValue, problem.atm);
  const double ratio = ratioOf(pv, problem.atm);
  const double dryBulb =
      other.kind == h ? dryBulbOfEnthalpy(other.value, ratio) : dryBulbOfVolume(other.value, ratio, problem.atm);
  takeWetBulbs(problem, dryBulb, pv);
}

/// Along an enthalpy the volume rises with the dry bulb.
void alongEnthalpy(PairProblem& problem, const Given& enthalpy, double volume) {
  const auto f = [&](double x) { return volumeOf(volumeFactor(x), ratioOfEnthalpy(x, enthalpy.value), problem.atm); };
  const double moist = dryBulbOfEnthalpy(enthalpy.value, problem.bound(w).upTo);
  const auto [coldest, hottest] = problem.bound(db);
  const double dry = dryBulbOfEnthalpy(enthalpy.value, 0);
  Interval all{std::max(moist, coldest), hottest, moist > coldest ? tooMoist : tooCold, tooHot};
  all = clipUpper(all, dry, tooDry);
  solve(problem, f, volume, all, [&](double x) { takeWetBulbs(problem, x, pressureOf(enthalpy, x, problem.atm)); });
}

void search(PairProblem& problem) {
  const Given first = problem.first;
  const Given second = problem.second;
  if (!hasValue(first.value) || !hasValue(second.value) || !hasValue(problem.atm) || !(problem.atm > 0)) return;
  if (!mayHave(problem, first) || !mayHave(problem, second)) return;
  if (second.kind == wb) return takeState(problem, first.value, second.value);
  if (first.kind == db) return takeWetBulbs(problem, first.value, pressureOf(second, first.value, problem.atm));
  if (first.kind == wb) return alongWetBulb(problem, first.value, second);
  if (first.kind == rh) return alongHumidity(problem, first, second);
  if (first.kind == h && second.kind == v) return alongEnthalpy(problem, first, second.value);
  const bool pressureFirst = first.kind != h;
  alongPressure(problem, pressureFirst ? first : second, pressureFirst ? second : first);
}

ExactSolutions find(Given first, Given second, double atm, const StateBounds& bounds, bool wetBulbs) {
  ExactSolutions result;
  if (first.kind > second.kind) std::swap(first, second);
  if (first.kind == second.kind || (first.kind == w && second.kind == dp)) {
    result.reason = NoSolution::noPair;
    return result;
  }
  PairProblem problem{first, second, atm, bounds, wetBulbs};
  search(problem);
  result.states = std::move(problem.states);
  std::sort(result.states.begin(), result.states.end(), [](const StatePoint& one, const StatePoint& other) {
    return std::pair(one.db, one.wb) < std::pair(other.db, other.wb);
  });
  if (!result.states.empty()) return result;
  result.reason = problem.cause.reason;
  result.kind = problem.cause.kind;
  const Range range = boundOf(result.kind, bounds);
  result.bound = result.reason == NoSolution::belowBound ? range.above : range.upTo;
  return result;
}

}  // namespace

ExactSolutions exactSolutions(Given first, Given second, double atm, const StateBounds& bounds) {
  return find(first, second, atm, bounds, true);
}

ExactSolutions solutionsWithoutWetBulb(Given first, Given second, double atm, const StateBounds& bounds) {
  return find(first, second, atm, bounds, false);
}

StatePoint stateAt(double db, double wb, double atm) {
  StatePoint state;
  for (const Property& property : heldProperties) state.*property.value = propertyAt(property.kind, db, wb, atm);
  return state;
}

double propertyAt(PropertyKind kind, double dryBulb, double wetBulb, double atm) {
  switch (kind) {
    case db: return dryBulb;
    case wb: return wetBulb;
    case rh: return psychro_rh(dryBulb, wetBulb, atm);
    case w: return psychro_w(dryBulb, wetBulb, atm);
    case h: return psychro_h(dryBulb, wetBulb, atm);
    case dp: return psychro_dp(psychro_pv1(dryBulb, wetBulb, atm));
    case v: return psychro_v(dryBulb, wetBulb, atm);
    case pv: return psychro_pv1(dryBulb, wetBulb, atm);
  }
  return noValue;
}

}  // namespace moistair
