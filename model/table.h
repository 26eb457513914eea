/// \file
/// Everything on the chart as a table of states.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "engine/exact.h"
#include "model/givenvalues.h"
#include "text/value.h"

namespace moistair {

/// A chart, a line or a point is one row, a mixture three: its streams and what they become.
struct TableRow {
  std::size_t entry = 0;       ///< its place in the document; the previous chart's entries follow on those of this one
  std::string kind;            ///< "Point", "Relative humidity line", "Standard chart"
  std::size_t part = 0;        ///< of a mixture its column: 0, 1 or 2, the mixed stream
  std::string identification;  ///< a point's own, a stream's name or mark, a line's value, a chart's limits
  double pressure = 0;         ///< that it was worked out at [in Hg]
  std::array<double, propertyCount> properties;  ///< in the order of the columns; no value where it has none
  double flow = noValue;                         ///< of a stream [actual cu ft/min]
  std::vector<GivenValue> given;                 ///< what of it was given; empty for what is not on the chart
  bool renamable = false;
  Missed missed;         ///< what its state visibly misses
  bool mixture = false;  ///< whether that is of a mixed stream
  std::string note;      ///< "not on this chart" with the reason; empty for what is on it
};

/// What a column shows. Those of air flow and grains are there only where a row is a stream, that of the notes only
/// where a row has one.
struct TableColumn {
  enum class Content { kind, identification, pressure, property, flow, grains, missed, note };

  Content content = Content::property;
  std::size_t place = 0;  ///< of a property, in the order of the columns

  bool isNumber() const { return content >= Content::pressure && content <= Content::grains; }
  bool operator==(const TableColumn&) const = default;
};

/// Kind, identification, pressure, the properties in their order, air flow, grains, what the state misses, the note.
std::vector<TableColumn> tableColumns(const std::vector<TableRow>& rows);

/// "Dry bulb temp (Deg F)"
const char* headOf(const TableColumn& column);

/// Every row but for the header line alone, in the order in which things were drawn; then what is not on the chart.
std::vector<TableRow> tableRows(const Document& document);

/// Whether a state of an entry visibly misses anything.
bool missesAny(const Entry& entry);

/// The text of a cell: seven decimals for the properties, with a zero before the point; what is missed as "dp 28.7211
/// for 27.65".
std::string cellText(const TableRow& row, const TableColumn& column);

/// The same with as many decimals as an engineer reads.
std::string shownText(const TableRow& row, const TableColumn& column);

/// The given value that a cell shows, with its text as typed; null where it shows none.
const GivenValue* givenIn(const TableRow& row, const TableColumn& column);

/// Heads and rows, each ended by a line feed, for a file (comma) or a spreadsheet to paste (tab).
std::string tableText(const std::vector<TableRow>& rows, char separator);

}  // namespace moistair
