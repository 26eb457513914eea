/// \file
/// The lines, points and mixtures of the previous chart, put on the current one.
///
/// New limits or a new pressure clear the canvas. What was on it stays in the document (`Document::previous`), and here
/// it is worked out for the new chart, points and streams resolved again from what was typed. The main window carries
/// out the result as one change.
#pragma once

#include <vector>

#include "model/document.h"
#include "text/error.h"

namespace moistair {

inline constexpr const char* carryOverName = "Again on this chart";

struct CarriedOver {
  std::vector<Entry> entries;    ///< for the new chart, in their order
  std::vector<LeftOut> leftOut;  ///< what does not resolve or lies outside, as it was, with the reason
};

/// What was typed of an entry, worked out for a setting and drawn with it. The error has the message of the command
/// that refuses it.
/// @param window that points without a temperature are searched in, as the main window does
Result<Entry> workedOut(const Setting& setting, Content content, WindowSize window);

/// @param setting limits of the current chart and the current pressure
/// @param hasAirHandler whether the current chart has an air handler, of which there is one only
CarriedOver carryOver(const std::vector<LeftOut>& previous, const Setting& setting, WindowSize window,
                      bool hasAirHandler = false);

}  // namespace moistair
