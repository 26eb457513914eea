#include "session/pointmark.h"

namespace moistair {

void drawpointmark(ChartCanvas& canvas, double x, double y, int radius, std::string_view label) {
  for (int r = radius; r > 2; r -= 2) canvas.Circle(x, y, r, colors::pointmark);
  canvas.Print(label);
}

bool markpoint(ChartCanvas& canvas, const StatePoint& shown, const LimitTexts& limits, const WindowSize& window,
               std::string_view identification) {
  PlotArea area;
  readlimits(limits, area.limits);
  area.frame = plotframe(area.limits);
  area.window = window;
  const bool inside = shown.w >= area.limits.lowhr && shown.w <= area.limits.highhr && shown.db >= area.limits.lowdb &&
                      shown.db <= area.limits.highdb && shown.rh <= 100;
  if (!inside) return false;
  drawpointmark(canvas, area.plotx(shown.db), area.ploty(shown.w), pointmarkradius, identification);
  return true;
}

}  // namespace moistair
