/// \file
/// The values that outlive a dialog.
///
/// Dialogs are made new at each opening, so what has to survive one is kept here. Numbers are kept as the texts in
/// which they were typed or stored: every operation first reads the current pressure from its text.
#pragma once

#include "chart/chartframe.h"
#include "chart/drawchart.h"
#include "engine/pressureunits.h"
#include "engine/state.h"

namespace moistair {

struct SessionValues {
  NumberText pressure;          ///< atmospheric current pressure [in Hg]; what every calculation reads, leniently
  PressureEntry pressureEntry;  ///< the pressure last set, as the user gave it
  DrawnLimits drawn;            ///< limits of the chart on the canvas
  ChartType chartType = ChartType::standard;  ///< as last chosen
  SolverFields solverFields;                  ///< scratch of the nested searches
};

}  // namespace moistair
