/// \file
/// What a chart of the headless tool can have beyond the chart itself: lines, points and mixtures.
#pragma once

#include <array>
#include <string>

#include "chart/chartframe.h"
#include "cli/pressureoption.h"

namespace moistair {

/// A chart that is being drawn.
struct ChartJob {
  Chart chart;
  Pressure pressure;
};

/// One option of the chart command that may be given any number of times.
struct Addition {
  const char* option;
  const char* valuename;
  const char* description;
  /// Draws it for a value as typed, as the main window does. A failure where the window would say that it cannot.
  void (*draw)(const ChartJob& job, const std::string& value);
};

extern const std::array<Addition, 6> chartadditions;

}  // namespace moistair
