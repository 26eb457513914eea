#include "engine/nested.h"

#include <gtest/gtest.h>

#include <cmath>

#include "engine/moistair.h"
#include "pairs.h"

using namespace moistair;
using enum PropertyKind;

namespace {

constexpr double atm = defaultpressure;
constexpr double f5 = 5.1e-6;  // five printed decimals

/// The state of 75 and 62.5 at sea level, looked for over the ranges of a chart of 0 to 120 deg F.
TEST(NestedPairs, PublishedValues) {
  const Given rh1{rh, 50.3032182}, w1{w, 0.0092932}, h1{h, 28.1695563}, dp1{dp, 55.2457239}, v1{v, 13.6751968};
  const DryBulbRange ofrh{1, 111}, ofh{62, 119}, ofv{70, 83};
  const struct {
    const char* name;
    Given first, second;
    DryBulbRange range;
    double db, wb;
    int iterations;
  } rows[] = {
      {"rh h", rh1, h1, ofrh, 75, 62.5, 17},
      {"rh dp", rh1, dp1, ofrh, 75, 62.5, 17},
      {"rh v", rh1, v1, ofrh, 75.00003, 62.49986, 14},
      {"w h", w1, h1, ofh, 74.46875, 62.46875, 4},
      {"w v", w1, v1, ofv, 74.98926, 62.49714, 7},
      {"h dp", h1, dp1, ofh, 74.91720, 62.51720, 100},
      {"h v", h1, v1, ofh, 75.04050, 62.44039, 12},
      {"dp v", dp1, v1, ofv, 74.99997, 62.50005, 11},
      {"rh v, another range and other decimals", rh1, v1, {0, 111}, 75.00071, 62.49989, 12},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Resolution result = resolved(row.first, row.second, atm, row.range);
    EXPECT_TRUE(result.resolved());
    EXPECT_NEAR(result.point.db, row.db, f5);
    EXPECT_NEAR(result.point.wb, row.wb, f5);
    EXPECT_EQ(result.iterations, row.iterations);
  }
  EXPECT_FALSE(resolved(rh1, v1, atm, {80, 120}).resolved()) << "a state beside the range";
}

/// Searches that run through all iterations. Enthalpy with dew point may then miss by half a degree.
TEST(NestedPairs, TheGapOfTheDewPoint) {
  const struct {
    const char* name;
    Given dp, other;
    bool resolved;
    double returned = novalue;  // the dew point of the state found, where it is known
  } rows[] = {
      {"in the gap with rh", {dp, 32.1}, {rh, 50}, false},
      {"in the gap with v", {dp, 32.1}, {v, 12.9}, false},
      {"in the gap with h", {dp, 32.1}, {h, 15}, true, 32.2567},
      {"with h, within half a degree", {dp, 9}, {h, 15}, true, 9.4767},
      {"with h, beyond half a degree", {dp, 31}, {h, 11}, false, 30.4595},
      {"a volume that no air has", {dp, 50}, {v, 30}, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    SolverFields fields;
    const Resolution result = resolvepair(row.dp, row.other, atm, openrangefinders(), fields);
    EXPECT_EQ(result.resolved(), row.resolved);
    EXPECT_EQ(result.iterations, 100);
    EXPECT_EQ(result.point.dp, row.dp.value);
    if (!hasvalue(row.returned)) continue;
    EXPECT_NEAR(fields.returned.strict(), row.returned, 1e-4);
  }
  // Were the search for the wet bulb kept from running above its reach too, its midpoint of 60 would do here.
  EXPECT_FALSE(resolved({dp, 50}, {v, 30}, atm, {40, 100}).resolved());
}

TEST(NestedPairs, AFinderThatFindsNothingLeavesTheLastRange) {
  SolverFields fields;
  resolvepair({dp, 50}, {v, 30}, atm, RangeFinders{}, fields);
  EXPECT_EQ(fields.candidate.text(), "0") << "without any range the search sits at 0";
  resolvepair({rh, 50}, {h, 28}, atm, openrangefinders(), fields);
  resolvepair({dp, 50}, {v, 30}, atm, openrangefinders(), fields);
  EXPECT_EQ(fields.low.text(), "0");
  EXPECT_EQ(fields.high.text(), "112");
}

TEST(NestedPairs, TheFinderSeesFifteenDigits) {
  double seen = 0;
  RangeFinders finders;
  finders.dbrangeofh = [&](double line, double) { return seen = line, std::nullopt; };
  resolved({h, 28.000000000000004}, {v, 13.7}, atm, finders);
  EXPECT_EQ(seen, 28);
}

TEST(OpenFinders, PublishedEnds) {
  const auto ofrh = &RangeFinders::dbrangeofrh, ofh = &RangeFinders::dbrangeofh, ofv = &RangeFinders::dbrangeofspvol;
  constexpr DryBulbRange nothing{-1, -1};
  const struct {
    const char* name;
    RangeFinder RangeFinders::*finder;
    double line;
    DryBulbRange range;
    double pressure = atm;
  } rows[] = {
      {"rh 50", ofrh, 50, {0, 112}},
      {"rh of the driest line, from edge to edge", ofrh, 1, {0, 120}},
      {"h of the room", ofh, 28.1695563, {62, 119}},
      {"h 30", ofh, 30, {64, 121}},
      {"h 62", ofh, 62, {118, 121}},
      {"v of the room", ofv, 13.6751968, {70, 83}},
      {"rh below 0", ofrh, -0.1, nothing},
      {"rh above 100", ofrh, 100.1, nothing},
      {"rh of no value", ofrh, novalue, nothing},
      {"rh in a vacuum", ofrh, 50, nothing, 0},
      {"h that no air has", ofh, -1e300, nothing},
      {"h at no pressure", ofh, 28, nothing, novalue},
      {"v 0", ofv, 0, nothing},
      {"v above 78", ofv, 78.1, nothing},
      {"v of thinner air", ofv, 30, nothing},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const auto range = (openrangefinders().*row.finder)(row.line, row.pressure).value_or(nothing);
    EXPECT_EQ(range.low, row.range.low);
    EXPECT_EQ(range.high, row.range.high);
  }
}

}  // namespace
