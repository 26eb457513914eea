#include "mixing/mixingline.h"

#include "chart/drawing.h"
#include "support/problems.h"

namespace moistair::test {
namespace {

constexpr const char* stream1 = "The stream1 point as per input parameters is out of chart limits";
constexpr const char* mixed = "The mixed stream point as per input parameters is out of chart limits";
constexpr const char* stream2 = "The stream2 point as per input parameters is out of chart limits";

constexpr ChartLimits wholechart{0, 120, 0, 0.03};

PlotArea areaof(const ChartLimits& limits) { return {limits, plotframe(limits), {12000, 6000}}; }

TEST(MixingLine, ReferenceCaseAsDrawn) {
  RecordingCanvas canvas;
  ASSERT_EQ(drawmixingline(canvas, problemof(one, two), areaof(wholechart)), nullptr);
  const std::vector<Operation>& operations = canvas.drawing().operations;
  ASSERT_EQ(operations.size(), 19 + 1 + 39 + 1 + 19 + 1 + 2U);
  const struct {
    const char* name;
    std::size_t first;
    float largest, x, y;
  } dots[] = {{"St1", 0, 40, 7250, 3306}, {"Mix", 20, 80, 7794, 3065}, {"St2", 60, 40, 8917, 2563}};
  for (const auto& dot : dots) {
    SCOPED_TRACE(dot.name);
    const auto centre = std::get<CircleOperation>(operations[dot.first]);
    EXPECT_NEAR(centre.x, dot.x, 0.5F);
    EXPECT_NEAR(centre.y, dot.y, 0.5F);
    std::size_t at = dot.first;
    for (float radius = dot.largest; radius >= 4; radius -= 2, ++at) {
      EXPECT_EQ(operations[at], Operation(CircleOperation{centre.x, centre.y, radius, {255, 0, 0}})) << radius;
    }
    EXPECT_EQ(operations[at], Operation(TextOperation{centre.x, centre.y, dot.name}));
  }
  const auto& mix = std::get<CircleOperation>(operations[20]);
  for (const std::size_t stream : {0U, 1U}) {
    const auto& from = std::get<CircleOperation>(operations[stream * 60]);
    EXPECT_EQ(operations[80 + stream], Operation(LineOperation{from.x, from.y, mix.x, mix.y, foreground}));
  }
}

TEST(MixingLine, FirstPointBeyondTheLimitsIsNamed) {
  const Typed unfinished = drywet("75", "", "1000");
  const struct {
    const char* name;
    Typed first, second;
    ChartLimits limits;
    const char* message;  ///< null when the line is drawn
  } rows[] = {
      {"stream 2 beyond the highest dry bulb, the mixture within", one, two, {0, 90, 0, 0.03}, stream2},
      {"both streams beyond", one, two, {0, 70, 0, 0.03}, stream1},
      {"mixture beyond the highest dry bulb", one, two, {0, 80, 0, 0.03}, mixed},
      {"stream 1 below the lowest dry bulb", one, two, {80, 120, 0, 0.03}, stream1},
      {"stream 1 below the lowest humidity ratio", one, two, {0, 120, 0.010, 0.03}, stream1},
      {"mixture above the highest humidity ratio", one, two, {0, 120, 0, 0.010}, mixed},
      {"nothing typed in stream 1", unfinished, two, wholechart, stream1},
      {"nothing typed in stream 2: the mixture comes before it", one, unfinished, wholechart, mixed},
      {"mixture above saturation", drywet("40", "40", "1000"), drywet("85", "85", "1000"), wholechart, mixed},
      {"a saturated stream is accepted", drywet("40", "40", "500"), drywet("95", "60", "500"), wholechart, nullptr},
      {"points on the limits are accepted", one, two, {75, 95, 0.0092932, 0.0142448}, nullptr},
      {"limits turned round hold nothing", one, two, {120, 0, 0, 0.03}, stream1},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    RecordingCanvas canvas;
    EXPECT_STREQ(drawmixingline(canvas, problemof(row.first, row.second), areaof(row.limits)), row.message);
    EXPECT_EQ(canvas.drawing().operations.empty(), row.message != nullptr) << "it is all or nothing";
  }
}

}  // namespace
}  // namespace moistair::test
