/// \file
/// The lines, points and mixtures of the chart before, put on the one that stands now.
///
/// New limits or a new pressure clear the canvas. What was on it is not lost: `History::chartbefore` knows it, and here
/// it is worked out for the new chart, points and streams resolved anew from what was typed. The main window carries
/// out the result as one change.
#pragma once

#include <vector>

#include "model/document.h"

namespace moistair {

inline constexpr const char* againname = "Again on this chart";

struct Again {
  std::vector<Entry> entries;    ///< for the new chart, in the order of before
  std::vector<LeftOut> leftout;  ///< what does not resolve or lies outside
};

/// @param setting limits of the chart that stands and the pressure in force
/// @param window that points without a temperature are searched in, as the main window does
Again again(const std::vector<Entry>& before, const Setting& setting, WindowSize window);

}  // namespace moistair
