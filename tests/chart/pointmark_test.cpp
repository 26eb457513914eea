#include "chart/pointmark.h"

#include "support/charts.h"

namespace moistair::test {
namespace {

TEST(MarkPoint, LimitsAreIncluded) {
  const ChartLimits narrow{40, 80, 0.01, 0.02};
  const struct {
    const char* name;
    double db, w, rh;
    ChartLimits limits;
    std::size_t operations;  ///< nineteen circles and the identification
  } rows[] = {
      {"highest corner", 120, .03, 50, fullLimits, 20},
      {"saturated", 60, .011, 100, fullLimits, 20},
      {"above saturation by rounding", 60, .011, 100.0000001, fullLimits, 0},
      {"lowest corner of a narrow chart", 40, .01, 50, narrow, 20},
      {"left of it", 39.9999999, .015, 50, narrow, 0},
      {"right of it", 80.0000001, .015, 50, narrow, 0},
      {"below it", 60, .0099999, 50, narrow, 0},
      {"above it", 60, .0200001, 50, narrow, 0},
      {"limits without a span draw no dot", 0, 0, 50, {}, 1},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    StatePoint point;
    point.db = row.db;
    point.w = row.w;
    point.rh = row.rh;
    bool marked = false;
    const auto mark = [&](const Chart& chart) { marked = markPoint(chart.canvas, point, chart.area, "A"); };
    EXPECT_EQ(recorded(mark, row.limits).size(), row.operations);
    EXPECT_EQ(marked, row.operations > 0);
  }
}

}  // namespace
}  // namespace moistair::test
