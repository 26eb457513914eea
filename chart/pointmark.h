/// \file
/// Putting a located point on the chart.
///
/// What is marked is what the report shows: the state is read back from its texts. The main window calls `markPoint`
/// when the user leaves the report that way, with the limits of the lists, whatever chart was drawn last; the mixing
/// line sets its three points with `drawPointMark`.
#pragma once

#include <string_view>

#include "chart/chartframe.h"
#include "engine/state.h"

namespace moistair {

/// Largest radius of a point's mark [twips].
inline constexpr int pointMarkRadius = 40;

/// The message where `markPoint` returns false.
inline constexpr const char* pointOutOfLimits = "The point as per input parameters is out of chart limits";

/// A filled red dot, of circles whose radii go down to 4 in steps of 2, with the label beginning at its center.
/// @param x, y center [twips]
/// @param radius largest radius [twips]
void drawPointMark(ChartCanvas& canvas, double x, double y, int radius, std::string_view label);

/// Marks a point if dry bulb and humidity ratio lie within the limits, limits included, and the relative humidity does
/// not exceed 100; else draws nothing and returns false. An empty identification draws the dot and an empty text.
/// @param shown the state of the report, `readReport`
bool markPoint(ChartCanvas& canvas, const StatePoint& shown, const PlotArea& area, std::string_view identification);

}  // namespace moistair
