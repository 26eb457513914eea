/// \file
/// A reading kept on the chart: a cross where it was taken, and a small label with the state.
#pragma once

#include "chart/chartframe.h"
#include "engine/state.h"

namespace moistair {

/// Draws cross and label, which stands above to the left of the cross unless the plot ends there, on a white ground
/// of its own so that the lines of the chart do not run through its texts. Outside the limits it draws nothing and
/// returns false.
/// @param shown the state as a report shows it, `readreport`
bool pinreading(ChartCanvas& canvas, const StatePoint& shown, const PlotArea& area);

}  // namespace moistair
