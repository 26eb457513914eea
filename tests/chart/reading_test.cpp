#include "chart/reading.h"

#include <gtest/gtest.h>

#include "engine/moistair.h"
#include "engine/saturation.h"

using namespace moistair;

namespace {

constexpr ChartLimits whole{0, 120, 0, 0.03};
constexpr double sea = defaultPressure;

/// A plot of 1200 by 600 pixels: a tenth of a degree and 0.00005 to the pixel.
constexpr PlotBox box{whole, 100, 50, 1300, 650};

double saturation(double db, double atm) { return ratioOf(pvsAt(db), atm); }

}  // namespace

TEST(Reading, SaysTheStateOrWhyThereIsNone) {
  const struct {
    const char* name;
    ChartLimits limits;
    double atm;
    ChartCoordinates place;
    const char* description;
  } rows[] = {
      {"a room",
       whole,
       sea,
       {75, 0.00929},
       "DB 75.00 Deg F, WB 62.50 Deg F, RH 50.29 %, Enthalpy 28.17 Btu/lb, Sp vol 13.675 cuf/lb, H.ratio 0.00929 "
       "lb/lb, "
       "DP 55.24 Deg F, V. pr 0.4403 In Hg"},
      {"a marked point keeps its decimals",
       whole,
       sea,
       {75, 0.0092932},
       "DB 75.00 Deg F, WB 62.50 Deg F, RH 50.30 %, Enthalpy 28.17 Btu/lb, Sp vol 13.675 cuf/lb, H.ratio 0.0092932 "
       "lb/lb, "
       "DP 55.25 Deg F, V. pr 0.4405 In Hg"},
      {"cold",
       whole,
       24.9,
       {20.5, 0.001},
       "DB 20.50 Deg F, WB 15.23 Deg F, RH 37.96 %, Enthalpy 5.99 Btu/lb, Sp vol 14.564 cuf/lb, H.ratio 0.00100 lb/lb, "
       "DP 1.15 Deg F, V. pr 0.0400 In Hg"},
      {"above saturation", whole, sea, {50, 0.02}, "Above saturation: DB 50.00 Deg F, H.ratio 0.02000 lb/lb"},
      {"saturated here, not at the other pressure", whole, 20, {70, 0.02}, nullptr},
      {"the same further down", whole, sea, {70, 0.02}, "Above saturation: DB 70.00 Deg F, H.ratio 0.02000 lb/lb"},
      {"left of the limits",
       {50, 100, 0, 0.02},
       sea,
       {49.99, 0.005},
       "Outside the limits: DB 49.99 Deg F, H.ratio 0.00500 lb/lb"},
      {"above the limits",
       {50, 100, 0, 0.02},
       sea,
       {90, 0.0201},
       "Outside the limits: DB 90.00 Deg F, H.ratio 0.02010 lb/lb"},
      {"no air is quite dry", whole, sea, {75, 0}, "No state of air: DB 75.00 Deg F, H.ratio 0.00000 lb/lb"},
      {"nor at zero", whole, sea, {0, 0.0005}, "No state of air: DB 0.00 Deg F, H.ratio 0.00050 lb/lb"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Reading reading = readingAt(row.limits, row.atm, row.place);
    EXPECT_NE(reading.state.has_value(), reading.reason != NoReading::none);
    if (row.description != nullptr) {
      EXPECT_EQ(readingDescription(reading), row.description);
    }
  }
}

TEST(Reading, PointsAtWhatIsMeant) {
  const double line = box.y(saturation(70, sea));
  const std::vector<ChartCoordinates> targets = {{75, 0.0092932}, {75.4, 0.0092932}};
  const struct {
    const char* name;
    double x, y;
    bool whole;
    ChartCoordinates place;
    int target;
  } rows[] = {
      {"the place itself", 903.33, 501.13, false, {80.33, 0.00744}, -1},
      {"whole degrees and ratios", 903.33, 501.13, true, {80, 0.0075}, -1},
      {"a point within reach", 846, 468, false, {75, 0.0092932}, 0},
      {"the nearer of two", 852.5, 464, false, {75.4, 0.0092932}, 1},
      {"a point just out of reach", 841, 464, false, {74.1, 0.0093}, -1},
      {"whole degrees before a point", 851, 464, true, {75, 0.0095}, -1},
      {"saturation from below", 800, line + 5, false, {70, 0.0157649}, -1},
      {"saturation from above", 800, line - 5, false, {70, 0.0157649}, -1},
      {"not from further off", 800, line + 12, false, {70, 0.01516}, -1},
      {"beyond the plot", 30, 700, false, {-7, -0.0025}, -1},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Pointing at = pointedAt(box, sea, row.x, row.y, targets, row.whole);
    EXPECT_NEAR(at.place.db, row.place.db, 1e-9);
    EXPECT_NEAR(at.place.w, row.place.w, 1e-7);
    EXPECT_EQ(at.target ? static_cast<int>(*at.target) : -1, row.target);
  }
}

TEST(Reading, FindsSaturatedAirWhereThereIsSome) {
  for (const double atm : {29.92126, 20.5, 31.0}) {
    for (double db = 0.5; db <= 90; db += 0.37) {
      const auto place = saturatedAt(db, atm);
      if (saturation(db, atm) > 0.03) continue;
      ASSERT_TRUE(place) << db << " at " << atm;
      EXPECT_GT(readingAt(whole, atm, *place).state->rh, db < 20 ? 98 : 99.9) << db << " at " << atm;
    }
  }
  EXPECT_FALSE(saturatedAt(115, 3)) << "water boils";
}

TEST(Reading, StepsByKeysWithinTheLimits) {
  const ChartLimits limits{50, 100, 0.01, 0.02};
  const struct {
    const char* name;
    ChartCoordinates from;
    int degrees, ratios;
    bool tenths;
    ChartCoordinates to;
  } rows[] = {
      {"a degree", {75.32, 0.0123}, 1, 0, false, {76.32, 0.0123}},
      {"a ratio", {75, 0.0092932}, 0, 1, false, {75, 0.01}},
      {"a tenth of a degree", {75, 0.0192932}, -1, 0, true, {74.9, 0.0192932}},
      {"a tenth of a ratio", {75, 0.012}, 0, -1, true, {75, 0.01195}},
      {"to the right end", {99.5, 0.012}, 1, 0, false, {100, 0.012}},
      {"to the top", {75, 0.0199}, 0, 1, false, {75, 0.02}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const ChartCoordinates to = stepped(limits, row.from, row.degrees, row.ratios, row.tenths);
    EXPECT_NEAR(to.db, row.to.db, 1e-9);
    EXPECT_NEAR(to.w, row.to.w, 1e-9);
  }
}

TEST(Reading, KeysComeToAMarkAndGoOn) {
  const std::vector<ChartCoordinates> marks = {{75, 0.0092932}};
  EXPECT_TRUE(targetAt({75, 0.0092932}, marks));
  EXPECT_FALSE(targetAt({75.1, 0.0092932}, marks)) << "a tenth of a degree away the air is another";
  EXPECT_FALSE(targetAt({75, 0.0093}, marks));
  EXPECT_EQ(caughtBy(marks, {75.4, 0.0095}, false), marks[0]) << "steps of a degree would pass it by";
  const ChartCoordinates beyond = stepped(whole, marks[0], 1, 0, true);
  EXPECT_EQ(caughtBy(marks, beyond, true), beyond) << "the next step leaves it";
}

TEST(Reading, CurvesRunThroughThePlaceAndKeepTheirProperty) {
  for (const double atm : {29.92126, 24.9, 5.0}) {
    const Reading reading = readingAt(whole, atm, {80, 0.008});
    ASSERT_TRUE(reading.state);
    const StatePoint& state = *reading.state;
    for (const ChartCoordinates& place : wetBulbCurve(whole, atm, state)) {
      EXPECT_NEAR(place.w, psychro_w(place.db, state.wb, atm), 1e-9) << place.db;
    }
    EXPECT_EQ(wetBulbCurve(whole, atm, state).front().db, state.wb) << "it begins at saturation";
    for (const ChartCoordinates& place : humidityCurve(whole, atm, state)) {
      EXPECT_NEAR(place.w, psychro_wrh(place.db, state.rh, atm), 1e-5 + 1e-3 * place.w) << place.db;
    }
  }
}
