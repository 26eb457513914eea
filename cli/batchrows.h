/// \file
/// The rows of a batch: a table with two properties filled in each row becomes the same table with the whole state
/// behind.
///
/// The first record names the columns, in capitals or not. Those named db wb rh w h dp v hold what is given, those
/// named inhg, psi or elevation a pressure for their row alone, all others are passed through as they are. Rows are
/// independent: which two properties a row fills is its own affair, and nothing that an earlier row left can change it.
/// So blocks of rows may be worked on in any order and on any thread.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/tablerun.h"
#include "engine/resolver.h"

namespace moistair {

/// The columns that the tool reads, of however many there are.
struct BatchColumns {
  CsvSelection selection;
  std::array<std::optional<std::size_t>, kindCount> kinds;  ///< places among those selected
  PressureColumns pressures;
  std::vector<std::string> takenNames;  ///< of columns that a result has as well
};

/// What is the same for all rows.
struct BatchPlan {
  BatchColumns columns;
  char delimiter = ',';
  std::string_view lineEnd = "\n";        ///< that of the first record
  double atm = defaultPressure;           ///< [in Hg], where a row gives none
  const RangeFinders* finders = nullptr;  ///< never changed, used from several threads
  bool full = false;                      ///< round-trip numbers instead of seven decimals
  bool check = false;                     ///< whether the residuals and the number of solutions follow
  bool exact = false;                     ///< exact states in place of those of the search
  bool strict = false;                    ///< whether a row whose state misses a given value fails
};

/// Finds the columns in the first record of a file. Bad usage for duplicate names, for fewer than two properties
/// and for what is no table.
/// @param check whether the result has the columns of a check too
BatchColumns columnsOf(const CsvRecord& header, const std::string& filename, char delimiter = ',', bool check = false);

/// The names of the columns: those of the input, the state's with "out_" before them, "status", and those of a check.
std::string headerLine(const CsvRecord& header, const BatchPlan& plan);

/// Resolves a block of whole records. Blank lines are left out. A row that fails has an empty state and its reason in
/// place of "ok"; one whose state visibly misses a given value has "missed" there, and "nearest" means the exact
/// state that is nearest to the search's, where there are several. A row that fails because of `strict` is missed, and
/// has no state. One with too few fields is filled up and one with too many is cut, so that the columns stay columns.
BatchResult resolveRows(std::string_view block, const BatchPlan& plan);

}  // namespace moistair
