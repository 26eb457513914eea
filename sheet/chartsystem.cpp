#include "sheet/chartsystem.h"

#include <algorithm>
#include <cmath>

#include "sheet/systemtheme.h"

namespace moistair {

namespace {

constexpr double pixel = 15;  // twips
constexpr double dotRadius = 3.5 * pixel;
constexpr Color ink{29, 36, 48};

/// A line in dashes; the drawing has lines of one width only, so that a wide one is several.
class LineDrawer {
public:
  LineDrawer(ChartCanvas& canvas, double x1, double y1, double x2, double y2, const Stroke& stroke)
      : canvas_(canvas), x_(x1), y_(y1), stroke_(stroke) {
    length_ = std::hypot(x2 - x1, y2 - y1);
    if (!(length_ > 0)) return;
    alongX_ = (x2 - x1) / length_;
    alongY_ = (y2 - y1) / length_;
    const int lines = std::max(1, static_cast<int>(std::lround(stroke.width)));
    for (int i = 0; i < lines; ++i) drawAside((i - (lines - 1) / 2.0) * pixel);
  }

  void head() const {
    constexpr double size = 9 * pixel, half = 3.5 * pixel;
    if (length_ < 2.2 * size) return;
    const double tip = length_ / 2 + size / 2;
    for (int i = 0; i <= 8; ++i) {
      const double aside = half * (i / 4.0 - 1);
      line(tip, 0, tip - size, aside);
    }
  }

private:
  void line(double from, double fromAside, double to, double toAside) const {
    const auto x = [&](double along, double aside) { return x_ + along * alongX_ - aside * alongY_; };
    const auto y = [&](double along, double aside) { return y_ + along * alongY_ + aside * alongX_; };
    canvas_.line(x(from, fromAside), y(from, fromAside), x(to, toAside), y(to, toAside), stroke_.color);
  }

  void drawAside(double aside) const {
    if (stroke_.dash == Dash::solid) return line(0, aside, length_, aside);
    const double on = (stroke_.dash == Dash::dashed ? 7 : 2) * pixel,
                 off = (stroke_.dash == Dash::dashed ? 5 : 3) * pixel;
    for (double from = 0; from < length_; from += on + off) line(from, aside, std::min(length_, from + on), aside);
  }

  ChartCanvas& canvas_;
  double x_, y_;
  const Stroke& stroke_;
  double length_ = 0, alongX_ = 0, alongY_ = 0;
};

}  // namespace

void drawSystem(ChartCanvas& canvas, const PlotArea& area, const SolvedSystem& system) {
  const ChartLimits& limits = area.limits;
  const SystemShapes shapes = shapesOf(system);
  for (const SystemLine& line : shapes.lines) {
    const auto visible = clipped(line, {limits.lowDb, limits.highDb, limits.lowHr, limits.highHr});
    if (!visible) continue;
    const Stroke stroke = strokeOf(line.look, SheetColors::color);
    const LineDrawer drawn(canvas, area.plotX(visible->from.db), area.plotY(visible->from.w),
                           area.plotX(visible->to.db), area.plotY(visible->to.w), stroke);
    if (visible->arrow) drawn.head();
  }
  const auto mark = [&](const AirState& state, const std::string& name, double radius) {
    if (!limits.contain(state.db, state.w)) return;
    const double x = area.plotX(state.db), y = area.plotY(state.w);
    canvas.circle(x, y, radius, ink);
    canvas.moveTo(x + 6 * pixel, y - 17 * pixel);
    canvas.print(name);
  };
  for (const SystemMark& adp : shapes.marks) mark(adp.at, adp.name, dotRadius * 0.7);
  for (const SystemDot& dot : shapes.dots) mark(dot.at, dot.name, dotRadius);
}

}  // namespace moistair
