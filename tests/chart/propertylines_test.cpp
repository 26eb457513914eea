#include "chart/propertylines.h"

#include "charts.h"
#include "engine/value.h"

namespace moistair {
namespace {

using charttest::dbat;
using charttest::fulllimits;
using charttest::linesof;
using charttest::recorded;
using charttest::sealevel;
using charttest::wat;
using charttest::wordsof;

using Words = std::vector<std::string>;
using DrawValue = bool (*)(const Chart&, double);

struct LineEnds {
  double startdb, enddb, endw;
};

TEST(PropertyLines, RunWhereTheTradeExpectsThem) {
  const struct {
    const char* name;
    DrawValue draw;
    double value;
    Color color;
    LineEnds ends;  ///< end of the first segment, end of the last
    const char* label;
  } cases[] = {
      {"saturation", drawrhline, 100, colors::relativehumidity, {0.2, 88.9, 0.02995}, "Rh= 100 "},
      {"40 percent leaves at the top", drawrhline, 40, colors::relativehumidity, {0.2, 119.8, 0.0299}, "Rh= 40 "},
      {"10 percent leaves at the right", drawrhline, 10, colors::relativehumidity, {0.2, 120, 0.0073}, "Rh= 10 "},
      {"0 percent lies on the axis", drawrhline, 0, colors::relativehumidity, {0.2, 120, 0}, "Rh= 0 "},
      {"wet bulb 0", drawwbline, 0, colors::wetbulb, {2, 0, 0.00078}, "WB= 0 "},
      {"wet bulb 10", drawwbline, 10, colors::wetbulb, {15, 10, 0.00131}, "WB= 10 "},
      {"wet bulb 60", drawwbline, 60, colors::wetbulb, {109, 60, 0.01104}, "WB= 60 "},
      {"wet bulb 90", drawwbline, 90, colors::wetbulb, {118, 95, 0.0299}, "WB= 90 "},
      {"enthalpy 20 runs along one wet bulb", traceenthline, 20, colors::enthalpy, {82, 50, 0.00740}, "h= 20 "},
      {"enthalpy 60", traceenthline, 60, colors::enthalpy, {117, 111, 0.02996}, "h= 60 "},
      {"volume 15", tracevolline, 15, colors::specificvolume, {119.8, 108.2, 0.03}, "v= 15 "},
      {"volume 12", tracevolline, 12, colors::specificvolume, {16.5, 15.3, 0.00157}, "v= 12 "},
      {"a label tells the number, not the text", drawwbline, 65.50, colors::wetbulb, {118, 66, 0.01334}, "WB= 65.5 "},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    bool drawn = false;
    const Drawing drawing = recorded([&](const Chart& chart) { drawn = test.draw(chart, test.value); });
    EXPECT_TRUE(drawn);
    EXPECT_EQ(wordsof(drawing), Words{test.label});
    const auto lines = linesof(drawing, test.color);
    ASSERT_EQ(lines.size() + 1, drawing.operations.size());
    EXPECT_NEAR(dbat(lines.front().x2), test.ends.startdb, 1.01);
    EXPECT_NEAR(dbat(lines.back().x2), test.ends.enddb, 0.11);
    EXPECT_NEAR(wat(lines.back().y2), test.ends.endw, 1e-4);
  }
}

TEST(PropertyLines, DrawNothingWhereTheyCannotBeSeen) {
  constexpr ChartLimits high{0, 120, 0.02, 0.03};
  const struct {
    const char* name;
    DrawValue draw;
    double value;
    ChartLimits limits;
    double atm = sealevel;
  } cases[] = {
      {"rh above 100", drawrhline, 101, fulllimits},
      {"rh below 0", drawrhline, -1e-9, fulllimits},
      {"rh below the chart", drawrhline, 20, high},
      {"0 percent off the axis", drawrhline, 0, {0, 120, 0.01, 0.03}},
      {"wet bulb above the chart", drawwbline, 100, fulllimits},
      {"wet bulb absurd", drawwbline, 1e300, fulllimits},
      {"enthalpy absurdly low", traceenthline, -1e9, fulllimits},
      {"enthalpy absurdly high", traceenthline, 1e300, fulllimits},
      {"volume 0", tracevolline, 0, fulllimits},
      {"volume above 78", tracevolline, 79, fulllimits},
      {"volume of the next family line", tracevolline, 16, fulllimits},
      {"no pressure", drawrhline, 50, {0, 120, 0, 0.03}, 0},
      {"no pressure, volume", tracevolline, 13, fulllimits, 0},
      {"absurd pressure", traceenthline, 28, fulllimits, 1e300},
      {"limits beyond the lists", drawwbline, 60, {-1e300, 1e300, 0, 0.03}},
      {"limits without a span", drawrhline, 50, {0, 0, 0, 0}},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    bool drawn = true;
    const Drawing drawing =
        recorded([&](const Chart& chart) { drawn = test.draw(chart, test.value); }, test.limits, test.atm);
    EXPECT_FALSE(drawn);
    EXPECT_TRUE(drawing.operations.empty());
  }
}

TEST(PropertyLines, NeverStartAtTheCorner) {
  for (const ChartLimits limits : {fulllimits, ChartLimits{40, 80, 0, 0.03}, ChartLimits{110, 120, 0.01, 0.02}}) {
    const Drawing drawing = recorded(
        [](const Chart& chart) {
          drawrhlines(chart);
          drawwblines(chart);
          drawvollines(chart);
        },
        limits);
    for (const Operation& operation : drawing.operations) {
      const auto* line = std::get_if<LineOperation>(&operation);
      EXPECT_TRUE(line == nullptr || line->x1 > 0);
    }
  }
}

TEST(Families, LabelWhatTheyDraw) {
  EXPECT_EQ(wordsof(recorded(drawrhlines)), (Words{"Rh= 100 ", "Rh= 80 ", "Rh= 60 ", "Rh= 40 ", "Rh= 20 ", "Rh= 10 "}));
  EXPECT_EQ(wordsof(recorded(drawrhlines, {0, 120, 0.02, 0.03})), (Words{"Rh= 100 ", "Rh= 80 ", "Rh= 60 ", "Rh= 40 "}));
  EXPECT_EQ(wordsof(recorded(drawwblines)),
            (Words{"WB= 10 ", "WB= 20 ", "WB= 30 ", "WB= 40 ", "WB= 50 ", "WB= 60 ", "WB= 70 ", "WB= 80 ", "WB= 90 "}));
  EXPECT_EQ(wordsof(recorded(drawvollines)),
            (Words{"v= 15 ", "v= 14.5 ", "v= 14 ", "v= 13.5 ", "v= 13 ", "v= 12.5 ", "v= 12 "}));
  EXPECT_EQ(wordsof(recorded(drawsatline)), Words{"Rh= 100 "});
}

TEST(Families, OfVolumeEndForAnyPressure) {
  for (const double atm : {0.0, -1.0, 1e-300, 0.5, 5.9, 1e6, 1e300, novalue}) {
    SCOPED_TRACE(atm);
    recorded(drawvollines, fulllimits, atm);
  }
}

}  // namespace
}  // namespace moistair
