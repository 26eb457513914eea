/// \file
/// The functions of the kinds, and what they share.
///
/// Each takes inlet streams, parameters and the site and returns a result or the reason why there is none: nothing is
/// clamped. A function works out the leaving state, writes what crosses the step's boundary into `exchange` by the
/// physics of its kind, and ends with `finish`, which works out the loads from the states.
#pragma once

#include <string>

#include "process/step.h"

namespace moistair {

Result<StepResult> runAir(const StepInput& input);
Result<StepResult> runMix(const StepInput& input);
Result<StepResult> runPart(const StepInput& input);
Result<StepResult> runHeat(const StepInput& input);
Result<StepResult> runCool(const StepInput& input);
Result<StepResult> runCoil(const StepInput& input);
Result<StepResult> runEvaporate(const StepInput& input);
Result<StepResult> runSteam(const StepInput& input);
Result<StepResult> runFan(const StepInput& input);
Result<StepResult> runRecover(const StepInput& input);
Result<StepResult> runDry(const StepInput& input);
Result<StepResult> runRoom(const StepInput& input);

/// What the table of kinds cannot say of parameters given together: pairs that do not fix a coil, an enthalpy of steam
/// without its mass.
Outcome checkTogether(StepKind kind, ParameterSet given);

/// A refusal about a parameter.
Error refuse(Parameter parameter, const std::string& words);
/// A refusal about no single parameter.
Error refuse(const std::string& words);

/// Loads per lb of dry air between two states, into the air. The sensible part is taken at the lower humidity ratio, so
/// the latent part is the difference of humidity ratios times the enthalpy of vapor at the moister end.
struct Loads {
  double sensible, latent;
  double total() const { return sensible + latent; }
};
Loads loadsBetween(const AirState& from, const AirState& to, const Site& site);

/// A result whose leaving stream is the first source in another state.
StepResult leavingAs(const StepInput& input, const AirState& state);

/// Whether the leaving states are within the range and not above saturation.
Outcome acceptLeaving(const StepInput& input, const StepResult& result, bool withSecond);

/// Accepts the leaving state and works out the loads of the first source. `liquid` is what counts to the latent part
/// for condensate [Btu/h].
Result<StepResult> finish(const StepInput& input, StepResult result, double liquid = 0);

/// The air as it comes, with the step counted as off; `why` the refusal without idle=pass.
Result<StepResult> passOrRefuse(const StepInput& input, const Error& why);

/// A given heat, water or power per lb of dry air; an error where the flow is not known or there is none.
Result<double> perPound(const StepInput& input, Parameter parameter);

/// What air with more water than it can hold settles to at the same enthalpy, liquid included.
struct Settled {
  AirState state;
  double liquid = 0;  ///< lb per lb of dry air; at state.db
};
Settled settle(const AirState& mixed, const Site& site);

/// Dry bulb of saturated air in words, or "none" for dry air.
std::string dewPointWords(const AirState& state, const Site& site);

}  // namespace moistair
