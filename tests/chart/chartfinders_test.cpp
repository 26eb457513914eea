#include "chart/chartfinders.h"

#include "support/charts.h"

namespace moistair::charttest {
namespace {

TEST(ChartFinders, FindTheRangeThatTheChartShows) {
  constexpr ChartLimits full = fulllimits;
  constexpr ChartLimits narrow{40, 80, 0, 0.03};
  constexpr DryBulbRange nothing{-1, -1};
  const struct {
    const char* name;
    std::optional<DryBulbRange> (*finder)(double, double, const PlotArea&);
    double line;
    ChartLimits limits;
    DryBulbRange range;
  } cases[] = {
      {"rh widens downwards by 1", dbrangeofrh, 50, full, {1, 112}},
      {"saturation", dbrangeofrh, 100, full, {1, 88}},
      {"rh out of range", dbrangeofrh, 100.5, full, nothing},
      {"rh on a narrow chart", dbrangeofrh, 50, narrow, {39, 80}},
      {"rh on reversed limits", dbrangeofrh, 50, {120, 0, 0.03, 0}, nothing},
      {"h widens by 1 down and 2 up", dbrangeofh, 28.1695563, full, {62, 119}},
      {"h up to the edge", dbrangeofh, 30, full, {64, 120}},
      {"h above the chart", dbrangeofh, 62, full, nothing},
      {"h on a narrow chart", dbrangeofh, 28.1695563, narrow, {62, 80}},
      {"v widens upwards by 1", dbrangeofspvol, 13.6751968, full, {70, 83}},
      {"v above the chart", dbrangeofspvol, 15.5, full, nothing},
      {"v out of range", dbrangeofspvol, 78.5, full, nothing},
      {"a walk down from a limit of 1e9 ends", dbrangeofh, 30, {0, 1e9 + 0.25, 0, 0.03}, {64.25, 121.25}},
      {"a limit too large to walk down from", dbrangeofh, 30, {-1e300, 1e300, -1, 1}, nothing},
      {"a walk down to a limit of -1e300 ends", dbrangeofspvol, 13.6751968, {-1e300, 120, 0, 0.03}, {70, 83}},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    const DryBulbRange range = test.finder(test.line, sealevel, areaof(test.limits)).value_or(nothing);
    EXPECT_EQ(range.low, test.range.low);
    EXPECT_EQ(range.high, test.range.high);
    EXPECT_FALSE(test.finder(test.line, sealevel, {test.limits, {}, layoutwindow})) << "before the first chart";
  }
}

}  // namespace
}  // namespace moistair::charttest
