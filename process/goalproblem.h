/// \file
/// Systems solved backward: unknown parameters, goals and loops.
///
/// A `GoalProblem` is a compiled system with what is open in it: the parameters given as "?", the flows that nothing
/// gives, and the streams at which its loops are torn. As many goals as unknowns, and one equation for each property of
/// a torn stream. All are solved together (root.h), from several starts, and every solution that turns up is returned.
/// Where there is none, the state that comes closest says what stopped it.
///
/// A row of a table changes parameters of `system` in place and is solved from the solution before (`solveNear`).
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "process/flows.h"
#include "process/goal.h"
#include "process/system.h"

namespace moistair {

/// One number that is solved for.
struct Variable {
  enum class Kind { parameter, airFlow, tearDb, tearW, tearFlow };
  Kind kind;
  std::size_t place;  ///< step, or stream of a tear
  Parameter parameter = Parameter::lbh;
  bool asShare = false;  ///< the flow of a `part`, solved for as a share so that it cannot exceed what flows
  bool shown = false;    ///< an unknown of the user's, or a flow that nothing gives; not a help of the solver
  bool free = false;     ///< one that takes a goal: no balance of flows fixes it
  double low, high;      ///< bounds
  std::string name;      ///< "CC.rh", "flow of OA"
};

/// One number that has to come out.
struct GoalRow {
  std::size_t stream;
  Parameter parameter;
  double wanted;
  std::string name;  ///< "RM db"
};

struct GoalProblem {
  CompiledSystem system;  ///< parameters may be changed; which are given may not
  std::vector<Variable> variables;
  std::vector<GoalRow> goals;
  std::vector<std::size_t> flowClosures;  ///< indices in system.tears
  std::vector<OpenFlow> flows;            ///< for the start of the flows
  std::vector<int> flowOfVariable;        ///< index in `flows` of each variable, or -1
};

struct GoalPreparation {
  GoalProblem problem;
  std::vector<Error> errors;  ///< empty if it can be solved
};

/// Sets up what is open. Errors: goals on names or properties that do not exist, flows given twice differently, too
/// many or too few goals, with the unknowns and the goals by name.
GoalPreparation prepare(const CompiledSystem& system, const std::vector<Goal>& goals);

/// An unknown with its value in the base unit of its parameter.
struct UnknownValue {
  std::string name;
  Parameter parameter;
  double value;
};

struct GoalSolution {
  Solution solution;
  std::vector<double> values;          ///< of all variables, to start from again
  std::vector<UnknownValue> unknowns;  ///< those shown
};

struct GoalAnswer {
  std::vector<GoalSolution> found;      ///< all that turned up, that of the first start first
  std::optional<GoalSolution> closest;  ///< where there is none
  std::vector<Error> errors;            ///< and why
};

/// Solves from as many starts as it takes, and from some more for further solutions.
GoalAnswer solveGoals(const GoalProblem& problem, const Site& site);

/// How much is tried before a system counts as one without a solution.
enum class Effort : std::uint8_t {
  full,   ///< all starts
  quick,  ///< one start, given up early: where something else is tried then
};

/// Solves from the values of `near`, and puts the solution there; from other starts if that fails. The error is the
/// first of solveGoals; `near` then stays as it was.
Outcome solveNear(const GoalProblem& problem, const Site& site, GoalSolution& near, Effort effort = Effort::full);

}  // namespace moistair
