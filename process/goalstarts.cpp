#include "process/goalstarts.h"

#include <algorithm>
#include <cmath>

namespace moistair {

namespace {

constexpr double volumeToFlow = 4.4;  // lb/h to the cu ft/min, roughly

/// Between what and what an unknown usually lies.
struct Typical {
  double low, high;
};

Typical typicalOf(StepKind kind, Parameter parameter) {
  const bool heats = kind == StepKind::heat || kind == StepKind::steam;
  switch (parameter) {
    case Parameter::db: return heats ? Typical{70, 110} : kind == StepKind::air ? Typical{50, 90} : Typical{48, 65};
    case Parameter::wb: return {45, 65};
    case Parameter::rh:
      return kind == StepKind::coil || kind == StepKind::evaporate ? Typical{82, 98} : Typical{30, 65};
    case Parameter::w: return {0.006, 0.011};
    case Parameter::h: return {18, 32};
    case Parameter::dp: return {42, 58};
    case Parameter::v: return {12.8, 13.8};
    case Parameter::adp: return {40, 55};
    case Parameter::bf: return {0.05, 0.3};
    case Parameter::dt: return {5, 30};
    case Parameter::inwg: return {1, 5};
    case Parameter::psig: return {2, 30};
    case Parameter::degf: return {212, 280};
    case Parameter::hg: return {1100, 1180};
    case Parameter::factor: return {1, 1.3};
    case Parameter::waterDt: return {8, 16};
    default: return {0.15, 0.85};  // shares, ratios, efficiencies
  }
}

/// From 0 to 1, spread evenly over the starts and differently for each variable; 0.5 at the first.
double spread(int start, std::size_t variable) {
  const double step = std::sqrt(static_cast<double>(variable) + 2) + 0.6180339887;
  const double place = 0.5 + start * step;
  return place - std::floor(place);
}

/// Properties of a stream that goals fix, found through steps that only divide it.
std::vector<Given> wantedOf(const GoalProblem& problem, std::size_t stream) {
  constexpr int mostParts = 50;
  for (int i = 0; i < mostParts && problem.system.steps[stream / 2].kind == StepKind::part; ++i) {
    stream = problem.system.sources[problem.system.steps[stream / 2].firstSource];
  }
  std::vector<Given> wanted;
  for (const GoalRow& goal : problem.goals) {
    if (goal.stream == stream && goal.parameter <= Parameter::v) {
      wanted.push_back({static_cast<PropertyKind>(goal.parameter), goal.wanted});
    }
  }
  return wanted;
}

}  // namespace

GoalStarts::GoalStarts(const GoalProblem& problem, const Site& site)
    : problem_(problem), site_(site), scales_(problem.variables.size()) {
  measure();
  for (std::size_t i = 0; i < scales_.size(); ++i) scales_[i] = scaleOf(problem.variables[i]);
}

void GoalStarts::measure() {
  double heat = 0;
  double flow = 0;
  for (const CompiledStep& step : problem_.system.steps) {
    const Parameters& given = step.parameters;
    for (const Parameter load : {Parameter::sensible, Parameter::total, Parameter::btuh}) {
      if (given.has(load) && hasValue(given[load])) heat = std::max(heat, std::abs(given[load]));
    }
    if (given.has(Parameter::lbh) && hasValue(given[Parameter::lbh])) flow = std::max(flow, given[Parameter::lbh]);
    if (given.has(Parameter::scfm) && hasValue(given[Parameter::scfm]))
      flow = std::max(flow, lbhPerScfm * given[Parameter::scfm]);
    if (given.has(Parameter::acfm) && hasValue(given[Parameter::acfm]))
      flow = std::max(flow, volumeToFlow * given[Parameter::acfm]);
  }
  for (const GoalRow& goal : problem_.goals) {
    if (goal.parameter == Parameter::lbh) flow = std::max(flow, goal.wanted);
    if (rowOf(goal.parameter).quantity == Quantity::heat) heat = std::max(heat, std::abs(goal.wanted));
  }
  constexpr double heatPerLb = 5;  // 20 deg F of sensible heat
  if (heat > 0) flow = std::max(flow / 2, heat / heatPerLb);
  if (!(flow > 0)) flow = problem_.flows.empty() ? 1 : 10000;
  flowScale_ = flow;
  heatScale_ = heat > 0 ? heat : flow * heatPerLb;
}

double GoalStarts::scaleOf(const Variable& variable) const {
  if (variable.kind == Variable::Kind::tearFlow || variable.kind == Variable::Kind::airFlow) return flowScale_;
  switch (rowOf(variable.parameter).quantity) {
    case Quantity::heat: return heatScale_;
    case Quantity::airMass: return flowScale_;
    case Quantity::airVolume: return flowScale_ / lbhPerScfm;
    case Quantity::waterMass: return heatScale_ / 2000;
    case Quantity::power: return heatScale_ / 40000;
    default: return typicalOf(StepKind::air, variable.parameter).high;
  }
}

std::vector<double> GoalStarts::values(int start) const {
  const std::size_t count = problem_.variables.size();
  std::vector<double> values(count);
  std::vector<double> flows(problem_.flows.size(), 0.0);
  for (std::size_t i = 0; i < count; ++i) {
    const Variable& variable = problem_.variables[i];
    const double place = spread(start, i);
    values[i] = startOf(variable, place);
    const int flow = problem_.flowOfVariable[i];
    if (flow >= 0) flows[static_cast<std::size_t>(flow)] = flowScale_ * std::exp2(4 * place - 2);
  }
  startTears(start, values);
  balance(flows);
  for (std::size_t i = 0; i < count; ++i) {
    const int flow = problem_.flowOfVariable[i];
    if (flow >= 0) values[i] = startOfFlow(problem_.variables[i], static_cast<std::size_t>(flow), flows, values[i]);
  }
  return values;
}

double GoalStarts::startOf(const Variable& variable, double place) const {
  if (variable.kind != Variable::Kind::parameter) return scaleOf(variable);
  const Parameter parameter = variable.asShare ? Parameter::share : variable.parameter;
  switch (rowOf(parameter).quantity) {
    case Quantity::heat:
    case Quantity::waterMass:
    case Quantity::power: return scaleOf(variable) * 0.05 * std::pow(20, place);
    case Quantity::airMass:
    case Quantity::airVolume: return scaleOf(variable);
    default: break;
  }
  const StepKind kind = problem_.system.steps[variable.place].kind;
  const Typical typical = typicalOf(kind, parameter);
  return std::clamp(typical.low + place * (typical.high - typical.low), variable.low, variable.high);
}

void GoalStarts::startTears(int start, std::vector<double>& values) const {
  for (std::size_t i = 0; i < values.size(); ++i) {
    const Variable& variable = problem_.variables[i];
    if (variable.kind != Variable::Kind::tearDb) continue;
    const std::vector<Given> wanted = wantedOf(problem_, variable.place);
    double db = 60 + 25 * spread(start, i);
    double w = site_.air->ratioOfHumidity(db, 50, site_.atm);
    if (wanted.size() >= 2) {
      if (const auto state = site_.air->stateOf(wanted[0], wanted[1], site_.atm)) {
        db = state->db;
        w = state->w;
      }
    } else if (wanted.size() == 1 && wanted[0].kind == PropertyKind::db) {
      db = wanted[0].value;
      w = site_.air->ratioOfHumidity(db, 40 + 30 * spread(start, i + 1), site_.atm);
    }
    values[i] = db;
    values[i + 1] = std::clamp(w, 0.0, highestRatio);
  }
}

/// Flows that the balances fix, from the free ones.
void GoalStarts::balance(std::vector<double>& flows) const {
  for (std::size_t i = 0; i < flows.size(); ++i) {
    const FlowSum& sum = problem_.flows[i].balance;
    if (sum.empty()) continue;
    double others = sum.back();
    for (std::size_t j = 0; j < flows.size(); ++j) {
      if (j != i) others += sum[j] * flows[j];
    }
    flows[i] = std::max(-others, 1e-3 * flowScale_);
  }
}

double GoalStarts::startOfFlow(const Variable& variable, std::size_t flow, const std::vector<double>& flows,
                               double share) const {
  const double lbh = flows[flow];
  if (variable.kind != Variable::Kind::parameter || variable.parameter == Parameter::lbh) {
    if (!variable.asShare) return lbh;
  }
  const FlowSum& inflow = problem_.flows[flow].inflow;
  if (!inflow.empty()) {
    double in = inflow.back();
    for (std::size_t j = 0; j < flows.size(); ++j) in += inflow[j] * flows[j];
    return in > lbh ? lbh / in : share;
  }
  return variable.parameter == Parameter::scfm ? lbh / lbhPerScfm : lbh / volumeToFlow;
}

}  // namespace moistair
