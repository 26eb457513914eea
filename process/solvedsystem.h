/// \file
/// A system with all that it came to: states, results, ratios, unknowns, and what is wrong with it.
///
/// The tool, the sheet and the windows show the same system in their own ways, all from this. A system with mistakes or
/// without a solution is a result, too: `errors` says why, and what could be worked out is still there.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "process/goalproblem.h"
#include "process/readout.h"
#include "process/system.h"
#include "process/systemtext.h"

namespace moistair {

struct SolvedSystem {
  AirSystem written;
  std::vector<Goal> goals;
  CompiledSystem system;  ///< without steps where one cannot be understood
  Site site;
  Solution solution;
  std::vector<RoomRatios> rooms;
  std::vector<UnknownValue> unknowns;             ///< what was solved for
  std::vector<std::vector<UnknownValue>> others;  ///< the same of each further solution
  std::vector<std::string> remarks;               ///< about the whole system, each a sentence
  std::vector<double> values;                     ///< of all variables, to start from after a small change

  /// Mistakes of the whole; the place is the line, the step's name and the parameter. Why a step that is understood
  /// has no result is in `solution`.
  std::vector<Error> errors;
  bool understood = false;  ///< no mistake in names, parameters and goals: what is wrong otherwise has no solution

  bool complete() const { return errors.empty() && solution.complete; }
  bool hasResult(std::size_t step) const { return step < solution.errors.size() && solution.solved(step); }
};

/// Compiles, prepares and solves.
/// @param near values of a similar system, to start from; null for none
SolvedSystem solvedSystem(const SystemText& text, const Site& site, const std::vector<double>* near = nullptr);

/// The same for one that has been solved; at least one solution was found.
SolvedSystem solvedSystem(const SystemText& text, CompiledSystem system, const Site& site, GoalAnswer answer);

/// A property or flow of a stream by its name in results.
struct StreamValue {
  const char* name;
  double StreamReadout::*value;
};
inline constexpr std::array<StreamValue, 11> streamValues = {{
    {"db", &StreamReadout::db},
    {"wb", &StreamReadout::wb},
    {"rh", &StreamReadout::rh},
    {"w", &StreamReadout::w},
    {"h", &StreamReadout::h},
    {"dp", &StreamReadout::dp},
    {"v", &StreamReadout::v},
    {"grains", &StreamReadout::grains},
    {"lbh", &StreamReadout::lbh},
    {"acfm", &StreamReadout::acfm},
    {"scfm", &StreamReadout::scfm},
}};

/// A result of a step by its name in results; the last four only some kinds have.
struct StepValue {
  const char* name;
  double StepResult::*value;
};
inline constexpr std::array<StepValue, 8> stepValues = {{
    {"total", &StepResult::total},
    {"sensible", &StepResult::sensible},
    {"latent", &StepResult::latent},
    {"water", &StepResult::water},
    {"shr", &StepResult::shr},
    {"adp", &StepResult::adp},
    {"bf", &StepResult::bf},
    {"power", &StepResult::power},
}};
inline constexpr std::size_t loadValues = 4;

inline constexpr double btuhPerTon = 12000;

/// Whether a step does something to air; one of kind `air` only begins a stream.
inline bool isProcess(StepKind kind) { return kind != StepKind::air; }

/// Why a step has no result, with its line and name as the place.
Error errorOf(const SolvedSystem& solved, std::size_t step);

/// Why steps have no result, without those that only wait for another.
std::vector<Error> failures(const SolvedSystem& solved);

/// What is to be said of a step that has no value of its own in the results: tons, flows of water, ratios of a room,
/// notes, or why it has no result.
std::vector<std::string> remarksOf(const SolvedSystem& solved, std::size_t step);

/// "CC.rh 81.22 %": an unknown with its value, and with its unit where it has one.
std::string unknownWords(const UnknownValue& unknown);

}  // namespace moistair
