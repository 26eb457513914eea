/// \file
/// A system of processes run for every row of a table: hours of a year, days of a design, variants.
///
/// A column whose head names a parameter ("OA.db") gives it for its row, in place of what the step itself says; an
/// empty cell leaves it as the step says. Columns named inhg, psi or elevation give a row a pressure of its own. All
/// other columns go through as they are. Rows do not depend on each other.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/processreport.h"
#include "cli/tablerun.h"
#include "process/readymade.h"
#include "process/systemtext.h"

namespace moistair {

/// A column that gives a parameter of a step.
struct ParameterColumn {
  std::string name;  ///< as in the first line
  std::size_t step;
  Parameter parameter;
  std::optional<double> typed;  ///< what the step itself says, for empty cells
  std::size_t cell;             ///< place among the cells selected
};

/// A column of the result: of a stream or of a step.
struct ResultColumn {
  std::string name;
  std::size_t index = 0;  ///< of the stream, or of the step
  double StreamReadout::*ofStream = nullptr;
  double StepResult::*ofStep = nullptr;
};

struct InputColumns {
  CsvSelection selection;
  std::vector<ParameterColumn> parameters;
  PressureColumns pressures;
};

/// A system with the table's columns found in it.
struct RowSystem {
  CompiledSystem system;
  std::optional<GoalProblem> goals;  ///< of a system with unknowns, goals or loops
  InputColumns input;
  std::vector<ResultColumn> results;
  GoalSolution last;  ///< to start from: of the row before
};

/// What is the same for all rows.
struct ProcessPlan {
  RowSystem first;
  TableShape shape;
  double atm = defaultPressure;  ///< [in Hg], where a row gives none
  bool full = false;             ///< round-trip numbers instead of seven decimals
  /// Of a ready-made system, which runs in another way where a row cannot hold its goals; outlives the plan. Its rows
  /// have a column "mode" before the status, with the way that was found.
  const Designer* designer = nullptr;
  std::function<Result<RowSystem>(const Way&)> systemOf{};  ///< the system in another way
};

/// Finds the columns in the first record of a table. The parameters that they give become unknowns of the system, which
/// is to be compiled then. Bad usage for a parameter of a step that there is not, a parameter that is not a
/// number, one named twice, and a table that gives none.
InputColumns inputColumns(const CsvRecord& header, const std::string& filename, AirSystem& system);

/// Takes what columns give out of the unknowns.
void dropGiven(std::vector<Unknown>& unknowns, const InputColumns& input);

/// The columns of a list such as "SA.db,CC.total"; of an empty one `db w rh acfm` of each stream, then `total sensible
/// water` of each process. Bad usage for a name that there is not.
std::vector<ResultColumn> resultColumns(std::string_view list, const CompiledSystem& system);

/// The first line of the result: the input's columns, those of the result, "status".
std::string headerLine(const CsvRecord& header, const ProcessPlan& plan);

/// Runs the system for a block of whole records. Where it is solved backward, each row starts from the solution of the
/// row before.
BatchResult processRows(std::string_view block, const ProcessPlan& plan);

}  // namespace moistair
