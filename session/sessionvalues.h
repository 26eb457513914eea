/// \file
/// The values that outlive a dialog.
///
/// Dialogs are made new at each opening, so what has to survive one stands here. Numbers are kept as the texts in which
/// they were typed or stored: every operation reads the pressure in force at its head, from its text.
#pragma once

#include <string>
#include <string_view>

#include "chart/chartframe.h"
#include "engine/resolver.h"

namespace moistair {

struct SessionValues {
  NumberText pressure;          ///< atmospheric pressure in force [in Hg]; what every calculation reads, leniently
  std::string pressuremode;     ///< unit of the pressure last set: "0" default, "1" in Hg, "2" psi, "3" elevation
  std::string pressureentered;  ///< pressure or elevation as the user entered it
  DrawnLimits drawn;            ///< limits of the chart on the canvas
  std::string charttype;        ///< "1" standard, "2" blank
  SolverFields solverfields;    ///< scratch of the nested searches
};

/// Caption of the pressure in the point report and the mixing window: "Atmos. pr (in Hg)" for the modes "0" and "1",
/// "Atmos. pr (Pounds/sq inch)" for "2", "Site elevation (ft)" for "3", else empty.
std::string pressurecaption(std::string_view pressuremode);

/// The pressure as it is shown beside that caption: as entered, and empty if its number is exactly -1.
std::string pressureshown(std::string_view pressureentered);

}  // namespace moistair
