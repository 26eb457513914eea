// How a system with unknowns, goals and loops is solved: the equations, where to start, and what is said of a failure.
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <span>
#include <utility>

#include "process/goalproblem.h"
#include "process/goalstarts.h"
#include "process/readout.h"
#include "process/root.h"

namespace moistair {

namespace {

constexpr double nearEnough = 1e-9;  // of the quantity
constexpr double longRange = 1e4;    // bounds further apart than this are none
constexpr int mostStarts = 60;
constexpr int quickStarts = 1;

/// A variable for the solver: bounds are mapped away, and one unit is a step of a usual size.
double inner(const Variable& variable, double value, double scale) {
  if (variable.high - variable.low < longRange) {
    const double place = 2 * (value - variable.low) / (variable.high - variable.low) - 1;
    return std::asin(std::clamp(place, -1.0, 1.0));
  }
  return variable.kind == Variable::Kind::parameter &&
                 !contains(setOf(Parameter::acfm, Parameter::scfm, Parameter::lbh), variable.parameter)
             ? value / scale
             : std::log(value / scale);
}

double outer(const Variable& variable, double place, double scale) {
  if (variable.high - variable.low < longRange) {
    return variable.low + (variable.high - variable.low) * (1 + std::sin(place)) / 2;
  }
  return variable.kind == Variable::Kind::parameter &&
                 !contains(setOf(Parameter::acfm, Parameter::scfm, Parameter::lbh), variable.parameter)
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
double outcomeAt(const GoalRow& goal, const CompiledSystem& system, const Site& site, const Solution& solution) {
  const std::size_t step = goal.stream / 2;
  const CompiledStep& compiled = system.steps[step];
  if (goal.stream != mainStream(step)) {
    StepResult second;
    second.leaving = solution.streams[goal.stream];
    return outcomeOf(goal.parameter, compiled.kind, second, site);
  }
  const StepResult& result = solution.results[step];
  if (goal.parameter != Parameter::dt) return outcomeOf(goal.parameter, compiled.kind, result, site);
  if (compiled.sourceCount == 0) return noValue;
  const double rise = result.leaving.state.db - solution.streams[system.sources[compiled.firstSource]].state.db;
  return rowOf(compiled.kind).removesHeat ? -rise : rise;
}

class Solver {
public:
  explicit Solver(const GoalProblem& problem, const Site& site, Effort effort = Effort::full)
      : problem_(problem),
        site_(site),
        effort_(effort),
        system_(problem.system),
        starts_(problem, site),
        scales_(starts_.scales()) {}

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
    int last = effort_ == Effort::full ? mostStarts : quickStarts;
    for (int start = 0; start < last; ++start) {
      // Further solutions are taken where the search comes upon them; only the first is worth every effort.
      auto solution = from(starts_.values(start), effort_ == Effort::full && answer.found.empty());
      if (!solution || isKnown(answer, *solution)) continue;
      if (answer.found.empty()) last = effort_ == Effort::full ? start + 1 + startsForMore() : 0;
      answer.found.push_back(std::move(*solution));
    }
    if (answer.found.empty()) explain(answer);
    return answer;
  }

  std::optional<GoalSolution> from(const std::vector<double>& values, bool thorough) {
    std::vector<double> start(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) start[i] = inner(problem_.variables[i], values[i], scales_[i]);
    const RootSearch search = findRoot([this](auto point, auto residuals) { return evaluate(point, residuals); }, start,
                                       nearEnough / 10, thorough);
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
  /// After a solution, so many starts look for others: the more unknowns, the more of them there are.
  int startsForMore() const {
    const auto unknowns = std::count_if(problem_.variables.begin(), problem_.variables.end(),
                                        [](const Variable& variable) { return variable.free; });
    return unknowns < 3 ? 5 : 8;
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
      const double outcome = outcomeAt(goal, system_, site_, solution_);
      residuals[row++] = relative(outcome, goal.wanted, smallestOf(goal.parameter));
    }
    for (std::size_t tear = 0; tear < torn_.size(); ++tear) {
      const AirState& state = solution_.streams[system_.tears[tear]].state;
      residuals[row++] = relative(state.db, torn_[tear].state.db, 1);
      residuals[row++] = relative(state.w, torn_[tear].state.w, 1e-4);
    }
    for (const std::size_t tear : problem_.flowClosures) {
      residuals[row++] =
          relative(solution_.streams[system_.tears[tear]].flow, torn_[tear].flow, 1e-6 * starts_.flowScale());
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
      words += "; the closest state has " + goal.name + ' ' + numberWords(outcomeAt(goal, system_, site_, solution_)) +
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
    return fixedDecimals(number, digits);
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
  Effort effort_;
  CompiledSystem system_;  ///< the problem's, with trial values in it
  GoalStarts starts_;
  const std::vector<double>& scales_;
  Solution solution_;
  std::vector<Stream> torn_;
  Error lastFailure_, bestFailure_;
  std::vector<double> best_;
  double bestNorm_ = std::numeric_limits<double>::infinity();
};

}  // namespace

GoalAnswer solveGoals(const GoalProblem& problem, const Site& site) { return Solver(problem, site).fromAllStarts(); }

Outcome solveNear(const GoalProblem& problem, const Site& site, GoalSolution& near, Effort effort) {
  Solver solver(problem, site, effort);
  if (near.values.size() == problem.variables.size() && !near.values.empty()) {
    if (auto solution = solver.from(near.values, effort == Effort::full)) {
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
