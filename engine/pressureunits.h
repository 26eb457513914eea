/// \file
/// The units in which the user gives the atmospheric pressure, and what an entry in one of them comes to.
///
/// One table holds all there is to know of a unit: its place in the list of the pressure window, its words, its range,
/// and its way to inches of mercury, in which all is calculated. Entries are texts, read leniently: "30abc" is 30, and
/// no number is 0. An entry without a unit means a text in the list's edit box that is none of them; it has no
/// words and changes no pressure.
#pragma once

#include <array>
#include <limits>
#include <optional>
#include <string>

#include "engine/moistair.h"

namespace moistair {

/// In the order of the list.
enum class PressureUnit { standard, inhg, psi, elevation };

/// Pounds/sq inch to the inch of mercury.
inline constexpr double psiPerInhg = 0.4911541;

inline constexpr const char* defaultPressureText = "29.92126";  ///< what the program starts with [in Hg]

struct PressureUnitRow {
  const char* listText;
  const char* entryUnit;   ///< follows the entry
  const char* rangeHint;   ///< empty for the default, which takes no entry
  double low, high;        ///< accepted entries, limits included
  const char* headerWord;  ///< begins the chart's header line
  const char* headerUnit;  ///< ends it
  const char* caption;     ///< in the report, the mixing window and the log
  double (*inhg)(double);  ///< pressure [in Hg] of a number in this unit; no value above the atmosphere
};

inline constexpr double noLimit = std::numeric_limits<double>::infinity();

double inhgOfInhg(double number);
double inhgOfPsi(double number);
double inhgOfElevation(double number);

inline constexpr std::array<PressureUnitRow, 4> pressureUnits = {{
    {"Default", "Inches of Hg", "", -noLimit, noLimit, "Atmos. pr=", "In Hg", "Atmos. pr (in Hg)", inhgOfInhg},
    {"Inches of Hg", "Inches of Hg", "(5.906 - 147.65)", 5.906, 147.65, "Atmos. pr=", "In Hg", "Atmos. pr (in Hg)",
     inhgOfInhg},
    {"Pounds/sq inch", "Pounds/sq inch", "(2.9 - 72.5)", 2.9, 72.5, "Atmos. pr=", "Pounds/sq inch",
     "Atmos. pr (Pounds/sq inch)", inhgOfPsi},
    {"Elevation in feet", "Elevation in feet", "(0 - 38650)", 0, 38650, "Site elevation=", "ft", "Site elevation (ft)",
     inhgOfElevation},
}};

constexpr const PressureUnitRow& rowOf(PressureUnit unit) { return pressureUnits[static_cast<std::size_t>(unit)]; }

/// The unit at an index of the list, none for -1.
std::optional<PressureUnit> pressureUnitAt(int index);

/// The pressure as the user gave it.
struct PressureEntry {
  std::optional<PressureUnit> unit = PressureUnit::standard;
  std::string text = defaultPressureText;

  bool operator==(const PressureEntry&) const = default;
};

/// A pressure as it was given, and what is calculated with. The two part when the pressure window has been looked at.
struct Pressure {
  PressureEntry entry;
  double atm = defaultPressure;  ///< [in Hg]

  bool operator==(const Pressure&) const = default;
};

/// "24.896 in Hg": as it was typed where that is short.
std::string inhgWords(double atm);

/// "5000 ft": the number that the entry is read as, in its unit.
std::string entryWords(const Pressure& pressure);

/// The one meaning of equal pressures [in Hg]: their texts of 15 significant digits, which is what every pressure that
/// was set is kept as, are the same. So a pressure is the same before and after it was stored.
bool samePressure(double one, double other);

/// Words before the entry in the report, the mixing window and the log; empty without a unit.
std::string pressureCaption(const PressureEntry& entry);

/// The entry as it follows that caption: as typed, and empty if its number is exactly -1.
std::string pressureShown(const PressureEntry& entry);

/// The chart's header line, "Site elevation=5000 ft"; empty without a unit.
std::string headerLine(const PressureEntry& entry);

/// The header line of start-up: the current pressure [in Hg] as a number.
std::string startHeaderLine(double atmPressure);

/// What the entry is in each unit, as shown while the user types.
struct PressureReadouts {
  std::string inhg, psi, feet;
};

/// The read-outs after a change of the entry. What a unit does not write stays as it was; a number that cannot be
/// worked out, because the entry is none or lies above the atmosphere, goes empty.
PressureReadouts pressureReadouts(const PressureEntry& entry, PressureReadouts earlier);

/// What an entry comes to when it is set.
struct PressureSetting {
  /// Text of the current pressure [in Hg], also of a refused entry; none if it has no value or no unit is chosen.
  std::optional<std::string> inhg;
  /// Whether the entry lies within its unit's range, limits included. The entry is tested and not the pressure: the
  /// highest elevation gives a little less than the lowest pressure that can be typed.
  bool accepted = true;
};

PressureSetting pressureFor(const PressureEntry& entry);

/// Whether a pressure is calculated with as its entry says, or as after the pressure window was only looked at, with
/// the default. If not, it is a value that the window has refused.
bool isOfEntry(const Pressure& pressure);

/// The pressure [in Hg] of a number in a unit, rounded to the digits of the store that the window writes it to, so that
/// all calculate with the same; none outside the unit's range.
std::optional<double> pressureOf(PressureUnit unit, double number);

}  // namespace moistair
