#include "model/table.h"

#include <algorithm>
#include <utility>

#include "model/exactentry.h"
#include "text/numberformat.h"
#include "text/tablefield.h"
#include "text/value.h"

namespace moistair {

namespace {

constexpr std::size_t firstProperty = 3;
constexpr std::array<const char*, firstProperty> firstHeads = {"Kind", "Identification", "Atmos. pr (in Hg)"};
constexpr std::array<const char*, 3> mixingMarks = {"St1", "Mix", "St2"};

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

  /// In the order in which they are drawn.
  void operator()(const MixingLine& line) {
    constexpr std::array<std::size_t, 3> order = {0, 2, 1};
    for (std::size_t i = 0; i < order.size(); ++i) {
      const AirStream& column = line.columns.at(order[i]);
      row.identification = mixingMarks[i];
      take(shownState(column));
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
  std::visit(RowWriter{rows, entry.setting, std::move(row)}, entry.content);
}

}  // namespace

const char* tableHead(std::size_t column) {
  if (column == missedColumn) return "Missed";
  if (column == noteColumn) return "Note";
  return column < firstProperty ? firstHeads[column] : propertyOf(columnOrder[column - firstProperty]).caption;
}

std::size_t tableColumnCount(const std::vector<TableRow>& rows) {
  const auto noted = [](const TableRow& row) { return !row.note.empty(); };
  return std::any_of(rows.begin(), rows.end(), noted) ? noteColumn + 1 : noteColumn;
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

std::string cellText(const TableRow& row, std::size_t column) {
  switch (column) {
    case 0: return row.kind;
    case 1: return row.identification;
    case 2: return atMostDecimals(row.pressure, 7);
    case missedColumn: return missedText(row.missed.values);
    case noteColumn: return row.note;
    default: break;
  }
  std::string text;
  const double value = row.properties[column - firstProperty];
  appendSevenDecimals(text, value);
  return text;
}

std::string tableText(const std::vector<TableRow>& rows, char separator) {
  const std::size_t columns = tableColumnCount(rows);
  std::string text;
  const auto appendLine = [&](const auto& cell) {
    for (std::size_t column = 0; column < columns; ++column) {
      if (column > 0) text += separator;
      appendField(text, cell(column), separator);
    }
    text += '\n';
  };
  appendLine([](std::size_t column) { return std::string(tableHead(column)); });
  for (const TableRow& row : rows) appendLine([&](std::size_t column) { return cellText(row, column); });
  return text;
}

}  // namespace moistair
