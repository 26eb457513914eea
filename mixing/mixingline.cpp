#include "mixing/mixingline.h"

#include <array>

#include "engine/value.h"

namespace moistair {

namespace {

/// A stream on its way to the chart.
struct Candidate {
  const AirStream& stream;
  const char* label;
  int radius;           ///< of the dot's largest circle [twips]
  const char* message;  ///< when it is rejected
  double x = 0, y = 0;  ///< where it goes [twips]

  double db() const { return lenientnumber(stream.db); }
  double w() const { return lenientnumber(stream.w); }
  double rh() const { return lenientnumber(stream.rh); }
};

/// A point on a limit, or at saturation, is accepted.
bool accepted(const Candidate& point, const ChartLimits& limits) {
  return point.rh() > 0 && point.rh() <= 100 && point.w() >= limits.lowhr && point.w() <= limits.highhr &&
         point.db() >= limits.lowdb && point.db() <= limits.highdb;
}

/// A dot of concentric circles. The label begins at its centre, where the last circle has left the pen.
void mark(const Candidate& point, ChartCanvas& canvas) {
  for (int radius = point.radius; radius > 2; radius -= 2) {
    canvas.Circle(point.x, point.y, radius, colors::pointmark);
  }
  canvas.Print(point.label);
}

}  // namespace

const char* drawmixingline(const MixingProblem& problem, const PlotArea& area, ChartCanvas& canvas) {
  std::array<Candidate, 3> points = {{
      {problem.streams[0], "St1", 40, "The stream1 point as per input parameters is out of chart limits"},
      {problem.mixed, "Mix", 80, "The mixed stream point as per input parameters is out of chart limits"},
      {problem.streams[1], "St2", 40, "The stream2 point as per input parameters is out of chart limits"},
  }};
  for (Candidate& point : points) {
    if (!accepted(point, area.limits)) return point.message;
    assign(point.x, area.plotx(point.db()));
    assign(point.y, area.ploty(point.w()));
  }
  for (const Candidate& point : points) mark(point, canvas);
  const auto& [one, mixed, two] = points;
  canvas.Line(one.x, one.y, mixed.x, mixed.y);
  canvas.Line(two.x, two.y, mixed.x, mixed.y);
  return nullptr;
}

}  // namespace moistair
