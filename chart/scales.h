/// \file
/// Everything of a chart that is no property line: axes, fine grid, major lines, numbers, titles, the line that states
/// the pressure, and the vapour-pressure scale.
///
/// `drawchart` calls these in order. The fine grid is drawn only below the saturation line, so the grid itself shows
/// the chart's shape, and its density follows the spans of the limits. A window without an area draws nothing.
#pragma once

#include "chart/chartframe.h"

namespace moistair {

/// The pressure as the user gave it, for the header line.
struct HeaderTexts {
  std::string pressuremode;  ///< "0" or "1" in Hg, "2" pounds/sq inch, "3" site elevation; any other prints no header
  std::string pressureentered;
};

void drawgrid(const Chart& chart);     ///< axes and fine grid
void drawdbscale(const Chart& chart);  ///< dry-bulb numbers and major vertical lines
void drawhrscale(const Chart& chart);  ///< humidity-ratio numbers and major horizontal lines
void drawtitles(const Chart& chart, const HeaderTexts& header);
void drawvaporscale(const Chart& chart);  ///< vapour pressures [in Hg] on the left side, with their title

/// The header line alone, at its place for a window of this size.
void printheader(ChartCanvas& canvas, WindowSize window, const HeaderTexts& header);

/// The header line of start-up: the pressure in force as a number.
void printstartheader(ChartCanvas& canvas, WindowSize window, double atmpressure);

/// Text of the vapour pressure [in Hg] of a humidity ratio at a dry bulb; empty if there is none or it is negative.
std::string vaporlabel(double db, double hr, double atmpressure);

}  // namespace moistair
