#include "cli/batchrows.h"

#include <algorithm>
#include <variant>

#include "advice/remark.h"
#include "cli/check.h"
#include "cli/fault.h"
#include "cli/properties.h"
#include "text/numberformat.h"
#include "text/tablefield.h"
#include "text/value.h"

namespace moistair {

namespace {

constexpr std::string_view byteordermark = "\xEF\xBB\xBF";

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

/// Bad usage for a carriage return outside quotes: a table whose lines end in these alone is one line.
void checklineend(std::string_view field, const std::string& filename) {
  const std::string_view plain = field.starts_with('"') ? field.substr(field.rfind('"')) : field;
  if (plain.find('\r') == std::string_view::npos) return;
  throw badusage(filename + ": the lines end in carriage returns alone; save the table with line feeds");
}

void take(std::optional<std::size_t>& place, CsvSelection& selection, const std::string& name) {
  if (place) throw badusage("the first line names the column " + name + " twice");
  place = selection.wanted.size();
  selection.wanted.push_back(selection.columns);
}

/// What the columns behind those of the input are called.
const std::vector<std::string>& resultnames() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> made;
    for (const Property& property : propertyTable) made.push_back(std::string("out_") + property.key);
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

/// A row's fields by column, with the quotes gone.
class Cells {
public:
  explicit Cells(const CsvRecord& record) : record_(record) {}

  /// Empty for a column that is not there; good until the next call.
  std::string_view at(std::optional<std::size_t> place) {
    return place ? trimmed(fieldtext(record_.fields[*place], scratch_)) : std::string_view();
  }

private:
  const CsvRecord& record_;
  std::string scratch_;
};

/// The pressure of a row: its own, or that of all.
PressureOrReason pressureofrow(Cells& cells, const BatchPlan& plan) {
  PressureOrReason pressure = plan.atm;
  bool given = false;
  for (std::size_t i = 0; i < pressurenames.size(); ++i) {
    const std::string_view cell = cells.at(plan.columns.pressures[i]);
    if (cell.empty()) continue;
    if (given) return "the pressure is given twice";
    given = true;
    pressure = pressureof(pressurenames[i], cell);
  }
  return pressure;
}

RowOrReason givenrow(const CsvRecord& record, const BatchPlan& plan) {
  if (record.quoteopen) return "a quote was left open";
  const std::size_t columns = plan.columns.selection.columns;
  if (record.count != columns) {
    return std::to_string(record.count) + " fields where there are " + std::to_string(columns) + " columns";
  }
  Cells cells(record);
  std::array<Given, kindcount> given{};
  std::size_t count = 0;
  for (std::size_t i = 0; i < kindcount; ++i) {
    const std::string_view cell = cells.at(plan.columns.kinds[i]);
    if (cell.empty()) continue;
    const double value = strictnumber(cell);
    if (!hasvalue(value)) return nameof(static_cast<PropertyKind>(i)) + std::string(isnonumber);
    given[count++] = {static_cast<PropertyKind>(i), value};
  }
  if (count != 2) {
    return std::to_string(count) + " of " + kindnamelist + " are filled where a state takes two";
  }
  const GivenPair pair{given[0], given[1]};
  const auto pressure = pressureofrow(cells, plan);
  if (const auto* reason = std::get_if<std::string>(&pressure)) return *reason;
  return GivenRow{pair, std::get<double>(pressure)};
}

/// The record as it was read, brought to the table's number of columns.
void appendrecord(std::string& out, const CsvRecord& record, const BatchPlan& plan) {
  out += record.columns;
  const std::size_t columns = plan.columns.selection.columns;
  if (record.quoteopen && record.count <= columns) out += '"';
  if (record.count < columns) out.append(columns - record.count, plan.delimiter);
}

void appendstate(std::string& out, const StatePoint& point, double atm, const BatchPlan& plan) {
  for (const Property& property : propertyTable) {
    out += plan.delimiter;
    (plan.full ? appendroundtrip : appendsevendecimals)(out, valueOf(property, point, atm));
  }
}

constexpr const char* resolvedRow = "ok";
constexpr const char* missedRow = "missed";
constexpr const char* nearestRow = "nearest";

/// What a row comes to.
struct RowResult {
  std::string status;
  bool failed = false;
  bool missed = false;
  bool nearest = false;
};

RowResult failedRow(std::string reason) { return {std::move(reason), true}; }

/// A row that gives a pair.
RowResult judgedRow(std::string& out, const PairOfGiven& pair, double atm, Resolution resolution,
                    const BatchPlan& plan) {
  RowResult row{resolvedRow};
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
  if (!row.failed) appendstate(out, resolution.point, atm, plan);
  return row;
}

/// Appends a row and its state.
/// @param check the cells of a check, if there is to be one and the row gives a pair
RowResult appendrow(std::string& out, const CsvRecord& record, const BatchPlan& plan, std::string& check) {
  appendrecord(out, record, plan);
  RowOrReason row = givenrow(record, plan);
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
  if (header.quoteopen) throw badusage(filename + ": the first line leaves a quote open");
  if (header.raw.find('\0') != std::string_view::npos) {
    throw badusage(filename + ": the first line holds zero bytes, so this is no table in UTF-8");
  }
  BatchColumns columns;
  std::string scratch;
  eachfield(header.raw, delimiter, [&](std::string_view field) {
    checklineend(field, filename);
    if (columns.selection.columns == 0 && field.starts_with(byteordermark)) field.remove_prefix(byteordermark.size());
    const std::string name(trimmed(fieldtext(field, scratch)));
    if (const auto kind = kindnamed(lowercase(name))) {
      take(columns.kinds[static_cast<std::size_t>(*kind)], columns.selection, name);
    }
    for (std::size_t unit = 0; unit < pressurenames.size(); ++unit) {
      if (lowercase(name) == pressurenames[unit].name) take(columns.pressures[unit], columns.selection, name);
    }
    const auto named = [&](const auto& names) { return std::find(names.begin(), names.end(), name) != names.end(); };
    if (named(resultnames()) || (check && named(checkcolumns))) columns.takennames.push_back(name);
    ++columns.selection.columns;
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
  BatchResult result;
  CsvRecord record;
  while (takerecord(block, record, plan.delimiter, plan.columns.selection)) {
    if (record.blank()) continue;
    ++result.rows;
    if (record.quoteopen) {
      const std::string_view lines = record.raw.substr(0, record.raw.size() - (record.raw.ends_with('\n') ? 1 : 0));
      result.openquote = static_cast<std::size_t>(std::count(lines.begin(), lines.end(), '\n'));
    }
    std::string check(plan.check ? checkcolumns.size() : 0, plan.delimiter);
    const RowResult row = appendrow(result.text, record, plan, check);
    result.failed += row.failed ? 1 : 0;
    result.missed += row.missed ? 1 : 0;
    result.nearest += row.nearest ? 1 : 0;
    if (row.failed) result.text.append(propertyCount, plan.delimiter);
    result.text += plan.delimiter;
    appendfield(result.text, row.status, plan.delimiter);
    result.text += check;
    result.text += plan.lineend;
  }
  return result;
}

}  // namespace moistair
