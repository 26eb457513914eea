/// \file
/// What the tracers of property lines share.
#pragma once

#include "chart/chartframe.h"
#include "text/value.h"

namespace moistair {

/// A point of the canvas [twips]; (0, 0) before the first point of a line.
struct TracedPoint {
  double x = 0;
  double y = 0;
};

/// Tracers step through the dry bulbs of the limits, so they are kept to the range of the lists.
inline bool traceable(const PlotArea& area) { return area.limits.lowDb >= 0 && area.limits.highDb <= 120; }

/// Where a state lies; a coordinate without a value keeps that of `last`.
inline TracedPoint tracedPoint(const PlotArea& area, double db, double w, TracedPoint last) {
  assign(last.x, area.plotX(db));
  assign(last.y, area.plotY(w));
  return last;
}

/// Whether a line that runs from right to left has a segment from `last` to `here`: it ends by itself at saturation,
/// and skips the right end where it runs below a humidity ratio of 0.
inline bool isSegment(const ChartLimits& limits, double db, double w, double rh, TracedPoint last, TracedPoint here) {
  return limits.contain(db, w) && here.y != last.y && w > 0 && last.x > 0 && rh <= 100;
}

}  // namespace moistair
