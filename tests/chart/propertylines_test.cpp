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
    ChartLimits limits = fullLimits;
    double atm = seaLevel;
  } cases[] = {
      {"rh above 100", drawRhLine, 101},
      {"rh below 0", drawRhLine, -1e-9},
      {"rh below the chart", drawRhLine, 20, {0, 120, 0.02, 0.03}},
      {"0 percent off the axis", drawRhLine, 0, {0, 120, 0.01, 0.03}},
      {"wet bulb above the chart", drawWbLine, 100},
      {"wet bulb absurd", drawWbLine, 1e300},
      {"enthalpy absurdly low", traceEnthLine, -1e9},
      {"enthalpy absurdly high", traceEnthLine, 1e300},
      {"volume 0", traceVolLine, 0},
      {"volume above 78", traceVolLine, 78.5, fullLimits, 5},
      {"volume of the next family line", traceVolLine, 16},
      {"no pressure", drawRhLine, 50, fullLimits, 0},
      {"absurd pressure", traceEnthLine, 28, fullLimits, 1e300},
      {"limits beyond the lists", drawWbLine, 60, {-1e300, 1e300, 0, 0.03}},
      {"limits without a span", drawRhLine, 50, {0, 0, 0, 0}},
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
