/// \file
/// The pages of a sheet about the air handler: equipment schedule, table of states, notes and the diagram.
///
/// They follow the pages of the chart. Tables go on to the next page where they have no room; the diagram is in what is
/// left below them, or on a page of its own.
#pragma once

#include <functional>
#include <vector>

#include "process/systemdiagram.h"
#include "sheet/content.h"
#include "sheet/geometry.h"
#include "sheet/options.h"
#include "sheet/sheetcanvas.h"

namespace moistair {

/// What to draw on each page, in a part of it that all have.
using PageDrawer = std::function<void(SheetCanvas& canvas)>;
std::vector<PageDrawer> systemPages(const SolvedSystem& system, const SheetOptions& options, const SheetCanvas& canvas,
                                    const Box& area);

/// The diagram in a part of a page, as large as it fits, letters at most those of the sheet. Returns the height that it
/// takes.
double drawDiagram(SheetCanvas& canvas, const SystemDiagram& diagram, const SheetOptions& options, const Box& area);

}  // namespace moistair
