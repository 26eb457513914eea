#include "engine/answers.h"

#include <gtest/gtest.h>

#include <ctime>

#include "engine/moistair.h"
#include "text/value.h"

using namespace moistair;
using enum PropertyKind;

namespace {

/// What a pair has; scananswers compares with a search of the whole plane, here stand the cases that random pairs
/// seldom meet.
TEST(Answers, AreAllThereIsOrTellWhy) {
  struct Bulbs {
    double db, wb;
  };
  const struct {
    const char* name;
    Given first, second;
    std::vector<Bulbs> states;
    NoAnswer reason = NoAnswer::none;
    PropertyKind kind = db;
    double atm = defaultpressure;
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
      {"dry bulb above", {db, 121}, {wb, 60}, {}, NoAnswer::abovebound, db},
      {"dry bulb would be above", {w, 0.002}, {h, 40}, {}, NoAnswer::abovebound, db},
      {"dry bulb would be below", {w, 0.002}, {h, 1}, {}, NoAnswer::belowbound, db},
      {"wet bulb would be below", {db, 2}, {rh, 30}, {}, NoAnswer::belowbound, wb},
      {"humidity ratio would be above", {db, 120}, {rh, 100}, {}, NoAnswer::abovebound, w},
      {"humidity ratio would be below", {db, 100}, {v, 13}, {}, NoAnswer::belowbound, w},
      {"enthalpy below", {db, 75}, {h, -1}, {}, NoAnswer::belowbound, h},
      {"above saturation", {db, 75}, {wb, 80}, {}, NoAnswer::saturation},
      {"no dry bulb for a wet bulb and an enthalpy", {wb, 62.5}, {h, 28}, {}, NoAnswer::saturation},
      {"dew point in the gap", {rh, 50}, {dp, 32.1}, {}, NoAnswer::dewpointgap},
      {"dew point before its turn", {db, 75}, {dp, -101.3}, {}, NoAnswer::belowbound, w},
      {"step of the saturation pressure", {rh, 100}, {w, 0.00377448}, {}, NoAnswer::freezingstep},
      {"step of the saturation pressure at the wet bulb", {db, 32}, {dp, 32.23}, {}, NoAnswer::freezingstep},
      {"same kind", {db, 75}, {db, 75}, {}, NoAnswer::nopair},
      {"humidity ratio with dew point", {dp, 50}, {w, 0.01}, {}, NoAnswer::nopair},
      {"no pressure", {db, 75}, {wb, 62.5}, {}, NoAnswer::pressure, db, 0},
      {"no value", {db, novalue}, {wb, 62.5}, {}, NoAnswer::pressure},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Answers result = answers(row.first, row.second, row.atm);
    EXPECT_EQ(result.reason, row.reason);
    EXPECT_EQ(result.kind, row.kind);
    ASSERT_EQ(result.states.size(), row.states.size());
    for (std::size_t i = 0; i < row.states.size(); ++i) {
      EXPECT_NEAR(result.states[i].db, row.states[i].db, 5e-5);
      EXPECT_NEAR(result.states[i].wb, row.states[i].wb, 5e-5);
    }
  }
}

TEST(Answers, EndInTimeWhateverTheValues) {
  const double values[] = {0, -1, 1e-300, 32, 75, 0.01, 1e300, novalue, std::numeric_limits<double>::infinity()};
  const std::clock_t start = std::clock();
  for (const double atm : {0.0, -30.0, 1e-300, 0.02, 0.1, 0.2, 1.5, 150.0, 1e6, 1e300}) {
    for (int i = 0; i < kindcount * kindcount; ++i) {
      for (const double first : values) {
        for (const double second : values) {
          const Answers result = answers({*kindat(i / kindcount), first}, {*kindat(i % kindcount), second}, atm);
          ASSERT_EQ(result.states.empty(), result.reason != NoAnswer::none);
          for (const StatePoint& state : result.states) ASSERT_GT(state.pv, 0);
        }
      }
    }
  }
  EXPECT_LT(std::clock() - start, 20 * CLOCKS_PER_SEC);
}

}  // namespace
