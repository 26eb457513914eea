/// \file
/// The fonts that the headless tool paints with.
///
/// Fontconfig reads every file of the system's configuration before the first letter is measured, which takes longer
/// than a chart takes to paint. The chart's own font has nearly all letters that anybody writes on a chart, so for
/// texts that need no other one the folder of that font is all that is set up. Where that folder is, the system's
/// configuration says.
#pragma once

#include <string>
#include <vector>

namespace moistair {

/// Sets up what some texts need; to be called before the toolkit starts, once in a process. Where no
/// folder that the configuration itself names has the chart's font, or that lacks a letter, all of the configuration is
/// used.
void prepareFonts(const std::vector<std::string>& texts);

}  // namespace moistair
