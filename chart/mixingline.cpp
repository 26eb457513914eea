#include "chart/mixingline.h"

#include <array>

#include "chart/pointmark.h"
#include "text/value.h"

namespace moistair {

namespace {

/// A stream on its way to the chart.
struct Candidate {
  const AirStream& stream;
  const char* label;
  int radius;           ///< of the dot's largest circle [twips]
  const char* message;  ///< when it is rejected
  double x = 0, y = 0;  ///< where it goes [twips]

  double db() const { return lenientNumber(stream.db); }
  double w() const { return lenientNumber(stream.w); }
  double rh() const { return lenientNumber(stream.rh); }
};

bool accepted(const Candidate& point, const ChartLimits& limits) {
  return point.rh() > 0 && point.rh() <= 100 && limits.contain(point.db(), point.w());
}

}  // namespace

const char* drawMixingLine(ChartCanvas& canvas, const MixingProblem& problem, const PlotArea& area) {
  std::array<Candidate, 3> points = {{
      {problem.streams[0], "St1", pointMarkRadius, "The stream1 point as per input parameters is out of chart limits"},
      {problem.mixed, "Mix", 2 * pointMarkRadius,
       "The mixed stream point as per input parameters is out of chart limits"},
      {problem.streams[1], "St2", pointMarkRadius, "The stream2 point as per input parameters is out of chart limits"},
  }};
  for (Candidate& point : points) {
    if (!accepted(point, area.limits)) return point.message;
    assign(point.x, area.plotX(point.db()));
    assign(point.y, area.plotY(point.w()));
  }
  for (const Candidate& point : points) drawPointMark(canvas, point.x, point.y, point.radius, point.label);
  const auto& [one, mixed, two] = points;
  canvas.line(one.x, one.y, mixed.x, mixed.y);
  canvas.line(two.x, two.y, mixed.x, mixed.y);
  return nullptr;
}

}  // namespace moistair
