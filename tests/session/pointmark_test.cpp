#include "session/pointmark.h"

#include <gtest/gtest.h>

#include "chart/drawing.h"

using namespace moistair;

namespace {

constexpr ChartLimits fullchart{0, 120, 0, 0.03};

/// What marking a point of this dry bulb, humidity ratio and relative humidity draws.
std::vector<Operation> marked(double db, double w, double rh, const ChartLimits& limits, bool accepted) {
  StatePoint point;
  point.db = db;
  point.w = w;
  point.rh = rh;
  RecordingCanvas canvas;
  EXPECT_EQ(markpoint(canvas, point, plotarea(limits, {12000, 6000}), "A"), accepted);
  return canvas.drawing().operations;
}

}  // namespace

TEST(MarkPoint, NineteenCirclesAndTheIdentificationAtTheirCentre) {
  const std::vector<Operation> operations = marked(60, .015, 50, fullchart, true);
  ASSERT_EQ(operations.size(), 20U);
  for (std::size_t i = 0; i < 19; ++i) {
    const auto radius = 40 - 2 * static_cast<float>(i);
    EXPECT_EQ(operations[i], Operation(CircleOperation{6000, 2450, radius, {255, 0, 0}})) << radius;
  }
  EXPECT_EQ(operations[19], Operation(TextOperation{6000, 2450, "A"}));
}

TEST(MarkPoint, LimitsAreIncluded) {
  const ChartLimits narrow{40, 80, 0.01, 0.02};
  const struct {
    const char* name;
    double db, w, rh;
    ChartLimits limits;
    bool accepted;
  } rows[] = {
      {"highest corner", 120, .03, 50, fullchart, true},
      {"saturated", 60, .011, 100, fullchart, true},
      {"above saturation by rounding", 60, .011, 100.0000001, fullchart, false},
      {"lowest corner of a narrow chart", 40, .01, 50, narrow, true},
      {"left of it", 39.9999999, .015, 50, narrow, false},
      {"right of it", 80.0000001, .015, 50, narrow, false},
      {"below it", 60, .0099999, 50, narrow, false},
      {"above it", 60, .0200001, 50, narrow, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(marked(row.db, row.w, row.rh, row.limits, row.accepted).size(), row.accepted ? 20U : 0U);
  }
}

TEST(MarkPoint, LimitsWithoutASpanDrawNoDot) {
  for (const Operation& operation : marked(0, 0, 50, {}, true)) {
    EXPECT_FALSE(std::holds_alternative<CircleOperation>(operation));
  }
}
