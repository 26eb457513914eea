#include "chart/chartframe.h"

#include "support/charts.h"

namespace moistair::test {
namespace {

TEST(Range, AreTestedOneByOne) {
  constexpr const char* lowDb = "Choose Lower Dry bulb temperature for chart only from the drop down menu";
  constexpr const char* highDb = "Choose Higher Dry bulb temperature for chart only from the drop down menu";
  constexpr const char* lowHr = "Choose Lower humidity ratio for chart only from the drop down menu";
  constexpr const char* highHr = "Choose Higher humidity ratio for chart only from the drop down menu";
  constexpr const char* dbOrder =
      "Higher limit of dry bulb temperature must be greater than lower limit of dry bulb temperature";
  constexpr const char* hrOrder = "Higher limit of humidity ratio must be greater than lower limit of humidity ratio";
  constexpr ChartLimits before{10, 80, 0, 0.03};
  const struct {
    const char* name;
    LimitTexts texts;
    const char* message;
    ChartLimits limits;
  } cases[] = {
      {"start values", {"0", "120", "0", "0.030"}, nullptr, {0, 120, 0, 0.03}},
      {"typed with a decimal", {"20.0", "1.2e2", " 0.0100 ", ".03"}, nullptr, {20, 120, 0.01, 0.03}},
      {"no numbers keep the last", {"", "1e999", "0x1", "0.030 F"}, nullptr, before},
      {"between two items, the rest is not read", {"15", "100", "0.010", "0.020"}, lowDb, {15, 80, 0, 0.03}},
      {"beyond the list", {"0", "130", "0", "0.030"}, highDb, {0, 130, 0, 0.03}},
      {"ratio between two items", {"0", "120", "0.015", "0.030"}, lowHr, {0, 120, 0.015, 0.03}},
      {"higher ratio beyond the list", {"0", "120", "0", "0.04"}, highHr, {0, 120, 0, 0.04}},
      {"equal dry bulbs", {"50", "50", "0", "0.030"}, dbOrder, {50, 50, 0, 0.03}},
      {"crossed ratios", {"0", "120", "0.020", "0.010"}, hrOrder, {0, 120, 0.02, 0.01}},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    ChartLimits limits = before;
    EXPECT_STREQ(validateLimits(test.texts, limits), test.message);
    EXPECT_EQ(limits, test.limits);
  }
}

TEST(Range, CountAsDrawnOnlyForTheChartOnTheCanvas) {
  DrawnLimits drawn;
  EXPECT_FALSE(checkDrawn(fullLimits, drawn)) << "nothing drawn yet";
  rememberLimits({10, 90, 0.01, 0.03}, drawn);
  EXPECT_TRUE(checkDrawn({10, 90, 0.01, 0.03}, drawn));
  EXPECT_FALSE(checkDrawn({10, 90, 0.01, 0.02}, drawn));
  forgetLimits(drawn);
  EXPECT_FALSE(checkDrawn({10, 90, 0.01, 0.03}, drawn)) << "cleared";
}

}  // namespace
}  // namespace moistair::test
