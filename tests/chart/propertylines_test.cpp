#include "chart/propertylines.h"

#include "support/charts.h"

namespace moistair::test {
namespace {

using DrawValue = bool (*)(const Chart&, double);

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
    const auto draw = [&](const Chart& chart) { drawn = test.draw(chart, test.value); };
    EXPECT_TRUE(recorded(draw, test.limits, test.atm).empty());
    EXPECT_FALSE(drawn);
  }
}

}  // namespace
}  // namespace moistair::test
