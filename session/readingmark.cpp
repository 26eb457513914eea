#include "session/readingmark.h"

#include <array>
#include <string>

#include "session/reading.h"

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

struct Label {
  double x, y;  ///< top left corner
};

/// A white ground of lines that lie closer than they are wide, so that none shows between two at any scale.
void drawground(ChartCanvas& canvas, const Label& label) {
  constexpr double step = pixel * 2 / 3;
  for (double y = label.y; y < label.y + height; y += step) canvas.Line(label.x, y, label.x + width, y, ground);
}

void drawframe(ChartCanvas& canvas, const Label& label) {
  const double right = label.x + width;
  const double bottom = label.y + height;
  canvas.Line(label.x, label.y, right, label.y);
  canvas.Line(right, label.y, right, bottom);
  canvas.Line(right, bottom, label.x, bottom);
  canvas.Line(label.x, bottom, label.x, label.y);
}

/// Temperatures and relative humidity at the left, the rest at the right.
void printstate(ChartCanvas& canvas, const Label& label, const StatePoint& state) {
  constexpr std::array<std::size_t, readingrows.size()> order = {0, 1, 2, 6, 5, 3, 4, 7};
  for (std::size_t i = 0; i < order.size(); ++i) {
    const ReadingRow& row = readingrows[order[i]];
    const double x = label.x + edge + (i < lines ? 0 : column);
    canvas.MoveTo(x, label.y + edge + static_cast<double>(i % lines) * line);
    canvas.Print(std::string(row.symbol) + ' ' + fixeddecimals(state.*row.value, row.decimals));
  }
}

}  // namespace

bool pinreading(ChartCanvas& canvas, const StatePoint& shown, const PlotArea& area) {
  if (!area.limits.contain(shown.db, shown.w) || !(shown.rh <= 100)) return false;
  const double x = area.plotx(shown.db);
  const double y = area.ploty(shown.w);
  const bool left = x - leader - width >= area.left();
  const bool above = y - leader - height >= area.top();
  const Label label{left ? x - leader - width : x + leader, above ? y - leader - height : y + leader};
  canvas.Line(x, y, left ? label.x + width : label.x, above ? label.y + height : label.y);
  canvas.Line(x - arm, y, x + arm, y);
  canvas.Line(x, y - arm, x, y + arm);
  drawground(canvas, label);
  drawframe(canvas, label);
  printstate(canvas, label, shown);
  return true;
}

}  // namespace moistair
