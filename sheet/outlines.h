/// \file
/// Where on a sheet an entry of the document is.
#pragma once

#include <vector>

#include "sheet/content.h"
#include "sheet/sheetdrawing.h"

namespace moistair {

/// What an entry runs along: its line, the rims of its marks. Nothing for what is not on the plot, and for a chart.
std::vector<std::vector<SheetPoint>> outlinesOf(const SheetContent& content, const SheetPlot& plot, std::size_t entry);

}  // namespace moistair
