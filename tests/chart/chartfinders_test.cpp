#include "chart/chartfinders.h"

#include "charts.h"

namespace moistair {
namespace {

using charttest::areaof;
using charttest::sealevel;

using Finder = std::optional<DryBulbRange> (*)(double, double, const PlotArea&);

TEST(ChartFinders, FindTheRangeThatTheChartShows) {
  constexpr ChartLimits full = charttest::fulllimits;
  constexpr ChartLimits narrow{40, 80, 0, 0.03};
  constexpr ChartLimits reversed{120, 0, 0.03, 0};
  constexpr ChartLimits hugehigh{0, 1e9 + 0.25, 0, 0.03};
  constexpr ChartLimits endless{-1e300, 1e300, -1, 1};
  const struct {
    const char* name;
    Finder finder;
    double line;
    ChartLimits limits;
    std::optional<std::pair<double, double>> range;
  } cases[] = {
      {"rh widens downwards by 1", dbrangeofrh, 50, full, {{1, 112}}},
      {"saturation", dbrangeofrh, 100, full, {{1, 88}}},
      {"rh out of range", dbrangeofrh, 100.5, full, {}},
      {"rh on a narrow chart", dbrangeofrh, 50, narrow, {{39, 80}}},
      {"rh on reversed limits", dbrangeofrh, 50, reversed, {}},
      {"h widens by 1 down and 2 up", dbrangeofh, 28.1695563, full, {{62, 119}}},
      {"h up to the edge", dbrangeofh, 30, full, {{64, 120}}},
      {"h above the chart", dbrangeofh, 62, full, {}},
      {"h on a narrow chart", dbrangeofh, 28.1695563, narrow, {{62, 80}}},
      {"v widens upwards by 1", dbrangeofspvol, 13.6751968, full, {{70, 83}}},
      {"v above the chart", dbrangeofspvol, 15.5, full, {}},
      {"v out of range", dbrangeofspvol, 78.5, full, {}},
      {"a walk down from a limit of 1e9 ends", dbrangeofh, 30, hugehigh, {{64.25, 121.25}}},
      {"a limit too large to walk down from", dbrangeofh, 30, endless, {}},
      {"a walk down to a limit of -1e300 ends", dbrangeofspvol, 13.6751968, {-1e300, 120, 0, 0.03}, {{70, 83}}},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    const auto range = test.finder(test.line, sealevel, areaof(test.limits));
    ASSERT_EQ(range.has_value(), test.range.has_value());
    if (!range) continue;
    EXPECT_EQ(range->low, test.range->first);
    EXPECT_EQ(range->high, test.range->second);
  }
}

TEST(ChartFinders, FindNothingBeforeTheFirstChart) {
  const PlotArea area{charttest::fulllimits, {}, charttest::layoutwindow};
  EXPECT_FALSE(dbrangeofrh(50, sealevel, area));
  EXPECT_FALSE(dbrangeofh(28, sealevel, area));
  EXPECT_FALSE(dbrangeofspvol(13.5, sealevel, area));
}

/// The finders as the main window hands them to the resolver.
RangeFinders findersof(const ChartLimits& limits) {
  const PlotArea area = areaof(limits);
  return {[area](double rh, double atm) { return dbrangeofrh(rh, atm, area); },
          [area](double h, double atm) { return dbrangeofh(h, atm, area); },
          [area](double v, double atm) { return dbrangeofspvol(v, atm, area); }};
}

TEST(NestedPairs, KeepToTheChart) {
  using enum PropertyKind;
  const struct {
    const char* name;
    Given first, second;
    double found, wetbulb;
    int iterations;
  } cases[] = {
      {"rh, h", {rh, 50.3032182}, {h, 28.1695563}, 75.00000, 62.50000, 17},
      {"rh, dp", {rh, 50.3032182}, {dp, 55.2457239}, 75.00000, 62.50000, 17},
      {"rh, v", {rh, 50.3032182}, {v, 13.6751968}, 75.00003, 62.49986, 14},
      {"w, h", {w, 0.0092932}, {h, 28.1695563}, 74.46875, 62.46875, 4},
      {"w, v", {w, 0.0092932}, {v, 13.6751968}, 74.98926, 62.49714, 7},
      {"h, dp, accepted after all iterations", {h, 28.1695563}, {dp, 55.2457239}, 74.91720, 62.51720, 100},
      {"h, v", {h, 28.1695563}, {v, 13.6751968}, 75.04050, 62.44039, 12},
      {"dp, v", {dp, 55.2457239}, {v, 13.6751968}, 74.99997, 62.50005, 11},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    SolverFields fields;
    const Resolution result = resolvepair(test.second, test.first, sealevel, findersof(charttest::fulllimits), fields);
    EXPECT_TRUE(result.resolved);
    EXPECT_NEAR(result.point.db, test.found, 5e-6);
    EXPECT_NEAR(result.point.wb, test.wetbulb, 5e-6);
    EXPECT_EQ(result.iterations, test.iterations);
  }
}

TEST(NestedPairs, DoNotFindWhatANarrowerChartHides) {
  using enum PropertyKind;
  SolverFields fields;
  const RangeFinders cool = findersof({0, 60, 0, 0.03});
  EXPECT_FALSE(resolvepair({rh, 50.3032182}, {h, 28.1695563}, sealevel, cool, fields).resolved);
  EXPECT_TRUE(resolvepair({rh, 50.3032182}, {db, 75}, sealevel, cool, fields).resolved);
}

TEST(NestedPairs, GoOnWithTheLastRangeWhenNothingIsFound) {
  using enum PropertyKind;
  SolverFields fields;
  const RangeFinders full = findersof(charttest::fulllimits);
  EXPECT_FALSE(resolvepair({h, 61.9}, {v, 13.6}, sealevel, full, fields).resolved);
  ASSERT_TRUE(resolvepair({h, 28.1695563}, {v, 13.6751968}, sealevel, full, fields).resolved);
  fields.low.set(62);
  fields.high.set(119);
  const RangeFinders none{};
  EXPECT_TRUE(resolvepair({h, 28.1695563}, {v, 13.6751968}, sealevel, none, fields).resolved);
}

}  // namespace
}  // namespace moistair
