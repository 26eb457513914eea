#include "chart/scales.h"

#include <algorithm>

#include "support/charts.h"

namespace moistair::charttest {
namespace {

TEST(Grid, FollowsTheSpans) {
  const struct {
    const char* name;
    ChartLimits limits;
    double firstratio, lastratio;
    std::size_t vertical;
  } cases[] = {
      {"whole chart", fulllimits, 0.001, 0.03, 119},
      {"a span of 0.01 ends one step early", {0, 120, 0, 0.01}, 0.0002, 0.0098, 119},
      {"0.03 - 0.02 falls short of 0.01", {50, 120, 0.02, 0.03}, 0.0202, 0.0298, 69},
      {"0 to 0.020", {0, 120, 0, 0.02}, 0.0005, 0.02, 119},
      {"0.03 - 0.01 falls short of 0.02", {0, 120, 0.01, 0.03}, 0.011, 0.03, 119},
      {"half degrees, low ratios below saturation", {0, 50, 0, 0.03}, 0.001, 0.01, 100},
      {"quarter degrees", {60, 80, 0, 0.03}, 0.001, 0.03, 80},
      {"eighths of a degree", {60, 70, 0, 0.03}, 0.001, 0.03, 80},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    std::vector<double> ratios;
    std::size_t vertical = 0;
    for (const LineOperation& line : linesof(recorded(drawgrid, test.limits), colors::finegrid)) {
      line.y1 == line.y2 ? ratios.push_back(wat(line.y1, test.limits)) : void(++vertical);
    }
    ASSERT_FALSE(ratios.empty());
    EXPECT_NEAR(*std::min_element(ratios.begin(), ratios.end()), test.firstratio, 1e-6);
    EXPECT_LE(*std::max_element(ratios.begin(), ratios.end()), test.lastratio + 1e-6);
    EXPECT_LE(vertical, test.vertical);
    EXPECT_TRUE(vertical == test.vertical || test.limits.lowhr > 0) << vertical;
  }
  const LineOperation first = linesof(recorded(drawgrid), colors::finegrid).front();
  EXPECT_NEAR(dbat(first.x1), 4.68, 0.01) << "the line of 0.001 starts at saturation";
  EXPECT_EQ(first.x2, 11000);
  EXPECT_EQ(linesof(recorded(drawgrid, {0, 120, 0, 0.02}), colors::finegrid).front().x1, 1000)
      << "0.0005 lies below saturation at 0 deg F: full width";
}

TEST(Scales, NumberTheChart) {
  const struct {
    const char* name;
    void (*draw)(const Chart&);
    ChartLimits limits;
    std::size_t count;
    Words words;  ///< the first of them
  } cases[] = {
      {"dry bulbs", drawdbscale, fulllimits, 13, {" 0 ", " 10 ", " 20 "}},
      {"dry bulbs, close", drawdbscale, {60, 70, 0, 0.03}, 11, {" 60 ", " 61 "}},
      {"ratios and title",
       drawhrscale,
       fulllimits,
       18,
       {" 0 ", " .005 ", " .01 ", " .015 ", " .02 ", " .025 ", " .03 "}},
      {"ratios, close", drawhrscale, {0, 120, 0.02, 0.03}, 42, {" .02 "}},
      {"vapour pressures",
       drawvaporscale,
       fulllimits,
       16,
       {"0", "0.2386", "0.4735", "0.7046", "0.9322", "1.1562", "1.3768", "V", "a", "p", "o", "r", "", "p", "r",
        "(In hg)"}},
      {"vapour pressures, no zero above the axis", drawvaporscale, {0, 120, 0.01, 0.02}, 15, {"0.4735"}},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    Words words = wordsof(recorded(test.draw, test.limits));
    EXPECT_EQ(words.size(), test.count);
    words.resize(test.words.size());
    EXPECT_EQ(words, test.words);
  }
  EXPECT_EQ(vaporlabel(120, 0.09, sealevel), "") << "out of reach: what a wet bulb of 60 gives is negative";
}

TEST(Header, StandsAtItsPlace) {
  const auto header = [](const char* text) {
    return recorded([&](const Chart& chart) { printheader(chart.canvas, {10980, 7905}, text); }).operations;
  };
  EXPECT_EQ(header("Site elevation= ft"),
            std::vector<Operation>{Operation(TextOperation{183, 65.875, "Site elevation= ft"})});
  EXPECT_TRUE(header("").empty()) << "no unit";
}

TEST(Scales, LeaveAWindowWithoutAnAreaEmpty) {
  for (const WindowSize window : {WindowSize{0, 0}, WindowSize{12000, 0}, WindowSize{0, 6000}, WindowSize{-15, -15}}) {
    RecordingCanvas canvas;
    const Chart chart{canvas, {fulllimits, plotframe(fulllimits), window}, sealevel};
    for (const auto draw : {drawgrid, drawdbscale, drawhrscale, drawvaporscale}) draw(chart);
    drawtitles(chart, "Atmos. pr=29.92126 In Hg");
    EXPECT_TRUE(canvas.drawing().operations.empty());
  }
}

}  // namespace
}  // namespace moistair::charttest
