#include "chart/readingmark.h"

#include <array>
#include <string>

#include "chart/reading.h"

namespace moistair {

namespace {

constexpr double pixel = twipsperpixel;
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
void drawground(ChartCanvas& canvas, const LabelBox& label) {
  constexpr double step = pixel * 2 / 3;
  for (double y = label.top; y < label.bottom; y += step) canvas.Line(label.left, y, label.right, y, ground);
}

void drawframe(ChartCanvas& canvas, const LabelBox& label) {
  canvas.Line(label.left, label.top, label.right, label.top);
  canvas.Line(label.right, label.top, label.right, label.bottom);
  canvas.Line(label.right, label.bottom, label.left, label.bottom);
  canvas.Line(label.left, label.bottom, label.left, label.top);
}

/// Temperatures and relative humidity at the left, the rest at the right.
void printstate(ChartCanvas& canvas, const LabelBox& label, const StatePoint& state) {
  using enum PropertyKind;
  constexpr std::array order = {db, wb, rh, dp, w, h, v, pv};
  for (std::size_t i = 0; i < order.size(); ++i) {
    const Property& property = propertyOf(order[i]);
    const double x = label.left + edge + (i < lines ? 0 : column);
    canvas.MoveTo(x, label.top + edge + static_cast<double>(i % lines) * line);
    canvas.Print(std::string(property.symbol) + ' ' + fixeddecimals(state.at(order[i]), property.decimals));
  }
}

}  // namespace

LabelBox labelbox(const StatePoint& shown, Corner corner, const PlotArea& area) {
  const double x = area.plotx(shown.db);
  const double y = area.ploty(shown.w);
  const bool wantsleft = corner == Corner::upperleft || corner == Corner::lowerleft;
  const bool wantsabove = corner == Corner::upperleft || corner == Corner::upperright;
  const bool left = wantsleft ? x - leader - width >= area.left() : x + leader + width > area.window.width;
  const bool above = wantsabove ? y - leader - height >= area.top() : y + leader + height > area.window.height;
  const double labelx = left ? x - leader - width : x + leader;
  const double labely = above ? y - leader - height : y + leader;
  return {labelx, labely, labelx + width, labely + height};
}

bool pinreading(ChartCanvas& canvas, const StatePoint& shown, Corner corner, const PlotArea& area) {
  if (!area.limits.contain(shown.db, shown.w) || !(shown.rh <= 100)) return false;
  const double x = area.plotx(shown.db);
  const double y = area.ploty(shown.w);
  const LabelBox label = labelbox(shown, corner, area);
  canvas.Line(x, y, label.right < x ? label.right : label.left, label.bottom < y ? label.bottom : label.top);
  canvas.Line(x - arm, y, x + arm, y);
  canvas.Line(x, y - arm, x, y + arm);
  drawground(canvas, label);
  drawframe(canvas, label);
  printstate(canvas, label, shown);
  return true;
}

}  // namespace moistair
