#include "engine/exactsolutions.h"

#include <gtest/gtest.h>

#include <ctime>

#include "engine/moistair.h"
#include "text/value.h"

using namespace moistair;
using enum PropertyKind;

namespace {

/// What a pair has; scananswers compares with a search of the whole plane, here are the cases that random pairs
/// seldom meet.
TEST(ExactSolutions, AreAllThereIsOrTellWhy) {
  struct Bulbs {
    double db, wb;
  };
  const struct {
    const char* name;
    Given first, second;
    std::vector<Bulbs> states;
    NoSolution reason = NoSolution::none;
    PropertyKind kind = db;
    double atm = defaultPressure;
  } rows[] = {
      {"one", {dp, 27.65}, {h, 13.68}, {{43.1289323, 36.5554906}}},
      {"two wet bulbs about freezing", {db, 40}, {w, 0.00205}, {{40, 31.64197}, {40, 32.10277}}},
      {"two dry bulbs of one wet bulb",
       {wb, 72.46638154},
       {h, 45.0481157927},
       {{97.32798, 72.46638}, {118.38388, 72.46638}},
       {},
       {},
       20.577},
      {"saturated, as rounded", {rh, 100 + 1e-10}, {db, 75}, {{75, 75}}},
      {"at the highest humidity ratio", {w, 0.03}, {db, 100}, {{100, 90.99225}}},
      {"enthalpy above the limit of the pair's row", {db, 119.5}, {h, 61.99}, {{119.5, 94.28768}}},
      {"a dew point below -55", {db, 60}, {dp, -70}, {{60, 38.08874}}},
      {"dry bulb above", {db, 121}, {wb, 60}, {}, NoSolution::aboveBound, db},
      {"dry bulb would be above", {w, 0.002}, {h, 40}, {}, NoSolution::aboveBound, db},
      {"dry bulb would be below", {w, 0.002}, {h, 1}, {}, NoSolution::belowBound, db},
      {"wet bulb would be below", {db, 2}, {rh, 30}, {}, NoSolution::belowBound, wb},
      {"humidity ratio would be above", {db, 120}, {rh, 100}, {}, NoSolution::aboveBound, w},
      {"humidity ratio would be below", {db, 100}, {v, 13}, {}, NoSolution::belowBound, w},
      {"enthalpy below", {db, 75}, {h, -1}, {}, NoSolution::belowBound, h},
      {"above saturation", {db, 75}, {wb, 80}, {}, NoSolution::saturation},
      {"no dry bulb for a wet bulb and an enthalpy", {wb, 62.5}, {h, 28}, {}, NoSolution::saturation},
      {"dew point in the gap", {rh, 50}, {dp, 32.1}, {}, NoSolution::dewPointGap},
      {"dew point before its turn", {db, 75}, {dp, -101.3}, {}, NoSolution::belowBound, w},
      {"step of the saturation pressure", {rh, 100}, {w, 0.00377448}, {}, NoSolution::freezingStep},
      {"step of the saturation pressure at the wet bulb", {db, 32}, {dp, 32.23}, {}, NoSolution::freezingStep},
      {"same kind", {db, 75}, {db, 75}, {}, NoSolution::noPair},
      {"humidity ratio with dew point", {dp, 50}, {w, 0.01}, {}, NoSolution::noPair},
      {"no pressure", {db, 75}, {wb, 62.5}, {}, NoSolution::pressure, db, 0},
      {"no value", {db, noValue}, {wb, 62.5}, {}, NoSolution::pressure},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const ExactSolutions result = exactSolutions(row.first, row.second, row.atm);
    EXPECT_EQ(result.reason, row.reason);
    EXPECT_EQ(result.kind, row.kind);
    ASSERT_EQ(result.states.size(), row.states.size());
    for (std::size_t i = 0; i < row.states.size(); ++i) {
      EXPECT_NEAR(result.states[i].db, row.states[i].db, 5e-5);
      EXPECT_NEAR(result.states[i].wb, row.states[i].wb, 5e-5);
    }
  }
}

TEST(ExactSolutions, EndInTimeWhateverTheValues) {
  const double values[] = {0, -1, 1e-300, 32, 75, 0.01, 1e300, noValue, std::numeric_limits<double>::infinity()};
  const std::clock_t start = std::clock();
  for (const double atm : {0.0, -30.0, 1e-300, 0.02, 0.1, 0.2, 1.5, 150.0, 1e6, 1e300}) {
    for (int i = 0; i < kindCount * kindCount; ++i) {
      for (const double first : values) {
        for (const double second : values) {
          const ExactSolutions result =
              exactSolutions({*kindAt(i / kindCount), first}, {*kindAt(i % kindCount), second}, atm);
          ASSERT_EQ(result.states.empty(), result.reason != NoSolution::none);
          for (const StatePoint& state : result.states) ASSERT_GT(state.pv, 0);
        }
      }
    }
  }
  EXPECT_LT(std::clock() - start, 20 * CLOCKS_PER_SEC);
}

}  // namespace
