#include "process/air.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "engine/crossing.h"
#include "engine/exactsolutions.h"
#include "engine/saturation.h"
#include "engine/vaporterms.h"
#include "engine/wetbulbs.h"
#include "process/words.h"

namespace moistair {

namespace {

using enum PropertyKind;

constexpr double infinite = std::numeric_limits<double>::infinity();
/// What rounding may leave of the moisture of dry air, which is a state.
constexpr double dryRatio = -1e-12, dryHumidity = -1e-5;

constexpr StateBounds processBounds = {{
    {rh, {dryHumidity, 100}},
    {w, {dryRatio, highestRatio}},
    {db, {lowestDryBulb - 1e-9, highestDryBulb}},
    {wb, {-200, highestDryBulb}},
    {h, {-infinite, infinite}},
    {v, {0, infinite}},
}};

double saturationTemperatureOf(double ratio, double atm) {
  return temperatureOfSaturation(pressureOfRatio(ratio, atm));
}

double relativeHumidityOf(double db, double ratio, double atm) {
  return humidityOf(pressureOfRatio(ratio, atm), psychro_pvs(db));
}

double ratioOfHumidityAt(double db, double humidity, double atm) {
  const double pv = humidity / 100 * psychro_pvs(db);
  return pv < atm ? ratioOf(pv, atm) : infinite;
}

double dryBulbOfHumidityAt(double humidity, double ratio, double atm) {
  const double pvs = quotient(100 * pressureOfRatio(ratio, atm), humidity);
  const double temp = temperatureOfSaturation(pvs);
  return std::abs(psychro_pvs(temp) - pvs) <= 1e-9 * pvs ? temp : noValue;
}

double volumeOfState(double db, double ratio, double atm) { return volumeOf(volumeFactor(db), ratio, atm); }

double dewPointOf(double ratio, double atm) { return psychro_dp(pressureOfRatio(ratio, atm)); }

double ratioOfDewPointAt(double dewPoint, double atm) {
  static const double frostEnd = psychro_dp(std::nextafter(formsMeet, 0));
  static const double waterStart = psychro_dp(formsMeet);
  if (dewPoint > frostEnd && dewPoint < waterStart) return noValue;
  if (!(dewPoint > frostPoint.at(frostPoint.turn()))) return noValue;
  const double pv = std::exp((dewPoint < waterStart ? frostPoint : waterPoint).of(dewPoint));
  return pv < atm ? ratioOf(pv, atm) : infinite;
}

double ratioOfWetBulbAt(double db, double wetBulb, double atm) {
  if (!(psychro_pvs(wetBulb) < atm)) return infinite;
  return psychro_w(db, wetBulb, atm);
}

Error noState(const ExactSolutions& found, const Given& first, const Given& second) {
  const std::string pair = std::string(nameOf(first.kind)) + " and " + nameOf(second.kind);
  const std::string place = nameOf(second.kind);
  switch (found.reason) {
    case NoSolution::noPair: return {ErrorCode::noResult, place, pair + " do not fix a state; give another property"};
    case NoSolution::belowBound:
    case NoSolution::aboveBound: {
      const bool above = found.reason == NoSolution::aboveBound;
      const double below = found.kind == db ? lowestDryBulb : 0;  // without the allowance for rounding
      const std::string limit = figure(above ? found.bound : found.kind == wb ? found.bound : below);
      return {ErrorCode::outOfRange, place,
              "with this " + pair + ", " + nameOf(found.kind) + " is " + (above ? "above " : "below ") + limit};
    }
    case NoSolution::saturation:
      return {ErrorCode::noResult, place, "air with this " + pair + " is above saturation; lower " + place};
    case NoSolution::dewPointGap:
      return {ErrorCode::noResult, "dp", "no air has a dew point between 31.996 and 32.214 deg F; give w"};
    case NoSolution::freezingStep:
      return {ErrorCode::noResult, place, "this " + pair + " lie in the step of the equations at 32 deg F"};
    default: return {ErrorCode::noResult, place, "no air has this " + pair + " at the site's pressure"};
  }
}

Error twoStates(const std::vector<StatePoint>& states, const Given& first, const Given& second) {
  std::string words = std::string("more than one state has this ") + nameOf(first.kind) + " and " + nameOf(second.kind);
  const char* before = ": ";
  for (const StatePoint& state : states) {
    words += before + ("db=" + figure(state.db)) + ",w=" + figure(state.w);
    before = " and ";
  }
  return {ErrorCode::noResult, nameOf(second.kind), words + "; give one of these pairs"};
}

/// The humidity ratio of a dry bulb and another property, in closed form.
double ratioAt(double dryBulb, const Given& other, double atm) {
  switch (other.kind) {
    case wb:
      return other.value <= dryBulb * (1 + 1e-15) + 1e-12 ? ratioOfWetBulbAt(dryBulb, other.value, atm) : infinite;
    case rh: return ratioOfHumidityAt(dryBulb, other.value, atm);
    case w: return other.value;
    case h: return ratioOfEnthalpy(dryBulb, other.value);
    case dp: return ratioOfDewPointAt(other.value, atm);
    case v: return ratioOfVolume(dryBulb, other.value, atm);
    default: return noValue;
  }
}

/// The dry air of a wet bulb.
Result<AirState> dryOfWetBulb(const Given& wetBulb, const Given& moisture, double atm) {
  const auto ratio = [&](double temp) { return ratioOfWetBulbAt(temp, wetBulb.value, atm); };
  const double cold = std::max(wetBulb.value, lowestDryBulb);
  const double wettest = cold <= highestDryBulb ? ratio(cold) : noValue;
  const double driest = ratio(highestDryBulb);
  if (!(wettest >= 0) || !(driest <= 0))
    return noState({{}, NoSolution::aboveBound, db, highestDryBulb}, wetBulb, moisture);
  return AirState{crossing(ratio, cold, wettest, highestDryBulb, driest), 0};
}

Result<AirState> stateOfPair(Given first, Given second, double atm) {
  if (first.kind > second.kind) std::swap(first, second);
  if (first.kind == db && second.kind != db) {
    AirState state{first.value, ratioAt(first.value, second, atm)};
    if (state.w > dryRatio && state.w < 0) state.w = 0;
    const bool inRange =
        state.db >= lowestDryBulb && state.db <= highestDryBulb && state.w >= 0 && state.w <= highestRatio;
    if (inRange && !aboveSaturation(state.w, saturationRatio(state.db, atm))) return state;
  }
  const bool dry = first.kind == rh && first.value == 0;  // no equation turns dry air's humidity into a dry bulb
  if (dry && (second.kind == h || second.kind == v)) return stateOfPair({w, 0}, second, atm);
  if (dry) return noState({{}, NoSolution::noPair}, first, second);
  if (first.kind == wb && (second.kind == rh || second.kind == w) && second.value == 0)
    return dryOfWetBulb(first, second, atm);
  const ExactSolutions found = solutionsWithoutWetBulb(first, second, atm, processBounds);
  if (found.states.empty()) return noState(found, first, second);
  if (found.states.size() > 1) return twoStates(found.states, first, second);
  return AirState{found.states.front().db, std::max(found.states.front().w, 0.0)};
}

}  // namespace

const AirModel programAir = {
    .enthalpy = enthalpyOf,
    .vaporEnthalpy = [](double db) { return 1061 + 0.444 * db; },
    .dryBulbOfEnthalpy = dryBulbOfEnthalpy,
    .volume = volumeOfState,
    .relativeHumidity = relativeHumidityOf,
    .ratioOfHumidity = ratioOfHumidityAt,
    .dryBulbOfHumidity = dryBulbOfHumidityAt,
    .saturationRatio = saturationRatio,
    .saturationSlope = saturationSlopeOf,
    .saturationTemperature = saturationTemperatureOf,
    .dewPoint = dewPointOf,
    .ratioOfDewPoint = ratioOfDewPointAt,
    .wetBulbs = wetBulbsOf,
    .ratioOfWetBulb = ratioOfWetBulbAt,
    .stateOf = stateOfPair,
    .freezing = freezingStep().before,
};

}  // namespace moistair
