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

const Trip trips[] = {
    {"db wb", db, wb, 0},  {"db rh", db, rh, 1e-7},       {"db w", db, w, 5e-4}, {"db dp", db, dp, 2e-5},
    {"db v", db, v, 3e-5}, {"wb rh", wb, rh, 3e-7},       {"wb w", wb, w, 5e-4}, {"wb dp", wb, dp, 2e-5},
    {"wb v", wb, v, 1e-5}, {"rh w", rh, w, 6e-3, 0.0005},
};

/// The equations step at a wet bulb of 32: a state a little below and one a little above share the property.
bool istwin(const Trip& trip, const StatePoint& given, const StatePoint& found) {
  if (trip.first == wb || given.wb > 32 || given.wb < 30.5 || found.wb <= 32 || found.wb > 33.5) return false;
  return std::abs(given.db - found.db) <= trip.tolerance;
}

void goround(const Trip& trip, StatePoint state, double atm) {
  SCOPED_TRACE("db " + numbertext(state.db) + ", wb " + numbertext(state.wb) + " at " + numbertext(atm));
  const Resolution back = resolved({trip.first, state.at(trip.first)}, {trip.second, state.at(trip.second)}, atm);
  // The found state of saturated air may lie a hair above saturation, and is refused as it should be.
  if (state.wb < state.db) {
    ASSERT_TRUE(back.resolved);
  }
  if (istwin(trip, state, back.point)) {
    EXPECT_NEAR(psychro_rh(back.point.db, back.point.wb, atm), state.rh, 0.01);
    return;
  }
  EXPECT_NEAR(back.point.db, state.db, trip.tolerance);
  EXPECT_NEAR(back.point.wb, state.wb, trip.tolerance);
}

TEST(RoundTrips, ReturnToTheStateTheyCameFrom) {
  for (const auto& trip : trips) {
    SCOPED_TRACE(trip.name);
    int count = 0;
    for (const double atm : {31.5, defaultpressure, 27.3, 24.8961078, 20.57}) {
      for (double drybulb = 4; drybulb <= 118; drybulb += 1.5) {
        for (const double depression : {0.0, 0.003, 0.3, 1.0, 2.5, 5.5, 9.0, 14.0, 20.0, 26.0, 31.0, 40.0}) {
          const Resolution state = resolved({db, drybulb}, {wb, drybulb - depression}, atm);
          // Dew points outside -55 to 89 are refused by the one pair or the other.
          const double dewpoint = state.point.dp;
          if (!state.resolved || state.point.w < trip.driest || dewpoint <= -55 || dewpoint > 89) continue;
          ++count;
          goround(trip, state.point, atm);
        }
      }
    }
    EXPECT_GT(count, 2000) << "the grid has hardly any air on it";
  }
}

}  // namespace
