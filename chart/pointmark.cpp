#include "chart/pointmark.h"

namespace moistair {

void drawPointMark(ChartCanvas& canvas, double x, double y, int radius, std::string_view label) {
  for (int r = radius; r > 2; r -= 2) canvas.circle(x, y, r, colors::pointMark);
  canvas.print(label);
}

bool markPoint(ChartCanvas& canvas, const StatePoint& shown, const PlotArea& area, std::string_view identification) {
  if (!area.limits.contain(shown.db, shown.w) || !(shown.rh <= 100)) return false;
  drawPointMark(canvas, area.plotX(shown.db), area.plotY(shown.w), pointMarkRadius, identification);
  return true;
}

}  // namespace moistair
