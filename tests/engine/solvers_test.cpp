#include "engine/solvers.h"

#include <gtest/gtest.h>

#include <ctime>

#include "engine/moistair.h"

using namespace moistair;

namespace {

constexpr double atm = defaultpressure;

struct Walk {
  const char* name;
  double db, h;
  double wb;
};

TEST(WetBulbOfEnthalpy, StepsOfATenth) {
  const Walk rows[] = {
      {"room", 75, 28, 62.2},
      {"moist room", 75, 30, 64.9},
      {"cool", 50, 20, 49.5},
      {"above saturation", 75, 50, 76},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_NEAR(psychro_wb(row.db, row.h, atm), row.wb, 1e-10);
  }
}

TEST(WetBulbOfEnthalpy, CarriesTheRoundingOfItsSteps) { EXPECT_EQ(psychro_wb(75, 28, atm), 62.19999999999999); }

TEST(WetBulbOfEnthalpy, IsNoExactInverse) { EXPECT_NEAR(psychro_h(75, 62.2, atm), 27.9555, 5e-5); }

TEST(WetBulbOfEnthalpy, EveryWalkEnds) {
  const struct {
    const char* name;
    double db, h, atm;
    bool found;
  } rows[] = {
      {"vacuum", 75, 28, 0, true},
      {"negative pressure", 75, 28, -30, true},
      {"huge pressure", 75, 28, 1e300, true},
      {"no pressure", 75, 28, novalue, false},
      {"infinite pressure", 75, 28, 1 / 0.0, false},
      {"no enthalpy", 75, novalue, atm, false},
      {"no dry bulb", novalue, 28, atm, false},
      {"enthalpy that is never reached", 75, -1e300, atm, false},
      {"the same in a vacuum", 75, -1e300, 0, false},
      {"enthalpy far above", 75, 1e300, atm, true},
      {"dry bulb of a million", 1e6, 28, atm, true},
      {"dry bulb of a million, never reached", 1e6, -1e300, atm, false},
      {"dry bulb of a million, enthalpy on the way", 1e6, 1e5, atm, true},
      {"dry bulb where a step no longer counts", 1e17, 28, atm, false},
      {"dry bulb of 1e300", 1e300, 28, atm, false},
      {"dry bulb of -1e300", -1e300, 28, atm, false},
      {"dry bulb below absolute zero", -1000, 28, atm, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const std::clock_t start = std::clock();
    const double wb = psychro_wb(row.db, row.h, row.atm);
    EXPECT_LT(std::clock() - start, CLOCKS_PER_SEC / 10);
    EXPECT_EQ(hasvalue(wb), row.found) << wb;
  }
}

TEST(WetBulbOfEnthalpy, AHugeDryBulbEndsWhereDryAirHasTheEnthalpy) {
  // Vapour counts for nothing up there: 0.24 T is below h first at the step below h / 0.24.
  EXPECT_NEAR(psychro_wb(1e6, 1e5, atm), 1e5 / 0.24, 0.1);
  EXPECT_NEAR(psychro_wb(9e9, 1e5, atm), 1e5 / 0.24, 0.1);
}

TEST(NamedInverses, PublishedValues) {
  EXPECT_NEAR(psychro_h1(75, 50, atm), 28.10735, 5e-6);
  EXPECT_NEAR(dbwithrhandhr(100, 0.01, atm), 57.27997, 5e-6);
  EXPECT_NEAR(dbwithrhandhr(50, 0.01, atm), 77.35382, 5e-6);
  EXPECT_NEAR(dbwithrhandhr(100, 0.03, atm), 88.95035, 5e-6);
  EXPECT_NEAR(spvolwithdbandhr(75, 0.01, atm), 13.69049, 5e-6);
  EXPECT_NEAR(wbwithdbandhr(75, 0.01, atm).x, 63.56781, 5e-6);
}

TEST(NamedInverses, NoValueWhenTheSearchFails) {
  EXPECT_FALSE(hasvalue(dbwithrhandhr(100, 0.0005, atm))) << "saturated at 0.0005 lies below 0 deg F";
  EXPECT_FALSE(hasvalue(dbwithrhandhr(50, 0.01, novalue)));
  EXPECT_FALSE(hasvalue(dbwithrhandhr(50, 0.01, 0)));
}

TEST(NamedInverses, AFalseGuardLeavesTheMidpoint) {
  EXPECT_EQ(dbwithrhandhr(100.5, 0.01, atm), 60);
  EXPECT_EQ(dbwithrhandhr(-1, 0.01, atm), 60);
  EXPECT_EQ(psychro_h1(2, 30, atm), psychro_h(2, 60, atm)) << "30 percent at 2 deg F needs a wet bulb below 0";
  EXPECT_EQ(spvolwithdbandhr(75, 0.5, atm), psychro_v(75, 60, atm));
  EXPECT_EQ(wbwithdbandspvol(100, 13, atm).iterations, 0);
  EXPECT_FALSE(wbwithdbandspvol(100, 13, atm).failed());
}

struct Bisection {
  const char* name;
  double (*f)(double);
  double target;
  Bracket bracket;
  double x;
  double tolerance;
  int iterations;
};

TEST(BracketSearch, IterationsArePartOfTheResult) {
  const auto wetbulb = [](double x) { return psychro_rh(75, x, atm); };
  const auto saturated = [](double x) { return psychro_wrh(x, 100, atm); };
  const auto same = [](double x) { return x; };
  const auto mirrored = [](double x) { return -x; };
  const auto hill = [](double x) { return -(x - 60) * (x - 60); };
  const auto nothing = [](double) { return novalue; };
  const Bracket dewpoints{.high = 1.628817};
  const Bracket falls{.direction = Direction::falls};
  const Bisection rows[] = {
      {"wet bulb of 50 percent", wetbulb, 50, {.tolerance = 1e-06}, 62.41301, 5e-6, 19},
      {"saturated at 0.01", saturated, 0.01, {}, 57.27997, 5e-6, 12},
      {"dew point in the gap", psychro_dp, 32.1, dewpoints, 0.18036, 1e-9, 100},
      {"dew point above the bracket", psychro_dp, 100, dewpoints, 1.628817, 1e-9, 100},
      {"found at the midpoint", same, 60, {}, 60, 0, 1},
      {"two halvings in one iteration", same, 45, {}, 45, 0, 1},
      {"falling, by the probe", mirrored, -45, {}, 45, 0, 2},
      {"falling, by the fixed direction", mirrored, -45, falls, 45, 0, 2},
      {"rising against the fixed direction", same, 45, falls, 120, 1e-6, 100},
      {"the probe follows the slope it finds", hill, -900, {}, 90, 0, 1},
      {"target out of reach", same, 130, {}, 120, 1e-9, 100},
      {"never a value", nothing, 5, {}, 60, 0, 100},
      {"target without a value", same, novalue, {}, 60, 0, 100},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const SearchResult result = bracketsearch(row.f, row.target, row.bracket);
    EXPECT_NEAR(result.x, row.x, row.tolerance);
    EXPECT_EQ(result.iterations, row.iterations);
    EXPECT_EQ(result.failed(), row.iterations == iterationlimit);
  }
  EXPECT_NEAR(psychro_dp(bracketsearch(psychro_dp, 32.1, dewpoints).x), 31.9964, 5e-5);
}

TEST(BracketSearch, ConvergingInTheHundredthIterationIsAFailure) {
  // Every iteration asks once for its test and, as the target lies above, three times to halve: the value comes at
  // last.
  int calls = 0;
  const auto late = [&](double) { return ++calls < 200 ? 0.0 : 5.0; };
  const SearchResult result = bracketsearch(late, 5, Bracket{.direction = Direction::falls});
  EXPECT_EQ(result.iterations, 100);
  EXPECT_TRUE(result.failed());
}

TEST(BracketSearch, AFalseGuardRunsNothing) {
  int calls = 0;
  const auto f = [&](double x) { return ++calls, x; };
  const SearchResult result = bracketsearch(f, 5, Bracket{.low = 10, .high = 30}, false);
  EXPECT_EQ(result.x, 20);
  EXPECT_EQ(result.iterations, 0);
  EXPECT_EQ(calls, 0);
}

TEST(Guard, LiesStrictlyBetween) {
  const auto f = [](double x) { return x; };
  EXPECT_TRUE(liesbetween(f, 119.9));
  EXPECT_FALSE(liesbetween(f, 120));
  EXPECT_FALSE(liesbetween(f, 0));
  EXPECT_FALSE(liesbetween(f, novalue));
}

}  // namespace
