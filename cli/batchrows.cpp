#include "cli/batchrows.h"

#include <algorithm>
#include <variant>

#include "advice/remark.h"
#include "cli/check.h"
#include "cli/fault.h"
#include "cli/properties.h"
#include "text/numberformat.h"
#include "text/value.h"
#include "text/words.h"

namespace moistair {

namespace {

/// What the columns behind those of the input are called.
const std::vector<std::string>& resultnames() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> made;
    for (const StateColumn& column : statecolumns) made.push_back(std::string("out_") + column.name);
    made.emplace_back("status");
    return made;
  }();
  return names;
}

/// "commas"; another character as it is.
std::string nameof(char delimiter) {
  switch (delimiter) {
    case ',': return "commas";
    case ';': return "semicolons";
    case '\t': return "tabs";
    default: return std::string("\"") + delimiter + "\"";
  }
}

/// What a row gives, or why that is not enough.
struct GivenRow {
  GivenPair pair;
  double atm;
};
using RowOrReason = std::variant<GivenRow, std::string>;

/// Empty for a column that is not there.
std::string_view cellat(RowCells& cells, std::optional<std::size_t> place) {
  return place ? cells.at(*place) : std::string_view();
}

RowOrReason givenrow(RowCells& cells, const BatchPlan& plan) {
  std::array<Given, kindcount> given{};
  std::size_t count = 0;
  for (std::size_t i = 0; i < kindcount; ++i) {
    const std::string_view cell = cellat(cells, plan.columns.kinds[i]);
    if (cell.empty()) continue;
    const double value = strictnumber(cell);
    if (!hasvalue(value)) return kindnames[i] + std::string(isnonumber);
    given[count++] = {static_cast<PropertyKind>(i), value};
  }
  if (count != 2) {
    return std::to_string(count) + " of " + kindnamelist + " are filled where a state takes two";
  }
  const GivenPair pair{given[0], given[1]};
  const PressureOrReason pressure = plan.columns.pressures.pressureOf(cells, plan.atm);
  if (const auto* reason = std::get_if<std::string>(&pressure)) return *reason;
  return GivenRow{pair, std::get<double>(pressure)};
}

void appendstate(std::string& out, const StatePoint& point, const BatchPlan& plan) {
  for (const StateColumn& column : statecolumns) {
    out += plan.delimiter;
    (plan.full ? appendroundtrip : appendsevendecimals)(out, point.*column.value);
  }
}

constexpr const char* missedRow = "missed";
constexpr const char* nearestRow = "nearest";

/// A row that gives a pair.
RowOutcome judgedRow(std::string& out, const PairOfGiven& pair, double atm, Resolution resolution,
                     const BatchPlan& plan) {
  RowOutcome row;
  if (plan.exact) {
    const ExactChoice choice = exactChoice(pair, atm, resolution);
    if (!choice.state) return failedRow(noExact(choice));
    resolution = resolutionOf(*choice.state);
    row.nearest = choice.all.states.size() > 1;
    if (row.nearest) row.status = nearestRow;
  } else if (!resolution.resolved()) {
    return failedRow(whynot(pair, atm, resolution));
  } else if (!missedBy(pair, resolution.point, atm).empty()) {
    row = {missedRow, plan.strict, true};
  }
  if (!row.failed) appendstate(out, resolution.point, plan);
  return row;
}

/// Appends a row and its state.
/// @param check the cells of a check, if there is to be one and the row gives a pair
RowOutcome appendrow(std::string& out, RowCells& cells, const BatchPlan& plan, std::string& check) {
  RowOrReason row = givenrow(cells, plan);
  if (auto* reason = std::get_if<std::string>(&row)) return failedRow(std::move(*reason));
  const auto& [pair, atm] = std::get<GivenRow>(row);
  const Resolution resolution = resolve(pair, atm, *plan.finders);
  if (plan.check) {
    check.clear();
    appendcells(check, checkof(pair, atm, resolution), plan.full ? appendroundtrip : appendsevendecimals,
                plan.delimiter);
  }
  return judgedRow(out, {pair.first, pair.second}, atm, resolution, plan);
}

}  // namespace

BatchColumns columnsof(const CsvRecord& header, const std::string& filename, char delimiter, bool check) {
  BatchColumns columns;
  columns.selection.columns = eachColumn(header, filename, delimiter, [&](const std::string& name, std::size_t place) {
    if (const auto kind = kindnamed(lowercase(name))) {
      takeColumn(columns.kinds[static_cast<std::size_t>(*kind)], columns.selection, name, place);
    }
    columns.pressures.take(name, columns.selection, place);
    const auto named = [&](const auto& names) { return std::find(names.begin(), names.end(), name) != names.end(); };
    if (named(resultnames()) || (check && named(checkcolumns))) columns.takennames.push_back(name);
  });
  const auto named = std::count_if(columns.kinds.begin(), columns.kinds.end(), [](const auto& c) { return !!c; });
  if (named < 2) {
    throw badusage(filename + ": the first line must name the columns, separated by " + nameof(delimiter) +
                   ", two of " + kindnamelist + " among them");
  }
  return columns;
}

std::string headerline(const CsvRecord& header, const BatchPlan& plan) {
  std::string out(header.raw);
  for (const std::string& name : resultnames()) out += plan.delimiter + name;
  for (const char* name : checkcolumns) {
    if (plan.check) out += plan.delimiter + std::string(name);
  }
  out += plan.lineend;
  return out;
}

BatchResult resolverows(std::string_view block, const BatchPlan& plan) {
  const TableShape shape{.selection = plan.columns.selection,
                         .delimiter = plan.delimiter,
                         .lineEnd = plan.lineend,
                         .results = statecolumns.size(),
                         .further = plan.check ? checkcolumns.size() : 0};
  return fillRows(block, shape, [&](RowCells& cells, std::string& results, std::string& check) {
    return appendrow(results, cells, plan, check);
  });
}

}  // namespace moistair
