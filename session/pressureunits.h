/// \file
/// The units in which the user gives the atmospheric pressure, and what an entry in one of them comes to.
///
/// The pressure dialog is this table on screen: a unit of the list, its words, its range, and its way to inches of
/// mercury, in which all is calculated. A unit is told by its index in the list; -1 stands for a text in the list's
/// edit box that is none of them, and answers nothing. Entries are texts, read leniently: "30abc" is 30, and no number
/// is 0.
#pragma once

#include <array>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace moistair {

inline constexpr const char* defaultpressuretext = "29.92126";  ///< what the program starts with [in Hg]

struct PressureUnit {
  const char* listtext;
  const char* entryunit;  ///< stands behind the entry
  const char* rangehint;  ///< empty for the default, which takes no entry
  double low, high;       ///< accepted entries, limits included
};

inline constexpr int defaultunit = 0;
inline constexpr double nolimit = std::numeric_limits<double>::infinity();

/// In the order of the list: default, inches of mercury, pounds per square inch, elevation.
inline constexpr std::array<PressureUnit, 4> pressureunits = {{
    {"Default", "Inches of Hg", "", -nolimit, nolimit},
    {"Inches of Hg", "Inches of Hg", "(5.906 - 147.65)", 5.906, 147.65},
    {"Pounds/sq inch", "Pounds/sq inch", "(2.9 - 72.5)", 2.9, 72.5},
    {"Elevation in feet", "Elevation in feet", "(0 - 38650)", 0, 38650},
}};

/// What the entry is in each unit, as shown while the user types.
struct PressureReadouts {
  std::string inhg, psi, feet;
};

/// The read-outs after a change of the entry. What a unit does not write stays as it was; a number that cannot be
/// worked out, because the entry is none or lies above the atmosphere, goes empty.
PressureReadouts pressurereadouts(int unit, std::string_view entry, PressureReadouts earlier);

/// What an entry comes to when it is set.
struct PressureSetting {
  /// Text of the pressure in force [in Hg], also of a refused entry; none if it has no value or no unit is chosen.
  std::optional<std::string> inhg;
  /// Whether the entry lies within its unit's range, limits included. The entry is tested and not the pressure: the
  /// highest elevation gives a little less than the lowest pressure that can be typed.
  bool accepted = true;
};

PressureSetting pressurefor(int unit, std::string_view entry);

}  // namespace moistair
