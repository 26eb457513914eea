/// \file
/// Everything of a chart that is no property line: axes, fine grid, major lines, numbers, titles, the line that states
/// the pressure, and the vapor-pressure scale.
///
/// `drawChart` calls these in order. The fine grid is drawn only below the saturation line, so the grid itself shows
/// the chart's shape, and its density follows the spans of the limits. A window without an area draws nothing.
#pragma once

#include "chart/chartframe.h"

namespace moistair {

void drawGrid(const Chart& chart);     ///< axes and fine grid
void drawDbScale(const Chart& chart);  ///< dry-bulb numbers and major vertical lines
void drawHrScale(const Chart& chart);  ///< humidity-ratio numbers and major horizontal lines
void drawTitles(const Chart& chart, std::string_view header);
void drawVaporScale(const Chart& chart);  ///< vapor pressures [in Hg] on the left side, with their title

/// The header line alone, at its place for a window of this size; nothing if it is empty.
void printHeader(ChartCanvas& canvas, WindowSize window, std::string_view header);

/// Text of the vapor pressure [in Hg] of a humidity ratio at a dry bulb; empty if there is none or it is negative.
std::string vaporLabel(double db, double hr, double atmPressure);

}  // namespace moistair
