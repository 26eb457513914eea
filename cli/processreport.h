/// \file
/// What a system of processes came to, as a table to read, as JSON and as CSV.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "engine/pressureunits.h"
#include "process/goalproblem.h"
#include "process/readout.h"
#include "process/system.h"

namespace moistair {

struct ProcessReport {
  ProcessReport(const AirSystem& written, const CompiledSystem& system, const Pressure& pressure);
  /// Of a system with unknowns, goals or loops; at least one solution was found.
  ProcessReport(const AirSystem& written, const CompiledSystem& system, const Pressure& pressure, GoalAnswer answer);

  const AirSystem& written;
  const CompiledSystem& system;
  Pressure pressure;
  Site site;
  Solution solution;
  std::vector<RoomRatios> rooms;
  std::vector<UnknownValue> unknowns;             ///< what was solved for
  std::vector<std::vector<UnknownValue>> others;  ///< the same of each further solution
  std::vector<std::string> remarks;               ///< about the whole system, each a sentence
};

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

/// Whether a step does something to air; one of kind `air` only begins a stream.
inline bool isProcess(StepKind kind) { return kind != StepKind::air; }

/// Why a step has no result, with its line and name as the place.
Error errorOf(const ProcessReport& report, std::size_t step);

/// What is to be said of a step that has no value of its own in the results: tons, flows of water, ratios of a room,
/// notes, or why it has no result.
std::vector<std::string> remarksOf(const ProcessReport& report, std::size_t step);

/// All of it to read, in lines of 80 characters.
std::string asTable(const ProcessReport& report);

/// "CC.rh 81.22 %": an unknown with its value, and with its unit where it has one.
std::string unknownWords(const UnknownValue& unknown);

/// {"pressure":29.92126,"states":[...],"processes":[...],"balances":{...}}; values that do not exist are null. A
/// balance is the part of its largest term by which it does not close, null if a step has no result. A system that was
/// solved backward has "unknowns" and, where there are further solutions, "others", each by the names of the unknowns.
std::string asJson(const ProcessReport& report);

/// A row for each stream, with the loads of the step that it leaves.
std::string asCsv(const ProcessReport& report);

}  // namespace moistair
