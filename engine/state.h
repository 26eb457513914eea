/// \file
/// What the searches for a state are given, what they hand to each other, and which states can be shown.
///
/// Everything above the equations and the number texts works with these types: the searches and the resolver find a
/// state, the chart marks it, the model reports and keeps it.
#pragma once

#include <functional>
#include <limits>
#include <optional>

#include "engine/property.h"
#include "text/numbertext.h"

namespace moistair {

/// One given property: its kind and its value.
struct Given {
  PropertyKind kind;
  double value;
};

/// A bound that a state has to keep, whatever pair it was found from.
struct StateBound {
  PropertyKind kind;
  Range range;
};

/// Bounds of a state, those that tell most coming first: a wet bulb above the dry bulb shows in the relative humidity.
using StateBounds = std::array<StateBound, 6>;

/// What can be found from a pair and shown on the chart.
inline constexpr StateBounds chartBounds = [] {
  using enum PropertyKind;
  StateBounds bounds{};
  std::size_t place = 0;
  for (const PropertyKind kind : {rh, w, db, wb, h, v}) bounds[place++] = {kind, boundOf(kind)};
  return bounds;
}();

/// The bound on a kind's values among these; the dew point has none.
Range boundOf(PropertyKind kind, const StateBounds& bounds);

/// The first bound that a state breaks; none for a state that can be shown.
std::optional<StateBound> violatedBound(const StatePoint& point, const StateBounds& bounds = chartBounds);

/// A range of dry bulbs [deg F].
struct DryBulbRange {
  double low;
  double high;
};

/// Finds the dry bulbs between which a line of constant relative humidity [percent], enthalpy [Btu/lb] or specific
/// volume [cu ft/lb] can be seen at the pressure atm [in Hg]; none if it cannot be seen at all.
using RangeFinder = std::function<std::optional<DryBulbRange>(double line, double atm)>;

/// How a search is carried out. Both ways give the same bits and the same count of iterations; the plain one is the
/// definition, and what the quick one falls back to and is compared with.
enum class SearchMode {
  accelerated,  ///< halvings whose outcome is known beforehand are not evaluated
  reference,    ///< each step is
};

/// What a caller brings along for a pair: where to look for the dry bulb of a nested search, and the way of all
/// searches.
struct RangeFinders {
  RangeFinder dbRangeOfRh;
  RangeFinder dbRangeOfH;
  RangeFinder dbRangeOfSpvol;
  SearchMode mode = SearchMode::accelerated;
};

/// What the steps of a nested search hand to each other, each rounded to 15 significant digits. A window owns one set
/// and never clears it: a finder that finds nothing leaves the search on the range of the last one that did.
struct SolverFields {
  NumberText candidate;  ///< dry bulb under test; while the finder of relative humidity runs, that relative humidity
  NumberText given;      ///< the given property that completes a candidate to a state
  NumberText returned;   ///< the other given property, as the completed state has it
  NumberText wetBulb;    ///< wet bulb of the completed state
  NumberText low, high;  ///< ends of the dry-bulb range, 0 until a finder has found one
};

}  // namespace moistair
