#include "engine/nested.h"

#include <gtest/gtest.h>

#include <cmath>

#include "engine/moistair.h"
#include "engine/openfinders.h"
#include "pairs.h"

using namespace moistair;
using enum PropertyKind;

namespace {

constexpr double atm = defaultpressure;
constexpr double f5 = 5.1e-6;  // five printed decimals

struct Found {
  const char* name;
  Given first, second;
  DryBulbRange range;
  double db, wb;
  int iterations;
};

/// The state of 75 and 62.5 at sea level, looked for over the ranges of a chart of 0 to 120 deg F.
TEST(NestedPairs, PublishedValues) {
  const Given rh1{rh, 50.3032182}, w1{w, 0.0092932}, h1{h, 28.1695563}, dp1{dp, 55.2457239}, v1{v, 13.6751968};
  const DryBulbRange ofrh{1, 111}, ofh{62, 119}, ofv{70, 83};
  const Found rows[] = {
      {"rh h", rh1, h1, ofrh, 75, 62.5, 17},           {"rh dp", rh1, dp1, ofrh, 75, 62.5, 17},
      {"rh v", rh1, v1, ofrh, 75.00003, 62.49986, 14}, {"w h", w1, h1, ofh, 74.46875, 62.46875, 4},
      {"w v", w1, v1, ofv, 74.98926, 62.49714, 7},     {"h dp", h1, dp1, ofh, 74.91720, 62.51720, 100},
      {"h v", h1, v1, ofh, 75.04050, 62.44039, 12},    {"dp v", dp1, v1, ofv, 74.99997, 62.50005, 11},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Resolution result = resolved(row.first, row.second, atm, row.range);
    EXPECT_TRUE(result.resolved);
    EXPECT_NEAR(result.point.db, row.db, f5);
    EXPECT_NEAR(result.point.wb, row.wb, f5);
    EXPECT_EQ(result.iterations, row.iterations);
  }
}

TEST(NestedPairs, TheRangeDecidesTheLastDecimals) {
  const Resolution result = resolved({rh, 50.3032182}, {v, 13.6751968}, atm);
  EXPECT_NEAR(result.point.db, 75.00071, f5);
  EXPECT_NEAR(result.point.wb, 62.49989, f5);
  EXPECT_EQ(result.iterations, 12);
}

TEST(NestedPairs, TheGapOfTheDewPoint) {
  const struct {
    const char* name;
    Given other;
    bool resolved;
  } rows[] = {
      {"with rh", {rh, 50}, false},
      {"with h, accepted within half a degree", {h, 15}, true},
      {"with v", {v, 12.9}, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Resolution result = resolved({dp, 32.1}, row.other, atm);
    EXPECT_EQ(result.resolved, row.resolved);
    EXPECT_EQ(result.iterations, 100);
  }
}

TEST(NestedPairs, ADewPointWithEnthalpyMayMissByHalfADegree) {
  const struct {
    const char* name;
    Given h, dp;
    double miss;
  } rows[] = {
      {"accepted", {h, 15}, {dp, 9}, 0.4767},
      {"refused", {h, 11}, {dp, 31}, -0.5405},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    SolverFields fields;
    const Resolution result = resolvepair(row.h, row.dp, atm, openrangefinders(), fields);
    EXPECT_EQ(result.iterations, 100);
    EXPECT_NEAR(fields.returned.strict() - row.dp.value, row.miss, 1e-4);
    EXPECT_EQ(result.resolved, std::abs(row.miss) < 0.5);
  }
}

TEST(NestedPairs, AVolumeOutOfReachMeetsNoDewPoint) {
  // Were the search for the wet bulb kept from running above its reach too, its midpoint of 60 would do at some dry
  // bulb.
  const Resolution result = resolved({dp, 50}, {v, 30}, atm, {40, 100});
  EXPECT_FALSE(result.resolved);
  EXPECT_EQ(result.iterations, 100);
}

TEST(NestedPairs, TheGapReturnsADewPointBesideIt) {
  SolverFields fields;
  const Resolution result = resolvepair({h, 15}, {dp, 32.1}, atm, openrangefinders(), fields);
  const double returned = fields.returned.strict();
  EXPECT_NEAR(returned, 32.2567, 5e-5);
  EXPECT_EQ(result.iterations, 100);
  EXPECT_EQ(result.point.dp, 32.1);
}

TEST(NestedPairs, WithoutARangeTheSearchSitsAtZeroAndFails) {
  SolverFields fields;
  for (const auto& finders : {RangeFinders{}, openrangefinders()}) {
    const Resolution result = resolvepair({dp, 50}, {v, 30}, atm, finders, fields);
    EXPECT_FALSE(result.resolved);
    EXPECT_EQ(result.iterations, 100);
  }
  EXPECT_EQ(fields.candidate.text(), "0");
}

TEST(NestedPairs, AFinderThatFindsNothingLeavesTheLastRange) {
  SolverFields fields;
  resolvepair({rh, 50}, {h, 28}, atm, openrangefinders(), fields);
  const std::string low = fields.low.text();
  const std::string high = fields.high.text();
  EXPECT_NE(high, "");
  resolvepair({dp, 50}, {v, 30}, atm, openrangefinders(), fields);
  EXPECT_EQ(fields.low.text(), low);
  EXPECT_EQ(fields.high.text(), high);
}

TEST(NestedPairs, AStateBesideTheRangeIsNotFound) {
  EXPECT_FALSE(resolved({rh, 50.3032182}, {v, 13.6751968}, atm, {80, 120}).resolved);
}

TEST(NestedPairs, TheFinderSeesFifteenDigits) {
  double seen = 0;
  RangeFinders finders;
  finders.dbrangeofh = [&](double line, double) {
    seen = line;
    return std::nullopt;
  };
  resolved({h, 28.000000000000004}, {v, 13.7}, atm, finders);
  EXPECT_EQ(seen, 28);
}

struct Range {
  const char* name;
  const RangeFinder RangeFinders::*finder;
  double line;
  double low, high;
};

TEST(OpenFinders, PublishedEnds) {
  const Range rows[] = {
      {"rh 50", &RangeFinders::dbrangeofrh, 50, 0, 112},
      {"h of the room", &RangeFinders::dbrangeofh, 28.1695563, 62, 119},
      {"h 30", &RangeFinders::dbrangeofh, 30, 64, 121},
      {"h 62", &RangeFinders::dbrangeofh, 62, 118, 121},
      {"v of the room", &RangeFinders::dbrangeofspvol, 13.6751968, 70, 83},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const auto range = (openrangefinders().*row.finder)(row.line, atm);
    ASSERT_TRUE(range);
    EXPECT_EQ(range->low, row.low);
    EXPECT_EQ(range->high, row.high);
  }
}

TEST(OpenFinders, FindNothing) {
  const struct {
    const char* name;
    const RangeFinder RangeFinders::*finder;
    double line, atm;
  } rows[] = {
      {"rh below 0", &RangeFinders::dbrangeofrh, -0.1, atm},
      {"rh above 100", &RangeFinders::dbrangeofrh, 100.1, atm},
      {"rh of no value", &RangeFinders::dbrangeofrh, 0.0 / 0.0, atm},
      {"rh in a vacuum", &RangeFinders::dbrangeofrh, 50, 0},
      {"h that no air has", &RangeFinders::dbrangeofh, -1e300, atm},
      {"h at no pressure", &RangeFinders::dbrangeofh, 28, 0.0 / 0.0},
      {"v 0", &RangeFinders::dbrangeofspvol, 0, atm},
      {"v above 78", &RangeFinders::dbrangeofspvol, 78.1, atm},
      {"v of thinner air", &RangeFinders::dbrangeofspvol, 30, atm},
      {"v in a vacuum", &RangeFinders::dbrangeofspvol, 14, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_FALSE((openrangefinders().*row.finder)(row.line, row.atm));
  }
}

TEST(OpenFinders, BelongToEveryAirBetween0And120) {
  // The ends still count: the driest line runs from edge to edge.
  const auto range = openrangefinders().dbrangeofrh(1, atm);
  ASSERT_TRUE(range);
  EXPECT_EQ(range->low, 0);
  EXPECT_EQ(range->high, 120);
}

}  // namespace
