#include "process/flows.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>
#include <span>
#include <utility>

namespace moistair {

namespace {

constexpr double typicalVolume = 13.5;  // [cu ft/lb], for the size of a flow where only its structure counts

using Sum = FlowSum;

Sum operator+(Sum one, const Sum& other) {
  std::transform(one.begin(), one.end(), other.begin(), one.begin(), std::plus<>());
  return one;
}

Sum scaled(Sum sum, double factor) {
  for (double& part : sum) part *= factor;
  return sum;
}

Sum operator-(Sum one, const Sum& other) { return std::move(one) + scaled(other, -1); }

constexpr ParameterSet flowParameters = setOf(Parameter::acfm, Parameter::scfm, Parameter::lbh);
constexpr ParameterSet perHour = flowParameters | setOf(Parameter::btuh, Parameter::total, Parameter::sensible,
                                                        Parameter::latent, Parameter::water, Parameter::bhp);

/// The flow that a step gives as a number [lb/h]; none where it gives none, or an unknown one.
std::optional<double> givenFlow(const CompiledStep& step) {
  const Parameters& given = step.parameters;
  double flow = noValue;
  if (given.has(Parameter::lbh)) flow = given[Parameter::lbh];
  if (given.has(Parameter::scfm)) flow = given[Parameter::scfm] * lbhPerScfm;
  if (given.has(Parameter::acfm)) flow = dryFlowOfAcfm(given[Parameter::acfm], typicalVolume);
  return hasValue(flow) ? std::optional(flow) : std::nullopt;
}

/// Sets up the sums of all streams in the order of evaluation.
class Propagation {
public:
  Propagation(const CompiledSystem& system, const std::vector<bool>& counted, std::vector<OpenFlow>& open)
      : system_(system), counted_(counted), sums_(2 * system.steps.size()) {
    for (std::size_t i = 0; i < system.unknowns.size(); ++i) {
      const auto [step, parameter] = system.unknowns[i];
      const bool divides = system.steps[step].kind == StepKind::part && parameter == Parameter::share;
      if (divides || contains(flowParameters, parameter)) open.push_back({OpenFlow::Origin::unknownParameter, i});
    }
    for (std::size_t step = 0; step < system.steps.size(); ++step) {
      const CompiledStep& air = system.steps[step];
      const bool silent = air.kind == StepKind::air && (air.parameters.given() & flowParameters) == 0;
      if (silent && counted[step] && !indexOf(open, step)) open.push_back({OpenFlow::Origin::airStep, step});
    }
    for (std::size_t i = 0; i < system.tears.size(); ++i) open.push_back({OpenFlow::Origin::tear, i});
    open_ = open;
    for (std::size_t i = 0; i < open.size(); ++i) {
      if (open[i].origin == OpenFlow::Origin::tear) sums_[system.tears[open[i].place]] = unit(i);
    }
    for (const std::size_t step : system.order) run(step);
    open = open_;
  }

  const Sum& at(std::size_t stream) const { return sums_[stream]; }
  Sum unit(std::size_t open) const {
    Sum sum(open_.size() + 1, 0.0);
    sum[open] = 1;
    return sum;
  }

private:
  /// The open flow of a step that an unknown parameter leaves open.
  std::optional<std::size_t> indexOf(const std::vector<OpenFlow>& open, std::size_t step) const {
    for (std::size_t i = 0; i < open.size(); ++i) {
      const bool parameter = open[i].origin == OpenFlow::Origin::unknownParameter;
      if (parameter && system_.unknowns[open[i].place].step == step) return i;
      if (open[i].origin == OpenFlow::Origin::airStep && open[i].place == step) return i;
    }
    return std::nullopt;
  }

  Sum number(double flow) const {
    Sum sum(open_.size() + 1, 0.0);
    sum.back() = flow;
    return sum;
  }

  void run(std::size_t index) {
    const CompiledStep& step = system_.steps[index];
    const std::span<const std::size_t> sources(system_.sources.data() + step.firstSource, step.sourceCount);
    Sum in = number(0);
    for (const std::size_t source : sources) {
      if (sums_[source].empty()) sums_[source] = number(0);  // nothing is known of what comes from a faulty step
      if (step.kind == StepKind::mix || source == sources.front()) in = in + sums_[source];
    }
    Sum& main = sums_[mainStream(index)];
    Sum& second = sums_[secondStream(index)];
    const auto open = indexOf(open_, index);
    switch (step.kind) {
      case StepKind::air: main = open ? unit(*open) : number(givenFlow(step).value_or(1)); break;
      case StepKind::part:
        if (open) {
          main = unit(*open);
          open_[*open].inflow = in;
        } else if (step.parameters.has(Parameter::share)) {
          main = scaled(in, step.parameters[Parameter::share]);
        } else {
          main = number(givenFlow(step).value_or(0));
        }
        second = in - main;
        break;
      case StepKind::recover:
        main = in;
        if (sources.size() == 2) second = sums_[sources[1]];
        break;
      default: main = in;
    }
  }

  const CompiledSystem& system_;
  const std::vector<bool>& counted_;
  std::vector<OpenFlow> open_;
  std::vector<Sum> sums_;
};

/// Takes out of a row what earlier rows say already. Each of those has 1 at its pivot.
void reduce(Sum& row, const std::vector<std::pair<std::size_t, Sum>>& earlier) {
  for (const auto& [pivot, known] : earlier) row = row - scaled(known, row[pivot]);
}

}  // namespace

FlowAnalysis analyzeFlows(const CompiledSystem& system, const std::vector<bool>& counted) {
  constexpr double nothing = 1e-9;
  FlowAnalysis analysis;
  const Propagation flows(system, counted, analysis.open);
  const std::size_t count = analysis.open.size();
  analysis.free.assign(count, true);
  analysis.closes.assign(system.tears.size(), false);
  // A tear's flow is fixed first, then that of an `air` step, and an unknown of the user's only where nothing else is.
  std::vector<std::size_t> preference(count);
  std::iota(preference.rbegin(), preference.rend(), std::size_t{0});
  std::vector<std::pair<std::size_t, Sum>> rows;
  for (std::size_t i = 0; i < count; ++i) {
    if (analysis.open[i].origin != OpenFlow::Origin::tear) continue;
    const std::size_t tear = analysis.open[i].place;
    Sum row = flows.at(system.tears[tear]);
    if (row.empty()) continue;
    // The stream itself was overwritten by what its step makes of it.
    row = row - flows.unit(i);
    const double size = 1 + std::abs(row.back());
    reduce(row, rows);
    const auto pivot = std::find_if(preference.begin(), preference.end(),
                                    [&](std::size_t open) { return std::abs(row[open]) > nothing; });
    if (pivot == preference.end()) {
      if (std::abs(row.back()) > nothing * size) analysis.contrary.push_back(tear);
      continue;
    }
    analysis.closes[tear] = true;
    analysis.free[*pivot] = false;
    row = scaled(row, 1 / row[*pivot]);
    for (auto& [earlier, known] : rows) known = known - scaled(row, known[*pivot]);
    rows.emplace_back(*pivot, std::move(row));
  }
  for (auto& [pivot, row] : rows) analysis.open[pivot].balance = std::move(row);
  return analysis;
}

std::vector<bool> flowsThatCount(const CompiledSystem& system, const std::vector<bool>& goalPerHour) {
  std::vector<std::size_t> group(system.steps.size());
  std::iota(group.begin(), group.end(), std::size_t{0});
  const auto root = [&](std::size_t step) {
    while (group[step] != step) step = group[step];
    return step;
  };
  for (std::size_t step = 0; step < system.steps.size(); ++step) {
    const CompiledStep& taker = system.steps[step];
    for (std::size_t i = 0; i < taker.sourceCount; ++i) {
      group[root(system.sources[taker.firstSource + i] / 2)] = root(step);
    }
  }
  std::vector<bool> absolute(system.steps.size(), false);
  for (std::size_t step = 0; step < system.steps.size(); ++step) {
    const bool given = (system.steps[step].parameters.given() & perHour) != 0;
    if (given || goalPerHour[step]) absolute[root(step)] = true;
  }
  for (const Unknown& unknown : system.unknowns) {
    if (contains(perHour, unknown.parameter)) absolute[root(unknown.step)] = true;
  }
  std::vector<bool> counted(system.steps.size());
  for (std::size_t step = 0; step < counted.size(); ++step) counted[step] = absolute[root(step)];
  return counted;
}

}  // namespace moistair
