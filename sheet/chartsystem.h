/// \file
/// An air handler over the chart of the window, as operations of a drawing, for pictures that have no layer above it.
#pragma once

#include "chart/chartframe.h"
#include "process/solvedsystem.h"

namespace moistair {

void drawSystem(ChartCanvas& canvas, const PlotArea& area, const SolvedSystem& system);

}  // namespace moistair
