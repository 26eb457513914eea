#include "process/system.h"

#include <bit>

namespace moistair {

namespace {

/// The first source without a value: its stream number, or -1.
int missingSource(const CompiledSystem& system, const CompiledStep& step, const Solution& solution) {
  for (std::size_t i = 0; i < step.sourceCount; ++i) {
    const std::size_t stream = system.sources[step.firstSource + i];
    if (!hasValue(solution.streams[stream].state.db)) return static_cast<int>(stream);
  }
  if (step.indirect >= 0 && !hasValue(solution.streams[static_cast<std::size_t>(step.indirect)].state.db)) {
    return step.indirect;
  }
  return -1;
}

Outcome checkParameters(const Parameters& parameters) {
  for (ParameterSet rest = parameters.given(); rest != 0; rest &= rest - 1) {
    const auto parameter = static_cast<Parameter>(std::countr_zero(rest));
    const double value = parameters[parameter];
    const ParameterRow& row = rowOf(parameter);
    if (value >= row.low && value <= row.high) continue;
    if (row.quantity == Quantity::stream) continue;
    if (!hasValue(value)) return Error{ErrorCode::noResult, row.name, "is unknown and nothing fixes it"};
    return checkValue(parameter, value);
  }
  return {};
}

std::span<const Stream> sourcesOf(const CompiledSystem& system, const CompiledStep& step, Solution& solution) {
  if (step.sourceCount == 0) return {};
  const std::size_t first = system.sources[step.firstSource];
  if (step.sourceCount == 1) return {&solution.streams[first], 1};
  solution.gathered.clear();
  for (std::size_t i = 0; i < step.sourceCount; ++i) {
    solution.gathered.push_back(solution.streams[system.sources[step.firstSource + i]]);
  }
  return solution.gathered;
}

Result<StepResult> runCompiled(const CompiledSystem& system, std::size_t i, const Site& site, Solution& solution) {
  const CompiledStep& step = system.steps[i];
  if (const int missing = missingSource(system, step, solution); missing >= 0) {
    return Error{ErrorCode::waiting, {}, "waits for " + system.names[static_cast<std::size_t>(missing)]};
  }
  if (const Outcome outcome = checkParameters(step.parameters); !outcome) return outcome.error();
  const Stream* indirect = step.indirect < 0 ? nullptr : &solution.streams[static_cast<std::size_t>(step.indirect)];
  return runStep(step.kind, {sourcesOf(system, step, solution), indirect, step.parameters, site, static_cast<int>(i)});
}

}  // namespace

void evaluate(const CompiledSystem& system, const Site& site, Solution& solution) {
  const std::size_t count = system.steps.size();
  solution.streams.resize(2 * count);
  solution.results.resize(count);
  solution.errors.resize(count);
  solution.complete = true;
  for (const std::size_t i : system.order) {
    const Result<StepResult> result = runCompiled(system, i, site, solution);
    if (result) {
      solution.results[i] = *result;
      solution.errors[i].words.clear();
    } else {
      solution.results[i] = {};
      solution.errors[i] = result.error().within(system.names[mainStream(i)]);
      solution.complete = false;
    }
    solution.streams[mainStream(i)] = solution.results[i].leaving;
    solution.streams[secondStream(i)] = solution.results[i].second;
  }
}

Solution solve(const CompiledSystem& system, const Site& site) {
  Solution solution;
  evaluate(system, site, solution);
  return solution;
}

}  // namespace moistair
