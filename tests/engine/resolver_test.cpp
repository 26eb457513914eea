// What the recorded digits do not see: the fields that nested searches leave behind, and pairs that are refused unread.
#include "engine/resolver.h"

#include <gtest/gtest.h>

#include "engine/openfinders.h"

using namespace moistair;
using enum PropertyKind;

namespace {

constexpr double atm = 29.92126;

TEST(NestedPairs, AFinderThatFindsNothingLeavesTheLastRange) {
  SolverFields fields;
  resolvePair({dp, 50}, {v, 30}, atm, RangeFinders{}, fields);
  EXPECT_EQ(fields.candidate.text(), "0") << "without any range the search sits at 0";
  resolvePair({rh, 50}, {h, 28}, atm, openRangeFinders(), fields);
  resolvePair({dp, 50}, {v, 30}, atm, openRangeFinders(), fields);
  EXPECT_EQ(fields.low.text(), "0");
  EXPECT_EQ(fields.high.text(), "112");
}

TEST(NestedPairs, TheFinderSeesFifteenDigits) {
  double seen = 0;
  RangeFinders finders;
  finders.dbRangeOfH = [&](double line, double) { return seen = line, std::nullopt; };
  SolverFields fields;
  resolvePair({h, 28.000000000000004}, {v, 13.7}, atm, finders, fields);
  EXPECT_EQ(seen, 28);
}

TEST(NestedPairs, KeepToTheRangeTheyAreGiven) {
  const auto within = [](double low, double high, Given first, Given second) {
    const RangeFinder fixed = [=](double, double) { return DryBulbRange{low, high}; };
    SolverFields fields;
    return resolvePair(first, second, atm, {fixed, fixed, fixed}, fields).resolved();
  };
  EXPECT_FALSE(within(80, 120, {rh, 50.3032182}, {v, 13.6751968})) << "a state beside the range";
  // Were the search for the wet bulb kept from running above its reach too, its midpoint of 60 would do here.
  EXPECT_FALSE(within(40, 100, {dp, 50}, {v, 30}));
}

TEST(Kinds, AreCountedFromTheTopOfTheirList) {
  EXPECT_EQ(kindAt(6), v);
  EXPECT_EQ(kindAt(-1), std::nullopt);
  EXPECT_EQ(kindAt(kindCount), std::nullopt);
  EXPECT_EQ(kindNamed("pv"), std::nullopt) << "it can fix no state";
  EXPECT_EQ(keysOfKinds(), "db wb rh w h dp v");
}

TEST(Properties, AreHeldByAStateOrWorkedOut) {
  Property property = propertyOf(h);
  const StatePoint state{.db = 75, .h = 28};
  EXPECT_EQ(valueOf(property, state, 29), 28);
  property.workedOut = [](const StatePoint& point, double atm) { return point.db + atm; };
  EXPECT_EQ(valueOf(property, state, 29), 104);
}

}  // namespace
