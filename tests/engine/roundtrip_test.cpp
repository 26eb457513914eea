/// \file
/// States to two of their properties and back, for the pairs whose search is exact. The grid runs over dry bulbs and
/// wet-bulb depressions, across freezing and up to saturation, at pressures from below sea level to 10000 ft.
#include <gtest/gtest.h>

#include "engine/moistair.h"
#include "pairs.h"

using namespace moistair;
using enum PropertyKind;

namespace {

struct Trip {
  const char* name;
  PropertyKind first, second;
  double tolerance;  // of dry bulb and wet bulb: the search's own over the flattest slope on the grid
  double driest = 0;
};

void goround(const Trip& trip, StatePoint given, double atm) {
  SCOPED_TRACE(testing::Message() << given.db << ", " << given.wb << " at " << atm);
  const Resolution result = resolved({trip.first, given.at(trip.first)}, {trip.second, given.at(trip.second)}, atm);
  const StatePoint& found = result.point;
  // The found state of saturated air may lie a hair above saturation, and is refused as it should be.
  ASSERT_TRUE(result.resolved() || given.wb >= given.db);
  EXPECT_NEAR(found.db, given.db, trip.tolerance);
  // The equations step at a wet bulb of 32: a state a little below and one a little above share the property.
  const bool twins = trip.first != wb && given.wb > 30.5 && given.wb <= 32 && found.wb > 32 && found.wb <= 33.5;
  if (twins && std::abs(found.db - given.db) <= trip.tolerance) {
    EXPECT_NEAR(psychro_rh(found.db, found.wb, atm), given.rh, 0.01);
  } else {
    EXPECT_NEAR(found.wb, given.wb, trip.tolerance);
  }
}

TEST(RoundTrips, ReturnToTheStateTheyCameFrom) {
  const Trip trips[] = {
      {"db wb", db, wb, 0},  {"db rh", db, rh, 1e-7},       {"db w", db, w, 5e-4}, {"db dp", db, dp, 2e-5},
      {"db v", db, v, 3e-5}, {"wb rh", wb, rh, 3e-7},       {"wb w", wb, w, 5e-4}, {"wb dp", wb, dp, 2e-5},
      {"wb v", wb, v, 1e-5}, {"rh w", rh, w, 6e-3, 0.0005},
  };
  for (const auto& trip : trips) {
    SCOPED_TRACE(trip.name);
    int count = 0;
    for (const double atm : {31.5, defaultpressure, 27.3, 24.8961078, 20.57}) {
      for (double drybulb = 4; drybulb <= 118; drybulb += 1.5) {
        for (const double depression : {0.0, 0.003, 0.3, 1.0, 2.5, 5.5, 9.0, 14.0, 20.0, 26.0, 31.0, 40.0}) {
          const Resolution state = resolved({db, drybulb}, {wb, drybulb - depression}, atm);
          // Dew points outside -55 to 89 are refused by the one pair or the other.
          const double dewpoint = state.point.dp;
          if (!state.resolved() || state.point.w < trip.driest || dewpoint <= -55 || dewpoint > 89) continue;
          ++count;
          goround(trip, state.point, atm);
        }
      }
    }
    EXPECT_GT(count, 2000) << "the grid has hardly any air on it";
  }
}

}  // namespace
