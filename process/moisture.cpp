// Steps that change the moisture of the air without a cold surface: evaporate, steam, dry.
#include <algorithm>
#include <cmath>

#include "engine/crossing.h"
#include "engine/pressureunits.h"
#include "process/processes.h"
#include "process/scan.h"
#include "process/steamtable.h"
#include "process/words.h"

namespace moistair {

namespace {

using enum Parameter;

constexpr double lbPerGallon = StepResult::lbhPerGpm / 60;

/// Leaving dry bulb on the way from the entering state down to a wet bulb, along which the humidity ratio is `ratioAt`.
template <class Ratio>
Result<double> leavingTowards(const StepInput& input, double wetBulb, const Ratio& ratioAt) {
  const AirState& entering = input.sources.front().state;
  const Parameters& given = input.parameters;
  if (given.has(eff)) return entering.db - given[eff] * (entering.db - wetBulb);
  if (given.has(db)) {
    if (given[db] >= wetBulb) return given[db];
    return refuse(db, "the wet bulb is " + figure(wetBulb) + " deg F; no lower dry bulb can be reached");
  }
  const auto excess = [&](double temp) {
    return input.site.air->relativeHumidity(temp, ratioAt(temp), input.site.atm) - given[rh];
  };
  const double low = excess(wetBulb);
  const double high = excess(entering.db);
  constexpr double rounding = 1e-9;
  if (std::abs(low) <= rounding) return wetBulb;
  if (low > 0 && high <= 0) return crossing(excess, wetBulb, low, entering.db, high);
  return refuse(rh, "at the wet bulb of " + figure(wetBulb) + " deg F the relative humidity is " +
                        figure(low + given[rh]) + "; give less");
}

/// Why an evaporative cooler has nothing to do; empty words if it has.
Error notNeeded(const StepInput& input) {
  const AirState& entering = input.sources.front().state;
  const Parameters& given = input.parameters;
  if (given.has(db) && given[db] > entering.db) {
    return refuse(db, "the air enters at " + figure(entering.db) + " deg F, cooler than it is to leave");
  }
  const double humidity = input.site.relativeHumidity(entering);
  if (given.has(rh) && given[rh] < humidity) {
    return refuse(rh, "the air enters at " + figure(humidity) + " %, moister than it is to leave");
  }
  return {};
}

Result<StepResult> runIndirect(const StepInput& input) {
  const Stream& entering = input.sources.front();
  const AirState& other = input.indirect->state;
  const double wetBulb = input.site.air->wetBulbs(other.db, other.w, input.site.atm).shown();
  if (!hasValue(wetBulb))
    return refuse(indirect, "this stream has no wet bulb; near 32 deg F the equations leave a gap");
  if (wetBulb >= entering.state.db) {
    return passOrRefuse(input, refuse(indirect, "its wet bulb of " + figure(wetBulb) + " deg F does not cool the air"));
  }
  const Result<double> temp = leavingTowards(input, wetBulb, [&](double) { return entering.state.w; });
  if (!temp) return temp.error();
  if (aboveSaturation(entering.state.w, input.site.saturationRatio(*temp))) {
    return refuse("the air would be cooled to " + figure(*temp) + " deg F, below its dew point of " +
                  dewPointWords(entering.state, input.site) + "; cool it less");
  }
  StepResult result = leavingAs(input, {*temp, entering.state.w});
  result.effectiveness = quotient(entering.state.db - *temp, entering.state.db - wetBulb);
  result.exchange.heat =
      entering.flow * (input.site.enthalpy(result.leaving.state) - input.site.enthalpy(entering.state));
  const double evaporated = -result.exchange.heat / (input.site.air->vaporEnthalpy(wetBulb) - waterEnthalpy(wetBulb));
  result.notes.add(NoteCode::indirectWater, evaporated, evaporated / lbPerGallon);
  return finish(input, result);
}

/// Enthalpy of the steam of a humidifier [Btu/lb].
Result<double> givenSteam(const StepInput& input) {
  const Parameters& given = input.parameters;
  if (given.has(hg)) return given[hg];
  if (given.has(degf)) return steamEnthalpy(given[degf]);
  if (!given.has(psig)) return steamEnthalpy(212);
  const double h = steamEnthalpy(steamTemperature(given[psig] / psiPerInhg + input.site.atm));
  if (!hasValue(h)) return refuse(psig, "the table of saturated steam goes from 32 to 350 deg F");
  return h;
}

/// Leaving humidity ratio of a steam humidifier; `dryBulbAt` is the dry bulb along its line.
template <class DryBulb>
Result<double> leavingRatio(const StepInput& input, const DryBulb& dryBulbAt) {
  const AirState& entering = input.sources.front().state;
  const Parameters& given = input.parameters;
  if (given.has(w)) return given[w];
  if (given.has(dp)) {
    const double ratio = input.site.air->ratioOfDewPoint(given[dp], input.site.atm);
    if (!hasValue(ratio)) return refuse(dp, "no air has a dew point between 31.996 and 32.214 deg F; give w");
    return ratio;
  }
  if (given.has(water)) {
    const Result<double> added = perPound(input, water);
    if (!added) return added.error();
    return entering.w + *added;
  }
  const auto excess = [&](double ratio) {
    return input.site.air->relativeHumidity(dryBulbAt(ratio), ratio, input.site.atm) - given[rh];
  };
  if (excess(entering.w) >= 0) return excess(entering.w) > 0 ? -1 : entering.w;  // moister already
  const Roots roots = rootsOf(excess, entering.w, highestRatio, 40);
  if (roots.count == 0) return refuse(rh, "this steam heats the air too much to reach this relative humidity");
  return roots.at[0];
}

}  // namespace

Result<StepResult> runEvaporate(const StepInput& input) {
  const Stream& entering = input.sources.front();
  if (const Error error = notNeeded(input); !error.words.empty()) return passOrRefuse(input, error);
  if (input.indirect) return runIndirect(input);
  const double wetBulb = input.site.air->wetBulbs(entering.state.db, entering.state.w, input.site.atm).overWater;
  if (!hasValue(wetBulb)) {
    return passOrRefuse(input, refuse("the air has no wet bulb above 32 deg F, so water would freeze; heat it first"));
  }
  const auto ratioAt = [&](double temp) { return input.site.air->ratioOfWetBulb(temp, wetBulb, input.site.atm); };
  const Result<double> temp = leavingTowards(input, wetBulb, ratioAt);
  if (!temp) return temp.error();
  StepResult result = leavingAs(input, {*temp, *temp == entering.state.db ? entering.state.w : ratioAt(*temp)});
  const double added = result.leaving.state.w - entering.state.w;
  const double h = input.site.enthalpy(entering.state);
  const double open = input.site.enthalpy(result.leaving.state) - h - added * waterEnthalpy(wetBulb);
  result.effectiveness = quotient(entering.state.db - *temp, entering.state.db - wetBulb);
  result.exchange.water = entering.flow * added;
  result.exchange.waterHeat = entering.flow * added * waterEnthalpy(wetBulb);
  result.exchange.wetBulbTerm = entering.flow * open;
  result.notes.add(NoteCode::sprayWater, result.exchange.water, result.exchange.water / lbPerGallon);
  result.notes.add(NoteCode::wetBulbTerm, result.exchange.wetBulbTerm, quotient(100 * open, std::abs(h)));
  return finish(input, result);
}

Result<StepResult> runSteam(const StepInput& input) {
  const Stream& entering = input.sources.front();
  const Result<double> steam = givenSteam(input);
  if (!steam) return steam.error();
  const double h = input.site.enthalpy(entering.state);
  const auto dryBulbAt = [&](double ratio) {
    return input.site.air->dryBulbOfEnthalpy(h + (ratio - entering.state.w) * *steam, ratio);
  };
  const Result<double> ratio = leavingRatio(input, dryBulbAt);
  if (!ratio) return ratio.error();
  if (*ratio < entering.state.w) {
    return passOrRefuse(input, refuse("the air enters with " + figure(entering.state.w) + " lb/lb (" +
                                      figure(input.site.relativeHumidity(entering.state)) +
                                      " %), moister than it is to leave; use idle=pass to let it pass"));
  }
  StepResult result = leavingAs(input, {dryBulbAt(*ratio), *ratio});
  result.exchange.water = entering.flow * (*ratio - entering.state.w);
  result.exchange.waterHeat = result.exchange.water * *steam;
  return finish(input, result);
}

Result<StepResult> runDry(const StepInput& input) {
  const Stream& entering = input.sources.front();
  const double ratio = input.parameters[w];
  if (ratio > entering.state.w) {
    return passOrRefuse(input,
                        refuse(w, "the air enters with " + figure(entering.state.w) + ", drier than it is to leave"));
  }
  const double f = input.parameters.has(factor) ? input.parameters[factor] : 1;
  const double heat = (f - 1) * (entering.state.w - ratio) * input.site.air->vaporEnthalpy(0);
  const double temp = input.site.air->dryBulbOfEnthalpy(input.site.enthalpy(entering.state) + heat, ratio);
  StepResult result = leavingAs(input, {temp, ratio});
  result.exchange.heat = entering.flow * heat;
  result.exchange.water = entering.flow * (ratio - entering.state.w);
  result.notes.add(NoteCode::idealized, f);
  return finish(input, result);
}

}  // namespace moistair
