/// \file
/// The values that outlive a dialog.
///
/// Dialogs are made new at each opening, so what has to survive one stands here. Numbers are kept as the texts in which
/// they were typed or stored: every operation reads the pressure in force at its head, from its text.
#pragma once

#include "chart/chartframe.h"
#include "chart/drawchart.h"
#include "engine/pressureunits.h"
#include "engine/state.h"

namespace moistair {

struct SessionValues {
  NumberText pressure;          ///< atmospheric pressure in force [in Hg]; what every calculation reads, leniently
  PressureEntry pressureentry;  ///< the pressure last set, as the user gave it
  DrawnLimits drawn;            ///< limits of the chart on the canvas
  ChartType charttype = ChartType::standard;  ///< as last chosen
  SolverFields solverfields;                  ///< scratch of the nested searches
};

}  // namespace moistair
