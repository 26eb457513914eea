#include "process/processes.h"

#include <cmath>
#include <limits>

#include "engine/crossing.h"
#include "process/words.h"

namespace moistair {

namespace {

Outcome acceptState(const AirState& state, const Site& site) {
  if (!(state.db >= lowestDryBulb && state.db <= highestDryBulb)) {
    const std::string words = hasValue(state.db) ? "would be at " + figure(state.db) + " deg F" : "has no dry bulb";
    return Error{ErrorCode::outOfRange, {}, "the leaving air " + words + "; the range is -60 to 300"};
  }
  if (!(state.w >= 0)) return Error{ErrorCode::outOfRange, {}, "more water would leave the air than it holds"};
  if (!(state.w <= highestRatio)) {
    return Error{ErrorCode::outOfRange, {}, "the leaving humidity ratio would be " + figure(state.w) + ", above 0.1"};
  }
  const double saturated = site.saturationRatio(state.db);
  if (!aboveSaturation(state.w, saturated)) return {};
  return refuse("the leaving air would be above saturation: at " + figure(state.db) + " deg F it holds " +
                figure(saturated) + " lb/lb, not " + figure(state.w) + "; less water or more heat is needed");
}

}  // namespace

Error refuse(Parameter parameter, const std::string& words) { return {ErrorCode::noResult, nameOf(parameter), words}; }

Error refuse(const std::string& words) { return {ErrorCode::noResult, {}, words}; }

Loads loadsBetween(const AirState& from, const AirState& to, const Site& site) {
  const double lower = std::min(from.w, to.w);
  const double moister = to.w > from.w ? to.db : from.db;
  return {site.air->enthalpy(to.db, lower) - site.air->enthalpy(from.db, lower),
          (to.w - from.w) * site.air->vaporEnthalpy(moister)};
}

Outcome acceptLeaving(const StepInput& input, const StepResult& result, bool withSecond) {
  if (const Outcome outcome = acceptState(result.leaving.state, input.site); !outcome) return outcome;
  if (!withSecond) return {};
  const Outcome outcome = acceptState(result.second.state, input.site);
  return outcome ? outcome : outcome.error().within("second stream");
}

StepResult leavingAs(const StepInput& input, const AirState& state) {
  StepResult result;
  result.leaving = input.sources.front();
  result.leaving.state = state;
  return result;
}

Result<StepResult> finish(const StepInput& input, StepResult result, double liquid) {
  if (const Outcome outcome = acceptLeaving(input, result, false); !outcome) return outcome.error();
  const Stream& entering = input.sources.front();
  const Loads loads = loadsBetween(entering.state, result.leaving.state, input.site);
  result.sensible = entering.flow * loads.sensible;
  result.latent = entering.flow * loads.latent + liquid;
  result.total = result.sensible + result.latent;
  result.water = entering.flow * (result.leaving.state.w - entering.state.w);
  return result;
}

Result<StepResult> passOrRefuse(const StepInput& input, const Error& why) {
  if (!input.parameters.has(Parameter::idle)) return why;
  StepResult result = leavingAs(input, input.sources.front().state);
  result.off = true;
  result.notes.add(NoteCode::off);
  return result;
}

Result<double> perPound(const StepInput& input, Parameter parameter) {
  const Stream& entering = input.sources.front();
  if (!entering.flowKnown())
    return refuse(parameter, "needs the flow of the air; give acfm, scfm or lbh where it begins");
  if (!(entering.flow > 0)) return refuse(parameter, "no air flows here");
  return input.parameters[parameter] / entering.flow;
}

Settled settle(const AirState& mixed, const Site& site) {
  const double h = site.enthalpy(mixed);
  const double highest = site.saturationTemperature(mixed.w);
  const auto excess = [&](double temp) {
    const double saturated = site.saturationRatio(temp);
    return site.air->enthalpy(temp, saturated) + (mixed.w - saturated) * waterEnthalpy(temp) - h;
  };
  const auto settledAt = [&](double temp, double w) { return Settled{{temp, w}, mixed.w - w}; };
  double low = mixed.db;
  double high = highest;
  const double before = site.air->freezing;
  const double after = std::nextafter(before, std::numeric_limits<double>::infinity());
  if (low < before && high > after) {
    if (excess(before) >= 0) {
      high = before;
    } else if (excess(after) <= 0) {
      low = after;
    } else {  // in the step: the enthalpy decides how much stays in the air
      const double water = waterEnthalpy(before);
      const double dry = site.air->enthalpy(before, 0);
      return settledAt(before, (h - dry - mixed.w * water) / (site.air->vaporEnthalpy(before) - water));
    }
  }
  const double temp = crossing(excess, low, excess(low), high, excess(high));
  return settledAt(temp, site.saturationRatio(temp));
}

std::string dewPointWords(const AirState& state, const Site& site) {
  const double temp = site.saturationTemperature(state.w);
  return hasValue(temp) ? figure(temp) + " deg F" : "none (dry air)";
}

Outcome checkTogether(StepKind kind, ParameterSet given) {
  using enum Parameter;
  const struct {
    StepKind kind;
    ParameterSet pair;
    const char* why;
  } refused[] = {
      {StepKind::coil, setOf(adp, shr),
       "both give the direction of the line and none how far the air goes; give bf or db with one"},
      {StepKind::coil, setOf(w, dp), "they are the same property; give db, rh, adp or bf with one"},
      {StepKind::coil, setOf(wb, total),
       "enthalpy and wet bulb are almost the same property; give db, rh or shr with one"},
      {StepKind::coil, setOf(db, sensible),
       "the sensible heat follows from the dry bulb; give total, shr or rh with one"},
  };
  for (const auto& row : refused) {
    if (row.kind != kind || (given & row.pair) != row.pair) continue;
    return refuse(namesOf(row.pair, "and") + " do not fix a coil: " + row.why);
  }
  if (kind == StepKind::room && contains(given, hg) && !contains(given, water)) {
    return Error{ErrorCode::unreadable, "hg", "goes with water only"};
  }
  return {};
}

Result<StepResult> runStep(StepKind kind, const StepInput& input) { return rowOf(kind).run(input); }

}  // namespace moistair
