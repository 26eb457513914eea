/// \file
/// A reading kept on the chart: a cross where it was taken, and a small label with the state.
#pragma once

#include <algorithm>
#include <array>

#include "chart/chartframe.h"
#include "engine/state.h"

namespace moistair {

/// Where a label is placed from its cross.
enum class LabelCorner { upperLeft, upperRight, lowerLeft, lowerRight };

inline constexpr std::array<LabelCorner, 4> corners = {LabelCorner::upperLeft, LabelCorner::upperRight,
                                                       LabelCorner::lowerLeft, LabelCorner::lowerRight};

/// What a label covers [twips].
struct LabelBox {
  double left, top, right, bottom;

  double covered(const LabelBox& other) const {  ///< how much of it another one covers [square twips]
    const double width = std::min(right, other.right) - std::max(left, other.left);
    const double height = std::min(bottom, other.bottom) - std::max(top, other.top);
    return std::max(width, 0.0) * std::max(height, 0.0);
  }
};

/// The label of a state, on the other side of its cross where the plot ends.
LabelBox labelBox(const StatePoint& shown, LabelCorner corner, const PlotArea& area);

/// Draws cross and label, on a white ground of its own so that the lines of the chart do not run through its texts.
/// Outside the limits it draws nothing and returns false.
/// @param shown the state as a report shows it, `readReport`
bool pinReading(ChartCanvas& canvas, const StatePoint& shown, LabelCorner corner, const PlotArea& area);

}  // namespace moistair
