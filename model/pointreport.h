/// \file
/// The report of one point: every property of a state as the text that the user sees.
///
/// A located point does not go on the chart at once, it comes up in a report first. From there it is saved to the log
/// or put on the chart, and both work with the texts of the report: what is kept and marked is what was shown.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "engine/pressureunits.h"
#include "engine/state.h"

namespace moistair {

struct PointReport : StateTexts {
  std::string identification;   ///< as typed; "Nil" if nothing was
  std::string pressureCaption;  ///< by the unit in which the pressure was set; empty for none of them
  std::string pressure;         ///< pressure or elevation as entered
};

inline constexpr const char* identificationCaption = "Point Id";
inline constexpr const char* reportTitle = "Properties of the specified point are as below:";

/// The report of a state. The pressure's text is empty if it reads as exactly -1.
/// @param pressure the pressure last set; not necessarily the one that the state was computed at
PointReport fillReport(const StatePoint& point, std::string_view identification, const PressureEntry& pressure);

/// The state that the report shows, rounded as shown there; an empty text counts as 0.
StatePoint readReport(const PointReport& report);

/// The 12 lines of the report's record in the log, without line ends.
std::vector<std::string> pointRecord(const PointReport& report);

}  // namespace moistair
