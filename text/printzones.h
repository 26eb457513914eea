/// \file
/// Lines of the session log laid out in print zones.
///
/// The log is read by eye and by spreadsheets that cut at fixed columns, so a value is always in the same column:
/// a line is divided into zones of 14 columns, beginning at columns 1, 15, 29, 43 and 57, and its caption is followed
/// by as many steps to the next zone as bring the value to column 57. The point record and the mixing block are both
/// laid out here.
#pragma once

#include <string>
#include <string_view>

namespace moistair {

inline constexpr std::size_t zoneWidth = 14;

/// The caption from column 1, so many zone steps, and the value; no blanks behind the value.
/// A step fills the zone up with blanks and always moves on, also from the start of a zone.
/// @param caption one byte a column, so without letters beyond ASCII
std::string zoneLine(std::string_view caption, int zoneSteps, std::string_view value);

}  // namespace moistair
