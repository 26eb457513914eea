#include "session/pointmark.h"

#include <gtest/gtest.h>

#include "chart/drawing.h"

using namespace moistair;

namespace {

const LimitTexts fullchart{"0", "120", "0", "0.030"};
constexpr WindowSize window{12000, 6000};

StatePoint stateof(double db, double w, double rh) {
  StatePoint point;
  point.db = db;
  point.w = w;
  point.rh = rh;
  return point;
}

}  // namespace

TEST(MarkPoint, NineteenCirclesAndTheIdentificationAtTheirCentre) {
  RecordingCanvas canvas;
  ASSERT_TRUE(markpoint(canvas, stateof(60, .015, 50), fullchart, window, "A"));
  const std::vector<Operation>& operations = canvas.drawing().operations;
  ASSERT_EQ(operations.size(), 20U);
  for (std::size_t i = 0; i < 19; ++i) {
    const auto radius = 40 - 2 * static_cast<float>(i);
    EXPECT_EQ(operations[i], Operation(CircleOperation{6000, 2450, radius, {255, 0, 0}})) << radius;
  }
  EXPECT_EQ(operations[19], Operation(TextOperation{6000, 2450, "A"}));
}

TEST(MarkPoint, LimitsAreIncluded) {
  const LimitTexts narrow{"40", "80", "0.010", "0.020"};
  const struct {
    const char* name;
    StatePoint point;
    LimitTexts limits;
    bool marked;
  } rows[] = {
      {"largest dry bulb", stateof(120, .02, 50), fullchart, true},
      {"largest humidity ratio", stateof(100, .03, 50), fullchart, true},
      {"saturated", stateof(60, .011, 100), fullchart, true},
      {"above saturation by rounding", stateof(60, .011, 100.0000001), fullchart, false},
      {"corner of a narrow chart", stateof(40, .01, 50), narrow, true},
      {"left of it", stateof(39.9999999, .015, 50), narrow, false},
      {"right of it", stateof(80.0000001, .015, 50), narrow, false},
      {"below it", stateof(60, .0099999, 50), narrow, false},
      {"above it", stateof(60, .0200001, 50), narrow, false},
      {"limits typed with a point", stateof(60, .015, 50), {"0.0", "120.0", "0", ".03"}, true},
      {"a limit that is no number is 0", stateof(60, .015, 50), {"0", "abc", "0", "0.030"}, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    RecordingCanvas canvas;
    EXPECT_EQ(markpoint(canvas, row.point, row.limits, window, ""), row.marked);
    EXPECT_EQ(canvas.drawing().operations.size(), row.marked ? 20U : 0U) << "an empty identification is printed too";
  }
}

TEST(MarkPoint, LimitsWithoutASpanDrawNoDot) {
  RecordingCanvas canvas;
  markpoint(canvas, stateof(0, 0, 50), {"", "", "", ""}, window, "A");
  for (const Operation& operation : canvas.drawing().operations) {
    EXPECT_FALSE(std::holds_alternative<CircleOperation>(operation));
  }
}
