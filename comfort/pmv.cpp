#include "comfort/pmv.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "comfort/settemperature.h"
#include "engine/saturation.h"
#include "text/numbertext.h"

namespace moistair {

namespace {

constexpr double fourthPower(double x) { return x * x * x * x; }

/// Surface temperature of the clothing [K / 100] and the convection about it [W/m2 K].
struct ClothingSurface {
  double temperature;
  double convection;
};

/// Where heat through the clothing equals heat from its surface. Half of each step is taken, which settles for any
/// clothing within some forty steps; no value after the last.
ClothingSurface clothingSurface(const StillBody& body, double area, double speed) {
  constexpr int mostSteps = 150;
  constexpr double settled = 1e-10;
  const double air = body.airTemperature + 273;
  const double insulation = 0.155 * body.clo;
  const double coefficient = insulation * area;
  const double radiative = 3.96 * coefficient;
  const double heat = 58.15 * body.met;
  const double constant = 308.7 - 0.028 * heat + radiative * fourthPower((body.radiantTemperature + 273) / 100);
  const double forced = 12.1 * std::sqrt(speed);
  const double first = air + (35.5 - body.airTemperature) / (3.5 * (6.45 * insulation + 0.1));
  double next = first / 100;
  double now = first / 50;
  double convection = forced;
  for (int step = 0; step < mostSteps; ++step) {
    now = (now + next) / 2;
    convection = std::max(forced, 2.38 * std::pow(std::abs(100 * now - air), 0.25));
    next = (constant + coefficient * air * convection - radiative * fourthPower(now)) /
           (100 + 100 * coefficient * convection);
    if (std::abs(next - now) <= settled) return {next, convection};
  }
  return {noValue, noValue};
}

/// The vote by the heat balance of the body; speed in m/s.
double meanVote(const StillBody& body, double speed) {
  const double insulation = 0.155 * body.clo;
  const double area = insulation <= 0.078 ? 1 + 1.29 * insulation : 1.05 + 0.645 * insulation;
  const ClothingSurface surface = clothingSurface(body, area, speed);
  const double heat = 58.15 * body.met;
  const double vapor = 1000 * body.vaporPressure;
  const double air = body.airTemperature;
  const double diffusion = 3.05e-3 * (5733 - 6.99 * heat - vapor);
  const double sweat = heat > 58.15 ? 0.42 * (heat - 58.15) : 0;
  const double breath = 1.7e-5 * heat * (5867 - vapor) + 0.0014 * heat * (34 - air);
  const double radiation =
      3.96 * area * (fourthPower(surface.temperature) - fourthPower((body.radiantTemperature + 273) / 100));
  const double convection = area * surface.convection * (100 * surface.temperature - 273 - air);
  const double sensation = 0.303 * std::exp(-0.036 * heat) + 0.028;
  return sensation * (heat - diffusion - sweat - breath - radiation - convection);
}

double dissatisfied(double vote) { return 100 - 95 * std::exp(-0.03353 * fourthPower(vote) - 0.2179 * vote * vote); }

Error outside(const char* place, const Span& span, const char* unit, ComfortMethod method) {
  const std::string words = "must be from " + numberText(span.low) + " to " + numberText(span.high) + unit;
  return {ErrorCode::outOfRange, place, words + " for " + rowOf(method).name};
}

Outcome checkAir(const Occupant& occupant, double db, double w, double atm) {
  const ComfortMethodRow& row = rowOf(occupant.method);
  if (!row.db.holds(db)) return outside("dry bulb", row.db, " deg F", occupant.method);
  if (!(atm > 0) || !hasValue(atm)) return Error{ErrorCode::outOfRange, "pressure", "must be above 0"};
  if (!(w >= 0)) return Error{ErrorCode::outOfRange, "humidity ratio", "must not be below 0"};
  if (!(pressureOfRatio(w, atm) <= row.mostPv)) {
    return outside("vapor pressure", {0, row.mostPv}, " in Hg", occupant.method);
  }
  return {};
}

/// All but the checks.
Comfort comfortOf(const Occupant& occupant, double db, double w, double atm) {
  StillBody body{celsius(db),
                 celsius(occupant.radiant.value_or(db)),
                 pressureOfRatio(w, atm) * kilopascalPerInHg,
                 occupant.met,
                 occupant.clo,
                 atm * kilopascalPerInHg};
  const double airSpeed = relativeAirSpeed(occupant);
  double speed = airSpeed / feetPerMinute;
  double effect = 0;
  if (occupant.method == ComfortMethod::ashrae) {
    if (airSpeed > stillAirSpeed) effect = coolingEffect(body, speed);
    body = coolerBy(body, effect);
    speed = std::min(speed, stillAir);
  }
  const double vote = valueOf(meanVote(body, speed));
  return {vote, valueOf(dissatisfied(vote)), 1.8 * effect};
}

}  // namespace

double relativeAirSpeed(const Occupant& occupant) {
  const double perMet = occupant.method == ComfortMethod::iso ? 0.005 * 58.15 : 0.3;
  const double own = occupant.movingBody ? std::max(0.0, perMet * (occupant.met - 1)) * feetPerMinute : 0;
  return occupant.airSpeed + own;
}

Outcome checkOccupant(const Occupant& occupant) {
  const ComfortMethodRow& row = rowOf(occupant.method);
  if (!row.met.holds(occupant.met)) return outside("met", row.met, "", occupant.method);
  if (!row.clo.holds(occupant.clo)) return outside("clo", row.clo, "", occupant.method);
  if (!(occupant.airSpeed >= 0 && row.airSpeed.holds(relativeAirSpeed(occupant)))) {
    return outside("air speed", row.airSpeed, " fpm", occupant.method);
  }
  if (occupant.radiant && !row.radiant.holds(*occupant.radiant)) {
    return outside("mean radiant temperature", row.radiant, " deg F", occupant.method);
  }
  return {};
}

double voteAt(const Occupant& occupant, double db, double w, double atm) {
  if (!checkOccupant(occupant) || !checkAir(occupant, db, w, atm)) return noValue;
  return comfortOf(occupant, db, w, atm).pmv;
}

Result<Comfort> comfortAt(const Occupant& occupant, double db, double w, double atm) {
  for (const Outcome& check : {checkOccupant(occupant), checkAir(occupant, db, w, atm)}) {
    if (!check) return check.error();
  }
  if (!(w <= saturationRatio(db, atm) * (1 + 1e-10))) {
    return Error{ErrorCode::outOfRange, "humidity ratio", "must not be above that of saturated air"};
  }
  const Comfort comfort = comfortOf(occupant, db, w, atm);
  if (!hasValue(comfort.coolingEffect)) {
    return Error{ErrorCode::noResult, "air speed", "moving air does not cool here; give a speed of 20 fpm or less"};
  }
  if (!hasValue(comfort.pmv)) return Error{ErrorCode::noResult, "clothing", "comes to no balance with this air"};
  const double most = rowOf(occupant.method).mostVote;
  if (!(std::abs(comfort.pmv) <= most)) {
    return Error{ErrorCode::outOfRange, "vote",
                 fixedDecimals(comfort.pmv, 2) + " is beyond the scale of -" + numberText(most) + " to " +
                     numberText(most) + " of " + rowOf(occupant.method).name};
  }
  return comfort;
}

}  // namespace moistair
