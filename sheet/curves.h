/// \file
/// Lines of constant property traced by the property functions.
///
/// A line is a humidity ratio by the dry bulb. Its visible stretches are those within the limits and not above
/// saturation; their ends are found by halving, so that a line reaches the frame and the saturation curve exactly, and
/// between them points are set until no part is further than 0.1 pixel from the line.
#pragma once

#include <functional>
#include <vector>

#include "chart/propertylines.h"
#include "sheet/sheetdrawing.h"

namespace moistair {

/// Humidity ratio by the dry bulb [deg F]; no value where the line has none.
using LineFunction = std::function<double(double db)>;

/// The function of a line of constant property.
LineFunction lineFunction(LineKind kind, double value, double atm);

/// A line between two dry bulbs, where it has a value throughout.
std::vector<SheetPoint> traced(const SheetPlot& plot, const LineFunction& w, double fromDb, double toDb);

/// Every visible stretch of a line.
std::vector<std::vector<SheetPoint>> visibleStretches(const SheetPlot& plot, const LineFunction& w);

/// Every visible stretch of a line of constant property.
std::vector<std::vector<SheetPoint>> visibleLine(const SheetPlot& plot, LineKind kind, double value, double atm);

}  // namespace moistair
