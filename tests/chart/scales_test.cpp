#include "chart/scales.h"

#include <algorithm>

#include "charts.h"

namespace moistair {
namespace {

using charttest::fulllimits;
using charttest::linesof;
using charttest::recorded;
using charttest::sealevel;
using charttest::textsof;
using charttest::wat;
using charttest::wordsof;
using Words = std::vector<std::string>;

struct GridCount {
  std::size_t horizontal = 0, vertical = 0;
};

GridCount gridof(const ChartLimits& limits) {
  GridCount count;
  for (const LineOperation& line : linesof(recorded(drawgrid, limits), colors::finegrid)) {
    ++(line.y1 == line.y2 ? count.horizontal : count.vertical);
  }
  return count;
}

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
      {"half degrees", {0, 50, 0, 0.03}, 0.001, 0.03, 100},
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
}

TEST(Grid, LinesRunBelowSaturation) {
  const auto lines = linesof(recorded(drawgrid), colors::finegrid);
  EXPECT_EQ(gridof(fulllimits).horizontal, 30u);
  EXPECT_NEAR(charttest::dbat(lines.front().x1), 4.68, 0.01) << "the line of 0.001 starts at saturation";
  EXPECT_EQ(lines.front().x2, 11000);

  const auto finest = linesof(recorded(drawgrid, {0, 120, 0, 0.02}), colors::finegrid);
  EXPECT_EQ(finest.front().x1, 1000) << "0.0005 lies below saturation at 0 deg F: full width";

  for (const LineOperation& line : linesof(recorded(drawgrid, {0, 40, 0, 0.03}), colors::finegrid)) {
    EXPECT_TRUE(line.y1 != line.y2 || wat(line.y1) < 0.01) << "above the curve of the whole chart only below 0.01";
  }
}

TEST(Scales, NumberTheWholeChart) {
  EXPECT_EQ(wordsof(recorded(drawdbscale)), (Words{" 0 ", " 10 ", " 20 ", " 30 ", " 40 ", " 50 ", " 60 ", " 70 ",
                                                   " 80 ", " 90 ", " 100 ", " 110 ", " 120 "}));
  const Words ratios = wordsof(recorded(drawhrscale));
  EXPECT_EQ(ratios.size(), 18u);
  EXPECT_EQ(Words(ratios.begin(), ratios.begin() + 7),
            (Words{" 0 ", " .005 ", " .01 ", " .015 ", " .02 ", " .025 ", " .03 "}));
  EXPECT_EQ(wordsof(recorded(drawhrscale, {0, 120, 0.02, 0.03})).size(), 42u);
  EXPECT_EQ(wordsof(recorded(drawdbscale, {60, 70, 0, 0.03})).size(), 11u);
  EXPECT_EQ(linesof(recorded(drawdbscale), colors::majorline).size(), 12u);
}

TEST(Scales, TellTheVaporPressureOfARatio) {
  const Words words = wordsof(recorded(drawvaporscale));
  EXPECT_EQ(Words(words.begin(), words.begin() + 7),
            (Words{"0", "0.2386", "0.4735", "0.7046", "0.9322", "1.1562", "1.3768"}));
  EXPECT_EQ(Words(words.begin() + 7, words.end()), (Words{"V", "a", "p", "o", "r", "", "p", "r", "(In hg)"}));
  EXPECT_EQ(wordsof(recorded(drawvaporscale, {0, 120, 0.01, 0.02})).front(), "0.4735") << "no zero above the axis";
  EXPECT_EQ(vaporlabel(120, 0.09, sealevel), "") << "out of reach: what a wet bulb of 60 gives is negative";
}

TEST(Header, TellsThePressureAsEntered) {
  const struct {
    const char* name;
    HeaderTexts header;
    Words words;
  } cases[] = {
      {"default", {"0", "29.92126"}, {"Atmos. pr=29.92126 In Hg"}},
      {"typed in Hg", {"1", "30abc"}, {"Atmos. pr=30abc In Hg"}},
      {"pounds", {"2", "14.7"}, {"Atmos. pr=14.7 Pounds/sq inch"}},
      {"elevation", {"3", "5000"}, {"Site elevation=5000 ft"}},
      {"empty elevation", {"3", ""}, {"Site elevation= ft"}},
      {"no unit", {"-1", "5"}, {}},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    EXPECT_EQ(wordsof(recorded([&](const Chart& chart) { printheader(chart.canvas, chart.area.window, test.header); })),
              test.words);
  }
  const Drawing start = recorded([](const Chart& chart) { printstartheader(chart.canvas, {10980, 7905}, sealevel); });
  const TextOperation header = textsof(start).at(0);
  EXPECT_EQ(header.text, "Atmos. pr= 29.92126  In Hg");
  EXPECT_NEAR(header.x, 183, 0.01);
  EXPECT_NEAR(header.y, 65.875, 0.01);
}

TEST(Scales, LeaveAWindowWithoutAnAreaEmpty) {
  for (const WindowSize window : {WindowSize{0, 0}, WindowSize{12000, 0}, WindowSize{0, 6000}, WindowSize{-15, -15}}) {
    RecordingCanvas canvas;
    const Chart chart{canvas, {fulllimits, plotframe(fulllimits), window}, sealevel};
    drawgrid(chart);
    drawdbscale(chart);
    drawhrscale(chart);
    drawtitles(chart, {"0", "29.92126"});
    drawvaporscale(chart);
    EXPECT_TRUE(canvas.drawing().operations.empty());
  }
}

}  // namespace
}  // namespace moistair
