// An air handler on the chart: arrows, dots and names.
#include <algorithm>
#include <array>

#include "sheet/parts.h"
#include "sheet/systemtheme.h"

namespace moistair {

namespace {

constexpr double dotRadius = 0.36;  // em
constexpr double adpRadius = 0.27;
constexpr double headLength = 1.0;
constexpr double headWidth = 0.7;

struct Look {
  double width;
  Dash dash;
  Color color, gray, dark;
};

// mixing, sensible, coil, moisture, recovery, room, construction
constexpr std::array<Look, shapeLookCount> looks = {{
    {1.5, Dash::solid, {0x6b, 0x3f, 0xa0}, {0x44, 0x44, 0x44}, {0xb9, 0x9a, 0xe6}},
    {2.2, Dash::solid, {0xd2, 0x5a, 0x00}, {0x22, 0x22, 0x22}, {0xff, 0xa2, 0x5c}},
    {3.0, Dash::solid, {0x00, 0x5f, 0xb8}, {0x00, 0x00, 0x00}, {0x6a, 0xb7, 0xff}},
    {2.2, Dash::dotted, {0x00, 0x7d, 0x74}, {0x22, 0x22, 0x22}, {0x4f, 0xd0, 0xc4}},
    {2.0, Dash::dashed, {0x85, 0x66, 0x00}, {0x33, 0x33, 0x33}, {0xd9, 0xb9, 0x4a}},
    {3.0, Dash::dashed, {0xb0, 0x1e, 0x63}, {0x00, 0x00, 0x00}, {0xff, 0x7f, 0xbf}},
    {1.1, Dash::dashed, {0x5a, 0x64, 0x72}, {0x66, 0x66, 0x66}, {0xa3, 0xad, 0xba}},
}};

class SystemDrawer {
public:
  SystemDrawer(SheetWork& work, const SolvedSystem& system)
      : work_(work), shapes_(shapesOf(system)), limits_(work.plot.limits) {}

  void draw() {
    for (const SystemLine& line : shapes_.lines) drawLine(line);
    work_.canvas.begin(SheetPart::points);
    for (const SystemMark& mark : shapes_.marks) drawMark(mark);
    for (const SystemDot& dot : shapes_.dots) drawDot(dot);
  }

private:
  SheetPoint at(const AirState& state) const { return work_.plot.at(state.db, state.w); }
  bool isOnPlot(const AirState& state) const { return limits_.contain(state.db, state.w); }

  void drawLine(const SystemLine& line) {
    const auto visible = clipped(line, {limits_.lowDb, limits_.highDb, limits_.lowHr, limits_.highHr});
    if (!visible) return;
    Stroke stroke = strokeOf(line.look, work_.options.colors);
    const std::vector<SheetPoint> ends{at(visible->from), at(visible->to)};
    work_.canvas.begin(SheetPart::processes);
    work_.canvas.polyline(ends, stroke.width * work_.em() / 10, stroke.color, stroke.dash);
    work_.board.keepClear(ends);
    if (visible->arrow) drawHead(ends[0], ends[1], stroke.color);
  }

  /// The head is in the middle, where no dot hides it; a short line has none.
  void drawHead(SheetPoint from, SheetPoint to, Color color) {
    const double size = headLength * work_.em();
    if (distance(from, to) < 2.2 * size) return;
    const SheetPoint along = unit(to - from);
    const SheetPoint across{-along.y, along.x};
    const SheetPoint tip = from + (to - from) * 0.5 + along * (size / 2);
    const SheetPoint back = tip - along * size;
    const double half = headWidth / 2 * work_.em();
    work_.canvas.area({tip, back + across * half, back - across * half}, color);
    work_.board.fix(boxOf(tip - SheetPoint{half, half}, tip + SheetPoint{half, half}));
  }

  std::vector<SheetPoint> rimOf(SheetPoint middle, double radius) const {
    constexpr int corners = 20;
    std::vector<SheetPoint> rim;
    for (int i = 0; i <= corners; ++i) rim.push_back(middle + direction(360.0 * i / corners) * radius);
    return rim;
  }

  void put(SheetPoint middle, double radius, const std::string& name, double worth) {
    work_.board.fix(boxOf(middle - SheetPoint{radius, radius}, middle + SheetPoint{radius, radius}));
    const std::string text = fitted(work_.canvas, name, work_.theme.bold(work_.em()), 16 * work_.em());
    labelMark(work_, middle, radius, {{text, 0}}, worth);
  }

  void drawDot(const SystemDot& dot) {
    if (!isOnPlot(dot.at)) return;
    const double radius = dotRadius * work_.em();
    work_.canvas.area(rimOf(at(dot.at), radius), work_.theme.ink);
    work_.canvas.polyline(rimOf(at(dot.at), radius), 0.8, work_.theme.paper);
    put(at(dot.at), radius, dot.name, importance::point - 1);
  }

  void drawMark(const SystemMark& mark) {
    if (!isOnPlot(mark.at)) return;
    const double radius = adpRadius * work_.em();
    const Stroke stroke = strokeOf(ShapeLook::construction, work_.options.colors);
    work_.canvas.area(rimOf(at(mark.at), radius), work_.theme.paper);
    work_.canvas.polyline(rimOf(at(mark.at), radius), 1.2, stroke.color);
    put(at(mark.at), radius, mark.name, importance::share);
  }

  SheetWork& work_;
  SystemShapes shapes_;
  const ChartLimits& limits_;
};

}  // namespace

Stroke strokeOf(ShapeLook look, SheetColors colors) {
  const Look& row = looks[static_cast<std::size_t>(look)];
  const Color color = colors == SheetColors::color ? row.color : colors == SheetColors::gray ? row.gray : row.dark;
  return {row.width, color, row.dash};
}

void drawSystem(SheetWork& work, const SolvedSystem& system) { SystemDrawer(work, system).draw(); }

}  // namespace moistair
