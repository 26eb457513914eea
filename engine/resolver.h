/// \file
/// Any two of seven properties in, the whole state of the air out.
///
/// A state of moist air at a given pressure is fixed by two independent properties. `resolvePair` takes any two of the
/// seven kinds and finds the rest, by the row of the pair in one table: pairs with a temperature run at most two
/// searches over 0 to 120 deg F, pairs without one run a search within a search, over the dry bulbs at which a line of
/// the first property crosses what the caller looks at. That range comes from the caller's `RangeFinders`: the chart's
/// keep to the limits of the chart, `openRangeFinders` know no chart.
///
/// The live row, the point report, the mixing window and the headless tool all resolve through this one function.
#pragma once

#include <optional>
#include <string_view>

#include "engine/state.h"

namespace moistair {

/// Why a pair has no state.
enum class Unresolved {
  none,                       ///< it has one
  sameKind,                   ///< both properties are of one kind, or neither is of any
  humidityRatioWithDewPoint,  ///< the two say the same thing
  blankValue,                 ///< a value is missing
  noKind,                     ///< one of the properties is of no kind
  givenValue,                 ///< a given value lies outside the limits of its pair
  search,                     ///< no state was found that has both values
  state,                      ///< the state found lies beyond a bound
};

struct Resolution {
  StatePoint point;
  Unresolved reason = Unresolved::none;
  /// Of a given value: its kind. Of a search: the property that was looked for. Of a state: the one beyond its bound.
  PropertyKind kind = PropertyKind::db;
  Range range{};       ///< that the value of this kind has to keep, for a given value and for a state
  int iterations = 0;  ///< of the last search, 0 if there was none
  /// The given property whose line the range finder saw nowhere; the search then ran on the range of an earlier one.
  std::optional<PropertyKind> unseenLine;

  bool resolved() const { return reason == Unresolved::none; }
};

/// The first of the three input rules that the input breaks, or none. The values are looked at last.
Unresolved inputFault(std::optional<PropertyKind> kind1, std::optional<PropertyKind> kind2, std::string_view value1,
                      std::string_view value2);

/// Resolves a pair, given in either order.
///
/// Not resolved: a pair of equal kinds or of humidity ratio and dew point, a value outside the limits of its row, a
/// search that fails, and a state outside 0 < db <= 120, 0 < wb <= 120, 0 < w <= 0.03, 0 < rh <= 100, v > 0, h > 0. The
/// given properties stay as given and are not computed again from the state found. A given value that is no value
/// counts as 0, and so does a derived property without a value.
/// @param atm atmospheric pressure [in Hg], any double
Resolution resolvePair(Given first, Given second, double atm, const RangeFinders& finders, SolverFields& fields);

/// The same for values as typed, read strictly; a text that is no number counts as 0, which every kind but the dew
/// point refuses. A missing kind resolves nothing.
Resolution resolvePair(std::optional<PropertyKind> kind1, std::string_view value1, std::optional<PropertyKind> kind2,
                       std::string_view value2, double atm, const RangeFinders& finders, SolverFields& fields);

}  // namespace moistair
