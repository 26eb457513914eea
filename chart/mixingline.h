/// \file
/// The mixing line on the chart.
///
/// The two streams and their mixture are marked as dots, and each stream is joined to the mixture. The points are those
/// that the columns show, rounded as shown there. It is all or nothing: one point beyond the limits and nothing is
/// drawn. Unlike a line or a point of the chart's own, a mixing line goes where the limits in the lists put it,
/// whatever chart is on the canvas.
#pragma once

#include "chart/chartframe.h"
#include "engine/mixingproblem.h"

namespace moistair {

/// Draws the line and returns nullptr, or draws nothing and returns the message for the first point that is rejected,
/// in the order stream 1, mixed stream, stream 2. A point of an unfinished problem reads as 0 and is rejected; one on a
/// limit, or at saturation, is accepted.
const char* drawMixingLine(ChartCanvas& canvas, const MixingProblem& problem, const PlotArea& area);

}  // namespace moistair
