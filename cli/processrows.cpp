#include "cli/processrows.h"

#include <algorithm>
#include <map>

#include "cli/fault.h"
#include "cli/properties.h"
#include "text/numberformat.h"
#include "text/tablefield.h"
#include "text/words.h"

namespace moistair {

namespace {

/// What a column's head "OA.db" names, if it is of this form.
struct HeadParts {
  std::string_view step, parameter;
};
std::optional<HeadParts> partsOf(std::string_view name) {
  const std::size_t dot = name.rfind('.');
  if (dot == std::string_view::npos) return std::nullopt;
  return HeadParts{name.substr(0, dot), name.substr(dot + 1)};
}

std::optional<std::size_t> stepNamed(const AirSystem& system, std::string_view name) {
  const auto named = [&](const ProcessStep& step) { return step.name == name; };
  const auto found = std::find_if(system.steps.begin(), system.steps.end(), named);
  if (found == system.steps.end()) return std::nullopt;
  return static_cast<std::size_t>(found - system.steps.begin());
}

/// The step and parameter that a head names; none if it is a column of the user's own. A head that was meant to name
/// one and does not is bad usage: its column would have no effect.
std::optional<std::pair<std::size_t, Parameter>> parameterOf(const std::string& name, const AirSystem& system) {
  const auto parts = partsOf(name);
  if (!parts) return std::nullopt;
  const auto step = stepNamed(system, parts->step);
  const auto known = parameterNamed(lowercase(parts->parameter));
  if (!step) {
    if (!known) return std::nullopt;
    ClosestWord closest(parts->step);
    for (const ProcessStep& other : system.steps) closest.offer(other.name);
    throw badUsage("column " + name + ": no step is named " + inQuotes(parts->step) + closest.question());
  }
  const Result<Parameter> parameter = readParameter(parts->parameter, rowOf(system.steps[*step].kind).accepted);
  if (!parameter) throw badUsage("column " + name + ": " + parameter.error().words);
  if (!isNumber(*parameter)) throw badUsage("column " + name + ": only numbers can change from row to row");
  return std::pair(*step, *parameter);
}

/// Takes a parameter's value out of a step and makes it unknown.
std::optional<double> makeUnknown(ProcessStep& step, Parameter parameter) {
  const auto same = [&](const Assignment& given) { return given.parameter == parameter; };
  const auto found = std::find_if(step.given.begin(), step.given.end(), same);
  if (found == step.given.end()) {
    step.given.push_back({.parameter = parameter, .unknown = true});
    return std::nullopt;
  }
  const double typed = found->value;
  found->value = noValue;
  found->unknown = true;
  return hasValue(typed) ? std::optional(typed) : std::nullopt;
}

/// Columns that give the whole state of air take the place of the two properties that it was written with.
void replaceState(ProcessStep& step, std::size_t index, const InputColumns& columns) {
  if (step.kind != StepKind::air) return;
  const auto byColumn = [&](Parameter parameter) {
    return std::any_of(columns.parameters.begin(), columns.parameters.end(), [&](const ParameterColumn& column) {
      return column.step == index && column.parameter == parameter;
    });
  };
  const auto isState = [](const Assignment& given) { return given.parameter <= Parameter::v; };
  const auto count = std::count_if(step.given.begin(), step.given.end(), [&](const Assignment& given) {
    return isState(given) && byColumn(given.parameter);
  });
  if (count < 2) return;
  std::erase_if(step.given, [&](const Assignment& given) { return isState(given) && !byColumn(given.parameter); });
}

}  // namespace

InputColumns inputColumns(const CsvRecord& header, const std::string& filename, AirSystem& system) {
  InputColumns columns;
  columns.selection.columns = eachColumn(header, filename, ',', [&](const std::string& name, std::size_t place) {
    if (columns.pressures.take(name, columns.selection, place)) return;
    const auto found = parameterOf(name, system);
    if (!found) return;
    const auto [step, parameter] = *found;
    const auto same = [&](const ParameterColumn& other) { return other.step == step && other.parameter == parameter; };
    if (std::any_of(columns.parameters.begin(), columns.parameters.end(), same)) {
      throw badUsage("the first line names the column " + name + " twice");
    }
    columns.parameters.push_back(
        {name, step, parameter, makeUnknown(system.steps[step], parameter), columns.selection.wanted.size()});
    columns.selection.wanted.push_back(place);
  });
  for (std::size_t step = 0; step < system.steps.size(); ++step) replaceState(system.steps[step], step, columns);
  if (columns.parameters.empty() && !columns.pressures.any()) {
    throw badUsage(filename +
                   ": the first line must name the columns, separated by commas, with a parameter of a step "
                   "among them, such as OA.db");
  }
  return columns;
}

namespace {

/// A column by its name "SA.db", "CC.total" or "RT.rest.db".
ResultColumn resultColumn(const std::string& name, const CompiledSystem& system) {
  const HeadParts parts = partsOf(name).value_or(HeadParts{name, {}});
  const auto found = std::find(system.names.begin(), system.names.end(), std::string(parts.step));
  if (parts.step.empty() || found == system.names.end()) {
    ClosestWord closest(parts.step);
    for (const std::string& other : system.names) closest.offer(other);
    throw badUsage("--columns: no stream is named " + inQuotes(parts.step) + closest.question());
  }
  const auto stream = static_cast<std::size_t>(found - system.names.begin());
  const std::string key = lowercase(parts.parameter);
  ClosestWord closest(key);
  for (const StreamValue& value : streamValues) {
    if (key == value.name) return {.name = name, .index = stream, .ofStream = value.value};
    closest.offer(value.name);
  }
  const bool process = stream % 2 == 0 && isProcess(system.steps[stream / 2].kind);
  std::string all = "db wb rh w h dp v grains lbh acfm scfm";
  for (const StepValue& value : stepValues) {
    if (!process) break;
    if (key == value.name) return {.name = name, .index = stream / 2, .ofStep = value.value};
    closest.offer(value.name);
    all += std::string(" ") + value.name;
  }
  throw badUsage("--columns: " + std::string(parts.step) + " has no " + inQuotes(parts.parameter) + closest.question() +
                 "; it has " + all);
}

}  // namespace

void dropGiven(std::vector<Unknown>& unknowns, const InputColumns& input) {
  std::erase_if(unknowns, [&](const Unknown& unknown) {
    return std::any_of(input.parameters.begin(), input.parameters.end(), [&](const ParameterColumn& column) {
      return column.step == unknown.step && column.parameter == unknown.parameter;
    });
  });
}

std::vector<ResultColumn> resultColumns(std::string_view list, const CompiledSystem& system) {
  std::vector<ResultColumn> columns;
  if (!list.empty()) {
    for (const std::string_view name : splitAt(list, ',')) {
      columns.push_back(resultColumn(std::string(trimmed(name)), system));
    }
    return columns;
  }
  for (const std::string& stream : system.names) {
    if (stream.empty()) continue;
    for (const char* key : {".db", ".w", ".rh", ".acfm"}) columns.push_back(resultColumn(stream + key, system));
  }
  for (std::size_t step = 0; step < system.steps.size(); ++step) {
    if (!isProcess(system.steps[step].kind)) continue;
    for (const char* key : {".total", ".sensible", ".water"}) {
      columns.push_back(resultColumn(system.names[mainStream(step)] + key, system));
    }
  }
  return columns;
}

std::string headerLine(const CsvRecord& header, const ProcessPlan& plan) {
  std::string out(header.raw);
  for (const ResultColumn& column : plan.first.results) {
    out += ',';
    appendField(out, column.name);
  }
  out += plan.designer != nullptr ? ",mode,status" : ",status";
  out += plan.shape.lineEnd;
  return out;
}

namespace {

/// Sets what a row's cells give; the reason why they cannot be used, empty if they can.
std::string giveParameters(RowCells& cells, const InputColumns& input, CompiledSystem& system) {
  for (const ParameterColumn& column : input.parameters) {
    const std::string_view cell = cells.at(column.cell);
    std::optional<double> value = column.typed;
    if (!cell.empty()) {
      const Result<Assignment> read = readAssignment(column.parameter, cell);
      if (!read) return column.name + ": " + read.error().words;
      if (!read->unknown) value = read->value;
    }
    if (!value) return column.name + ": the value is missing";
    system.steps[column.step].parameters.set(column.parameter, *value);
  }
  return {};
}

/// Why the first step without a result has none.
std::string whyNot(const CompiledSystem& system, const Solution& solution) {
  for (const std::size_t step : system.order) {
    if (!solution.solved(step)) return solution.errors[step].text();
  }
  return {};
}

/// What each block of rows works with.
struct Workplace {
  std::map<Way, Result<RowSystem>> systems;
  Solution solution;  ///< of a system without goals
};

/// A system in a way, made when it is needed first.
Result<RowSystem>& systemOf(const ProcessPlan& plan, const Way& way, Workplace& at) {
  const auto found = at.systems.find(way);
  return found != at.systems.end() ? found->second : at.systems.emplace(way, plan.systemOf(way)).first->second;
}

/// Solves for a row; the reason why there is no solution, empty if there is one.
std::string solveRow(const ProcessPlan& plan, RowCells& cells, const Site& site, RowSystem& with, Solution& solution) {
  CompiledSystem& system = with.goals ? with.goals->system : with.system;
  if (std::string reason = giveParameters(cells, with.input, system); !reason.empty()) return reason;
  if (!with.goals) {
    evaluate(system, site, solution);
    return solution.complete ? "" : whyNot(system, solution);
  }
  const Effort effort = plan.designer != nullptr ? Effort::quick : Effort::full;
  const Outcome outcome = solveNear(*with.goals, site, with.last, effort);
  return outcome ? "" : outcome.error().text();
}

void appendResults(std::string& out, const RowSystem& with, const Solution& solution, const Site& site, bool full) {
  std::size_t read = solution.streams.size();  // the stream that was read out last: its columns come together
  StreamReadout readout;
  for (const ResultColumn& column : with.results) {
    double value;
    if (column.ofStep != nullptr) {
      value = solution.results[column.index].*column.ofStep;
    } else {
      if (read != column.index) readout = readoutOf(solution.streams[column.index], site);
      read = column.index;
      value = readout.*column.ofStream;
    }
    out += ',';
    (full ? appendRoundTrip : appendSevenDecimals)(out, value);
  }
}

/// Runs a row in the first way that has a solution. The reason of a failure is that of the first way.
std::string appendRow(std::string& out, RowCells& cells, const ProcessPlan& plan, Workplace& at) {
  const PressureOrReason pressure = plan.first.input.pressures.pressureOf(cells, plan.atm);
  if (const auto* reason = std::get_if<std::string>(&pressure)) return *reason;
  const Site site{.atm = std::get<double>(pressure)};
  std::string firstReason;
  for (std::optional<Way> way = Way{}; way;) {
    Result<RowSystem>& with = systemOf(plan, *way, at);
    if (!with) return firstReason.empty() ? with.error().text() : firstReason;
    std::string reason = solveRow(plan, cells, site, *with, at.solution);
    const Solution& solution = with->goals ? with->last.solution : at.solution;
    std::optional<Way> next;
    if (plan.designer != nullptr) {
      const CompiledSystem& system = with->goals ? with->goals->system : with->system;
      next = plan.designer->after(*way, system, reason.empty() ? &solution : nullptr, site);
    }
    if (!next && reason.empty()) {
      appendResults(out, *with, solution, site, plan.full);
      if (plan.designer == nullptr) return {};
      out += ',';
      appendField(out, wordsOf(*way, plan.designer->keys()));
      return {};
    }
    if (!next && !firstReason.empty() && reason != firstReason)
      return firstReason + "; " + wordsOf(*way, plan.designer->keys()) + ": " + reason;
    if (firstReason.empty()) firstReason = std::move(reason);
    way = next;
  }
  return firstReason;
}

}  // namespace

BatchResult processRows(std::string_view block, const ProcessPlan& plan) {
  Workplace at;
  at.systems.emplace(Way{}, plan.first);
  return fillRows(block, plan.shape, [&](RowCells& cells, std::string& results, std::string&) {
    std::string reason = appendRow(results, cells, plan, at);
    return reason.empty() ? RowOutcome{} : failedRow(std::move(reason));
  });
}

}  // namespace moistair
