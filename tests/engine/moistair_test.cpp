#include "engine/moistair.h"

#include <gtest/gtest.h>

#include <limits>

#include "text/value.h"

using namespace moistair;

namespace {

constexpr double atm = defaultPressure;
constexpr double infinite = std::numeric_limits<double>::infinity();

/// Seven printed decimals.
constexpr double printed = 0.5e-7;

struct Row {
  const char* name;
  double result;
  double expected = 0;
};

TEST(Functions, ThatNoRecordedStateUses) {
  const Row rows[] = {
      {"atm, sea level", psychro_atm(0), 29.9213499},
      {"atm, highest", psychro_atm(38650), 5.9009171},
      {"log10", moistair::log10(1e-7), -7},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_NEAR(row.result, row.expected, printed);
  }
}

TEST(NoValue, IsNeitherInventedNorInfinite) {
  const double boiling80 = psychro_pvs(80);  // the vapor of saturated air at 80 takes all of this pressure
  const Row rows[] = {
      {"log10 of 0", moistair::log10(0)},
      {"log10 of an infinity", moistair::log10(infinite)},
      {"pvs at absolute zero", psychro_pvs(-459.67)},
      {"pvs of a huge temperature", psychro_pvs(1e300)},
      {"pvs of no value", psychro_pvs(noValue)},
      {"dp of 0", psychro_dp(0)},
      {"dp of an infinity", psychro_dp(infinite)},
      {"pv1 of boiling water", psychro_pv1(90, 80, boiling80)},
      {"pv1 of saturated air in a vacuum", psychro_pv1(60, 60, 0)},
      {"pv1 of no pressure", psychro_pv1(75, 60, noValue)},
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
  assign(target, noValue);
  assign(target, infinite);
  EXPECT_EQ(target, 3);
}

}  // namespace
