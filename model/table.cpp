#include "model/table.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "model/exactentry.h"
#include "text/numberformat.h"
#include "text/tablefield.h"
#include "text/value.h"

namespace moistair {

namespace {

constexpr std::size_t firstproperty = 3;
constexpr std::array<const char*, firstproperty> firstheads = {"Kind", "Identification", "Atmos. pr (in Hg)"};
constexpr std::array<const char*, 3> mixingmarks = {"St1", "Mix", "St2"};

/// Appends the rows of an entry.
struct RowWriter {
  std::vector<TableRow>& rows;
  const Setting& setting;
  TableRow row;  ///< what all rows of the entry have

  void take(const StatePoint& state) {
    for (std::size_t i = 0; i < reportrows.size(); ++i) row.properties[i] = state.*reportrows[i].value;
  }

  void operator()(const HeaderLine&) const {}

  void operator()(const DrawnChart&) {
    const ChartLimits& limits = setting.limits;
    row.identification = numbertext(limits.lowdb) + " to " + numbertext(limits.highdb) + ", " +
                         numbertext(limits.lowhr) + " to " + fixeddecimals(limits.highhr, 3);
    rows.push_back(row);
  }

  void operator()(const PropertyLine& line) {
    const auto given = [&](const ReportRow& report) { return report.value == propertyof(line.kind); };
    const auto column = std::find_if(reportrows.begin(), reportrows.end(), given) - reportrows.begin();
    double value = 0;
    assign(value, strictnumber(line.value));
    row.kind = captionof(line.kind);
    row.properties[static_cast<std::size_t>(column)] = value;
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
    constexpr std::array<std::string AirStream::*, reportrows.size()> texts = {
        &AirStream::db, &AirStream::wb, &AirStream::rh, &AirStream::h,
        &AirStream::v,  &AirStream::w,  &AirStream::dp, &AirStream::pv};
    constexpr std::array<std::size_t, 3> order = {0, 2, 1};
    for (std::size_t i = 0; i < order.size(); ++i) {
      const AirStream& column = line.columns.at(order[i]);
      row.identification = mixingmarks[i];
      for (std::size_t at = 0; at < texts.size(); ++at) row.properties[at] = strictnumber(column.*texts[at]);
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
  constexpr double parts = 1e4;
  const auto rounded = [](double number) { return numbertext(std::round(number * parts) / parts); };
  std::string text;
  for (const Miss& miss : values) {
    text += std::string(text.empty() ? "" : "; ") + nameof(miss.kind) + ' ' +
            (hasvalue(miss.found) ? rounded(miss.found) : "none") + " for " + rounded(miss.wanted);
  }
  return text;
}

void appendRows(std::vector<TableRow>& rows, const Entry& entry, std::size_t place, std::string note) {
  TableRow row;
  row.entry = place;
  row.kind = captionof(entry);
  row.pressure = entry.setting.pressure.atm;
  row.properties.fill(novalue);
  row.note = std::move(note);
  std::visit(RowWriter{rows, entry.setting, std::move(row)}, entry.content);
}

}  // namespace

const char* tablehead(std::size_t column) {
  if (column == missedColumn) return "Missed";
  if (column == notecolumn) return "Note";
  return column < firstproperty ? firstheads[column] : reportrows[column - firstproperty].caption;
}

std::size_t columncount(const std::vector<TableRow>& rows) {
  const auto noted = [](const TableRow& row) { return !row.note.empty(); };
  return std::any_of(rows.begin(), rows.end(), noted) ? notecolumn + 1 : notecolumn;
}

std::vector<TableRow> tablerows(const Document& document) {
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

std::string celltext(const TableRow& row, std::size_t column) {
  switch (column) {
    case 0: return row.kind;
    case 1: return row.identification;
    case 2: return numbertext(std::round(row.pressure * 1e7) / 1e7);
    case missedColumn: return missedText(row.missed.values);
    case notecolumn: return row.note;
    default: break;
  }
  std::string text;
  const double value = row.properties[column - firstproperty];
  if (hasvalue(value)) appendsevendecimals(text, value);
  return text;
}

std::string tabletext(const std::vector<TableRow>& rows, char separator) {
  const std::size_t columns = columncount(rows);
  std::string text;
  const auto appendline = [&](const auto& cell) {
    for (std::size_t column = 0; column < columns; ++column) {
      if (column > 0) text += separator;
      appendfield(text, cell(column), separator);
    }
    text += '\n';
  };
  appendline([](std::size_t column) { return std::string(tablehead(column)); });
  for (const TableRow& row : rows) appendline([&](std::size_t column) { return celltext(row, column); });
  return text;
}

}  // namespace moistair
