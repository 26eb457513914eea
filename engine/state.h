/// \file
/// The state of moist air as data: the kinds of properties, one state, what its values may be, and what the searches
/// for one hand to each other.
///
/// Everything above the equations and the number texts works with these types: the searches and the resolver find a
/// state, the chart marks it, the session reports and keeps it.
#pragma once

#include <array>
#include <functional>
#include <limits>
#include <optional>
#include <string_view>

#include "text/numbertext.h"

namespace moistair {

/// The properties that can fix a state, in the order of the drop-down lists.
enum class PropertyKind { db, wb, rh, w, h, dp, v };

inline constexpr int kindcount = 7;

/// The lists' texts; a kind's index in the list is its value.
inline constexpr std::array<const char*, kindcount> kindtexts = {
    "Dry bulb temp, Deg F",      "Wet bulb temp, Deg F", "Rel humidity, percent", "Humidity ratio, decimal",
    "Specific enthalpy, btu/lb", "Dew point, Deg F",     "Specific vol, cuf/lb"};

/// The kind at an index of the drop-down lists, none for -1.
std::optional<PropertyKind> kindat(int index);

/// What files, tables and the command line call them.
inline constexpr std::array<const char*, kindcount> kindnames = {"db", "wb", "rh", "w", "h", "dp", "v"};

std::optional<PropertyKind> kindnamed(std::string_view name);
const char* nameof(PropertyKind kind);

/// One state of moist air, in the units of moistair.h. `pv` [in Hg] is not one of the seven; it follows from the rest.
struct StatePoint {
  double db = 0, wb = 0, rh = 0, w = 0, h = 0, dp = 0, v = 0, pv = 0;

  double& at(PropertyKind kind);
  double at(PropertyKind kind) const;

  bool operator==(const StatePoint&) const = default;
};

/// One given property: its kind and its value.
struct Given {
  PropertyKind kind;
  double value;
};

/// What a value may be: above the first and up to the second.
struct Limits {
  double above;
  double upto;

  bool accept(double value) const { return value > above && value <= upto; }
};

/// A bound that a state has to keep, whatever pair it was found from.
struct StateBound {
  PropertyKind kind;
  Limits limits;
};

/// Bounds of a state, those that tell most coming first: a wet bulb above the dry bulb shows in the relative humidity.
using StateBounds = std::array<StateBound, 6>;

/// What can be found from a pair and shown on the chart.
inline constexpr StateBounds chartbounds = {{
    {PropertyKind::rh, {0, 100}},
    {PropertyKind::w, {0, 0.03}},
    {PropertyKind::db, {0, 120}},
    {PropertyKind::wb, {0, 120}},
    {PropertyKind::h, {0, std::numeric_limits<double>::infinity()}},
    {PropertyKind::v, {0, std::numeric_limits<double>::infinity()}},
}};

/// The bound on a kind's values in a state; the dew point has none.
Limits boundof(PropertyKind kind, const StateBounds& bounds = chartbounds);

/// The first bound that a state breaks; none for a state that can be shown.
std::optional<StateBound> brokenbound(const StatePoint& point, const StateBounds& bounds = chartbounds);

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
enum class Way {
  quick,  ///< halvings whose outcome can be told beforehand are not evaluated
  plain,  ///< each step is
};

/// What a caller brings along for a pair: where to look for the dry bulb of a nested search, and the way of all
/// searches.
struct RangeFinders {
  RangeFinder dbrangeofrh;
  RangeFinder dbrangeofh;
  RangeFinder dbrangeofspvol;
  Way way = Way::quick;
};

/// What the steps of a nested search hand to each other, each rounded to 15 significant digits. A window owns one set
/// and never clears it: a finder that finds nothing leaves the search on the range of the last one that did.
struct SolverFields {
  NumberText candidate;  ///< dry bulb under test; while the finder of relative humidity runs, that relative humidity
  NumberText given;      ///< the given property that completes a candidate to a state
  NumberText returned;   ///< the other given property, as the completed state has it
  NumberText wetbulb;    ///< wet bulb of the completed state
  NumberText low, high;  ///< ends of the dry-bulb range, 0 until a finder has found one
};

}  // namespace moistair
