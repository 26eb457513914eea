/// \file
/// The part of a plot where there is air: within the limits and not above saturation.
#pragma once

#include <vector>

#include "sheet/sheetdrawing.h"

namespace moistair {

/// Its upper left side in three parts, from the bottom upward and to the right; a part that it does not have is empty.
struct Boundary {
  std::vector<SheetPoint> left, saturation, top;
  double lowDb = 0;   ///< dry bulb at which it begins [deg F]
  double highHr = 0;  ///< highest humidity ratio in it [lb/lb]
  bool empty = true;  ///< whether it has no air at all

  /// Once around, closed.
  std::vector<SheetPoint> outline(const SheetPlot& plot) const;
};

Boundary boundaryOf(const SheetPlot& plot);

/// Dry bulb at which saturated air has a humidity ratio, within the limits [deg F].
double saturationDb(const SheetPlot& plot, double w);

/// Highest humidity ratio at a dry bulb that lies within the limits and not above saturation.
double topRatio(const SheetPlot& plot, double db);

}  // namespace moistair
