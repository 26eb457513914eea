/// \file
/// A whole sheet.
#pragma once

#include "sheet/content.h"
#include "sheet/options.h"
#include "sheet/sheetdrawing.h"

namespace moistair {

/// Lays a content out on pages: the chart with its scales, the table of states under it and the title block; what of
/// the table does not fit is on further pages. No two texts overlap, and no label crosses the frame.
SheetDrawing layoutSheet(const SheetContent& content, const SheetOptions& options, const ExtentFunction& extent);

}  // namespace moistair
