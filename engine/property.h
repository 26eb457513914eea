/// \file
/// The one table of the properties of moist air.
///
/// Whatever a property is called, in whatever unit, with how many decimals and within which bounds, is in its row, one
/// column for each place that has words of its own. The drop-down lists, the live row, the report, the log, the mixing
/// window, readings, tables, sheets, files and the headless tool read from it, in the orders at the end of this file.
///
/// The first seven properties can fix a state; the eighth, the vapor pressure, follows from them. Any further one needs
/// a kind, a row at the end of the table and the function that works it out: the table of entries, the sheets and the
/// tool then show it behind the others. What is prescribed to have eight, the windows and the files, stays as it is.
#pragma once

#include <array>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "engine/moistair.h"

namespace moistair {

/// In the order of the drop-down lists, of files and of the tool's columns.
enum class PropertyKind { db, wb, rh, w, h, dp, v, pv };

inline constexpr int kindCount = 7;          ///< so many of them, from the first, can fix a state
inline constexpr std::size_t heldCount = 8;  ///< so many a state holds; what is behind them is worked out

/// One state of moist air, in the units of moistair.h. `pv` [in Hg] follows from the rest.
struct StatePoint {
  double db = 0, wb = 0, rh = 0, w = 0, h = 0, dp = 0, v = 0, pv = 0;

  constexpr double& at(PropertyKind kind);
  constexpr double at(PropertyKind kind) const;

  bool operator==(const StatePoint&) const = default;
};

/// The same as the texts that somebody sees, which are the stores of their values.
struct StateTexts {
  std::string db, wb, rh, h, v, w, dp, pv;

  bool operator==(const StateTexts&) const = default;
};

/// What a value may be: above the first and up to the second.
struct Range {
  double above;
  double upTo;

  bool accept(double value) const { return value > above && value <= upTo; }
};

inline constexpr double unbounded = std::numeric_limits<double>::infinity();

struct Property {
  PropertyKind kind;
  const char* key;                ///< in files, in tables and on the command line
  const char* name;               ///< within a sentence
  const char* listText;           ///< in the drop-down lists
  const char* caption;            ///< with its unit: in the report, the mixing window, the log and tables
  int zoneSteps;                  ///< of the print zones, from the caption to the value in column 57 of the log
  const char* rowCaption;         ///< in the live row
  const char* shortCaption;       ///< of a reading
  const char* symbol;             ///< on the label of a reading
  const char* unit;               ///< of a reading
  int decimals;                   ///< of a reading, and in what is said of a pair
  const char* sheetHead;          ///< of its column on a sheet
  const char* sheetUnit;          ///< below that
  int sheetDecimals;              ///< that an engineer reads
  double visible;                 ///< what of it can be seen on a chart
  Range bound;                    ///< of a state, whatever pair it was found from
  double StatePoint::*value;      ///< null for a property that is worked out
  std::string StateTexts::*text;  ///< null for a property that is worked out
  double (*workedOut)(const StatePoint& state, double atm) = nullptr;  ///< null for a property that a state holds
};

/// Each line of a row is a kind of place.
// clang-format off
inline constexpr std::array propertyTable = {
    Property{.kind = PropertyKind::db, .key = "db", .name = "dry bulb",
             .listText = "Dry bulb temp, Deg F", .caption = "Dry bulb temp (Deg F)", .zoneSteps = 3,
             .rowCaption = "DB=", .shortCaption = "DB", .symbol = "DB", .unit = "Deg F", .decimals = 2,
             .sheetHead = "Dry bulb", .sheetUnit = "°F", .sheetDecimals = 1,
             .visible = 0.2, .bound = {0, 120}, .value = &StatePoint::db, .text = &StateTexts::db},
    Property{.kind = PropertyKind::wb, .key = "wb", .name = "wet bulb",
             .listText = "Wet bulb temp, Deg F", .caption = "Wet bulb temp (Deg F)", .zoneSteps = 3,
             .rowCaption = "WB=", .shortCaption = "WB", .symbol = "WB", .unit = "Deg F", .decimals = 2,
             .sheetHead = "Wet bulb", .sheetUnit = "°F", .sheetDecimals = 1,
             .visible = 0.2, .bound = {0, 120}, .value = &StatePoint::wb, .text = &StateTexts::wb},
    Property{.kind = PropertyKind::rh, .key = "rh", .name = "relative humidity",
             .listText = "Rel humidity, percent", .caption = "Relative humidity (%)", .zoneSteps = 3,
             .rowCaption = "RH(%)=", .shortCaption = "RH", .symbol = "RH", .unit = "%", .decimals = 2,
             .sheetHead = "Rel. hum.", .sheetUnit = "%", .sheetDecimals = 1,
             .visible = 1, .bound = {0, 100}, .value = &StatePoint::rh, .text = &StateTexts::rh},
    Property{.kind = PropertyKind::w, .key = "w", .name = "humidity ratio",
             .listText = "Humidity ratio, decimal", .caption = "Humidity ratio (lb/lb of air)", .zoneSteps = 2,
             .rowCaption = "H.ratio=", .shortCaption = "H.ratio", .symbol = "W", .unit = "lb/lb", .decimals = 5,
             .sheetHead = "Hum. ratio", .sheetUnit = "lb/lb", .sheetDecimals = 5,
             .visible = 0.0001, .bound = {0, greatestRatio}, .value = &StatePoint::w, .text = &StateTexts::w},
    Property{.kind = PropertyKind::h, .key = "h", .name = "enthalpy",
             .listText = "Specific enthalpy, btu/lb", .caption = "Specific enthalpy (btu/lb)", .zoneSteps = 3,
             .rowCaption = "Enthalpy=", .shortCaption = "Enthalpy", .symbol = "h", .unit = "Btu/lb", .decimals = 2,
             .sheetHead = "Enthalpy", .sheetUnit = "Btu/lb", .sheetDecimals = 2,
             .visible = 0.15, .bound = {0, unbounded}, .value = &StatePoint::h, .text = &StateTexts::h},
    Property{.kind = PropertyKind::dp, .key = "dp", .name = "dew point",
             .listText = "Dew point, Deg F", .caption = "Dew point (Deg F)", .zoneSteps = 3,
             .rowCaption = "DP=", .shortCaption = "DP", .symbol = "DP", .unit = "Deg F", .decimals = 2,
             .sheetHead = "Dew point", .sheetUnit = "°F", .sheetDecimals = 1,
             .visible = 0.2, .bound = {-unbounded, unbounded}, .value = &StatePoint::dp, .text = &StateTexts::dp},
    Property{.kind = PropertyKind::v, .key = "v", .name = "volume",
             .listText = "Specific vol, cuf/lb", .caption = "Specific volume (cuf/lb)", .zoneSteps = 3,
             .rowCaption = "Sp vol=", .shortCaption = "Sp vol", .symbol = "v", .unit = "cuf/lb", .decimals = 3,
             .sheetHead = "Sp. volume", .sheetUnit = "cu ft/lb", .sheetDecimals = 2,
             .visible = 0.02, .bound = {0, unbounded}, .value = &StatePoint::v, .text = &StateTexts::v},
    Property{.kind = PropertyKind::pv, .key = "pv", .name = "vapor pressure",
             .listText = "", .caption = "Vapor pressure (In Hg)", .zoneSteps = 3,
             .rowCaption = "V. pr=", .shortCaption = "V. pr", .symbol = "pv", .unit = "In Hg", .decimals = 4,
             .sheetHead = "Vapor pr.", .sheetUnit = "in Hg", .sheetDecimals = 3,
             .visible = 0, .bound = {-unbounded, unbounded}, .value = &StatePoint::pv, .text = &StateTexts::pv},
};
// clang-format on

inline constexpr std::size_t propertyCount = propertyTable.size();

/// The properties that a state holds: what the windows show and files keep.
inline constexpr std::span<const Property> heldProperties = std::span(propertyTable).first(heldCount);

constexpr const Property& propertyOf(PropertyKind kind) { return propertyTable[static_cast<std::size_t>(kind)]; }

constexpr double& StatePoint::at(PropertyKind kind) { return this->*propertyOf(kind).value; }
constexpr double StatePoint::at(PropertyKind kind) const { return this->*propertyOf(kind).value; }

/// The value of a property in a state, worked out at the pressure atm [in Hg] where the state does not hold it.
constexpr double valueOf(const Property& property, const StatePoint& state, double atm) {
  return property.workedOut == nullptr ? state.*property.value : property.workedOut(state, atm);
}

/// The order in which people see them: in the live row, the report, the log, the mixing window and readings.
inline constexpr std::array<PropertyKind, heldCount> shownOrder = {PropertyKind::db, PropertyKind::wb, PropertyKind::rh,
                                                                   PropertyKind::h,  PropertyKind::v,  PropertyKind::w,
                                                                   PropertyKind::dp, PropertyKind::pv};

/// The columns of tables for people, on sheets too: the same, and what is worked out behind it.
inline constexpr std::array<PropertyKind, propertyCount> columnOrder = [] {
  std::array<PropertyKind, propertyCount> order{};
  for (std::size_t i = 0; i < order.size(); ++i) order[i] = i < heldCount ? shownOrder[i] : propertyTable[i].kind;
  return order;
}();

/// Where the column of a property is among them.
constexpr std::size_t columnOf(PropertyKind kind) {
  std::size_t column = 0;
  while (columnOrder[column] != kind) ++column;
  return column;
}

/// The texts of the drop-down lists; a kind's index in the list is its value.
inline constexpr std::array<const char*, kindCount> kindTexts = [] {
  std::array<const char*, kindCount> texts{};
  for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = propertyTable[i].listText;
  return texts;
}();

/// The kind at an index of the drop-down lists, none for -1.
std::optional<PropertyKind> kindAt(int index);

/// The kind of a key among those that can fix a state.
std::optional<PropertyKind> kindNamed(std::string_view key);

constexpr const char* nameOf(PropertyKind kind) { return propertyOf(kind).key; }

/// The bound on a kind's values in a state; the dew point and the vapor pressure have none.
constexpr Range boundOf(PropertyKind kind) { return propertyOf(kind).bound; }

/// The keys of the kinds that can fix a state, for who has to type one: "db wb rh w h dp v".
std::string keysOfKinds();

static_assert(
    [] {
      for (std::size_t i = 0; i < propertyCount; ++i) {
        const Property& property = propertyTable[i];
        const bool held = property.value != nullptr && property.text != nullptr && property.workedOut == nullptr;
        const bool workedOut = property.value == nullptr && property.text == nullptr && property.workedOut != nullptr;
        if (property.kind != static_cast<PropertyKind>(i) || !(i < heldCount ? held : workedOut)) return false;
      }
      return true;
    }(),
    "the rows are in the order of the kinds, and behind those that a state holds come those that are worked out");

}  // namespace moistair
