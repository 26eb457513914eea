/// \file
/// A table with results behind its columns: what the commands that read one share.
///
/// The first record names the columns. All rows are handed out in pieces, filled in on any number of threads and
/// written in order, while a line on the terminal says how far it is. Each row's own columns go through as they are;
/// behind them come its results, or as many empty fields, and "ok" or the reason why it has none.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "cli/csv.h"
#include "cli/inorder.h"
#include "cli/pressureoption.h"
#include "cli/stream.h"

namespace moistair {

/// How many threads were asked for; bad usage for what is not a whole number from 1 to 256.
unsigned jobsOf(const std::string& text);

/// Bad usage for a first record that is no list of names. Calls `see` with each name and its place, from 0.
/// @return the number of columns
std::size_t eachColumn(const CsvRecord& header, const std::string& filename, char delimiter,
                       const std::function<void(const std::string& name, std::size_t place)>& see);

/// What is the same for all rows of a table.
struct TableShape {
  CsvSelection selection;
  char delimiter = ',';
  std::string_view lineEnd = "\n";  ///< that of the first record
  std::size_t results = 0;          ///< columns before the status
  std::size_t further = 0;          ///< columns behind it
};

/// A row's fields by their place among those selected, without quotes and blanks around.
class RowCells {
public:
  explicit RowCells(const CsvRecord& record) : record_(record) {}

  /// Good until the next call.
  std::string_view at(std::size_t place);

private:
  const CsvRecord& record_;
  std::string scratch_;
};

/// The columns inhg, psi and elevation, which give a row a pressure of its own.
class PressureColumns {
public:
  /// Takes a column that is one of them into the selection; false if it is another. Bad usage for one named twice.
  bool take(const std::string& name, CsvSelection& selection, std::size_t place);
  bool any() const;

  /// The pressure of a row: its own, or that of all.
  PressureOrReason pressureOf(RowCells& cells, double ofAll) const;

private:
  std::array<std::optional<std::size_t>, pressureNames.size()> cells_;
};

/// Adds a column to a selection; bad usage if it is `taken` already.
void takeColumn(std::optional<std::size_t>& taken, CsvSelection& selection, const std::string& name, std::size_t place);

/// What a row comes to.
struct RowOutcome {
  std::string status = "ok";
  bool failed = false;   ///< what was appended is dropped, and the status is the reason
  bool missed = false;   ///< its state visibly misses a given value
  bool nearest = false;  ///< its state is one of several exact ones
};

inline RowOutcome failedRow(std::string reason) { return {.status = std::move(reason), .failed = true}; }

/// Appends a row's results, each with a delimiter before it, and sets the columns behind the status, likewise, if it
/// has any.
using FillRow = std::function<RowOutcome(RowCells& cells, std::string& results, std::string& further)>;

/// The rows of a whole table.
struct RowCounts {
  std::size_t rows = 0, failed = 0, missed = 0, nearest = 0;
  std::optional<std::size_t> openQuote;  ///< lines behind the last row that an open quote has taken in
};

/// "79 of 8760 rows"
std::string countOf(std::size_t some, std::size_t rows);

/// Throws if rows have failed.
/// @param ofMissed why those that miss something have failed; empty if they have not
void checkRows(const RowCounts& counts, const std::string& ofMissed = {});

/// Fills in a block of whole records. Blank lines are left out. A row that fails has empty results and its reason in
/// place of "ok"; one with too few fields is filled up and one with too many is cut, so that the columns stay columns.
BatchResult fillRows(std::string_view block, const TableShape& shape, const FillRow& fill);

/// The rows of a table in pieces whose results are of some size only. A wide table makes long rows of short ones: each
/// is filled up to the number of columns.
class TableReader {
public:
  TableReader(Input& input, char delimiter) : input_(input), reader_(input, delimiter), delimiter_(delimiter) {}

  /// The table's first record, which comes first; bad usage if there is none. Good until the rows are read.
  CsvRecord header();

  /// Hands all rows to `work` and writes what comes back. Throws if the table could not be read to its end; what could
  /// be done is then written.
  /// @param columns of a row as it is read
  RowCounts run(std::size_t columns, const std::function<BatchResult(const std::string& block)>& work, Output& output,
                unsigned jobs);

private:
  bool fetch();
  std::optional<std::string> next();

  Input& input_;
  BlockReader reader_;
  char delimiter_;
  std::string block_;
  std::string_view rest_;
  std::size_t columns_ = 1;
};

}  // namespace moistair
