#include "chart/scales.h"

#include "support/charts.h"

namespace moistair::test {
namespace {

TEST(Header, StandsAtItsPlace) {
  const auto header = [](const char* text) {
    return recorded([&](const Chart& chart) { printHeader(chart.canvas, {10980, 7905}, text); });
  };
  EXPECT_EQ(header("Site elevation= ft"),
            std::vector<Operation>{Operation(TextOperation{183, 65.875, "Site elevation= ft"})});
  EXPECT_TRUE(header("").empty()) << "no unit";
}

TEST(Scales, LeaveAWindowWithoutAnAreaEmpty) {
  for (const WindowSize window : {WindowSize{0, 0}, WindowSize{12000, 0}, WindowSize{0, 6000}, WindowSize{-15, -15}}) {
    RecordingCanvas canvas;
    const Chart chart{canvas, plotArea(fullLimits, window), seaLevel};
    for (const auto draw : {drawGrid, drawDbScale, drawHrScale, drawVaporScale}) draw(chart);
    drawTitles(chart, "Atmos. pr=29.92126 In Hg");
    EXPECT_TRUE(canvas.drawing().operations.empty());
  }
}

TEST(Scales, LeaveOutAVaporPressureThatThereIsNot) {
  EXPECT_EQ(vaporLabel(120, 0.03, seaLevel), "1.3768");
  EXPECT_EQ(vaporLabel(120, 0.09, seaLevel), "") << "out of reach: what a wet bulb of 60 gives is negative";
}

}  // namespace
}  // namespace moistair::test
