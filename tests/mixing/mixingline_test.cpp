#include "mixing/mixingline.h"

#include <gtest/gtest.h>

#include <vector>

#include "chart/drawing.h"
#include "problems.h"

namespace moistair::test {
namespace {

const std::string stream1message = "The stream1 point as per input parameters is out of chart limits";
const std::string mixedmessage = "The mixed stream point as per input parameters is out of chart limits";
const std::string stream2message = "The stream2 point as per input parameters is out of chart limits";

constexpr ChartLimits wholechart{0, 120, 0, 0.03};

PlotArea areaof(const ChartLimits& limits) { return {limits, plotframe(limits), {12000, 6000}}; }

/// A dot and its label as it must come out: circles from the largest radius down to 4, then the text at their centre.
void expectdot(const std::vector<Operation>& operations, std::size_t first, int largest, const char* label, float x,
               float y) {
  SCOPED_TRACE(label);
  std::size_t at = first;
  for (int radius = largest; radius >= 4; radius -= 2, ++at) {
    ASSERT_TRUE(std::holds_alternative<CircleOperation>(operations[at])) << at;
    const auto& circle = std::get<CircleOperation>(operations[at]);
    EXPECT_EQ(circle.radius, static_cast<float>(radius));
    EXPECT_EQ(circle.color, (Color{255, 0, 0}));
    EXPECT_NEAR(circle.x, x, 0.5F);
    EXPECT_NEAR(circle.y, y, 0.5F);
  }
  ASSERT_TRUE(std::holds_alternative<TextOperation>(operations[at]));
  const auto& centre = std::get<CircleOperation>(operations[first]);
  EXPECT_EQ(std::get<TextOperation>(operations[at]), (TextOperation{centre.x, centre.y, label}));
}

TEST(MixingLine, ReferenceCaseAsDrawn) {
  RecordingCanvas canvas;
  ASSERT_EQ(drawmixingline(canvas, referenceproblem(), areaof(wholechart)), nullptr);
  const std::vector<Operation>& operations = canvas.drawing().operations;
  ASSERT_EQ(operations.size(), 19 + 1 + 39 + 1 + 19 + 1 + 2U);
  expectdot(operations, 0, 40, "St1", 7250, 3306);
  expectdot(operations, 20, 80, "Mix", 7794, 3065);
  expectdot(operations, 60, 40, "St2", 8917, 2563);
  const auto& one = std::get<CircleOperation>(operations[0]);
  const auto& mixed = std::get<CircleOperation>(operations[20]);
  const auto& two = std::get<CircleOperation>(operations[60]);
  EXPECT_EQ(std::get<LineOperation>(operations[80]), (LineOperation{one.x, one.y, mixed.x, mixed.y, foreground}));
  EXPECT_EQ(std::get<LineOperation>(operations[81]), (LineOperation{two.x, two.y, mixed.x, mixed.y, foreground}));
}

TEST(MixingLine, FirstPointBeyondTheLimitsIsNamed) {
  const Typed one = drywet("75", "62.5", "1000");
  const Typed two = drywet("95", "75", "500");
  const Typed unfinished = drywet("75", "", "1000");
  struct Row {
    const char* name;
    Typed one, two;
    ChartLimits limits;
    const std::string* message;  ///< null when the line is drawn
  };
  const std::vector<Row> rows = {
      {"stream 2 beyond the highest dry bulb, the mixture within", one, two, {0, 90, 0, 0.03}, &stream2message},
      {"both streams beyond", one, two, {0, 70, 0, 0.03}, &stream1message},
      {"mixture beyond the highest dry bulb", one, two, {0, 80, 0, 0.03}, &mixedmessage},
      {"stream 1 below the lowest dry bulb", one, two, {80, 120, 0, 0.03}, &stream1message},
      {"stream 1 below the lowest humidity ratio", one, two, {0, 120, 0.010, 0.03}, &stream1message},
      {"mixture above the highest humidity ratio", one, two, {0, 120, 0, 0.010}, &mixedmessage},
      {"nothing typed in stream 1", unfinished, two, wholechart, &stream1message},
      {"nothing typed in stream 2: the mixture comes before it", one, unfinished, wholechart, &mixedmessage},
      {"a flow missing", one, drywet("95", "75", ""), wholechart, &mixedmessage},
      {"mixture above saturation", drywet("40", "40", "1000"), drywet("85", "85", "1000"), wholechart, &mixedmessage},
      {"a saturated stream is accepted", drywet("40", "40", "500"), drywet("95", "60", "500"), wholechart, nullptr},
      {"points on the limits are accepted", one, two, {75, 95, 0.0092932, 0.0142448}, nullptr},
      {"limits turned round hold nothing", one, two, {120, 0, 0, 0.03}, &stream1message},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    RecordingCanvas canvas;
    const char* message = drawmixingline(canvas, problemof(row.one, row.two), areaof(row.limits));
    EXPECT_EQ(canvas.drawing().operations.empty(), row.message != nullptr) << "it is all or nothing";
    ASSERT_EQ(message == nullptr, row.message == nullptr) << message;
    if (message != nullptr) {
      EXPECT_EQ(message, *row.message);
    }
  }
}

}  // namespace
}  // namespace moistair::test
