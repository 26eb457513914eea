// How a system with unknowns, goals and loops is solved: the equations, where to start, and what is said of a failure.
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <span>
#include <utility>

#include "process/goalproblem.h"
#include "process/root.h"

namespace moistair {

namespace {

constexpr double nearEnough = 1e-9;  // of the quantity
constexpr double longRange = 1e4;    // bounds further apart than this are none
constexpr int mostStarts = 60;
constexpr int startsAfterSuccess = 5;

/// Between what and what an unknown usually lies.
struct Typical {
  double low, high;
};

Typical typicalOf(StepKind kind, Parameter parameter) {
  const bool heats = kind == StepKind::heat || kind == StepKind::steam;
  switch (parameter) {
    case Parameter::db: return heats ? Typical{70, 110} : kind == StepKind::air ? Typical{50, 90} : Typical{48, 65};
    case Parameter::wb: return {45, 65};
    case Parameter::rh: return kind == StepKind::coil || kind == StepKind::evaporate ? Typical{82, 98} : Typical{30, 65};
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
    case Parameter::waterdt: return {8, 16};
    default: return {0.15, 0.85};  // shares, ratios, efficiencies
  }
}

/// From 0 to 1, spread evenly over the starts and differently for each variable; 0.5 at the first.
double spread(int start, std::size_t variable) {
  const double step = std::sqrt(static_cast<double>(variable) + 2) + 0.6180339887;
  const double place = 0.5 + start * step;
  return place - std::floor(place);
}

/// A variable for the solver: bounds are mapped away, and one unit is a step of a usual size.
double inner(const Variable& variable, double value, double scale) {
  if (variable.high - variable.low < longRange) {
    const double place = 2 * (value - variable.low) / (variable.high - variable.low) - 1;
    return std::asin(std::clamp(place, -1.0, 1.0));
  }
  return variable.kind == Variable::Kind::parameter && !contains(setOf(Parameter::acfm, Parameter::scfm, Parameter::lbh), variable.parameter)
             ? value / scale
             : std::log(value / scale);
}

double outer(const Variable& variable, double place, double scale) {
  if (variable.high - variable.low < longRange) {
    return variable.low + (variable.high - variable.low) * (1 + std::sin(place)) / 2;
  }
  return variable.kind == Variable::Kind::parameter && !contains(setOf(Parameter::acfm, Parameter::scfm, Parameter::lbh), variable.parameter)
             ? place * scale
             : scale * std::exp(place);
}

/// A difference as a part of its quantity.
double relative(double value, double wanted, double smallest) {
  return (value - wanted) / std::max(std::abs(wanted), smallest);
}

double smallestOf(Parameter parameter) {
  switch (rowOf(parameter).quantity) {
    case Quantity::ratio: return 1e-4;
    case Quantity::fraction: return 1e-2;
    default: return 1;
  }
}

/// What comes out where a goal is.
double outcomeOf(const GoalRow& goal, const CompiledSystem& system, const Site& site, const Solution& solution) {
  const Stream& stream = solution.streams[goal.stream];
  const std::size_t step = goal.stream / 2;
  const StepResult& result = solution.results[step];
  const CompiledStep& compiled = system.steps[step];
  const double sign = rowOf(compiled.kind).removesHeat ? -1 : 1;
  const auto [db, w] = stream.state;
  switch (goal.parameter) {
    case Parameter::db: return db;
    case Parameter::w: return w;
    case Parameter::rh: return site.relativeHumidity(stream.state);
    case Parameter::wb: return site.air->wetBulbs(db, w, site.atm).shown();
    case Parameter::h: return site.enthalpy(stream.state);
    case Parameter::dp: return site.air->dewPoint(w, site.atm);
    case Parameter::v: return site.volume(stream.state);
    case Parameter::lbh: return stream.flow;
    case Parameter::scfm: return stream.flow / lbhPerScfm;
    case Parameter::acfm: return acfmOfDryFlow(stream.flow, site.volume(stream.state));
    case Parameter::total:
    case Parameter::btuh: return sign * result.total;
    case Parameter::sensible: return sign * result.sensible;
    case Parameter::latent: return sign * result.latent;
    case Parameter::water: return sign * result.water;
    case Parameter::shr: return result.shr;
    case Parameter::adp: return result.adp;
    case Parameter::bf: return result.bf;
    case Parameter::bhp: return result.power;
    case Parameter::eff: return result.effectiveness;
    case Parameter::share: return result.share;
    case Parameter::dt:
      return compiled.sourceCount == 0 ? novalue
                                       : sign * (db - solution.streams[system.sources[compiled.firstSource]].state.db);
    default: return novalue;
  }
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

class Solver {
public:
  Solver(const GoalProblem& problem, const Site& site)
      : problem_(problem), site_(site), system_(problem.system), scales_(problem.variables.size(), 1.0) {
    findScales();
  }

  GoalAnswer fromAllStarts() {
    GoalAnswer answer;
    if (problem_.variables.empty()) {
      Solution solution = solve(system_, site_);
      if (solution.complete) {
        answer.found.push_back({std::move(solution), {}, {}});
      } else {
        answer.errors = errorsOf(solution);
        answer.closest = GoalSolution{std::move(solution), {}, {}};
      }
      return answer;
    }
    int last = mostStarts;
    for (int start = 0; start < last; ++start) {
      auto solution = from(startingValues(start));
      if (!solution || isKnown(answer, *solution)) continue;
      if (answer.found.empty()) last = start + 1 + startsAfterSuccess;
      answer.found.push_back(std::move(*solution));
    }
    if (answer.found.empty()) explain(answer);
    return answer;
  }

  std::optional<GoalSolution> from(const std::vector<double>& values) {
    std::vector<double> start(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) start[i] = inner(problem_.variables[i], values[i], scales_[i]);
    const RootSearch search =
        findRoot([this](auto point, auto residuals) { return evaluate(point, residuals); }, start, nearEnough / 10);
    if (search.point.empty()) return std::nullopt;
    if (search.norm < bestNorm_) {
      bestNorm_ = search.norm;
      best_ = search.point;
      bestFailure_ = lastFailure_;
    }
    std::vector<double> residuals(search.point.size());
    if (!evaluate(search.point, residuals)) return std::nullopt;
    const bool solved =
        std::all_of(residuals.begin(), residuals.end(), [](double part) { return std::abs(part) <= nearEnough; });
    return solved ? std::optional(solutionAt(search.point)) : std::nullopt;
  }

private:
  /// The heat of the loads and the flows that are given say how large the open ones are.
  void findScales() {
    double heat = 0;
    double flow = 0;
    for (const CompiledStep& step : system_.steps) {
      const Parameters& given = step.parameters;
      for (const Parameter load : {Parameter::sensible, Parameter::total, Parameter::btuh}) {
        if (given.has(load) && hasvalue(given[load])) heat = std::max(heat, std::abs(given[load]));
      }
      if (given.has(Parameter::lbh) && hasvalue(given[Parameter::lbh])) flow = std::max(flow, given[Parameter::lbh]);
      if (given.has(Parameter::scfm) && hasvalue(given[Parameter::scfm])) flow = std::max(flow, 4.5 * given[Parameter::scfm]);
      if (given.has(Parameter::acfm) && hasvalue(given[Parameter::acfm])) flow = std::max(flow, 4.4 * given[Parameter::acfm]);
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
    for (std::size_t i = 0; i < scales_.size(); ++i) scales_[i] = scaleOf(problem_.variables[i]);
  }

  double scaleOf(const Variable& variable) const {
    if (variable.kind == Variable::Kind::tearFlow || variable.kind == Variable::Kind::airFlow) return flowScale_;
    switch (rowOf(variable.parameter).quantity) {
      case Quantity::heat: return heatScale_;
      case Quantity::airMass: return flowScale_;
      case Quantity::airVolume: return flowScale_ / 4.5;
      case Quantity::waterMass: return heatScale_ / 2000;
      case Quantity::power: return heatScale_ / 40000;
      default: return typicalOf(StepKind::air, variable.parameter).high;
    }
  }

  std::vector<double> startingValues(int start) const {
    const std::size_t count = problem_.variables.size();
    std::vector<double> values(count);
    std::vector<double> flows(problem_.flows.size(), 0.0);
    for (std::size_t i = 0; i < count; ++i) {
      const Variable& variable = problem_.variables[i];
      const double place = spread(start, i);
      values[i] = startOf(variable, place);
      const int flow = problem_.flowOfVariable[i];
      if (flow >= 0) flows[static_cast<std::size_t>(flow)] = flowScale_ * std::exp2(2 * place - 1);
    }
    startTears(start, values);
    balance(flows);
    for (std::size_t i = 0; i < count; ++i) {
      const int flow = problem_.flowOfVariable[i];
      if (flow >= 0) values[i] = startOfFlow(problem_.variables[i], static_cast<std::size_t>(flow), flows, values[i]);
    }
    return values;
  }

  double startOf(const Variable& variable, double place) const {
    if (variable.kind != Variable::Kind::parameter) return scaleOf(variable);
    const Parameter parameter = variable.asShare ? Parameter::share : variable.parameter;
    switch (rowOf(parameter).quantity) {
      case Quantity::heat:
      case Quantity::waterMass:
      case Quantity::power: return scaleOf(variable) * (0.1 + 0.9 * place);
      case Quantity::airMass:
      case Quantity::airVolume: return scaleOf(variable);
      default: break;
    }
    const StepKind kind = system_.steps[variable.place].kind;
    const Typical typical = typicalOf(kind, parameter);
    return std::clamp(typical.low + place * (typical.high - typical.low), variable.low, variable.high);
  }

  void startTears(int start, std::vector<double>& values) const {
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
  void balance(std::vector<double>& flows) const {
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

  double startOfFlow(const Variable& variable, std::size_t flow, const std::vector<double>& flows, double share) const {
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
    return variable.parameter == Parameter::scfm ? lbh / lbhPerScfm : lbh / 4.4;
  }

  void put(std::span<const double> point) {
    solution_.streams.resize(2 * system_.steps.size());
    for (std::size_t i = 0; i < point.size(); ++i) {
      const Variable& variable = problem_.variables[i];
      const double value = outer(variable, point[i], scales_[i]);
      switch (variable.kind) {
        case Variable::Kind::parameter:
          system_.steps[variable.place].parameters.set(variable.asShare ? Parameter::share : variable.parameter, value);
          break;
        case Variable::Kind::airFlow: system_.steps[variable.place].parameters.set(Parameter::lbh, value); break;
        case Variable::Kind::tearDb: solution_.streams[variable.place].state.db = value; break;
        case Variable::Kind::tearW: solution_.streams[variable.place].state.w = value; break;
        case Variable::Kind::tearFlow:
          solution_.streams[variable.place].flow = value;
          solution_.streams[variable.place].origin = -1;
          break;
      }
    }
    torn_.clear();
    for (const std::size_t stream : system_.tears) torn_.push_back(solution_.streams[stream]);
  }

  bool evaluate(std::span<const double> point, std::span<double> residuals) {
    put(point);
    moistair::evaluate(system_, site_, solution_);
    if (!solution_.complete) {
      lastFailure_ = errorsOf(solution_).front();
      return false;
    }
    std::size_t row = 0;
    for (const GoalRow& goal : problem_.goals) {
      const double outcome = outcomeOf(goal, system_, site_, solution_);
      residuals[row++] = relative(outcome, goal.wanted, smallestOf(goal.parameter));
    }
    for (std::size_t tear = 0; tear < torn_.size(); ++tear) {
      const AirState& state = solution_.streams[system_.tears[tear]].state;
      residuals[row++] = relative(state.db, torn_[tear].state.db, 1);
      residuals[row++] = relative(state.w, torn_[tear].state.w, 1e-4);
    }
    for (const std::size_t tear : problem_.flowClosures) {
      residuals[row++] = relative(solution_.streams[system_.tears[tear]].flow, torn_[tear].flow, 1e-6 * flowScale_);
    }
    return true;
  }

  GoalSolution solutionAt(const std::vector<double>& point) {
    put(point);
    moistair::evaluate(system_, site_, solution_);
    GoalSolution found{solution_, {}, {}};
    for (std::size_t i = 0; i < point.size(); ++i) {
      const Variable& variable = problem_.variables[i];
      const double value = outer(variable, point[i], scales_[i]);
      found.values.push_back(value);
      if (variable.shown) found.unknowns.push_back({variable.name, variable.parameter, shownValue(variable, value)});
    }
    return found;
  }

  double shownValue(const Variable& variable, double value) const {
    if (!variable.asShare) return value;
    const Stream& stream = solution_.streams[mainStream(variable.place)];
    if (variable.parameter == Parameter::scfm) return stream.flow / lbhPerScfm;
    return variable.parameter == Parameter::acfm ? acfmOfDryFlow(stream.flow, site_.volume(stream.state)) : stream.flow;
  }

  static std::vector<Error> errorsOf(const Solution& solution) {
    std::vector<Error> errors;
    for (const Error& error : solution.errors) {
      if (!error.words.empty() && error.code != ErrorCode::waiting) errors.push_back(error);
    }
    return errors;
  }

  bool isKnown(const GoalAnswer& answer, const GoalSolution& solution) const {
    const auto same = [&](const GoalSolution& other) {
      for (std::size_t i = 0; i < solution.values.size(); ++i) {
        if (std::abs(relative(solution.values[i], other.values[i], 1e-3 * scales_[i])) > 1e-6) return false;
      }
      return true;
    };
    return std::any_of(answer.found.begin(), answer.found.end(), same);
  }

  /// The state that came closest, the goal that it misses most, and what kept it from coming closer.
  void explain(GoalAnswer& answer) {
    if (best_.empty()) {
      answer.errors.push_back(lastFailure_);
      return;
    }
    answer.closest = solutionAt(best_);
    std::vector<double> residuals(best_.size());
    evaluate(best_, residuals);
    std::size_t worst = 0;
    for (std::size_t i = 0; i < problem_.goals.size(); ++i) {
      if (std::abs(residuals[i]) > std::abs(residuals[worst])) worst = i;
    }
    std::string words = "no solution was found";
    if (!problem_.goals.empty()) {
      const GoalRow& goal = problem_.goals[worst];
      words += "; the closest state has " + goal.name + ' ' + numberWords(outcomeOf(goal, system_, site_, solution_)) +
               " instead of " + numberWords(goal.wanted);
    }
    words += boundWords();
    if (!bestFailure_.words.empty()) words += "; beyond it, " + bestFailure_.text();
    answer.errors.push_back({ErrorCode::noResult, "", words});
    for (const std::string& useless : uselessUnknowns()) {
      answer.errors.push_back({ErrorCode::noResult, useless, "has no influence on any goal"});
    }
  }

  static std::string numberWords(double number) {
    const double size = std::abs(number);
    const int digits = size >= 1000 ? 0 : size >= 10 ? 2 : size >= 0.1 ? 4 : 6;
    return fixeddecimals(number, digits);
  }

  std::string boundWords() const {
    std::string words;
    for (std::size_t i = 0; i < best_.size(); ++i) {
      const Variable& variable = problem_.variables[i];
      if (!variable.shown || variable.high - variable.low >= longRange) continue;
      const double value = outer(variable, best_[i], scales_[i]);
      const double margin = 1e-6 * (variable.high - variable.low);
      const bool low = value - variable.low < margin;
      if (low || variable.high - value < margin) {
        words += "; " + variable.name + " is at its limit of " + numberWords(low ? variable.low : variable.high);
      }
    }
    return words;
  }

  std::vector<std::string> uselessUnknowns() {
    std::vector<std::string> names;
    std::vector<double> here(best_.size());
    std::vector<double> there(best_.size());
    if (!evaluate(best_, here)) return names;
    for (std::size_t i = 0; i < best_.size(); ++i) {
      if (!problem_.variables[i].free) continue;
      std::vector<double> moved = best_;
      bool matters = false;
      for (const double step : {1e-3, -1e-3}) {
        moved[i] = best_[i] + step;
        matters = matters || !evaluate(moved, there) || there != here;
      }
      if (!matters) names.push_back(problem_.variables[i].name);
    }
    return names;
  }

  const GoalProblem& problem_;
  Site site_;
  CompiledSystem system_;       ///< the problem's, with trial values in it
  std::vector<double> scales_;  ///< by variable
  double flowScale_ = 1, heatScale_ = 1;
  Solution solution_;
  std::vector<Stream> torn_;
  Error lastFailure_, bestFailure_;
  std::vector<double> best_;
  double bestNorm_ = std::numeric_limits<double>::infinity();
};

}  // namespace

GoalAnswer solveGoals(const GoalProblem& problem, const Site& site) { return Solver(problem, site).fromAllStarts(); }

Outcome solveNear(const GoalProblem& problem, const Site& site, GoalSolution& near) {
  Solver solver(problem, site);
  if (near.values.size() == problem.variables.size() && !near.values.empty()) {
    if (auto solution = solver.from(near.values)) {
      near = std::move(*solution);
      return {};
    }
  }
  GoalAnswer answer = solver.fromAllStarts();
  if (answer.found.empty()) return answer.errors.front();
  near = std::move(answer.found.front());
  return {};
}

}  // namespace moistair
