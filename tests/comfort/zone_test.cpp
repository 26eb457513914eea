#include <gtest/gtest.h>

#include "comfort/zone.h"
#include "engine/moistair.h"

using namespace moistair;

namespace {

using enum PropertyKind;

const double highAbove = psychro_atm(5000);

/// As the installed files have them.
const Envelope classA1{"A1", "", {{db, 59, 89.6}, {rh, 8, 80}, {dp, 10.4, 62.6}}, Derating{2952.75591, 1.8288}};

std::vector<OutlinePoint> cornersOf(const Zone& zone, double atm, const ZoneWindow& window = {}) {
  std::vector<OutlinePoint> corners;
  for (const Outline& outline : outlinesOf(zone, window, atm)) {
    std::copy_if(outline.begin(), outline.end(), std::back_inserter(corners), [](const auto& at) { return at.corner; });
  }
  return corners;
}

/// Dry bulbs for votes of -0.5 and 0.5, found by another program, which solves the clothing's balance and the dry bulb
/// by halving and takes the saturation pressure of Hyland and Wexler.
TEST(Zone, EdgesAgreeWithPointsThatWereSolvedIndependently) {
  const struct {
    double atm, w, met, clo, radiant, cold, warm;
  } rows[] = {
      {defaultPressure, 0, 1.1, 0.5, 0, 77.091, 82.909},      {defaultPressure, 0.004, 1.1, 1.0, 0, 69.680, 77.765},
      {defaultPressure, 0.008, 1.2, 0.7, 75, 67.044, 81.506}, {defaultPressure, 0.011, 1.1, 0.5, 0, 74.596, 80.448},
      {highAbove, 0.004, 1.1, 0.5, 0, 76.329, 82.158},        {highAbove, 0.008, 1.1, 1.0, 0, 68.847, 76.945},
      {highAbove, 0.011, 1.2, 0.7, 75, 66.549, 80.899},       {highAbove, 0.011, 1.1, 0.5, 0, 75.016, 80.863},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.cold);
    ComfortZone zone{{.met = row.met, .clo = row.clo, .airSpeed = 0.1 * 196.8504}};
    if (row.radiant > 0) zone.occupant.radiant = row.radiant;
    const auto corners = cornersOf(zone, row.atm, {0, 120, row.w, 0.03});
    ASSERT_EQ(corners.size(), 4u);
    EXPECT_NEAR(corners[0].db, row.cold, 0.003);
    EXPECT_NEAR(corners[1].db, row.warm, 0.003);
    for (const double aside : {-0.01, 0.01}) {
      EXPECT_EQ(contains(zone, row.cold + aside, row.w, row.atm), aside > 0);
      EXPECT_EQ(contains(zone, row.warm + aside, row.w, row.atm), aside < 0);
    }
  }
}

TEST(Zone, HasItsCorners) {
  ComfortZone humid;
  humid.mostDewPoint = 80;
  ComfortZone breezy{{.method = ComfortMethod::iso, .clo = 0.3, .airSpeed = 120}};
  const struct {
    const char* name;
    Zone zone;
    double atm;
    std::vector<std::pair<double, double>> corners;
  } rows[] = {
      {"up to the dew point",
       ComfortZone{},
       defaultPressure,
       {{77.09, 0}, {82.91, 0}, {80.23, 0.01197}, {74.38, 0.01197}}},
      {"up to the dew point at 5000 ft",
       ComfortZone{},
       highAbove,
       {{77.09, 0}, {82.91, 0}, {80.23, 0.01444}, {74.38, 0.01444}}},
      {"clipped at saturation", humid, defaultPressure, {{77.09, 0}, {82.91, 0}, {78.27, 0.02098}, {73.14, 0.01758}}},
      {"clipped where the method ends",
       breezy,
       defaultPressure,
       {{83.32, 0}, {86, 0}, {86, 0.00614}, {85.21, 0.01197}, {81.69, 0.01197}}},
      {"adaptive band of 80 %",
       AdaptiveZone{},
       defaultPressure,
       {{69.5, 0}, {82.1, 0}, {82.1, 0.02388}, {69.5, 0.01549}}},
      {"adaptive band of 90 %",
       AdaptiveZone{60, 90, 75},
       defaultPressure,
       {{61.4, 0}, {79.4, 0}, {79.4, 0.02179}, {61.4, 0.01162}}},
      {"class A1",
       classA1,
       defaultPressure,
       {{59, 0.00134}, {72.38, 0.00134}, {89.6, 0.00235}, {89.6, 0.01214}, {69.05, 0.01214}, {59, 0.00849}}},
      {"class A1 derated at 5000 ft",
       classA1,
       highAbove,
       {{59, 0.00161}, {72.38, 0.00161}, {85.856, 0.00250}, {85.856, 0.01465}, {69.05, 0.01465}, {59, 0.01023}}},
      {"class A1 where nothing is left", classA1, psychro_atm(38000), {}},
      {"by enthalpy alone, clipped at saturation",
       Envelope{"h", "", {{h, 28, 30}}, {}},
       defaultPressure,
       {{62.28, 0.01199}, {116.67, 0}, {120, 0}, {120, 0.00108}, {65, 0.01321}}},
      {"by wet bulb and humidity ratio",
       Envelope{"p", "", {{wb, 50, 60}, {w, 0.008, 0.009}}, {}},
       defaultPressure,
       {{51.26, 0.008}, {73.65, 0.008}, {69.15, 0.009}, {54.42, 0.009}}},
      {"empty", Envelope{"e", "", {{wb, 70, 80}, {w, 0, 0.001}, {db, 60, 90}}, {}}, defaultPressure, {}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    ASSERT_TRUE(checkZone(row.zone)) << checkZone(row.zone).error().text();
    const auto corners = cornersOf(row.zone, row.atm);
    EXPECT_EQ(corners.size(), row.corners.size());
    for (std::size_t i = 0; i < std::min(corners.size(), row.corners.size()); ++i) {
      EXPECT_NEAR(corners[i].db, row.corners[i].first, 0.012) << i;
      EXPECT_NEAR(corners[i].w, row.corners[i].second, 6e-6) << i;
    }
  }
}

/// Whether a place is within outlines, by the edges to the right of it.
bool surrounds(const std::vector<Outline>& outlines, double db, double w) {
  bool inside = false;
  for (const Outline& outline : outlines) {
    for (std::size_t i = 0; i < outline.size(); ++i) {
      const auto& one = outline[i];
      const auto& two = outline[(i + 1) % outline.size()];
      if ((one.w > w) == (two.w > w)) continue;
      if (db < one.db + (w - one.w) / (two.w - one.w) * (two.db - one.db)) inside = !inside;
    }
  }
  return inside;
}

/// The outline and the predicate come from the same limits by different ways.
TEST(Zone, OutlineSurroundsWhatTheZoneContains) {
  const Zone zones[] = {ComfortZone{},
                        ComfortZone{{.clo = 0.9, .airSpeed = 90}, 1, 75},
                        AdaptiveZone{80, 90},
                        classA1,
                        Envelope{"", "", {{h, 20, 30}, {rh, 30, 70}, {wb, 40, 58}}, {}},
                        Envelope{"", "", {{v, 13, 17}, {pv, 0.1, 0.4}, {dp, 20, unbounded}}, {}}};
  for (const Zone& zone : zones) {
    for (const double atm : {defaultPressure, highAbove}) {
      const auto outlines = outlinesOf(zone, {}, atm);
      int inside = 0;
      int differing = 0;
      for (double at = 30.5; at < 110; at += 1) {
        for (double w = 0.0001; w < 0.025; w += 0.0005) {
          const bool contained = contains(zone, at, w, atm);
          inside += contained ? 1 : 0;
          differing += contained == surrounds(outlines, at, w) ? 0 : 1;
        }
      }
      EXPECT_GT(inside, 50) << titleOf(zone);
      EXPECT_LE(differing, 1) << titleOf(zone);
    }
  }
}

TEST(Zone, IsRefusedOutOfItsRanges) {
  const struct {
    Zone zone;
    const char* words;
  } rows[] = {
      {ComfortZone{{}, 0}, "PMV limit: must be from 0.01 to 3"},
      {ComfortZone{{}, 0.5, noValue}, "dew point limit: must be from -40 to 120 deg F"},
      {ComfortZone{{.met = 9}}, "met: must be from 1 to 4 for ASHRAE 55"},
      {AdaptiveZone{95}, "running mean: must be from 50 to 92.3 deg F"},
      {AdaptiveZone{70, 85}, "acceptance: must be 80 or 90 percent"},
      {Envelope{"", "", {}, {}}, "limits: must have at least one property"},
      {Envelope{"", "", {{db, 70, 60}}, {}}, "db: the lowest value must not be above the highest"},
      {Envelope{"", "", {{db, 1, 2}, {db, 1, 2}}, {}}, "db: is limited twice"},
      {Envelope{"", "", {{rh, 1, 2}}, Derating{0, 1}}, "derating: needs a highest dry bulb"},
  };
  for (const auto& [zone, words] : rows) {
    const Outcome outcome = checkZone(zone);
    EXPECT_EQ(outcome ? "none" : outcome.error().text(), words);
    EXPECT_TRUE(outlinesOf(zone, {}, defaultPressure).empty());
    EXPECT_FALSE(contains(zone, 75, 0.008, defaultPressure));
  }
  EXPECT_EQ(notesOn(ComfortZone{{.method = ComfortMethod::iso, .clo = 0.3, .airSpeed = 120}}, defaultPressure).at(0),
            "the zone ends at 86.0 deg F, the limit of ISO 7730");
}

}  // namespace
