// Cooling coils: a straight line from the entering air toward the apparatus dew point, fixed by two of ten parameters.
#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <optional>

#include "process/coilline.h"
#include "process/processes.h"
#include "process/scan.h"
#include "process/words.h"

namespace moistair {

namespace {

using enum Parameter;

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr int scanSteps = 24;
constexpr double noStep = 1e-6;  ///< a relative humidity is found within this, unless saturation steps over it
constexpr double same = 1e-12;   ///< within this part two humidity ratios are the same

/// A coil's task: the entering air and the two parameters, heat per lb of dry air.
struct Coil {
  const StepInput& input;
  const Site& site;
  AirState entering;
  bool counted;  ///< whether condensate takes its enthalpy along
  std::array<Parameter, 2> kinds{};
  std::array<double, 2> values{};

  const AirModel& air() const { return *site.air; }

  std::optional<double> value(Parameter kind) const {
    for (std::size_t i = 0; i < kinds.size(); ++i) {
      if (kinds[i] == kind) return values[i];
    }
    return std::nullopt;
  }
  Parameter other(Parameter kind) const { return kinds[kinds[0] == kind ? 1 : 0]; }
};

constexpr std::array coilKinds = {adp, bf, db, wb, rh, w, dp, shr, total, sensible};

Result<Coil> coilOf(const StepInput& input) {
  Coil coil{input, input.site, input.sources.front().state, input.parameters.has(condensate)};
  std::size_t count = 0;
  for (const Parameter kind : coilKinds) {
    if (!input.parameters.has(kind) || count == 2) continue;
    double value = input.parameters[kind];
    if (kind == total || kind == sensible) {
      const Result<double> heat = perPound(input, kind);
      if (!heat) return heat.error();
      value = *heat;
    }
    if (kind == shr && !(value > 0 && value <= 1))
      return refuse(shr, "the sensible heat ratio of a coil is above 0 and up to 1");
    if (kind == bf && !(value < 1)) return refuse(bf, "with a bypass factor of 1 nothing is cooled; give less");
    if (kind == dp && !hasValue(coil.air().ratioOfDewPoint(value, coil.site.atm))) {
      return refuse(dp, "no air has a dew point between 31.996 and 32.214 deg F; give w");
    }
    coil.kinds[count] = kind;
    coil.values[count++] = value;
  }
  return coil;
}

/// Heat removed between entering and leaving air, per lb.
double sensibleOf(const Coil& coil, const AirState& leaving) {
  return coil.air().enthalpy(coil.entering.db, leaving.w) - coil.air().enthalpy(leaving.db, leaving.w);
}
double latentOf(const Coil& coil, const AirState& leaving) {
  const double water = coil.counted ? waterEnthalpy(leaving.db) : 0;
  return (coil.entering.w - leaving.w) * (coil.air().vaporEnthalpy(coil.entering.db) - water);
}
double totalOf(const Coil& coil, const AirState& leaving) {
  return sensibleOf(coil, leaving) + latentOf(coil, leaving);
}

/// The humidity ratio that a parameter asks for at a dry bulb; no value for what asks for none (db, bf).
double ratioFor(const Coil& coil, Parameter kind, double value, double temp) {
  const AirModel& air = coil.air();
  const auto [t1, w1] = coil.entering;
  const double dryCooling = air.enthalpy(t1, 0) - air.enthalpy(temp, 0);
  const double vaporCooling = air.vaporEnthalpy(t1) - air.vaporEnthalpy(temp);
  const double latentHeat = air.vaporEnthalpy(t1) - (coil.counted ? waterEnthalpy(temp) : 0);
  switch (kind) {
    case w: return value;
    case dp: return air.ratioOfDewPoint(value, coil.site.atm);
    case rh: return air.ratioOfHumidity(temp, value, coil.site.atm);
    case wb: return air.ratioOfWetBulb(temp, value, coil.site.atm);
    case adp: {
      const double saturated = coil.site.saturationRatio(value);
      return saturated >= w1 ? w1 : saturated + (w1 - saturated) * (temp - value) / (t1 - value);
    }
    case shr: {
      const double ratio = 1 / value - 1;
      return (w1 * latentHeat - ratio * dryCooling) / (latentHeat + ratio * vaporCooling);
    }
    case total: return (dryCooling + w1 * latentHeat - value) / (latentHeat - vaporCooling);
    case sensible: return quotient(value - dryCooling, vaporCooling);
    default: return noValue;
  }
}

/// How far a leaving state is from a parameter, continuous and 0 where it has it.
double missBy(const Coil& coil, Parameter kind, double value, const AirState& leaving) {
  switch (kind) {
    case rh: return coil.air().relativeHumidity(leaving.db, leaving.w, coil.site.atm) - value;
    case total: return totalOf(coil, leaving) - value;
    case sensible: return sensibleOf(coil, leaving) - value;
    case shr: return value * latentOf(coil, leaving) - (1 - value) * sensibleOf(coil, leaving);
    default: return leaving.w - ratioFor(coil, kind, value, leaving.db);
  }
}

Error noneFound(const Coil& coil) {
  return refuse("no state between " + figure(coil.entering.db) + " and -60 deg F has this " + nameOf(coil.kinds[0]) +
                " and " + nameOf(coil.kinds[1]) + " on a line from the entering air; change one of them");
}

/// A leaving state that has both parameters.
struct Candidate {
  AirState leaving;
  double adp = noValue;  ///< where the search ran over it
};

/// All that were found, the warmest first.
struct Candidates {
  std::array<Candidate, 8> all{};
  std::size_t count = 0;

  Candidates() = default;
  explicit Candidates(const Candidate& only) { add(only); }
  void add(const Candidate& one) {
    if (count < all.size()) all[count++] = one;
  }
};

/// What rounding leaves of `missBy` where it is 0.
double roundingOf(Parameter kind, double value) {
  if (kind == rh) return 1e-9;
  return kind == total || kind == sensible ? 1e-11 * std::abs(value) : 1e-13;
}

/// The roots of f from `warm` down to `cold`, looked for between the temperatures at which f bends or steps.
template <class F>
Roots rootsDown(const F& f, double warm, double cold, std::array<double, 2> bends, int steps, double rounding) {
  std::sort(bends.begin(), bends.end(), std::greater<>());
  Roots roots;
  double from = warm;
  for (const double bend : bends) {
    if (!(bend < from && bend > cold)) continue;
    roots.add(rootsOf(f, from, std::nextafter(bend, infinite), steps));
    from = bend;
  }
  roots.add(rootsOf(f, from, cold, steps, rounding));
  return roots;
}

/// Looks for the leaving dry bulb along the curve of one parameter.
Candidates alongCurve(const Coil& coil, Parameter curve) {
  const Parameter sought = coil.other(curve);
  const double curveValue = *coil.value(curve);
  const double soughtValue = *coil.value(sought);
  const auto stateAt = [&](double temp) { return AirState{temp, ratioFor(coil, curve, curveValue, temp)}; };
  const auto miss = [&](double temp) { return missBy(coil, sought, soughtValue, stateAt(temp)); };
  double warm = coil.entering.db;
  double cold = lowestDryBulb;
  if (curve == adp) cold = std::max(cold, curveValue);
  if (curve == wb) cold = std::clamp(curveValue, cold, warm);
  if (curve == rh) {  // warmer, the humidity ratio is beyond any state
    const double top = coil.air().dryBulbOfHumidity(curveValue, highestRatio, coil.site.atm);
    if (hasValue(top)) warm = std::clamp(top, cold, warm);
  }
  const double rounding = roundingOf(sought, soughtValue);
  const double freezing = coil.site.air->freezing;
  const bool turns = sought == rh && (curve == adp || curve == shr);
  const Roots roots = turns ? rootsDown(miss, warm, cold, {freezing, freezing}, scanSteps, rounding)
                            : rootsOf(miss, warm, cold, 1, rounding);
  Candidates found;
  if (roots.count == 0 && miss(warm) == 0) found.add({stateAt(warm)});
  for (std::size_t i = 0; i < roots.count; ++i) {
    if (sought != rh || std::abs(miss(roots.at[i])) < noStep) found.add({stateAt(roots.at[i])});
  }
  return found;
}

/// The leaving state of a surface at `temp`, of which a part `bypass` of the air sees nothing.
AirState bypassed(const Coil& coil, double temp, double bypass) {
  const double saturated = std::min(coil.site.saturationRatio(temp), coil.entering.w);  // drier surfaces take no water
  return {temp + bypass * (coil.entering.db - temp), saturated + bypass * (coil.entering.w - saturated)};
}

/// Looks for the apparatus dew point that has the other parameter, on either side of the step at freezing.
Candidates alongSaturation(const Coil& coil, double bypass, Parameter sought, double value) {
  const auto miss = [&](double temp) { return missBy(coil, sought, value, bypassed(coil, temp, bypass)); };
  const bool turns = sought == rh || sought == shr;
  const double warm = coil.entering.db;
  const double before = coil.site.air->freezing;
  const double after = std::nextafter(before, infinite);
  const double dewPoint = coil.site.saturationTemperature(coil.entering.w);
  const double leavingFreezes = (before - bypass * warm) / (1 - bypass);
  Candidates found;
  const auto addBetween = [&](double from, double to) {
    const Roots roots =
        turns ? rootsDown(miss, from, to, {dewPoint, leavingFreezes}, scanSteps, 0) : rootsOf(miss, from, to, 1);
    for (std::size_t i = 0; i < roots.count; ++i) {
      if (sought == rh && !(std::abs(miss(roots.at[i])) < noStep)) continue;
      found.add({bypassed(coil, roots.at[i], bypass), roots.at[i]});
    }
  };
  if (warm <= after) {
    addBetween(warm, lowestDryBulb);
    return found;
  }
  addBetween(warm, after);
  if (miss(after) * miss(before) < 0) {  // in the step the other parameter decides how moist the air is
    const double temp = bypassed(coil, before, bypass).db;
    found.add({{temp, ratioFor(coil, sought, value, temp)}, before});
  }
  addBetween(before, lowestDryBulb);
  return found;
}

/// Finds the apparatus dew point from the bypass factor and another parameter.
Result<Candidates> byBypass(const Coil& coil) {
  const double bypass = *coil.value(bf);
  const Parameter sought = coil.other(bf);
  const double value = *coil.value(sought);
  const auto at = [&](double temp) { return Candidates(Candidate{bypassed(coil, temp, bypass), temp}); };
  if (sought == adp) return at(value);
  if (sought == db) return at((value - bypass * coil.entering.db) / (1 - bypass));
  if (sought == rh && bypass == 0)
    return refuse(bf, "without bypassed air the leaving air is saturated; give db with it");
  if (sought != w && sought != dp) return alongSaturation(coil, bypass, sought, value);

  const double ratio = ratioFor(coil, sought, value, noValue);
  if (!(ratio < coil.entering.w)) return refuse(sought, "this is not drier than the entering air; give less");
  const double saturated = (ratio - bypass * coil.entering.w) / (1 - bypass);
  const double temp = coil.site.saturationTemperature(saturated);
  if (!hasValue(temp)) return refuse(sought, "with this bypass factor the air cannot get so dry");
  return Candidates(Candidate{{temp + bypass * (coil.entering.db - temp), ratio}, temp});
}

Result<Candidates> leavingOf(const Coil& coil) {
  if (coil.value(bf)) return byBypass(coil);
  if (const auto temp = coil.value(db)) {
    const Parameter kind = coil.other(db);
    const double ratio = ratioFor(coil, kind, *coil.value(kind), *temp);
    return hasValue(ratio) ? Candidates(Candidate{{*temp, ratio}}) : Candidates();
  }
  for (const Parameter curve : {adp, wb, shr, rh, w, dp, total}) {
    if (coil.value(curve)) return alongCurve(coil, curve);
  }
  return Candidates();
}

Error addsWater(const Coil& coil, double ratio) {
  return refuse("the air would leave with " + figure(ratio) + " lb/lb and enters with " + figure(coil.entering.w) +
                " (saturated at " + dewPointWords(coil.entering, coil.site) +
                "); a coil adds no water: use cool, or idle=pass");
}

/// Why the coil has nothing to do; none if it has.
std::optional<Error> notNeeded(const Coil& coil) {
  const auto& [t1, w1] = coil.entering;
  for (const Parameter kind : {db, adp}) {
    if (coil.value(kind).value_or(-infinite) >= t1) {
      return refuse(kind, "the air enters at " + figure(t1) + " deg F, no warmer than this; a coil only cools");
    }
  }
  for (const Parameter kind : {total, sensible}) {
    if (coil.value(kind).value_or(1) <= 0) return refuse(kind, "the heat removed by a coil is above 0");
  }
  if (const auto wetBulb = coil.value(wb)) {
    const double entering = coil.air().wetBulbs(t1, w1, coil.site.atm).shown();
    if (*wetBulb >= entering) return refuse(wb, "the air enters with a wet bulb of " + figure(entering) + " deg F");
  }
  for (const Parameter kind : {w, dp}) {
    if (!coil.value(kind) || coil.value(db)) continue;
    const double ratio = ratioFor(coil, kind, *coil.value(kind), noValue);
    if (ratio > w1 * (1 + same)) return addsWater(coil, ratio);
  }
  return std::nullopt;
}

/// With idle=pass a coil that would have to add water to reach a moisture only cools, by its other parameter and at the
/// entering humidity ratio.
std::optional<AirState> cooledOnly(const Coil& coil) {
  const auto& [t1, w1] = coil.entering;
  if (std::none_of(coil.kinds.begin(), coil.kinds.end(),
                   [](Parameter kind) { return contains(setOf(rh, wb, w, dp), kind); })) {
    return std::nullopt;
  }
  if (const auto temp = coil.value(db)) return AirState{*temp, w1};
  for (const Parameter kind : {total, sensible}) {
    if (const auto heat = coil.value(kind)) {
      return AirState{coil.air().dryBulbOfEnthalpy(coil.air().enthalpy(t1, w1) - *heat, w1), w1};
    }
  }
  return std::nullopt;
}

Error neverSaturated(const Coil& coil) {
  const AirState touch = touchingPoint(coil.entering, coil.site);
  const double lowest = sensibleOf(coil, touch) / totalOf(coil, touch);
  return refuse("the line from the entering air never meets saturation; the lowest possible SHR is " + figure(lowest) +
                " (touching at " + figure(touch.db) + " deg F): cool deeper and reheat, or dry the air before");
}

/// Apparatus dew point and bypass factor of a wet coil.
Outcome describeSurface(const Coil& coil, const Candidate& found, StepResult& result) {
  const AirState& leaving = found.leaving;
  double temp = apparatusDewPoint(coil.entering, leaving, coil.site);
  const double given = hasValue(found.adp) ? found.adp : coil.value(adp).value_or(noValue);
  if (hasValue(given)) {
    if (hasValue(temp) && std::abs(temp - given) > 1e-5) {
      return refuse(coil.value(adp) ? adp : coil.other(bf), "the line to an apparatus dew point of " + figure(given) +
                                                                " deg F meets saturation at " + figure(temp) +
                                                                " already; the coldest one possible is " +
                                                                figure(touchingPoint(coil.entering, coil.site).db));
    }
    temp = given;
  }
  if (!hasValue(temp)) {
    const Passage passage = passageThroughFog(coil.entering, leaving, coil.site);
    if (!hasValue(passage.warm)) return neverSaturated(coil);
    result.notes.add(NoteCode::noApparatusDewPoint, passage.warm, passage.cold);
    return {};
  }
  result.adp = temp;
  result.bf = coil.value(bf).value_or((leaving.db - temp) / (coil.entering.db - temp));
  if (temp < 32) result.notes.add(NoteCode::frostingCoil, temp);
  if (temp == coil.site.air->freezing) result.notes.add(NoteCode::atFreezingStep);
  return {};
}

/// The result of a leaving state, or why it is none.
Result<StepResult> complete(const Coil& coil, Candidate found) {
  const StepInput& input = coil.input;
  const AirState& entering = coil.entering;
  if (std::abs(found.leaving.w - entering.w) <= same * entering.w) found.leaving.w = entering.w;
  if (found.leaving.w > entering.w) {
    const auto cooled = input.parameters.has(idle) ? cooledOnly(coil) : std::nullopt;
    if (!cooled) return addsWater(coil, found.leaving.w);
    found.leaving = *cooled;
  }
  if (found.leaving.db > entering.db) {
    return refuse("the air would leave at " + figure(found.leaving.db) +
                  " deg F, warmer than it enters; a coil only cools");
  }
  if (found.leaving.db < coil.value(adp).value_or(-infinite) - 1e-9) {
    return refuse(adp,
                  "the air would leave at " + figure(found.leaving.db) + " deg F, colder than the surface; give less");
  }
  const double flow = input.sources.front().flow;
  StepResult result = leavingAs(input, found.leaving);
  result.condensate = flow * (entering.w - found.leaving.w);
  const double liquidHeat = coil.counted ? result.condensate * waterEnthalpy(found.leaving.db) : 0;
  result.exchange.water = -result.condensate;
  result.exchange.waterHeat = -liquidHeat;
  Result<StepResult> finished = finish(input, result, liquidHeat);
  if (!finished) return finished;
  if (found.leaving.w < entering.w) {
    if (const Outcome outcome = describeSurface(coil, found, *finished); !outcome) return outcome.error();
  } else {
    finished->notes.add(NoteCode::dryCoil);
    // Without condensation the temperature of the surface is known only if it is given, or follows from the bypass.
    const double surface = coil.value(adp).value_or(found.adp);
    finished->adp = surface;
    finished->bf = quotient(found.leaving.db - surface, entering.db - surface);
  }
  const double byStates = flow * (coil.site.enthalpy(found.leaving) - coil.site.enthalpy(entering)) + liquidHeat;
  finished->exchange.heat = input.parameters.has(total) ? -input.parameters[total] : byStates;
  finished->shr = quotient(finished->sensible, finished->total);
  if (input.parameters.has(waterDt)) {
    finished->waterGpm = std::abs(finished->total) / (StepResult::lbhPerGpm * input.parameters[waterDt]);
  }
  return finished;
}

}  // namespace

Result<StepResult> runCoil(const StepInput& input) {
  const Result<Coil> coil = coilOf(input);
  if (!coil) return coil.error();
  if (const auto why = notNeeded(*coil)) return passOrRefuse(input, *why);
  const Result<Candidates> found = leavingOf(*coil);
  if (!found) return found.error();
  if (found->count == 0) return noneFound(*coil);
  Result<StepResult> first = complete(*coil, found->all[0]);
  for (std::size_t i = 1; i < found->count; ++i) {
    Result<StepResult> next = complete(*coil, found->all[i]);
    if (!next) continue;
    if (!first) {
      first = std::move(next);
    } else {
      first->notes.add(NoteCode::otherSolution, next->leaving.state.db, next->leaving.state.w);
    }
  }
  return first;
}

}  // namespace moistair
