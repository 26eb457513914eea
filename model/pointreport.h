/// \file
/// The report of one point: every property of a state as the text that the user sees.
///
/// A located point does not go on the chart at once, it comes up in a report first. From there it is saved to the log
/// or put on the chart, and both work with the texts of the report: what is kept and marked is what was shown. The
/// report window, the log and the marking share the one table of rows below.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "engine/pressureunits.h"
#include "engine/state.h"

namespace moistair {

struct PointReport {
  std::string identification;   ///< as typed; "Nil" if nothing was
  std::string pressurecaption;  ///< by the unit in which the pressure was set; empty for none of them
  std::string pressure;         ///< pressure or elevation as entered
  std::string db, wb, rh, h, v, w, dp, pv;
};

/// One property of the report: its caption, the step count that brings its value to column 57 of the log, its text in
/// the report and its value in a state.
struct ReportRow {
  const char* caption;
  int zonesteps;
  std::string PointReport::*text;
  double StatePoint::*value;
};

/// In the order of the window and of the record.
inline constexpr std::array<ReportRow, 8> reportrows = {{
    {"Dry bulb temp (Deg F)", 3, &PointReport::db, &StatePoint::db},
    {"Wet bulb temp (Deg F)", 3, &PointReport::wb, &StatePoint::wb},
    {"Relative humidity (%)", 3, &PointReport::rh, &StatePoint::rh},
    {"Specific enthalpy (btu/lb)", 3, &PointReport::h, &StatePoint::h},
    {"Specific volume (cuf/lb)", 3, &PointReport::v, &StatePoint::v},
    {"Humidity ratio (lb/lb of air)", 2, &PointReport::w, &StatePoint::w},
    {"Dew point (Deg F)", 3, &PointReport::dp, &StatePoint::dp},
    {"Vapor pressure (In Hg)", 3, &PointReport::pv, &StatePoint::pv},
}};

inline constexpr const char* identificationcaption = "Point Id";
inline constexpr const char* reporttitle = "Properties of the specified point are as below:";

/// The report of a state. The pressure's text is empty if it reads as exactly -1.
/// @param pressure the pressure last set; not necessarily the one that the state was computed at
PointReport fillreport(const StatePoint& point, std::string_view identification, const PressureEntry& pressure);

/// The state that the report shows, rounded as it stands there; an empty text counts as 0.
StatePoint readreport(const PointReport& report);

/// The 12 lines of the report's record in the log, without line ends.
std::vector<std::string> pointrecord(const PointReport& report);

}  // namespace moistair
