/// \file
/// Everything on the chart as a table of states.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "engine/exact.h"
#include "model/document.h"

namespace moistair {

/// A chart, a line or a point is one row, a mixture three: its streams and what they become.
struct TableRow {
  std::size_t entry = 0;       ///< its place in the document; the previous chart's entries follow on those of this one
  std::string kind;            ///< "Point", "Relative humidity line", "Standard chart"
  std::string identification;  ///< a point's own, a mixture's mark, a chart's limits
  double pressure = 0;         ///< that it was worked out at [in Hg]
  std::array<double, propertyCount> properties;  ///< in the order of the columns; no value where it has none
  bool renamable = false;
  Missed missed;         ///< what its state visibly misses
  bool mixture = false;  ///< whether that is of a mixed stream
  std::string note;      ///< "not on this chart" with the reason; empty for what is on it
};

/// Heads of the columns: kind, identification, pressure, the properties in their order, what the state misses, and last
/// the note.
inline constexpr std::size_t missedColumn = 3 + propertyCount;
inline constexpr std::size_t noteColumn = missedColumn + 1;
const char* tableHead(std::size_t column);

/// How many columns there are: that of the notes only where a row has one.
std::size_t tableColumnCount(const std::vector<TableRow>& rows);

/// Every row but for the header line alone, in the order in which things were drawn; then what is not on the chart.
std::vector<TableRow> tableRows(const Document& document);

/// Whether a state of an entry visibly misses anything.
bool missesAny(const Entry& entry);

/// The text of a column of a row: seven decimals for the properties, with a zero before the point; at last what is
/// missed, as "dp 28.7211 for 27.65".
std::string cellText(const TableRow& row, std::size_t column);

/// Heads and rows, each ended by a line feed, for a file (comma) or a spreadsheet to paste (tab).
std::string tableText(const std::vector<TableRow>& rows, char separator);

}  // namespace moistair
