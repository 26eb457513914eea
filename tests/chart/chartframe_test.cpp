#include "chart/chartframe.h"

#include "charts.h"
#include "engine/value.h"

namespace moistair {
namespace {

TEST(PlotArea, PlacesStatesInTheWindow) {
  const PlotArea area = charttest::areaof(charttest::fulllimits);
  EXPECT_EQ(area.left(), 1000);
  EXPECT_EQ(area.bottom(), 4700);
  EXPECT_EQ(area.right(), 11000);
  EXPECT_EQ(area.top(), 200);
  EXPECT_EQ(area.frame.dbscale, 144);
  EXPECT_EQ(area.frame.hrscale, 0.04);
  EXPECT_NEAR(area.plotx(60), 6000, 1e-9);
  EXPECT_NEAR(area.ploty(0.015), 2450, 1e-9);
}

TEST(PlotArea, HasNoPositionBeforeTheFirstChart) {
  const PlotArea area{charttest::fulllimits, {}, charttest::layoutwindow};
  EXPECT_FALSE(hasvalue(area.plotx(60)));
  EXPECT_FALSE(hasvalue(area.ploty(0.01)));
}

TEST(Limits, AreTestedOneByOne) {
  constexpr const char* lowdb = "Choose Lower Dry bulb temperature for chart only from the drop down menu";
  constexpr const char* highdb = "Choose Higher Dry bulb temperature for chart only from the drop down menu";
  constexpr const char* lowhr = "Choose Lower humidity ratio for chart only from the drop down menu";
  constexpr const char* highhr = "Choose Higher humidity ratio for chart only from the drop down menu";
  constexpr const char* dborder =
      "Higher limit of dry bulb temperature must be greater than lower limit of dry bulb temperature";
  constexpr const char* hrorder = "Higher limit of humidity ratio must be greater than lower limit of humidity ratio";
  const struct {
    const char* name;
    LimitTexts texts;
    const char* message;
  } cases[] = {
      {"start values", {"0", "120", "0", "0.030"}, nullptr},
      {"typed with a decimal", {"20.0", "1.2e2", " 0.0100 ", ".03"}, nullptr},
      {"between two items", {"15", "120", "0", "0.030"}, lowdb},
      {"beyond the list", {"0", "130", "0", "0.030"}, highdb},
      {"121, which marks a cleared chart", {"121", "120", "0", "0.030"}, lowdb},
      {"ratio between two items", {"0", "120", "0.015", "0.030"}, lowhr},
      {"higher ratio beyond the list", {"0", "120", "0", "0.04"}, highhr},
      {"equal dry bulbs", {"50", "50", "0", "0.030"}, dborder},
      {"crossed dry bulbs", {"60", "50", "0", "0.030"}, dborder},
      {"equal ratios", {"0", "120", "0.030", "0.030"}, hrorder},
      {"crossed ratios", {"0", "120", "0.020", "0.010"}, hrorder},
      {"the first of several faults answers", {"1", "2", "3", "4"}, lowdb},
      {"no numbers at the first use read 0", {"a", "b", "c", "d"}, dborder},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    ChartLimits limits;
    EXPECT_STREQ(validatelimits(test.texts, limits), test.message);
  }
}

TEST(Limits, KeepTheirLastGoodValue) {
  ChartLimits limits{10, 80, 0, 0.03};
  EXPECT_EQ(validatelimits({"", "1e999", "0x1", "0.030 F"}, limits), nullptr) << "texts that are no numbers";
  EXPECT_EQ(limits, (ChartLimits{10, 80, 0, 0.03}));
  EXPECT_NE(validatelimits({"15", "100", "0.010", "0.020"}, limits), nullptr);
  EXPECT_EQ(limits, (ChartLimits{15, 80, 0, 0.03})) << "limits behind the refused one are not read";
}

TEST(Limits, CountAsDrawnOnlyForTheChartOnTheCanvas) {
  DrawnLimits drawn;
  EXPECT_FALSE(checkdrawn(charttest::fulllimits, drawn)) << "nothing drawn yet";
  rememberlimits({10, 90, 0.01, 0.03}, drawn);
  EXPECT_TRUE(checkdrawn({10, 90, 0.01, 0.03}, drawn));
  EXPECT_FALSE(checkdrawn({10, 90, 0.01, 0.02}, drawn));
  forgetlimits(drawn);
  EXPECT_FALSE(checkdrawn({10, 90, 0.01, 0.03}, drawn)) << "cleared";
}

}  // namespace
}  // namespace moistair
