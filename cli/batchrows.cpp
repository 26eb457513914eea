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
const std::vector<std::string>& resultNames() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> made;
    for (const Property& property : propertyTable) made.push_back(std::string("out_") + property.key);
    made.emplace_back("status");
    return made;
  }();
  return names;
}

/// "commas"; another character as it is.
std::string nameOf(char delimiter) {
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
std::string_view cellAt(RowCells& cells, std::optional<std::size_t> place) {
  return place ? cells.at(*place) : std::string_view();
}

RowOrReason givenRow(RowCells& cells, const BatchPlan& plan) {
  std::array<Given, kindCount> given{};
  std::size_t count = 0;
  for (std::size_t i = 0; i < kindCount; ++i) {
    const std::string_view cell = cellAt(cells, plan.columns.kinds[i]);
    if (cell.empty()) continue;
    const double value = strictNumber(cell);
    if (!hasValue(value)) return nameOf(static_cast<PropertyKind>(i)) + std::string(notANumber);
    given[count++] = {static_cast<PropertyKind>(i), value};
  }
  if (count != 2) {
    return std::to_string(count) + " of " + kindNameList + " are filled where a state takes two";
  }
  const GivenPair pair{given[0], given[1]};
  const PressureOrReason pressure = plan.columns.pressures.pressureOf(cells, plan.atm);
  if (const auto* reason = std::get_if<std::string>(&pressure)) return *reason;
  return GivenRow{pair, std::get<double>(pressure)};
}

void appendState(std::string& out, const StatePoint& point, double atm, const BatchPlan& plan) {
  for (const Property& property : propertyTable) {
    out += plan.delimiter;
    (plan.full ? appendRoundTrip : appendSevenDecimals)(out, valueOf(property, point, atm));
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
    return failedRow(whyNot(pair, atm, resolution));
  } else if (!missedBy(pair, resolution.point, atm).empty()) {
    row = {missedRow, plan.strict, true};
  }
  if (!row.failed) appendState(out, resolution.point, atm, plan);
  return row;
}

/// Appends a row and its state.
/// @param check the cells of a check, if there is to be one and the row gives a pair
RowOutcome appendRow(std::string& out, RowCells& cells, const BatchPlan& plan, std::string& check) {
  RowOrReason row = givenRow(cells, plan);
  if (auto* reason = std::get_if<std::string>(&row)) return failedRow(std::move(*reason));
  const auto& [pair, atm] = std::get<GivenRow>(row);
  const Resolution resolution = resolve(pair, atm, *plan.finders);
  if (plan.check) {
    check.clear();
    appendCells(check, checkOf(pair, atm, resolution), plan.full ? appendRoundTrip : appendSevenDecimals,
                plan.delimiter);
  }
  return judgedRow(out, {pair.first, pair.second}, atm, resolution, plan);
}

}  // namespace

BatchColumns columnsOf(const CsvRecord& header, const std::string& filename, char delimiter, bool check) {
  BatchColumns columns;
  columns.selection.columns = eachColumn(header, filename, delimiter, [&](const std::string& name, std::size_t place) {
    if (const auto kind = kindNamed(lowercase(name))) {
      takeColumn(columns.kinds[static_cast<std::size_t>(*kind)], columns.selection, name, place);
    }
    columns.pressures.take(name, columns.selection, place);
    const auto named = [&](const auto& names) { return std::find(names.begin(), names.end(), name) != names.end(); };
    if (named(resultNames()) || (check && named(checkColumns))) columns.takenNames.push_back(name);
  });
  const auto named = std::count_if(columns.kinds.begin(), columns.kinds.end(), [](const auto& c) { return !!c; });
  if (named < 2) {
    throw badUsage(filename + ": the first line must name the columns, separated by " + nameOf(delimiter) +
                   ", two of " + kindNameList + " among them");
  }
  return columns;
}

std::string headerLine(const CsvRecord& header, const BatchPlan& plan) {
  std::string out(header.raw);
  for (const std::string& name : resultNames()) out += plan.delimiter + name;
  for (const char* name : checkColumns) {
    if (plan.check) out += plan.delimiter + std::string(name);
  }
  out += plan.lineEnd;
  return out;
}

BatchResult resolveRows(std::string_view block, const BatchPlan& plan) {
  const TableShape shape{.selection = plan.columns.selection,
                         .delimiter = plan.delimiter,
                         .lineEnd = plan.lineEnd,
                         .results = propertyCount,
                         .further = plan.check ? checkColumns.size() : 0};
  return fillRows(block, shape, [&](RowCells& cells, std::string& results, std::string& check) {
    return appendRow(results, cells, plan, check);
  });
}

}  // namespace moistair
