/// \file
/// What a chart of the headless tool can have beyond the chart itself: lines, points and mixtures.
#pragma once

#include <array>
#include <string>

#include "chart/chartframe.h"
#include "cli/warning.h"
#include "model/document.h"

namespace moistair {

/// One option of the chart command that may be given any number of times.
struct EntryOption {
  const char* option;
  const char* valueName;
  const char* description;
  /// The entry for a value as typed. Bad usage for a value that makes no sense, a failure for a point or a mixture that
  /// is none.
  Entry (*make)(const Setting& setting, WindowSize window, const std::string& value, const ExactOptions& exact);
  const char* outside;  ///< the failure of an entry that draws nothing; null for that of the window
};

extern const std::array<EntryOption, 6> entryOptions;

}  // namespace moistair
