#include "engine/exact.h"

#include <gtest/gtest.h>

#include "engine/mixingproblem.h"
#include "engine/moistair.h"

using namespace moistair;
using enum PropertyKind;

namespace {

StatePoint bulbs(double dryBulb, double wetBulb) { return stateAt(dryBulb, wetBulb, defaultPressure); }

TEST(Exact, NearestIsByDryBulbThenByWetBulb) {
  std::vector<StatePoint> states = {bulbs(60, 40), bulbs(50.5, 30), bulbs(50.5, 48)};
  sortNearestFirst(states, bulbs(50, 47));
  EXPECT_EQ(states[0].wb, 48);
  EXPECT_EQ(states[1].wb, 30) << "the dry bulb decides first, whatever the wet bulb";
}

TEST(Exact, OneOfSeveralIsChosenByTheSearchOnly) {
  const struct {
    const char* name;
    PairOfGiven pair;
    std::optional<StatePoint> found;
    double wetBulb;  ///< 0 for none
  } rows[] = {
      {"two, the search over ice", {{{db, 40}, {w, 0.00205}}}, bulbs(40, 31.642), 31.64197},
      {"two, the search over water", {{{db, 40}, {w, 0.00205}}}, bulbs(40, 32.2), 32.10277},
      {"two, and no search", {{{db, 40}, {w, 0.00205}}}, std::nullopt, 0},
      {"one, and no search", {{{w, 0.003}, {v, 12.5}}}, std::nullopt, 30.96228},
      {"one, far from the search", {{{dp, 27.65}, {h, 13.68}}}, bulbs(42.5, 36.6), 36.55549},
      {"none, and a search", {{{db, 2}, {rh, 30}}}, bulbs(2, 1.9), 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Resolution resolution;
    resolution.reason = Unresolved::search;
    if (row.found) resolution = resolutionOf(*row.found);
    const ExactChoice choice = exactChoice(row.pair, defaultPressure, resolution);
    EXPECT_NEAR(choice.state ? choice.state->wb : 0, row.wetBulb, 1e-4);
  }
}

MixingProblem solved(const std::array<std::array<const char*, 3>, 2>& streams, const PairOfGiven& kinds, double atm) {
  MixingProblem problem;
  problem.pressure.atm = atm;
  for (const std::size_t i : {std::size_t{0}, std::size_t{1}}) {
    AirStream& stream = problem.streams[i];
    stream.kind1 = db;
    stream.kind2 = kinds[i].kind;
    stream.value1 = streams[i][0];
    stream.value2 = streams[i][1];
    stream.flow = streams[i][2];
    resolveStream(problem, i);
  }
  mixStreams(problem);
  return problem;
}

Missed judgedMixture(const MixingProblem& problem) {
  return judgedMixture(problem.streams[0], problem.streams[1], problem.mixed, problem.pressure.atm);
}

TEST(Exact, AMixedWetBulbBelowBothStreamsIsMissedAndTheExactOneIsNot) {
  MixingProblem problem =
      solved({{{"94.5", "60.1", "250"}, {"75", "45", "1000"}}}, {{{wb, 0}, {rh, 0}}}, psychro_atm(5280));
  const std::string found = problem.mixed.wb;
  const Missed missed = judgedMixture(problem);
  ASSERT_TRUE(missed.any());
  EXPECT_EQ(missed.values[0].kind, wb);
  problem.exactMixture = true;
  mixStreams(problem);
  EXPECT_TRUE(problem.mixed.exact);
  EXPECT_FALSE(judgedMixture(problem).any());
  const double exact = strictNumber(problem.mixed.wb);
  EXPECT_NEAR(exact, missed.values[0].wanted, 1e-6);
  EXPECT_GT(exact, strictNumber(found));
  problem.exactMixture = false;
  mixStreams(problem);
  EXPECT_EQ(problem.mixed.wb, found) << "the search's digits are what they were";
  EXPECT_FALSE(problem.mixed.exact);
}

TEST(Exact, AMixtureWithinWhatCanBeSeenIsNotMarked) {
  EXPECT_FALSE(
      judgedMixture(solved({{{"75", "62.5", "1000"}, {"95", "75", "500"}}}, {{{wb, 0}, {wb, 0}}}, defaultPressure))
          .any());
}

TEST(Exact, AStreamIsExactWhenItIsToBe) {
  MixingProblem problem;
  problem.pressure.atm = defaultPressure;
  AirStream& stream = problem.streams[0];
  stream.kind1 = h;
  stream.kind2 = dp;
  stream.value1 = "13.68";
  stream.value2 = "27.65";
  stream.flow = "1";
  resolveStream(problem, 0);
  EXPECT_EQ(judged(*givenOf(stream), shownState(stream), defaultPressure).values.size(), 1U);
  stream.exact = true;
  resolveStream(problem, 0);
  EXPECT_EQ(stream.db, "43.1289323");
  EXPECT_FALSE(judged(*givenOf(stream), shownState(stream), defaultPressure).any());
}

}  // namespace
