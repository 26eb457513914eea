/// \file
/// Lines of constant property on the chart: the families of a standard chart and the user's own lines.
///
/// Every tracer walks along the dry bulb, takes the wet bulb or humidity ratio that keeps its property constant, and
/// draws a segment wherever the new end lies within the limits. End points are not clipped: a line begins up to one
/// step outside the frame and stops at its last point inside. Segments are drawn as the curve grows, each followed by a
/// Refresh.
///
/// A tracer returns whether it has drawn anything. The pen is then at the end of the last segment, where the label
/// of the humidity and wet-bulb lines is printed; enthalpy and volume lines print theirs at the end of the first.
/// Limits beyond what the lists offer draw nothing, so every trace ends.
#pragma once

#include <string_view>

#include "chart/chartframe.h"

namespace moistair {

/// Relative humidity [percent, 0 to 100], from left to right in steps of 1 deg F, of 0.1 near the edges.
/// @param w humidity ratio of the last point, from one line of a family to the next; 0 before the first
bool traceRhLine(const Chart& chart, double rh, double& w);
bool traceWbLine(const Chart& chart, double wb);   ///< wet bulb [deg F], from right to left up to saturation
bool traceEnthLine(const Chart& chart, double h);  ///< enthalpy [Btu/lb], along wet bulbs in tenths of a degree
bool traceVolLine(const Chart& chart, double v);   ///< specific volume [cu ft/lb, above 0 and up to 78]

/// One line of the user's own, with its label.
bool drawRhLine(const Chart& chart, double rh);
bool drawWbLine(const Chart& chart, double wb);

/// The lines that a user can add by value.
enum class LineKind { relativeHumidity, wetBulb, enthalpy, specificVolume };

/// What a line of this kind keeps of a state.
constexpr PropertyKind propertyOf(LineKind kind) {
  constexpr std::array kept = {PropertyKind::rh, PropertyKind::wb, PropertyKind::h, PropertyKind::v};
  return kept[static_cast<std::size_t>(kind)];
}

/// One of them for a value as typed; a text that is no number counts as 0.
bool drawLine(const Chart& chart, LineKind kind, std::string_view value);

/// The answer where it has drawn nothing.
inline constexpr const char* lineNotFeasible = "The line is either out of chart limits or is not feasible";

void drawRhLines(const Chart& chart);   ///< 100, 80, 60, 40, 20 and 10 percent
void drawSatLine(const Chart& chart);   ///< 100 percent alone
void drawWbLines(const Chart& chart);   ///< 10 to 120 deg F
void drawVolLines(const Chart& chart);  ///< from the largest volume on the chart down to 0.5 cu ft/lb

}  // namespace moistair
