#include "process/goalproblem.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace moistair {

namespace {

constexpr ParameterSet streamProperties =
    setOf(Parameter::db, Parameter::wb, Parameter::rh, Parameter::w, Parameter::h, Parameter::dp, Parameter::v,
          Parameter::acfm, Parameter::scfm, Parameter::lbh);
/// What a step of a kind comes to, besides its stream.
ParameterSet resultsOf(StepKind kind) {
  using enum Parameter;
  constexpr ParameterSet loads = setOf(total, sensible, latent, btuh, shr, water, dt);
  switch (kind) {
    case StepKind::air: return 0;
    case StepKind::mix:
    case StepKind::part: return setOf(share);
    case StepKind::coil: return loads | setOf(adp, bf);
    case StepKind::evaporate: return loads | setOf(eff);
    case StepKind::fan: return loads | setOf(bhp);
    default: return loads;
  }
}

constexpr ParameterSet flowParameters = setOf(Parameter::acfm, Parameter::scfm, Parameter::lbh);
constexpr ParameterSet perHour = flowParameters | setOf(Parameter::total, Parameter::sensible, Parameter::latent,
                                                        Parameter::btuh, Parameter::water, Parameter::bhp);

/// A difference that the kind refuses below 0.
bool isRise(StepKind kind, Parameter parameter) {
  return parameter == Parameter::dt && (kind == StepKind::heat || kind == StepKind::cool || kind == StepKind::fan);
}

std::string counted(std::size_t count, const char* noun) {
  return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

template <class Row>
std::string listed(const std::vector<Row>& rows) {
  std::string text;
  for (const Row& row : rows) text += (text.empty() ? "" : ", ") + row.name;
  return text;
}

class Preparer {
public:
  explicit Preparer(const CompiledSystem& system) { problem_.system = system; }

  GoalPreparation prepare(const std::vector<Goal>& goals) && {
    takeGoals(goals);
    flows_ = analyzeFlows(problem_.system, flowsThatCount(problem_.system, goalPerHour_));
    for (const std::size_t tear : flows_.contrary) {
      errors_.push_back(
          {ErrorCode::noResult, nameOfTear(tear),
           "its flow does not close: more or less dry air comes back around the loop than left; divide the excess off "
           "with part, or give fewer flows"});
    }
    takeUnknowns();
    takeTears();
    if (errors_.empty()) checkCount();
    problem_.flows = std::move(flows_.open);
    return {std::move(problem_), std::move(errors_)};
  }

private:
  std::string nameOfTear(std::size_t tear) const { return problem_.system.names[problem_.system.tears[tear]]; }
  std::string nameOfStep(std::size_t step) const { return problem_.system.names[mainStream(step)]; }

  void takeGoals(const std::vector<Goal>& goals) {
    goalPerHour_.assign(problem_.system.steps.size(), false);
    const std::vector<std::string>& names = problem_.system.names;
    for (const Goal& goal : goals) {
      const std::string place = (goal.line > 0 ? "line " + std::to_string(goal.line) + ": " : "") + "goal " + goal.name;
      const auto found = std::find(names.begin(), names.end(), goal.name);
      if (found == names.end()) {
        errors_.push_back({ErrorCode::unknownName, place, "there is no stream of this name"});
        continue;
      }
      const auto stream = static_cast<std::size_t>(found - names.begin());
      takeGoal(stream, goal, place);
    }
  }

  void takeGoal(std::size_t stream, const Goal& wanted, const std::string& place) {
    const std::size_t step = stream / 2;
    const bool ofStep = stream == mainStream(step);
    const std::string name = problem_.system.names[stream] + ' ' + nameOf(wanted.parameter);
    const ParameterSet possible =
        ofStep ? streamProperties | resultsOf(problem_.system.steps[step].kind) : streamProperties;
    if (!contains(possible, wanted.parameter)) {
      errors_.push_back({ErrorCode::unknownName, place,
                         problem_.system.names[stream] + " has no " + nameOf(wanted.parameter) +
                             "; a goal on it can be " + namesOf(possible, "or")});
    } else if (!hasValue(wanted.value)) {
      errors_.push_back({ErrorCode::unreadable, place, std::string(nameOf(wanted.parameter)) + " needs a number"});
    } else {
      if (contains(perHour, wanted.parameter)) goalPerHour_[step] = true;
      problem_.goals.push_back({stream, wanted.parameter, wanted.value, name});
    }
  }

  /// Where a variable is among the open flows; -1 for one that is no flow.
  int flowOf(OpenFlow::Origin origin, std::size_t place) const {
    const auto found = std::find_if(flows_.open.begin(), flows_.open.end(),
                                    [&](const OpenFlow& flow) { return flow.origin == origin && flow.place == place; });
    return found == flows_.open.end() ? -1 : static_cast<int>(found - flows_.open.begin());
  }

  void add(Variable variable, int flow) {
    variable.free = flow < 0 ? variable.shown : flows_.free[static_cast<std::size_t>(flow)];
    if (variable.kind == Variable::Kind::tearFlow) variable.shown = variable.free;
    problem_.variables.push_back(std::move(variable));
    problem_.flowOfVariable.push_back(flow);
  }

  void takeUnknowns() {
    CompiledSystem& system = problem_.system;
    for (std::size_t i = 0; i < system.unknowns.size(); ++i) {
      const auto [step, parameter] = system.unknowns[i];
      const bool asShare = system.steps[step].kind == StepKind::part && contains(flowParameters, parameter);
      const ParameterRow& row = rowOf(asShare ? Parameter::share : parameter);
      if (asShare) replaceByShare(system.steps[step].parameters);
      add({.kind = Variable::Kind::parameter,
           .place = step,
           .parameter = parameter,
           .asShare = asShare,
           .shown = true,
           .low = isRise(system.steps[step].kind, parameter) ? 0 : row.low,
           .high = row.high,
           .name = nameOfStep(step) + '.' + nameOf(parameter)},
          flowOf(OpenFlow::Origin::unknownParameter, i));
    }
    for (std::size_t i = 0; i < flows_.open.size(); ++i) {
      const OpenFlow& flow = flows_.open[i];
      if (flow.origin == OpenFlow::Origin::airStep)
        addFlow(Variable::Kind::airFlow, flow.place, nameOfStep(flow.place), static_cast<int>(i));
    }
  }

  void addFlow(Variable::Kind kind, std::size_t place, const std::string& name, int flow) {
    add({.kind = kind, .place = place, .shown = true, .low = 0, .high = unlimited, .name = "flow of " + name}, flow);
  }

  /// A flow that is solved for as a share of what comes in.
  static void replaceByShare(Parameters& parameters) {
    Parameters others;
    for (std::size_t i = 0; i < parameterCount; ++i) {
      const auto parameter = static_cast<Parameter>(i);
      if (parameters.has(parameter) && !contains(flowParameters, parameter))
        others.set(parameter, parameters[parameter]);
    }
    others.set(Parameter::share, noValue);
    parameters = others;
  }

  void takeTears() {
    const CompiledSystem& system = problem_.system;
    for (std::size_t tear = 0; tear < system.tears.size(); ++tear) {
      const std::size_t stream = system.tears[tear];
      const std::string& name = system.names[stream];
      add({.kind = Variable::Kind::tearDb,
           .place = stream,
           .low = lowestDryBulb,
           .high = highestDryBulb,
           .name = name + ".db"},
          -1);
      add({.kind = Variable::Kind::tearW, .place = stream, .low = 0, .high = highestRatio, .name = name + ".w"}, -1);
      addFlow(Variable::Kind::tearFlow, stream, name, flowOf(OpenFlow::Origin::tear, tear));
      if (flows_.closes[tear]) problem_.flowClosures.push_back(tear);
    }
  }

  void checkCount() {
    const std::size_t goals = problem_.goals.size();
    std::vector<Variable> open;
    std::copy_if(problem_.variables.begin(), problem_.variables.end(), std::back_inserter(open),
                 [](const Variable& variable) { return variable.free; });
    if (goals == open.size()) return;
    const auto inBrackets = [](const std::string& list) { return list.empty() ? list : " (" + list + ")"; };
    const std::string cure =
        open.size() > goals
            ? "; add " + counted(open.size() - goals, "goal") + ", or give as many of the unknowns"
            : "; remove " + counted(goals - open.size(), "goal") + ", or make as many parameters unknown";
    errors_.push_back({ErrorCode::noResult, "",
                       counted(open.size(), "unknown") + inBrackets(listed(open)) + " and " + counted(goals, "goal") +
                           inBrackets(listed(problem_.goals)) + cure});
  }

  static constexpr double unlimited = 1e12;

  GoalProblem problem_;
  FlowAnalysis flows_;
  std::vector<bool> goalPerHour_;
  std::vector<Error> errors_;
};

}  // namespace

GoalPreparation prepare(const CompiledSystem& system, const std::vector<Goal>& goals) {
  return Preparer(system).prepare(goals);
}

}  // namespace moistair
