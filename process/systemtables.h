/// \file
/// A system as two tables: the states of its streams, and a schedule of its equipment.
///
/// The sheet prints them and a file takes them as CSV, from the same cells: a number with the decimals that it is
/// printed with, or a text. Heat and tons of coils and coolers are positive as heat removed, of all others as heat
/// given to the air.
#pragma once

#include <string>
#include <vector>

#include "process/solvedsystem.h"

namespace moistair {

struct SystemColumn {
  const char* head;
  const char* unit;  ///< empty for none
  int decimals;      ///< -1 for a text
};

struct SystemCell {
  std::string text{};
  double value = noValue;
};

struct SystemTable {
  const char* title;
  std::vector<SystemColumn> columns;
  std::vector<std::vector<SystemCell>> rows;
};

/// Name, db, wb, rh, grains, h, dp, v, acfm: a row for each stream.
SystemTable stateTable(const SolvedSystem& solved);

/// A row for each process: what enters and leaves, heat, water, power.
SystemTable equipmentTable(const SolvedSystem& solved);

/// The rule-of-thumb factors at the site's pressure, in a sentence each.
std::vector<std::string> factorNotes(const Site& site);

/// Both tables, a blank line between them, numbers with seven decimals.
std::string systemCsv(const SolvedSystem& solved);

}  // namespace moistair
