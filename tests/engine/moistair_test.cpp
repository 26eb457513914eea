#include "engine/moistair.h"

#include <gtest/gtest.h>

#include <limits>

#include "engine/value.h"

using namespace moistair;

namespace {

constexpr double sealevel = defaultpressure;
constexpr double infinite = std::numeric_limits<double>::infinity();

/// Seven printed decimals.
constexpr double printed = 0.5e-7;

struct Lookup {
  const char* name;
  double x;
  double result;
};

TEST(SaturationPressure, PublishedValues) {
  const Lookup rows[] = {
      {"deep frost", -40, 0.0037933}, {"zero", 0, 0.0376717},  {"freezing, over water", 32, 0.1804939},
      {"cool", 50, 0.3626323},        {"room", 75, 0.8756536}, {"hot", 100, 1.9348777},
      {"chart edge", 120, 3.4505602},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_NEAR(psychro_pvs(row.x), row.result, printed);
  }
}

TEST(SaturationPressure, IceBeginsJustBelow32) {
  // The factor 0.555556 puts 273.15 K at 31.9996 deg F; 5/9 would put it at 32.
  const double lastofice = psychro_pvs(31.9995);
  const double firstofwater = psychro_pvs(31.9997);
  const double waterslope = (psychro_pvs(32.0001) - firstofwater) / 0.0004;
  const double step = firstofwater - lastofice - waterslope * 0.0002;
  EXPECT_GT(std::abs(step), 1e-7) << "both temperatures lie on one branch";
  EXPECT_NEAR(psychro_pvs(31.9997) + waterslope * 0.0003, psychro_pvs(32), 1e-9)
      << "31.9997 is not on the branch of 32";
}

struct State {
  const char* name;
  double db, wb, atm;
  double pv, w, h, rh, v, dp;
};

TEST(States, PublishedValues) {
  const double mountain = 24.8961078;
  const State rows[] = {
      {"room", 75, 62.5, sealevel, 0.4404820, 0.0092932, 28.1695563, 50.3032182, 13.6751968, 55.2457239},
      {"summer", 95, 75, sealevel, 0.6699259, 0.0142448, 38.5146205, 40.3104311, 14.2978304, 67.1005926},
      {"ice on the wick", 40, 30, sealevel, 0.0698175, 0.0014547, 11.1692791, 28.1708888, 12.6215864, 12.0965665},
      {"saturated at the step", 32, 32, sealevel, 0.1804939, 0.0037747, 11.7386294, 100, 12.4656725, 32.2317851},
      {"saturated and hot", 120, 120, sealevel, 3.4505602, 0.0810775, 119.1430902, 100, 16.5096812, 119.8183455},
      {"at 5000 ft", 75, 62.5, mountain, 0.4626439, 0.0117771, 30.8876764, 52.8341213, 16.5000448, 56.5992672},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_NEAR(psychro_pv1(row.db, row.wb, row.atm), row.pv, printed);
    EXPECT_NEAR(psychro_w(row.db, row.wb, row.atm), row.w, printed);
    EXPECT_NEAR(psychro_h(row.db, row.wb, row.atm), row.h, printed);
    EXPECT_NEAR(psychro_rh(row.db, row.wb, row.atm), row.rh, printed);
    EXPECT_NEAR(psychro_v(row.db, row.wb, row.atm), row.v, printed);
    EXPECT_NEAR(psychro_dp(psychro_pv1(row.db, row.wb, row.atm)), row.dp, printed);
  }
}

TEST(States, DryAirIsNotClampedAtZero) {
  EXPECT_NEAR(psychro_rh(50, 0, sealevel), -120.3, 0.05);
  EXPECT_NEAR(psychro_pv1(120, 0, sealevel), -1.1, 0.05);
}

TEST(States, WetBulbOf32IsIce) {
  const double ice = psychro_pv1(60, 32, sealevel);
  const double justbelow = psychro_pv1(60, 31.9999999, sealevel);
  const double justabove = psychro_pv1(60, 32.0000001, sealevel);
  EXPECT_NEAR(ice, justbelow, 1e-8);
  EXPECT_GT(std::abs(ice - justabove), 1e-4);
}

TEST(DewPoint, PublishedValues) {
  const Lookup rows[] = {
      {"first of the upper form", 0.18036, 32.2138874},
      {"last of the lower form", 0.1803599, 31.9964038},
      {"end of the searched range", 1.628817, 94.4147432},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_NEAR(psychro_dp(row.x), row.result, printed);
  }
}

TEST(HumidityRatioOfRelativeHumidity, PublishedValues) {
  EXPECT_NEAR(psychro_wrh(75, 50, sealevel), 0.0092364, printed);
  EXPECT_NEAR(psychro_wrh(0, 100, sealevel), 0.0007841, printed);
  EXPECT_NEAR(psychro_wrh(120, 100, sealevel), 0.0810775, printed);
}

TEST(PressureAtElevation, PublishedValues) {
  EXPECT_NEAR(psychro_atm(0), 29.9213499, printed);
  EXPECT_NEAR(psychro_atm(5000), 24.8961078, printed);
  EXPECT_NEAR(psychro_atm(38650), 5.9009171, printed);
}

TEST(Logarithm, OfTen) {
  EXPECT_DOUBLE_EQ(moistair::log10(1000), 3);
  EXPECT_DOUBLE_EQ(moistair::log10(1e-7), -7);
}

TEST(NoValue, IsNeitherInventedNorInfinite) {
  // The pressure at which the vapour pressure of saturated air at 80 takes it all.
  const double boiling80 = psychro_pvs(80);
  const struct {
    const char* name;
    double result;
  } rows[] = {
      {"logarithm of 0", moistair::log10(0)},
      {"logarithm below 0", moistair::log10(-1)},
      {"logarithm of an infinity", moistair::log10(infinite)},
      {"pvs at absolute zero", psychro_pvs(-459.67)},
      {"pvs below absolute zero", psychro_pvs(-500)},
      {"pvs of a huge temperature", psychro_pvs(1e300)},
      {"pvs of no value", psychro_pvs(novalue)},
      {"dp of 0", psychro_dp(0)},
      {"dp below 0", psychro_dp(-0.1)},
      {"dp of an infinity", psychro_dp(infinite)},
      {"dp of no value", psychro_dp(novalue)},
      {"pv1 of boiling water", psychro_pv1(90, 80, boiling80)},
      {"pv1 of saturated air in a vacuum", psychro_pv1(60, 60, 0)},
      {"pv1 of no wet bulb", psychro_pv1(75, novalue, sealevel)},
      {"pv1 of no pressure", psychro_pv1(75, 60, novalue)},
      {"w of boiling water", psychro_w(90, 80, boiling80)},
      {"h of boiling water", psychro_h(90, 80, boiling80)},
      {"h of an infinite dry bulb", psychro_h(infinite, 60, sealevel)},
      {"v of boiling water", psychro_v(90, 80, boiling80)},
      {"v in a vacuum", psychro_v(75, 20, 0)},
      {"rh below absolute zero", psychro_rh(-500, 20, sealevel)},
      {"wrh where vapour is all", psychro_wrh(80, 100, boiling80)},
      {"wrh below absolute zero", psychro_wrh(-500, 50, sealevel)},
      {"atm above the atmosphere", psychro_atm(145447)},
      {"atm of an overflow", psychro_atm(-1e300)},
      {"atm of an infinity", psychro_atm(-infinite)},
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
  assign(target, 0);
  EXPECT_EQ(target, 0);
}

TEST(NoValue, AnInfiniteDenominatorInventsNoZero) {
  EXPECT_FALSE(hasvalue(quotient(1, infinite)));
  EXPECT_FALSE(hasvalue(quotient(1, 0)));
  EXPECT_EQ(quotient(1, 4), 0.25);
}

}  // namespace
