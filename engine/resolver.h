/// \file
/// Any two of seven properties in, the whole state of the air out.
///
/// A state of moist air at a given pressure is fixed by two independent properties. `resolvepair` takes any two of the
/// seven kinds and finds the rest, by the row of the pair in one table: pairs with a temperature run at most two
/// searches over 0 to 120 deg F, pairs without one run a search within a search, over the dry bulbs at which a line of
/// the first property crosses what the caller looks at. That range comes from the caller's `RangeFinders`: the chart's
/// keep to the limits of the chart, `openrangefinders` know no chart.
///
/// The live row, the point report, the mixing window and the headless tool all resolve through this one function.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string_view>

#include "engine/numbertext.h"

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

/// One state of moist air, in the units of moistair.h. `pv` [in Hg] is not one of the seven; it follows from the rest.
struct StatePoint {
  double db = 0, wb = 0, rh = 0, w = 0, h = 0, dp = 0, v = 0, pv = 0;

  double& at(PropertyKind kind);
};

/// One given property: its kind and its value.
struct Given {
  PropertyKind kind;
  double value;
};

/// A range of dry bulbs [deg F].
struct DryBulbRange {
  double low;
  double high;
};

/// Finds the dry bulbs between which a line of constant relative humidity [percent], enthalpy [Btu/lb] or specific
/// volume [cu ft/lb] can be seen at the pressure atm [in Hg]; none if it cannot be seen at all.
using RangeFinder = std::function<std::optional<DryBulbRange>(double line, double atm)>;

struct RangeFinders {
  RangeFinder dbrangeofrh;
  RangeFinder dbrangeofh;
  RangeFinder dbrangeofspvol;
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

struct Resolution {
  StatePoint point;
  bool resolved = false;
  int iterations = 0;  ///< of the last search, 0 if there was none
};

/// Why a pair is not even tried.
enum class InputFault { none, samekind, humidityratiowithdewpoint, blankvalue };

/// The first of the three input rules that the input breaks. The values are looked at last.
InputFault inputfault(std::optional<PropertyKind> kind1, std::optional<PropertyKind> kind2, std::string_view value1,
                      std::string_view value2);

/// Resolves a pair, given in either order.
///
/// Not resolved: a pair of equal kinds or of humidity ratio and dew point, a value outside the limits of its row, a
/// search that fails, and a state outside 0 < db <= 120, 0 < wb <= 120, 0 < w <= 0.03, 0 < rh <= 100, v > 0, h > 0. The
/// given properties stay as given and are not computed anew from the state found. A given value that is no value counts
/// as 0, and so does a derived property without a value.
/// @param atm atmospheric pressure [in Hg], any double
Resolution resolvepair(Given first, Given second, double atm, const RangeFinders& finders, SolverFields& fields);

/// The same for values as typed, read strictly; a text that is no number counts as 0, which every kind but the dew
/// point refuses. A missing kind resolves nothing.
Resolution resolvepair(std::optional<PropertyKind> kind1, std::string_view value1, std::optional<PropertyKind> kind2,
                       std::string_view value2, double atm, const RangeFinders& finders, SolverFields& fields);

}  // namespace moistair
