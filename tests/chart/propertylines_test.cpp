#include "chart/propertylines.h"

#include "support/charts.h"

namespace moistair::charttest {
namespace {

using DrawValue = bool (*)(const Chart&, double);

TEST(PropertyLines, RunWhereTheTradeExpectsThem) {
  const struct {
    const char* name;
    DrawValue draw;
    double value;
    Color color;
    double startdb, enddb, endw;  ///< end of the first segment, end of the last
    const char* label;
  } cases[] = {
      {"saturation", drawrhline, 100, colors::relativehumidity, 0.2, 88.9, 0.02995, "Rh= 100 "},
      {"40 percent leaves at the top", drawrhline, 40, colors::relativehumidity, 0.2, 119.8, 0.0299, "Rh= 40 "},
      {"10 percent leaves at the right", drawrhline, 10, colors::relativehumidity, 0.2, 120, 0.0073, "Rh= 10 "},
      {"0 percent lies on the axis", drawrhline, 0, colors::relativehumidity, 0.2, 120, 0, "Rh= 0 "},
      {"wet bulb 0", drawwbline, 0, colors::wetbulb, 2, 0, 0.00078, "WB= 0 "},
      {"wet bulb, label by its number", drawwbline, 65.50, colors::wetbulb, 118, 66, 0.01334, "WB= 65.5 "},
      {"wet bulb 90", drawwbline, 90, colors::wetbulb, 118, 95, 0.0299, "WB= 90 "},
      {"enthalpy 20 runs along one wet bulb", traceenthline, 20, colors::enthalpy, 82, 50, 0.00740, "h= 20 "},
      {"enthalpy 60", traceenthline, 60, colors::enthalpy, 117, 111, 0.02996, "h= 60 "},
      {"volume 15", tracevolline, 15, colors::specificvolume, 119.8, 108.2, 0.03, "v= 15 "},
      {"volume 12", tracevolline, 12, colors::specificvolume, 16.5, 15.3, 0.00157, "v= 12 "},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    bool drawn = false;
    const Drawing drawing = recorded([&](const Chart& chart) { drawn = test.draw(chart, test.value); });
    EXPECT_TRUE(drawn);
    EXPECT_EQ(wordsof(drawing), Words{test.label});
    const auto lines = linesof(drawing, test.color);
    ASSERT_EQ(lines.size() + 1, drawing.operations.size());
    EXPECT_NEAR(dbat(lines.front().x2), test.startdb, 1.01);
    EXPECT_NEAR(dbat(lines.back().x2), test.enddb, 0.11);
    EXPECT_NEAR(wat(lines.back().y2), test.endw, 1e-4);
    EXPECT_GT(lines.front().x1, 0) << "no line starts at the corner";
  }
}

TEST(PropertyLines, DrawNothingWhereTheyCannotBeSeen) {
  const struct {
    const char* name;
    DrawValue draw;
    double value;
    ChartLimits limits = fulllimits;
    double atm = sealevel;
  } cases[] = {
      {"rh above 100", drawrhline, 101},
      {"rh below 0", drawrhline, -1e-9},
      {"rh below the chart", drawrhline, 20, {0, 120, 0.02, 0.03}},
      {"0 percent off the axis", drawrhline, 0, {0, 120, 0.01, 0.03}},
      {"wet bulb above the chart", drawwbline, 100},
      {"wet bulb absurd", drawwbline, 1e300},
      {"enthalpy absurdly low", traceenthline, -1e9},
      {"enthalpy absurdly high", traceenthline, 1e300},
      {"volume 0", tracevolline, 0},
      {"volume above 78", tracevolline, 78.5, fulllimits, 5},
      {"volume of the next family line", tracevolline, 16},
      {"no pressure", drawrhline, 50, fulllimits, 0},
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

TEST(Families, LabelWhatTheyDraw) {
  const Words humidities = {"Rh= 100 ", "Rh= 80 ", "Rh= 60 ", "Rh= 40 ", "Rh= 20 ", "Rh= 10 "};
  EXPECT_EQ(wordsof(recorded(drawrhlines)), humidities);
  EXPECT_EQ(wordsof(recorded(drawrhlines, {0, 120, 0.02, 0.03})), Words(humidities.begin(), humidities.begin() + 4));
  EXPECT_EQ(wordsof(recorded(drawwblines)),
            (Words{"WB= 10 ", "WB= 20 ", "WB= 30 ", "WB= 40 ", "WB= 50 ", "WB= 60 ", "WB= 70 ", "WB= 80 ", "WB= 90 "}));
  EXPECT_EQ(wordsof(recorded(drawvollines)),
            (Words{"v= 15 ", "v= 14.5 ", "v= 14 ", "v= 13.5 ", "v= 13 ", "v= 12.5 ", "v= 12 "}));
}

}  // namespace
}  // namespace moistair::charttest
