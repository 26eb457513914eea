#include "chart/readingmark.h"

#include <array>
#include <string>

#include "chart/reading.h"

namespace moistair {

namespace {

constexpr double pixel = twipsPerPixel;
constexpr double arm = 5 * pixel;      // of the cross
constexpr double leader = 14 * pixel;  // from the cross to the label, across and up
constexpr double edge = 4 * pixel;     // of the label, about its texts
constexpr double column = 70 * pixel;  // of texts
constexpr double line = 14 * pixel;
constexpr std::size_t lines = 4;
constexpr double width = 2 * column + 2 * edge;
constexpr double height = lines * line + 2 * edge;
constexpr Color ground{255, 255, 255};

/// A white ground of lines that lie closer than they are wide, so that none shows between two at any scale.
void drawGround(ChartCanvas& canvas, const LabelBox& label) {
  constexpr double step = pixel * 2 / 3;
  for (double y = label.top; y < label.bottom; y += step) canvas.line(label.left, y, label.right, y, ground);
}

void drawFrame(ChartCanvas& canvas, const LabelBox& label) {
  canvas.line(label.left, label.top, label.right, label.top);
  canvas.line(label.right, label.top, label.right, label.bottom);
  canvas.line(label.right, label.bottom, label.left, label.bottom);
  canvas.line(label.left, label.bottom, label.left, label.top);
}

/// Temperatures and relative humidity at the left, the rest at the right.
void printState(ChartCanvas& canvas, const LabelBox& label, const StatePoint& state) {
  using enum PropertyKind;
  constexpr std::array order = {db, wb, rh, dp, w, h, v, pv};
  for (std::size_t i = 0; i < order.size(); ++i) {
    const Property& property = propertyOf(order[i]);
    const double x = label.left + edge + (i < lines ? 0 : column);
    canvas.moveTo(x, label.top + edge + static_cast<double>(i % lines) * line);
    canvas.print(std::string(property.symbol) + ' ' + fixedDecimals(state.at(order[i]), property.decimals));
  }
}

}  // namespace

LabelBox labelBox(const StatePoint& shown, LabelCorner corner, const PlotArea& area) {
  const double x = area.plotX(shown.db);
  const double y = area.plotY(shown.w);
  const bool wantsLeft = corner == LabelCorner::upperLeft || corner == LabelCorner::lowerLeft;
  const bool wantsAbove = corner == LabelCorner::upperLeft || corner == LabelCorner::upperRight;
  const bool left = wantsLeft ? x - leader - width >= area.left() : x + leader + width > area.window.width;
  const bool above = wantsAbove ? y - leader - height >= area.top() : y + leader + height > area.window.height;
  const double labelX = left ? x - leader - width : x + leader;
  const double labelY = above ? y - leader - height : y + leader;
  return {labelX, labelY, labelX + width, labelY + height};
}

bool pinReading(ChartCanvas& canvas, const StatePoint& shown, LabelCorner corner, const PlotArea& area) {
  if (!area.limits.contain(shown.db, shown.w) || !(shown.rh <= 100)) return false;
  const double x = area.plotX(shown.db);
  const double y = area.plotY(shown.w);
  const LabelBox label = labelBox(shown, corner, area);
  canvas.line(x, y, label.right < x ? label.right : label.left, label.bottom < y ? label.bottom : label.top);
  canvas.line(x - arm, y, x + arm, y);
  canvas.line(x, y - arm, x, y + arm);
  drawGround(canvas, label);
  drawFrame(canvas, label);
  printState(canvas, label, shown);
  return true;
}

}  // namespace moistair
