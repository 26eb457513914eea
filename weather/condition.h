/// \file
/// Conditions on a state such as "wb<65" or "dp>=60": one side of a line of the chart.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/property.h"
#include "text/error.h"

namespace moistair {

struct Condition {
  PropertyKind kind = PropertyKind::db;
  bool below = false;  ///< or above
  bool orEqual = false;
  double value = 0;

  /// False where the state has no such value.
  bool holds(const StatePoint& state) const;
};

/// Reads one or several conditions that all are to hold, separated by commas: "db<65,dp>=50".
Result<std::vector<Condition>> readConditions(std::string_view text);

/// "wb < 65"
std::string wordsOf(const Condition& condition);

/// What decides about a state: conditions, or whether a zone of comfort contains it.
using StatePredicate = std::function<bool(const StatePoint&)>;

}  // namespace moistair
