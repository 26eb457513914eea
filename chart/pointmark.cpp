#include "chart/pointmark.h"

namespace moistair {

void drawpointmark(ChartCanvas& canvas, double x, double y, int radius, std::string_view label) {
  for (int r = radius; r > 2; r -= 2) canvas.Circle(x, y, r, colors::pointmark);
  canvas.Print(label);
}

bool markpoint(ChartCanvas& canvas, const StatePoint& shown, const PlotArea& area, std::string_view identification) {
  if (!area.limits.contain(shown.db, shown.w) || !(shown.rh <= 100)) return false;
  drawpointmark(canvas, area.plotx(shown.db), area.ploty(shown.w), pointmarkradius, identification);
  return true;
}

}  // namespace moistair
