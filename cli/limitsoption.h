/// \file
/// The limits of a chart: "0,120,0,0.030" for the dry bulbs [deg F] and the humidity ratios [lb/lb] that it shows.
#pragma once

#include <string>

#include "chart/chartframe.h"
#include "engine/state.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace moistair {

/// The window that a chart is drawn for if no size is given [pixels].
inline constexpr int defaultWidth = 1366;
inline constexpr int defaultHeight = 768;

struct LimitsOption {
  std::string text;
  CLI::Option* option = nullptr;
  bool sheet = false;  ///< whether they are those of a sheet, which has more
};

/// Adds --limits.
void addLimits(CLI::App& command, LimitsOption& option, const std::string& description);

/// The four limits; all that there is, from 0 to 120 and from 0 to 0.030, if none were given. Bad usage for limits that
/// no chart can be drawn with, or no sheet.
ChartLimits limitsOf(const LimitsOption& option);

/// Range finders that keep to a plot, as in the main window. They know nothing else and may be called from any thread.
RangeFinders findersOf(const PlotArea& area);

/// Range finders that know no chart, or those of the default window's chart if limits were given.
RangeFinders findersOf(const LimitsOption& option);

}  // namespace moistair
