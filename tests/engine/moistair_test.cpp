#include "engine/moistair.h"

#include <gtest/gtest.h>

#include <limits>

#include "engine/value.h"

using namespace moistair;

namespace {

constexpr double atm = defaultpressure;
constexpr double infinite = std::numeric_limits<double>::infinity();

/// Seven printed decimals.
constexpr double printed = 0.5e-7;

struct Row {
  const char* name;
  double result;
  double expected = 0;
};

TEST(Functions, PublishedValues) {
  const Row rows[] = {
      {"pvs, deep frost", psychro_pvs(-40), 0.0037933},
      {"pvs, freezing, over water", psychro_pvs(32), 0.1804939},
      {"pvs, chart edge", psychro_pvs(120), 3.4505602},
      {"dp, first of the upper form", psychro_dp(0.18036), 32.2138874},
      {"dp, last of the lower form", psychro_dp(0.1803599), 31.9964038},
      {"dp, end of the searched range", psychro_dp(1.628817), 94.4147432},
      {"wrh, room", psychro_wrh(75, 50, atm), 0.0092364},
      {"wrh, saturated frost", psychro_wrh(0, 100, atm), 0.0007841},
      {"atm, sea level", psychro_atm(0), 29.9213499},
      {"atm, highest", psychro_atm(38650), 5.9009171},
      {"log10", moistair::log10(1e-7), -7},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_NEAR(row.result, row.expected, printed);
  }
}

TEST(Functions, IceBeginsJustBelow32) {
  // The factor 0.555556 puts 273.15 K at 31.9996 deg F; 5/9 would put it at 32.
  const double firstofwater = psychro_pvs(31.9997);
  const double slope = (psychro_pvs(32.0001) - firstofwater) / 0.0004;
  EXPECT_GT(std::abs(firstofwater - psychro_pvs(31.9995) - slope * 0.0002), 1e-7) << "both lie on one branch";
  EXPECT_NEAR(firstofwater + slope * 0.0003, psychro_pvs(32), 1e-9) << "31.9997 is not on the branch of 32";
}

TEST(States, WetBulbOf32IsIce) {
  EXPECT_NEAR(psychro_pv1(60, 32, atm), psychro_pv1(60, 31.9999999, atm), 1e-8);
  EXPECT_GT(std::abs(psychro_pv1(60, 32, atm) - psychro_pv1(60, 32.0000001, atm)), 1e-4);
}

TEST(NoValue, IsNeitherInventedNorInfinite) {
  const double boiling80 = psychro_pvs(80);  // the vapour of saturated air at 80 takes all of this pressure
  const Row rows[] = {
      {"log10 of 0", moistair::log10(0)},
      {"log10 of an infinity", moistair::log10(infinite)},
      {"pvs at absolute zero", psychro_pvs(-459.67)},
      {"pvs of a huge temperature", psychro_pvs(1e300)},
      {"pvs of no value", psychro_pvs(novalue)},
      {"dp of 0", psychro_dp(0)},
      {"dp of an infinity", psychro_dp(infinite)},
      {"pv1 of boiling water", psychro_pv1(90, 80, boiling80)},
      {"pv1 of saturated air in a vacuum", psychro_pv1(60, 60, 0)},
      {"pv1 of no pressure", psychro_pv1(75, 60, novalue)},
      {"w of boiling water", psychro_w(90, 80, boiling80)},
      {"h of an infinite dry bulb", psychro_h(infinite, 60, atm)},
      {"v in a vacuum", psychro_v(75, 20, 0)},
      {"rh below absolute zero", psychro_rh(-500, 20, atm)},
      {"wrh where vapour is all", psychro_wrh(80, 100, boiling80)},
      {"atm above the atmosphere", psychro_atm(145447)},
      {"atm of an overflow", psychro_atm(-1e300)},
      {"quotient by 0", quotient(1, 0)},
      {"quotient by an infinity, which is no 0", quotient(1, infinite)},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_TRUE(std::isnan(row.result)) << row.result;
  }
}

TEST(NoValue, AssignmentKeepsTheTarget) {
  double target = 3;
  assign(target, novalue);
  assign(target, infinite);
  EXPECT_EQ(target, 3);
}

}  // namespace
