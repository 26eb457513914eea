#include <gtest/gtest.h>

#include "comfort/pmv.h"
#include "comfort/settemperature.h"
#include "engine/moistair.h"

using namespace moistair;

namespace {

constexpr double fahrenheit(double celsius) { return celsius * 1.8 + 32; }

/// ISO 7730:2005, table D.1: deg C, m/s, percent.
TEST(Comfort, AgreesWithTheTableOfIso7730) {
  const struct {
    double air, radiant, speed, rh, met, clo, pmv, ppd;
  } rows[] = {
      {22, 22, 0.10, 60, 1.2, 0.5, -0.75, 17},     {27, 27, 0.10, 60, 1.2, 0.5, 0.77, 17},
      {27, 27, 0.30, 60, 1.2, 0.5, 0.44, 9},       {23.5, 25.5, 0.10, 60, 1.2, 0.5, -0.01, 5},
      {23.5, 25.5, 0.30, 60, 1.2, 0.5, -0.55, 11}, {19, 19, 0.10, 40, 1.2, 1.0, -0.60, 13},
      {23.5, 23.5, 0.30, 40, 1.2, 1.0, 0.12, 5},   {23, 21, 0.10, 40, 1.2, 1.0, 0.05, 5},
      {23, 21, 0.30, 40, 1.2, 1.0, -0.16, 6},      {22, 22, 0.10, 60, 1.6, 0.5, 0.05, 5},
      {27, 27, 0.10, 60, 1.6, 0.5, 1.17, 34},      {27, 27, 0.30, 60, 1.6, 0.5, 0.95, 24},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.pmv);
    Occupant person{ComfortMethod::iso, row.met, row.clo, row.speed * feetPerMinute, false, fahrenheit(row.radiant)};
    const double db = fahrenheit(row.air);
    const auto comfort = comfortAt(person, db, psychro_wrh(db, row.rh, defaultPressure), defaultPressure);
    ASSERT_TRUE(comfort) << comfort.error().text();
    EXPECT_NEAR(comfort->pmv, row.pmv, 0.02);
    EXPECT_NEAR(comfort->ppd, row.ppd, 1);
    EXPECT_EQ(comfort->coolingEffect, 0);
  }
}

/// ANSI/ASHRAE Standard 55, validation table of the comfort zone's corners: 1.1 met, 20 fpm.
TEST(Comfort, AgreesWithTheTableOfAshrae55) {
  const struct {
    double db, rh, clo, pmv;
  } rows[] = {
      {67.3, 86, 1.0, -0.5}, {75.0, 66, 1.0, 0.5}, {78.2, 15, 1.0, 0.5}, {70.2, 20, 1.0, -0.5},
      {74.5, 67, 0.5, -0.5}, {80.2, 56, 0.5, 0.5}, {82.2, 13, 0.5, 0.5}, {76.5, 16, 0.5, -0.5},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.db);
    const double w = psychro_wrh(row.db, row.rh, defaultPressure);
    EXPECT_NEAR(voteAt({.clo = row.clo}, row.db, w, defaultPressure), row.pmv, 0.05);
  }
}

/// ANSI/ASHRAE Standard 55, validation table of the standard effective temperature: deg C, m/s, percent.
TEST(Comfort, StandardEffectiveTemperatureAgreesWithTheTableOfAshrae55) {
  const struct {
    double air, radiant, speed, rh, met, clo, set;
  } rows[] = {
      {25, 25, 0.15, 50, 1, 0.5, 23.8}, {0, 25, 0.15, 50, 1, 0.5, 12.3},    {10, 25, 0.15, 50, 1, 0.5, 17.0},
      {15, 25, 0.15, 50, 1, 0.5, 19.3}, {20, 25, 0.15, 50, 1, 0.5, 21.6},   {30, 25, 0.15, 50, 1, 0.5, 26.4},
      {40, 25, 0.15, 50, 1, 0.5, 34.3}, {25, 25, 0.15, 10, 1, 0.5, 23.3},   {25, 25, 0.15, 90, 1, 0.5, 24.9},
      {25, 25, 0.10, 50, 1, 0.5, 24.0}, {25, 25, 0.60, 50, 1, 0.5, 21.4},   {25, 25, 1.10, 50, 1, 0.5, 20.3},
      {25, 25, 3.00, 50, 1, 0.5, 18.8}, {25, 10, 0.15, 50, 1, 0.5, 15.2},   {25, 40, 0.15, 50, 1, 0.5, 31.8},
      {25, 25, 0.15, 50, 1, 0.1, 20.7}, {25, 25, 0.15, 50, 1, 1.0, 27.3},   {25, 25, 0.15, 50, 1, 2.0, 32.5},
      {25, 25, 0.15, 50, 1, 4.0, 37.7}, {25, 25, 0.15, 50, 0.8, 0.5, 23.3}, {25, 25, 0.15, 50, 2, 0.5, 29.7},
      {25, 25, 0.15, 50, 4, 0.5, 36.0},
  };
  for (const auto& [air, radiant, speed, rh, met, clo, set] : rows) {
    const double pv = rh / 100 * psychro_pvs(fahrenheit(air)) * kilopascalPerInHg;
    EXPECT_NEAR(standardEffectiveTemperature({air, radiant, pv, met, clo, 101.325}, speed), set, 0.06) << set;
  }
}

/// Moving air feels like still air that is cooler by the effect.
TEST(Comfort, MovingAirCountsFromTwentyFpmOnAndByAshraeOnly) {
  const auto at = [](const Occupant& person, double db) { return comfortAt(person, db, 0.009, defaultPressure); };
  const auto still = at({.airSpeed = 20}, 80);
  EXPECT_EQ(still->coolingEffect, 0);
  double before = 0;
  for (const double speed : {40.0, 60.0, 160.0, 400.0}) {
    const auto moving = at({.airSpeed = speed}, 80);
    ASSERT_TRUE(moving);
    EXPECT_GT(moving->coolingEffect, before);
    EXPECT_LT(moving->pmv, still->pmv);
    before = moving->coolingEffect;
    const double cooler = 80 - before;
    const double pv = pressureOfRatio(0.009, defaultPressure) * psychro_pvs(cooler) / psychro_pvs(80);
    EXPECT_NEAR(at({}, cooler)->pmv, moving->pmv, 0.12) << "same air, but for its relative humidity";
    EXPECT_NEAR(voteAt({}, cooler, ratioOf(pv, defaultPressure), defaultPressure), moving->pmv, 0.002);
  }
  const Occupant walking{.met = 2, .airSpeed = 20, .movingBody = true};
  EXPECT_NEAR(relativeAirSpeed(walking), 20 + 0.3 * feetPerMinute, 1e-9);
  EXPECT_GT(at(walking, 72)->coolingEffect, 1);
  EXPECT_NEAR(at({.airSpeed = 0}, 80)->pmv, still->pmv, 0.2);
}

TEST(Comfort, RefusesWhatTheMethodsDoNotHoldFor) {
  constexpr auto iso = ComfortMethod::iso;
  const struct {
    Occupant person;
    double db, w;
    const char* words;
  } rows[] = {
      {{.met = 0.9}, 75, 0.008, "met: must be from 1 to 4 for ASHRAE 55"},
      {{.method = iso, .met = 4.1}, 75, 0.008, "met: must be from 0.8 to 4 for ISO 7730"},
      {{.clo = 1.6}, 75, 0.008, "clo: must be from 0 to 1.5 for ASHRAE 55"},
      {{.clo = noValue}, 75, 0.008, "clo: must be from 0 to 1.5 for ASHRAE 55"},
      {{.airSpeed = -1}, 75, 0.008, "air speed: must be from 0 to 400 fpm for ASHRAE 55"},
      {{.method = iso, .met = 3, .airSpeed = 150, .movingBody = true},
       75,
       0.008,
       "air speed: must be from 0 to 197 fpm for ISO 7730"},
      {{.radiant = 120}, 75, 0.008, "mean radiant temperature: must be from 50 to 104 deg F for ASHRAE 55"},
      {{.method = iso}, 90, 0.008, "dry bulb: must be from 50 to 86 deg F for ISO 7730"},
      {{.method = iso}, 84, 0.018, "vapor pressure: must be from 0 to 0.79731 in Hg for ISO 7730"},
      {{}, 75, -0.001, "humidity ratio: must not be below 0"},
      {{}, 60, 0.015, "humidity ratio: must not be above that of saturated air"},
      {{.method = iso}, 60, 0.005, "vote: -3.36 is beyond the scale of -2 to 2 of ISO 7730"},
      {{.airSpeed = 200, .radiant = 60},
       104,
       0,
       "air speed: moving air does not cool here; give a speed of 20 fpm or less"},
  };
  for (const auto& [person, db, w, words] : rows) {
    const auto comfort = comfortAt(person, db, w, defaultPressure);
    EXPECT_EQ(comfort ? "none" : comfort.error().text(), words);
  }
  EXPECT_FALSE(comfortAt({}, 75, 0.008, 0));
}

}  // namespace
