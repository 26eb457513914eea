#include "model/table.h"

#include <algorithm>
#include <utility>

#include "model/airhandler.h"
#include "model/exactentry.h"
#include "text/numberformat.h"
#include "text/tablefield.h"
#include "text/value.h"

namespace moistair {

namespace {

constexpr std::array<const char*, 3> mixingMarks = {"St1", "Mix", "St2"};

/// "RH 50 %", "WB 62.5 °F"
std::string nameOf(const PropertyLine& line) {
  const Property& property = propertyOf(propertyOf(line.kind));
  return std::string(property.symbol) + ' ' + line.value + ' ' + property.sheetUnit;
}

constexpr int flowDecimals = 0;  // of the figures that an engineer reads
constexpr int grainsDecimals = 1;

/// Appends the rows of an entry.
struct RowWriter {
  std::vector<TableRow>& rows;
  const Setting& setting;
  TableRow row;  ///< what all rows of the entry have

  void take(const StatePoint& state) {
    for (std::size_t i = 0; i < columnOrder.size(); ++i) {
      row.properties[i] = valueOf(propertyOf(columnOrder[i]), state, setting.pressure.atm);
    }
  }

  void operator()(const HeaderLine&) const {}

  void operator()(const DrawnChart&) {
    const ChartLimits& limits = setting.limits;
    row.identification = numberText(limits.lowDb) + " to " + numberText(limits.highDb) + ", " +
                         numberText(limits.lowHr) + " to " + fixedDecimals(limits.highHr, 3);
    rows.push_back(row);
  }

  void operator()(const PropertyLine& line) {
    double value = 0;
    assign(value, strictNumber(line.value));
    row.kind = captionOf(line.kind);
    row.identification = nameOf(line);
    row.properties[columnOf(propertyOf(line.kind))] = value;
    rows.push_back(row);
  }

  void operator()(const MarkedPoint& point) {
    row.kind = "Point";
    row.identification = point.identification;
    row.renamable = row.note.empty();
    take(point.state);
    row.missed = judged(givenOf(point), point.state, row.pressure);
    rows.push_back(row);
  }

  void operator()(const PinnedReading& pinned) {
    row.kind = "Read-out";
    take(pinned.state);
    row.missed = judged(givenOf(pinned), pinned.state, row.pressure);
    rows.push_back(row);
  }

  void operator()(const AirHandler& airHandler) {
    const std::size_t count = stepCount(airHandler);
    row.identification = std::to_string(count) + (count == 1 ? " step" : " steps");
    rows.push_back(row);
  }

  /// In the order in which they are drawn.
  void operator()(const MixingLine& line) {
    constexpr std::array<std::size_t, 3> order = {0, 2, 1};
    for (std::size_t i = 0; i < order.size(); ++i) {
      const AirStream& column = line.columns.at(order[i]);
      row.part = order[i];
      row.identification = line.names.at(row.part).empty() ? mixingMarks[i] : line.names.at(row.part);
      row.renamable = row.note.empty();
      take(shownState(column));
      row.flow = strictNumber(column.flow);
      judge(line, order[i]);
      rows.push_back(row);
    }
  }

  void judge(const MixingLine& line, std::size_t number) {
    const AirStream& column = line.columns.at(number);
    row.mixture = number == 2;
    if (row.mixture) {
      row.missed = judgedMixture(line.columns[0], line.columns[1], column, row.pressure);
    } else {
      const auto given = givenOf(column);
      row.missed = given ? judged(*given, shownState(column), row.pressure) : Missed{};
    }
  }
};

/// "dp 28.7211 for 27.65", "dp none for 27.65"
std::string missedText(const std::vector<Miss>& values) {
  const auto rounded = [](double number) { return atMostDecimals(number, 4); };
  std::string text;
  for (const Miss& miss : values) {
    text += std::string(text.empty() ? "" : "; ") + nameOf(miss.kind) + ' ' +
            (hasValue(miss.found) ? rounded(miss.found) : "none") + " for " + rounded(miss.wanted);
  }
  return text;
}

void appendRows(std::vector<TableRow>& rows, const Entry& entry, std::size_t place, std::string note) {
  TableRow row;
  row.entry = place;
  row.kind = captionOf(entry);
  row.pressure = entry.setting.pressure.atm;
  row.properties.fill(noValue);
  row.note = std::move(note);
  const std::size_t first = rows.size();
  std::visit(RowWriter{rows, entry.setting, std::move(row)}, entry.content);
  for (const GivenValue& value : givenValues(entry)) {
    const auto has = [&](const TableRow& at) { return at.part == value.part && at.note.empty(); };
    const auto found = std::find_if(rows.begin() + static_cast<std::ptrdiff_t>(first), rows.end(), has);
    if (found != rows.end()) found->given.push_back(value);
  }
}

bool isStream(const TableRow& row) { return hasValue(row.flow); }

/// The number of a cell; no value where it shows none.
double numberIn(const TableRow& row, const TableColumn& column) {
  switch (column.content) {
    case TableColumn::Content::pressure: return row.pressure;
    case TableColumn::Content::property: return row.properties[column.place];
    case TableColumn::Content::flow: return row.flow;
    case TableColumn::Content::grains:
      return isStream(row) ? row.properties[columnOf(PropertyKind::w)] * grainsPerPound : noValue;
    default: return noValue;
  }
}

int decimalsOf(const TableColumn& column) {
  if (column.content == TableColumn::Content::flow) return flowDecimals;
  if (column.content == TableColumn::Content::grains) return grainsDecimals;
  return propertyOf(columnOrder[column.place]).sheetDecimals;
}

}  // namespace

const char* headOf(const TableColumn& column) {
  switch (column.content) {
    case TableColumn::Content::kind: return "Kind";
    case TableColumn::Content::identification: return "Identification";
    case TableColumn::Content::pressure: return "Atmos. pr (in Hg)";
    case TableColumn::Content::property: return propertyOf(columnOrder[column.place]).caption;
    case TableColumn::Content::flow: return "Air flow (acfm)";
    case TableColumn::Content::grains: return "Grains (gr/lb)";
    case TableColumn::Content::missed: return "Missed";
    case TableColumn::Content::note: break;
  }
  return "Note";
}

std::vector<TableColumn> tableColumns(const std::vector<TableRow>& rows) {
  using Content = TableColumn::Content;
  std::vector<TableColumn> columns = {{Content::kind}, {Content::identification}, {Content::pressure}};
  for (std::size_t i = 0; i < propertyCount; ++i) columns.push_back({Content::property, i});
  if (std::any_of(rows.begin(), rows.end(), isStream)) {
    columns.push_back({Content::flow});
    columns.push_back({Content::grains});
  }
  columns.push_back({Content::missed});
  const auto noted = [](const TableRow& row) { return !row.note.empty(); };
  if (std::any_of(rows.begin(), rows.end(), noted)) columns.push_back({Content::note});
  return columns;
}

std::vector<TableRow> tableRows(const Document& document) {
  std::vector<TableRow> rows;
  std::size_t place = 0;
  for (const Entry& entry : document.entries) appendRows(rows, entry, place++, {});
  for (const LeftOut& left : document.previous) {
    appendRows(rows, left.entry, place++,
               "not on this chart: " + (left.reason.empty() ? "entry of the previous chart" : left.reason));
  }
  return rows;
}

bool missesAny(const Entry& entry) {
  std::vector<TableRow> rows;
  appendRows(rows, entry, 0, {});
  return std::any_of(rows.begin(), rows.end(), [](const TableRow& row) { return row.missed.any(); });
}

std::string cellText(const TableRow& row, const TableColumn& column) {
  switch (column.content) {
    case TableColumn::Content::kind: return row.kind;
    case TableColumn::Content::identification: return row.identification;
    case TableColumn::Content::pressure: return atMostDecimals(row.pressure, 7);
    case TableColumn::Content::missed: return missedText(row.missed.values);
    case TableColumn::Content::note: return row.note;
    default: break;
  }
  std::string text;
  appendSevenDecimals(text, numberIn(row, column));
  return text;
}

std::string shownText(const TableRow& row, const TableColumn& column) {
  if (!column.isNumber() || column.content == TableColumn::Content::pressure) return cellText(row, column);
  const double number = numberIn(row, column);
  if (!hasValue(number)) return {};
  const int decimals = decimalsOf(column);
  return decimals == 0 ? atMostDecimals(number, 0) : fixedDecimals(number, decimals);
}

const GivenValue* givenIn(const TableRow& row, const TableColumn& column) {
  const bool flow = column.content == TableColumn::Content::flow;
  if (!flow && column.content != TableColumn::Content::property) return nullptr;
  const auto shows = [&](const GivenValue& value) {
    return flow ? !value.kind : value.kind == columnOrder[column.place];
  };
  const auto found = std::find_if(row.given.begin(), row.given.end(), shows);
  return found == row.given.end() ? nullptr : &*found;
}

std::string tableText(const std::vector<TableRow>& rows, char separator) {
  const std::vector<TableColumn> columns = tableColumns(rows);
  std::string text;
  const auto appendLine = [&](const auto& cell) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (i > 0) text += separator;
      appendField(text, cell(columns[i]), separator);
    }
    text += '\n';
  };
  appendLine([](const TableColumn& column) { return std::string(headOf(column)); });
  for (const TableRow& row : rows) appendLine([&](const TableColumn& column) { return cellText(row, column); });
  return text;
}

}  // namespace moistair
