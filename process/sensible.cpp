// Steps at constant humidity ratio: heat, cool, fan.
#include "process/processes.h"
#include "process/words.h"

namespace moistair {

namespace {

using enum Parameter;

constexpr double btuhPerHp = 2544.43;
constexpr double cfmInwgPerHp = 6356;  ///< air power: cfm times in. w.g. over this

/// Leaving dry bulb of a heater (direction 1) or a dry cooler (-1).
Result<double> leavingDryBulb(const StepInput& input, double direction) {
  const AirState& entering = input.sources.front().state;
  const Parameters& given = input.parameters;
  if (given.has(db)) return given[db];
  if (given.has(dt)) return entering.db + direction * given[dt];
  if (given.has(rh)) {
    const double temp = input.site.air->dryBulbOfHumidity(given[rh], entering.w, input.site.atm);
    if (!hasValue(temp))
      return refuse(rh, "no dry bulb has this relative humidity at " + figure(entering.w) + " lb/lb");
    return temp;
  }
  const Result<double> heat = perPound(input, btuh);
  if (!heat) return heat.error();
  return input.site.air->dryBulbOfEnthalpy(input.site.enthalpy(entering) + direction * *heat, entering.w);
}

/// What a step that only warms or cools the air ends with.
Result<StepResult> finishAt(const StepInput& input, double temp, double heat) {
  const Stream& entering = input.sources.front();
  StepResult result = leavingAs(input, {temp, entering.state.w});
  result.exchange.heat = heat;
  return finish(input, result);
}

/// Heat into the air at a leaving dry bulb: as given, or by the states.
double heatTo(const StepInput& input, double temp, double direction) {
  const Stream& entering = input.sources.front();
  if (input.parameters.has(btuh)) return direction * input.parameters[btuh];
  return entering.flow * (input.site.air->enthalpy(temp, entering.state.w) - input.site.enthalpy(entering.state));
}

Error wrongDirection(const StepInput& input, double temp, const char* does, const char* other) {
  const Parameter parameter = input.parameters.has(db)   ? db
                              : input.parameters.has(rh) ? rh
                              : input.parameters.has(dt) ? dt
                                                         : btuh;
  return refuse(parameter, "the air enters at " + figure(input.sources.front().state.db) + " deg F and would be " +
                               does + " to " + figure(temp) + "; use " + other + " or idle=pass");
}

Result<StepResult> finishSensible(const StepInput& input, double temp, double direction) {
  Result<StepResult> result = finishAt(input, temp, heatTo(input, temp, direction));
  if (result) result->shr = quotient(result->sensible, result->total);
  return result;
}

}  // namespace

Result<StepResult> runHeat(const StepInput& input) {
  const Result<double> temp = leavingDryBulb(input, 1);
  if (!temp) return temp.error();
  if (*temp < input.sources.front().state.db)
    return passOrRefuse(input, wrongDirection(input, *temp, "cooled", "cool"));
  return finishSensible(input, *temp, 1);
}

Result<StepResult> runCool(const StepInput& input) {
  const AirState& entering = input.sources.front().state;
  const Result<double> temp = leavingDryBulb(input, -1);
  if (!temp) return temp.error();
  if (*temp > entering.db) return passOrRefuse(input, wrongDirection(input, *temp, "heated", "heat"));
  if (*temp >= lowestDryBulb && aboveSaturation(entering.w, input.site.saturationRatio(*temp))) {
    return refuse("the air would be cooled to " + figure(*temp) + " deg F, below its dew point of " +
                  dewPointWords(entering, input.site) + "; use coil, or cool it less");
  }
  return finishSensible(input, *temp, -1);
}

Result<StepResult> runFan(const StepInput& input) {
  const Stream& entering = input.sources.front();
  const Parameters& given = input.parameters;
  const bool inStream = given.has(motor) && given[motor] == motorIn;
  if (inStream && !given.has(motorEff)) return refuse(motor, "a motor in the stream needs motoreff");
  const double motorEfficiency = given.has(motorEff) ? given[motorEff] : 1;
  const double intoAir = btuhPerHp / (inStream ? motorEfficiency : 1);  // per hp of the shaft

  const double h = input.site.enthalpy(entering.state);
  double shaft = 0;  // hp per lb/h of dry air
  if (given.has(inwg)) {
    if (!(given[eff] > 0)) return refuse(eff, "the efficiency of a fan is above 0");
    shaft = acfmOfDryFlow(1, input.site.volume(entering.state)) * given[inwg] / cfmInwgPerHp / given[eff];
  } else if (given.has(bhp)) {
    const Result<double> power = perPound(input, bhp);
    if (!power) return power.error();
    shaft = *power;
  } else {
    if (!(given[dt] >= 0)) return refuse(dt, "a fan does not cool the air");
    shaft = (input.site.air->enthalpy(entering.state.db + given[dt], entering.state.w) - h) / intoAir;
  }
  const double heat = shaft * intoAir;
  const double temp = input.site.air->dryBulbOfEnthalpy(h + heat, entering.state.w);
  Result<StepResult> result = finishAt(input, temp, entering.flow * heat);
  if (!result) return result;
  result->power = entering.flow * shaft;
  if (!inStream && given.has(motorEff)) {
    result->notes.add(NoteCode::motorOutside, result->power * btuhPerHp * (1 / motorEfficiency - 1));
  }
  return result;
}

}  // namespace moistair
