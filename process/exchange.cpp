// Where streams begin, meet and part, and where a room takes them: air, mix, part, recover, room.
#include <algorithm>

#include "process/processes.h"
#include "process/words.h"

namespace moistair {

namespace {

using enum Parameter;

/// The flow of dry air that acfm, scfm or lbh give; no value where none is given.
double givenFlow(const StepInput& input, const AirState& state) {
  const Parameters& given = input.parameters;
  if (given.has(lbh)) return given[lbh];
  if (given.has(scfm)) return given[scfm] * lbhPerScfm;
  if (given.has(acfm)) return dryFlowOfAcfm(given[acfm], input.site.volume(state));
  return noValue;
}

/// Flows can be compared if all are in lb/h, or all are parts of the same air.
Outcome checkComparable(const StepInput& input) {
  const int origin = input.sources.front().origin;
  for (const Stream& source : input.sources) {
    if (source.origin != origin)
      return refuse("needs the flow of each stream; give acfm, scfm or lbh where they begin");
  }
  return {};
}

Result<AirState> givenState(const StepInput& input) {
  std::array<Given, 2> pair{};
  std::size_t count = 0;
  for (int i = 0; i < kindCount && count < 2; ++i) {
    const auto parameter = static_cast<Parameter>(i);
    if (input.parameters.has(parameter)) pair[count++] = {static_cast<PropertyKind>(i), input.parameters[parameter]};
  }
  return input.site.air->stateOf(pair[0], pair[1], input.site.atm);
}

/// Leaves the liquid that air cannot hold to the water that goes; returns how much [lb/h].
double dropLiquid(Stream& stream, const Site& site, StepResult& result, NoteCode note) {
  if (!aboveSaturation(stream.state.w, site.saturationRatio(stream.state.db))) return 0;
  const Settled settled = settle(stream.state, site);
  stream.state = settled.state;
  const double liquid = stream.flow * settled.liquid;
  result.condensate += liquid;
  result.exchange.water -= liquid;
  result.exchange.waterHeat -= liquid * waterEnthalpy(stream.state.db);
  result.notes.add(note, liquid, stream.state.db);
  if (stream.state.db < 32) result.notes.add(NoteCode::frost, liquid);
  return liquid;
}

}  // namespace

Result<StepResult> runAir(const StepInput& input) {
  const Result<AirState> state = givenState(input);
  if (!state) return state.error();
  StepResult result;
  result.leaving.state = *state;
  const double flow = givenFlow(input, *state);
  const bool given = (input.parameters.given() & setOf(acfm, scfm, lbh)) != 0;
  if (given && !hasValue(flow)) return refuse(acfm, "this air has no volume");
  result.leaving.flow = given ? flow : 1;
  result.leaving.origin = given ? -1 : input.self;
  return result;
}

Result<StepResult> runMix(const StepInput& input) {
  if (const Outcome outcome = checkComparable(input); !outcome) return outcome.error();
  double flow = 0;
  double water = 0;
  double heat = 0;
  for (const Stream& source : input.sources) {
    flow += source.flow;
    water += source.flow * source.state.w;
    heat += source.flow * input.site.enthalpy(source.state);
  }
  if (!(flow > 0)) return refuse("no air flows in any of the streams");
  const double w = water / flow;
  StepResult result = leavingAs(input, {input.site.air->dryBulbOfEnthalpy(heat / flow, w), w});
  result.leaving.flow = flow;
  result.share = input.sources.front().flow / flow;
  result.water -= dropLiquid(result.leaving, input.site, result, NoteCode::fog);
  if (const Outcome outcome = acceptLeaving(input, result, false); !outcome) return outcome.error();
  return result;
}

Result<StepResult> runPart(const StepInput& input) {
  const Stream& entering = input.sources.front();
  StepResult result = leavingAs(input, entering.state);
  double flow = 0;
  if (input.parameters.has(share)) {
    flow = entering.flow * input.parameters[share];
  } else {
    const Parameter parameter = input.parameters.has(acfm) ? acfm : input.parameters.has(scfm) ? scfm : lbh;
    if (!entering.flowKnown()) return refuse(parameter, "the stream has no flow to take this from; give share");
    flow = givenFlow(input, entering.state);
    if (!(flow <= entering.flow * (1 + 1e-12))) {
      return refuse(parameter,
                    "takes " + figure(flow) + " lb/h of dry air from " + figure(entering.flow) + "; take less");
    }
    flow = std::min(flow, entering.flow);
  }
  result.leaving.flow = flow;
  result.second = entering;
  result.second.flow = entering.flow - flow;
  result.share = entering.flow > 0 ? flow / entering.flow : input.parameters[share];
  return result;
}

Result<StepResult> runRecover(const StepInput& input) {
  if (const Outcome outcome = checkComparable(input); !outcome) return outcome.error();
  const Stream& first = input.sources[0];
  const Stream& second = input.sources[1];
  const double smaller = std::min(first.flow, second.flow);
  const double intoFirst = first.flow > 0 ? smaller / first.flow : 0;
  const double sensibleShare = input.parameters[sens] * intoFirst;
  const double latentShare = input.parameters.has(lat) ? input.parameters[lat] * intoFirst : 0;

  StepResult result = leavingAs(input, {first.state.db + sensibleShare * (second.state.db - first.state.db),
                                        first.state.w + latentShare * (second.state.w - first.state.w)});
  result.second = second;
  if (second.flow > 0) {  // the second stream gives what the first one takes
    const double ratio = first.flow / second.flow;
    const double taken = ratio * (input.site.enthalpy(result.leaving.state) - input.site.enthalpy(first.state));
    const double w = second.state.w - ratio * (result.leaving.state.w - first.state.w);
    result.second.state = {input.site.air->dryBulbOfEnthalpy(input.site.enthalpy(second.state) - taken, w), w};
  }
  dropLiquid(result.leaving, input.site, result, NoteCode::condensate);
  dropLiquid(result.second, input.site, result, NoteCode::exhaustCondensate);
  if (const Outcome outcome = acceptLeaving(input, result, true); !outcome) return outcome.error();
  Result<StepResult> finished = finish(input, result);
  if (finished) finished->shr = quotient(finished->sensible, finished->total);
  return finished;
}

Result<StepResult> runRoom(const StepInput& input) {
  const Stream& entering = input.sources.front();
  const Parameters& given = input.parameters;
  const bool byTotal = given.has(total);
  if (const Result<double> needed = perPound(input, byTotal ? total : sensible); !needed) return needed.error();
  const double gain = byTotal ? given[total] * given[shr] : given[sensible];

  // At the entering humidity ratio the sensible heat alone decides the dry bulb, unless the water brings its own
  // enthalpy.
  const double perLb = gain / entering.flow;
  AirState state{input.site.air->dryBulbOfEnthalpy(input.site.enthalpy(entering.state) + perLb, entering.state.w),
                 noValue};
  const double vapor = given.has(hg) ? given[hg] : input.site.air->vaporEnthalpy(state.db);
  const double waterGain = given.has(water) ? given[water] : (byTotal ? given[total] - gain : given[latent]) / vapor;
  state.w = entering.state.w + waterGain / entering.flow;
  if (given.has(hg)) {
    const double h = input.site.enthalpy(entering.state) + perLb + waterGain / entering.flow * vapor;
    state.db = input.site.air->dryBulbOfEnthalpy(h, state.w);
  }
  StepResult result = leavingAs(input, state);
  result.exchange = {.heat = gain, .water = waterGain, .waterHeat = waterGain * vapor};
  Result<StepResult> finished = finish(input, result);
  if (finished) finished->shr = quotient(finished->sensible, finished->total);
  return finished;
}

}  // namespace moistair
