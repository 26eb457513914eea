/// \file
/// What the columns of a table hold, by their heads: "Outdoor Air Temp (°F)", "RHum (%)", "Date/Time".
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "weather/readers.h"

namespace moistair {

/// A column that holds a number.
struct ValueColumn {
  std::size_t place = 0;
  PropertyKind kind = PropertyKind::db;
  double factor = 1, summand = 0;  ///< to the program's unit
  Plausible range{};               ///< in the program's unit
};

/// Where a table has its times: one column, a date and a clock, or numbers of their own.
struct TimeColumns {
  std::optional<std::size_t> whole, date, clock;
  std::optional<std::size_t> year, month, day, hour, minute;

  bool any() const { return whole || (date && clock) || (month && day && hour); }
};

struct TableLayout {
  char separator = ',';
  TimeColumns time;
  std::vector<ValueColumn> values;      ///< the two that fix a state, the dry bulb first
  std::optional<ValueColumn> dewPoint;  ///< in place of a missing humidity
  std::optional<ValueColumn> pressure;
  bool isTmy3 = false;
  std::size_t fieldsNeeded = 0;
};

/// The layout that a line of heads makes; an error that says what is missing where it is none.
Result<TableLayout> layoutOf(std::string_view line, const TableColumns& columns, Oddities& oddities);

}  // namespace moistair
