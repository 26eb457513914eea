#include "engine/answers.h"

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
const double waterwetbulb = std::nextafter(icewetbulb, infinite);

/// Why there is nothing beyond an end of a stretch.
struct Cause {
  NoAnswer reason = NoAnswer::none;
  PropertyKind kind = db;
};

constexpr Cause toodry{NoAnswer::belowbound, w};
constexpr Cause toomoist{NoAnswer::abovebound, w};
constexpr Cause toocold{NoAnswer::belowbound, db};
constexpr Cause toohot{NoAnswer::abovebound, db};
constexpr Cause wetbulbtoocold{NoAnswer::belowbound, wb};
constexpr Cause saturated{NoAnswer::saturation};
constexpr Cause atfreezing{NoAnswer::freezingstep};

/// Where a property neither steps nor turns, and what ends it on either side.
struct Stretch {
  double low, high;
  Cause beyondlow, beyondhigh;
};

/// The part of a stretch up to `high`, with the cause of that end; empty (low above high) if nothing is left of it.
Stretch upto(Stretch stretch, double high, const Cause& beyondhigh) {
  if (high > stretch.high) return stretch;
  stretch.high = high;
  stretch.beyondhigh = beyondhigh;
  return stretch;
}

/// One pair at one pressure, and what has been found for it.
struct Quest {
  Given first, second;
  double atm;
  const StateBounds& bounds;
  bool wetbulbs;                                          ///< whether a state has to have a wet bulb
  double driest = pressureofratio(bound(w).above, atm);   ///< vapour pressure that a state is above
  double moistest = pressureofratio(bound(w).upto, atm);  ///< vapour pressure of the highest humidity ratio
  std::vector<StatePoint> states{};
  Cause cause{NoAnswer::pressure};
  double distance = infinite;  ///< of the value from what lies behind the cause

  Limits bound(PropertyKind kind) const { return boundof(kind, bounds); }

  /// Keeps the cause that lies nearest to the value: 0 for a state that is none only because of it.
  void miss(const Cause& reason, double distancetoit = 0) {
    if (!(distancetoit < distance)) return;
    distance = distancetoit;
    cause = reason;
  }
};

/// Takes the x of a stretch at which f has the target value.
template <class F, class Take>
void solve(Quest& quest, const F& f, double target, const Stretch& stretch, const Take& take) {
  if (!(stretch.low <= stretch.high)) return;
  const auto beside = [&](double x) { return f(x) - target; };
  const double low = beside(stretch.low);
  const double high = beside(stretch.high);
  const bool lownearer = std::abs(low) < std::abs(high);
  const double distance = lownearer ? std::abs(low) : std::abs(high);
  if (distance <= rounding * std::abs(target)) {
    take(lownearer ? stretch.low : stretch.high);
  } else if ((low < 0 && high > 0) || (low > 0 && high < 0)) {
    take(crossing(beside, stretch.low, low, stretch.high, high));
  } else {
    quest.miss(lownearer ? stretch.beyondlow : stretch.beyondhigh, distance);
  }
}

/// The same where f steps with the saturation pressure of x.
template <class F, class Take>
void solvearoundfreezing(Quest& quest, const F& f, double target, Stretch stretch, const Take& take) {
  solve(quest, f, target, upto(stretch, freezingstep().before, atfreezing), take);
  if (stretch.low < freezingstep().after) {
    stretch.low = freezingstep().after;
    stretch.beyondlow = atfreezing;
  }
  solve(quest, f, target, stretch, take);
}

/// The temperature of a saturation pressure, within the bounds of dry bulbs; that before the step for one within it.
double temperatureof(const Limits& drybulbs, double pvs) {
  const auto [bottom, top] = drybulbs;
  const auto beside = [&](double temp) { return psychro_pvs(temp) - pvs; };
  if (!(beside(bottom) < 0)) return bottom;
  if (!(beside(top) > 0)) return top;
  const auto& [before, after] = freezingstep();
  if (beside(before) > 0) return crossing(beside, bottom, beside(bottom), before, beside(before));
  return beside(after) < 0 ? crossing(beside, after, beside(after), top, beside(top)) : before;
}

/// The vapour pressure that a property other than the two temperatures has at a dry bulb.
double pressureof(const Given& given, double drybulb, double atm) {
  switch (given.kind) {
    case rh: return given.value / 100 * psychro_pvs(drybulb);
    case w: return pressureofratio(given.value, atm);
    case h: return pressureofratio(ratioofenthalpy(drybulb, given.value), atm);
    case v: return pressureofratio(ratioofvolume(drybulb, given.value, atm), atm);
    case dp: return std::exp((given.value < psychro_dp(formsmeet) ? frostpoint : waterpoint).of(given.value));
    default: return novalue;
  }
}

/// Whether any state may have the value.
bool mayhave(Quest& quest, const Given& given) {
  const Limits limits = quest.bound(given.kind);
  if (given.kind == dp) {
    const double frostend = psychro_dp(std::nextafter(formsmeet, 0));
    if (!(given.value > frostpoint.at(frostpoint.turn()))) quest.miss(toodry);
    if (given.value > frostend && given.value < psychro_dp(formsmeet)) quest.miss({NoAnswer::dewpointgap});
  } else if (!(given.value > limits.above)) {
    quest.miss({NoAnswer::belowbound, given.kind});
  } else if (!(given.value <= limits.upto * (1 + rounding))) {
    quest.miss(given.kind == rh ? saturated : Cause{NoAnswer::abovebound, given.kind});
  }
  return quest.distance > 0;
}

/// The bound that a state breaks by more than rounding.
std::optional<Cause> brokenby(StatePoint state, const StateBounds& bounds) {
  for (const PropertyKind kind : {db, wb, w, rh}) {
    const double upto = boundof(kind, bounds).upto;
    if (state.at(kind) <= upto * (1 + rounding)) state.at(kind) = std::min(state.at(kind), upto);
  }
  const auto broken = brokenbound(state, bounds);
  if (!broken) return std::nullopt;
  const bool above = state.at(broken->kind) > broken->limits.upto;
  if (broken->kind == rh && above) return saturated;
  return Cause{above ? NoAnswer::abovebound : NoAnswer::belowbound, broken->kind};
}

/// Keeps a state if it has both values. It has not where the pressure is beyond all measure and the equations hold no
/// digits any more.
void takestate(Quest& quest, double drybulb, double wetbulb) {
  const StatePoint state = stateat(drybulb, wetbulb, quest.atm);
  for (const Given& given : {quest.first, quest.second}) {
    const double finest = 1e-6 * visible[static_cast<std::size_t>(given.kind)];
    if (!(std::abs(state.at(given.kind) - given.value) <= finest)) return quest.miss({NoAnswer::pressure});
  }
  if (const auto broken = brokenby(state, quest.bounds)) return quest.miss(*broken);
  const auto same = [&](const StatePoint& other) {
    return std::abs(state.db - other.db) < 1e-9 && std::abs(state.wb - other.wb) < 1e-9;
  };
  if (std::none_of(quest.states.begin(), quest.states.end(), same)) quest.states.push_back(state);
}

/// A state by its dry bulb and vapour pressure, without a wet bulb.
StatePoint statewithoutwetbulb(double drybulb, double pv, double atm) {
  StatePoint state;
  state.db = drybulb;
  state.wb = novalue;
  state.pv = pv;
  state.rh = humidityof(pv, psychro_pvs(drybulb));
  state.w = ratioof(pv, atm);
  state.h = enthalpyof(drybulb, state.w);
  state.dp = psychro_dp(pv);
  state.v = volumeof(volumefactor(drybulb), state.w, atm);
  return state;
}

/// All wet bulbs of a dry bulb and a vapour pressure.
void takewetbulbs(Quest& quest, double drybulb, double pv) {
  const double saturation = psychro_pvs(drybulb);
  if (!(drybulb > quest.bound(db).above)) return quest.miss(toocold);
  if (!(drybulb <= quest.bound(db).upto)) return quest.miss(toohot);
  if (!(pv > quest.driest)) return quest.miss(toodry);
  if (!(pv <= saturation * (1 + rounding))) return quest.miss(saturated);
  if (!(pv <= quest.moistest * (1 + rounding))) return quest.miss(toomoist);
  if (!quest.wetbulbs) return quest.states.push_back(statewithoutwetbulb(drybulb, pv, quest.atm));
  const auto f = [&](double x) { return psychro_pv1(drybulb, x, quest.atm); };
  const auto take = [&](double x) { takestate(quest, drybulb, x); };
  const Stretch ice{quest.bound(wb).above, icewetbulb, wetbulbtoocold, atfreezing};
  solvearoundfreezing(quest, f, pv, upto(ice, drybulb, saturated), take);
  // Where water would boil the balance has a pole, and long before it more water than any state.
  const double top = saturation > quest.atm / 2 ? temperatureof(quest.bound(db), quest.atm / 2) : drybulb;
  solve(quest, f, pv, upto({waterwetbulb, top, atfreezing, toomoist}, drybulb, saturated), take);
}

/// Where a function that bends one way only turns, between low and high; low if it does not.
template <class F>
double turnof(const F& f, double low, double high) {
  constexpr double probe = 0.01;
  const auto slope = [&](double x) { return f(x + probe) - f(x - probe); };
  const double first = slope(low);
  const double last = slope(high);
  return (first < 0 && last > 0) || (first > 0 && last < 0) ? crossing(slope, low, first, high, last) : low;
}

/// Along a wet bulb the vapour pressure falls with the dry bulb, from saturation or the highest humidity ratio down to
/// dry air. The enthalpy hardly changes at all and can turn once.
void alongwetbulb(Quest& quest, double wetbulb, const Given& other) {
  Stretch all{wetbulb, quest.bound(db).upto, saturated, toohot};
  const auto pv = [&](double x) { return psychro_pv1(x, wetbulb, quest.atm); };
  const auto cutat = [&](double pressure) {
    const auto beside = [&](double x) { return pv(x) - pressure; };
    return crossing(beside, all.low, beside(all.low), all.high, beside(all.high));
  };
  const bool boiling = wetbulb > icewetbulb && !(psychro_pvs(wetbulb) < quest.atm);
  if (boiling || pv(all.high) > quest.moistest) return quest.miss(toomoist);
  if (pv(all.low) > quest.moistest) all = {cutat(quest.moistest), all.high, toomoist, toohot};
  if (pv(all.high) < 0) all = upto(all, cutat(0), toodry);

  const auto take = [&](double x) { takestate(quest, x, wetbulb); };
  const auto property = [&](double (*of)(double, double, double)) {
    return [&quest, wetbulb, of](double x) { return of(x, wetbulb, quest.atm); };
  };
  switch (other.kind) {
    case rh: return solvearoundfreezing(quest, property(psychro_rh), other.value, all, take);
    case v: return solve(quest, property(psychro_v), other.value, all, take);
    case h: {
      const auto enthalpy = property(psychro_h);
      const double turn = turnof(enthalpy, all.low, all.high);
      Stretch behind = all;
      behind.low = turn;
      if (turn > all.low) solve(quest, enthalpy, other.value, upto(all, turn, all.beyondhigh), take);
      return solve(quest, enthalpy, other.value, behind, take);
    }
    default: return solve(quest, pv, pressureof(other, wetbulb, quest.atm), all, take);
  }
}

/// Along a relative humidity all else rises with the dry bulb, with the step of the saturation pressure.
void alonghumidity(Quest& quest, const Given& humidity, const Given& other) {
  const auto pv = [&](double x) { return pressureof(humidity, x, quest.atm); };
  const auto f = [&](double x) {
    const double pressure = pv(x);
    if (other.kind == w || other.kind == dp) return pressure;
    const double ratio = ratioof(pressure, quest.atm);
    return other.kind == h ? enthalpyof(x, ratio) : volumeof(volumefactor(x), ratio, quest.atm);
  };
  const bool ofpressure = other.kind == w || other.kind == dp;
  const double target = ofpressure ? pressureof(other, novalue, quest.atm) : other.value;
  Stretch all{quest.bound(db).above, quest.bound(db).upto, toocold, toohot};
  if (pv(all.high) > quest.moistest) {
    all = upto(all, temperatureof(quest.bound(db), quest.moistest * 100 / humidity.value), toomoist);
  }
  solvearoundfreezing(quest, f, target, all, [&](double x) { takewetbulbs(quest, x, pv(x)); });
}

/// A humidity ratio or a dew point leaves one dry bulb to an enthalpy or a volume.
void alongpressure(Quest& quest, const Given& moisture, const Given& other) {
  const double pv = pressureof(moisture, novalue, quest.atm);
  const double ratio = ratioof(pv, quest.atm);
  const double drybulb =
      other.kind == h ? drybulbofenthalpy(other.value, ratio) : drybulbofvolume(other.value, ratio, quest.atm);
  takewetbulbs(quest, drybulb, pv);
}

/// Along an enthalpy the volume rises with the dry bulb.
void alongenthalpy(Quest& quest, const Given& enthalpy, double volume) {
  const auto f = [&](double x) { return volumeof(volumefactor(x), ratioofenthalpy(x, enthalpy.value), quest.atm); };
  const double moist = drybulbofenthalpy(enthalpy.value, quest.bound(w).upto);
  const auto [coldest, hottest] = quest.bound(db);
  const double dry = drybulbofenthalpy(enthalpy.value, 0);
  Stretch all{std::max(moist, coldest), hottest, moist > coldest ? toomoist : toocold, toohot};
  all = upto(all, dry, toodry);
  solve(quest, f, volume, all, [&](double x) { takewetbulbs(quest, x, pressureof(enthalpy, x, quest.atm)); });
}

void search(Quest& quest) {
  const Given first = quest.first;
  const Given second = quest.second;
  if (!hasvalue(first.value) || !hasvalue(second.value) || !hasvalue(quest.atm) || !(quest.atm > 0)) return;
  if (!mayhave(quest, first) || !mayhave(quest, second)) return;
  if (second.kind == wb) return takestate(quest, first.value, second.value);
  if (first.kind == db) return takewetbulbs(quest, first.value, pressureof(second, first.value, quest.atm));
  if (first.kind == wb) return alongwetbulb(quest, first.value, second);
  if (first.kind == rh) return alonghumidity(quest, first, second);
  if (first.kind == h && second.kind == v) return alongenthalpy(quest, first, second.value);
  const bool pressurefirst = first.kind != h;
  alongpressure(quest, pressurefirst ? first : second, pressurefirst ? second : first);
}

Answers find(Given first, Given second, double atm, const StateBounds& bounds, bool wetbulbs) {
  Answers result;
  if (first.kind > second.kind) std::swap(first, second);
  if (first.kind == second.kind || (first.kind == w && second.kind == dp)) {
    result.reason = NoAnswer::nopair;
    return result;
  }
  Quest quest{first, second, atm, bounds, wetbulbs};
  search(quest);
  result.states = std::move(quest.states);
  std::sort(result.states.begin(), result.states.end(), [](const StatePoint& one, const StatePoint& other) {
    return std::pair(one.db, one.wb) < std::pair(other.db, other.wb);
  });
  if (!result.states.empty()) return result;
  result.reason = quest.cause.reason;
  result.kind = quest.cause.kind;
  const Limits limits = boundof(result.kind, bounds);
  result.bound = result.reason == NoAnswer::belowbound ? limits.above : limits.upto;
  return result;
}

}  // namespace

Answers answers(Given first, Given second, double atm, const StateBounds& bounds) {
  return find(first, second, atm, bounds, true);
}

Answers answerswithoutwetbulb(Given first, Given second, double atm, const StateBounds& bounds) {
  return find(first, second, atm, bounds, false);
}

StatePoint stateat(double db, double wb, double atm) {
  StatePoint state;
  for (int i = 0; i < kindcount; ++i) {
    const PropertyKind kind = *kindat(i);
    state.at(kind) = propertyAt(kind, db, wb, atm);
  }
  state.pv = psychro_pv1(db, wb, atm);
  return state;
}

double propertyAt(PropertyKind kind, double drybulb, double wetbulb, double atm) {
  switch (kind) {
    case db: return drybulb;
    case wb: return wetbulb;
    case rh: return psychro_rh(drybulb, wetbulb, atm);
    case w: return psychro_w(drybulb, wetbulb, atm);
    case h: return psychro_h(drybulb, wetbulb, atm);
    case dp: return psychro_dp(psychro_pv1(drybulb, wetbulb, atm));
    case v: return psychro_v(drybulb, wetbulb, atm);
  }
  return novalue;
}

}  // namespace moistair
