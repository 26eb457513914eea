#include "engine/solvers.h"

#include <gtest/gtest.h>

#include <ctime>

#include "engine/moistair.h"

using namespace moistair;

namespace {

constexpr double atm = defaultPressure;

TEST(WetBulbOfEnthalpy, StepsOfATenth) {
  const struct {
    const char* name;
    double db, h, wb, tolerance;
  } rows[] = {
      {"room, with the rounding of its steps", 75, 28, 62.19999999999999, 0},
      {"cool", 50, 20, 49.5, 1e-10},
      {"above saturation", 75, 50, 76, 1e-10},
      // Vapor counts for nothing up there: 0.24 T is below h first at the step below h / 0.24.
      {"a huge dry bulb", 1e6, 1e5, 1e5 / 0.24, 0.1},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_NEAR(psychro_wb(row.db, row.h, atm), row.wb, row.tolerance);
  }
}

TEST(WetBulbOfEnthalpy, EveryWalkEnds) {
  const struct {
    const char* name;
    double db, h, atm;
    bool found;
  } rows[] = {
      {"vacuum", 75, 28, 0, true},
      {"negative pressure", 75, 28, -30, true},
      {"no pressure", 75, 28, noValue, false},
      {"infinite pressure", 75, 28, 1 / 0.0, false},
      {"no enthalpy", 75, noValue, atm, false},
      {"no dry bulb", noValue, 28, atm, false},
      {"enthalpy that is never reached", 75, -1e300, atm, false},
      {"enthalpy far above", 75, 1e300, atm, true},
      {"dry bulb of a million, never reached", 1e6, -1e300, atm, false},
      {"dry bulb of a billion", 9e9, 1e5, atm, true},
      {"dry bulb where a step no longer counts", 1e17, 28, atm, false},
      {"dry bulb of 1e300", 1e300, 28, atm, false},
      {"dry bulb below absolute zero", -1e300, 28, atm, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const std::clock_t start = std::clock();
    const double wb = psychro_wb(row.db, row.h, row.atm);
    EXPECT_LT(std::clock() - start, CLOCKS_PER_SEC / 10);
    EXPECT_EQ(hasValue(wb), row.found) << wb;
  }
}

TEST(NamedInverses, PublishedValues) {
  const struct {
    const char* name;
    double result, expected;
  } rows[] = {
      {"enthalpy", psychro_h1(75, 50, atm), 28.10735},
      {"enthalpy, false guard: a wet bulb of 60", psychro_h1(2, 30, atm), psychro_h(2, 60, atm)},
      {"saturated dry bulb", dbWithRhAndHr(100, 0.01, atm), 57.27997},
      {"dry bulb", dbWithRhAndHr(50, 0.01, atm), 77.35382},
      {"dry bulb, false guard: the midpoint", dbWithRhAndHr(100.5, 0.01, atm), 60},
      {"volume", spvolWithDbAndHr(75, 0.01, atm), 13.69049},
      {"volume, false guard: a wet bulb of 60", spvolWithDbAndHr(75, 0.5, atm), psychro_v(75, 60, atm)},
      {"wet bulb", wbWithDbAndW(75, 0.01, atm).x, 63.56781},
      {"wet bulb of a volume, false guard: no iteration", wbWithDbAndV(100, 13, atm).iterations * 1.0, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_NEAR(row.result, row.expected, 5e-6);
  }
  EXPECT_FALSE(hasValue(dbWithRhAndHr(100, 0.0005, atm))) << "saturated at 0.0005 lies below 0 deg F";
  EXPECT_FALSE(hasValue(dbWithRhAndHr(50, 0.01, 0)));
}

TEST(BracketSearch, IterationsArePartOfTheResult) {
  const auto wetBulb = [](double x) { return psychro_rh(75, x, atm); };
  const auto same = [](double x) { return x; };
  const auto mirrored = [](double x) { return -x; };
  const auto hill = [](double x) { return -(x - 60) * (x - 60); };
  const auto nothing = [](double) { return noValue; };
  const Bracket dewPoints{.high = 1.628817};
  const Bracket falls{.direction = Direction::falls};
  const struct {
    const char* name;
    double (*f)(double);
    double target;
    Bracket bracket;
    double x, tolerance;
    int iterations;
  } rows[] = {
      {"wet bulb of 50 percent", wetBulb, 50, {.tolerance = 1e-06}, 62.41301, 5e-6, 19},
      {"dew point in the gap", psychro_dp, 32.1, dewPoints, 0.18036, 1e-9, 100},
      {"dew point above the bracket", psychro_dp, 100, dewPoints, 1.628817, 1e-9, 100},
      {"found at the midpoint", same, 60, {}, 60, 0, 1},
      {"two halvings in one iteration", same, 45, {}, 45, 0, 1},
      {"falling, by the probe", mirrored, -45, {}, 45, 0, 2},
      {"falling, by the fixed direction", mirrored, -45, falls, 45, 0, 2},
      {"rising against the fixed direction", same, 45, falls, 120, 1e-6, 100},
      {"the probe follows the slope it finds", hill, -900, {}, 90, 0, 1},
      {"never a value", nothing, 5, {}, 60, 0, 100},
      {"target without a value", same, noValue, {}, 60, 0, 100},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const SearchResult result = bracketSearch(row.f, row.target, row.bracket);
    EXPECT_NEAR(result.x, row.x, row.tolerance);
    EXPECT_EQ(result.iterations, row.iterations);
    EXPECT_EQ(result.failed(), row.iterations == iterationLimit);
  }
}

TEST(BracketSearch, ConvergingInTheHundredthIterationIsAFailure) {
  // Every iteration asks once for its test and, as the target lies above, once more to halve: the value comes at last.
  int calls = 0;
  const auto late = [&](double) { return ++calls < 101 ? 0.0 : 5.0; };
  EXPECT_TRUE(bracketSearch(late, 5, Bracket{.direction = Direction::falls}).failed());
  EXPECT_EQ(calls, 101);
}

TEST(BracketSearch, AFalseGuardRunsNothing) {
  const auto f = [](double) -> double { throw std::logic_error("a guard kept nothing from running"); };
  const SearchResult result = bracketSearch(f, 5, Bracket{.low = 10, .high = 30}, false);
  EXPECT_EQ(result.x, 20);
  EXPECT_EQ(result.iterations, 0);
}

TEST(Guard, LiesStrictlyBetween) {
  const auto f = [](double x) { return x; };
  for (const double outside : {120.0, 0.0, noValue}) EXPECT_FALSE(liesBetween(f, outside)) << outside;
  EXPECT_TRUE(liesBetween(f, 119.9));
}

}  // namespace
