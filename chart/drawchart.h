/// \file
/// A whole chart.
#pragma once

#include <string_view>

#include "chart/chartframe.h"

namespace moistair {

enum class ChartType {
  standard,  ///< all families of lines but enthalpy
  blank,     ///< the saturation line alone
};

/// Draws a chart for limits that have passed `validateLimits`, over whatever is on the canvas. The order sets what lies
/// over what: the fine grid under the property lines, the major lines and the numbers over them.
/// @param header the line that states the pressure
void drawChart(const Chart& chart, ChartType type, std::string_view header);

}  // namespace moistair
