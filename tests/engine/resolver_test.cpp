#include "engine/resolver.h"

#include <gtest/gtest.h>

#include <ctime>

#include "engine/moistair.h"
#include "engine/openfinders.h"
#include "engine/value.h"
#include "pairs.h"

using namespace moistair;
using enum PropertyKind;

namespace {

constexpr double atm = defaultpressure;
constexpr double f5 = 5.1e-6;  // five printed decimals
constexpr double f4 = 5.1e-5;
constexpr double f2 = 5.1e-3;

/// One property of a resolved state as it is expected.
struct Expected {
  PropertyKind kind;
  double value;
  double tolerance;
};

struct Pair {
  const char* name;
  Given first, second;
  bool resolved;
  int iterations;  // -1 where no count is known
  std::vector<Expected> state;
};

const Pair pairs[] = {
    {"db wb", {db, 75}, {wb, 62.5}, true, 0, {{rh, 50.3032182, 5e-8}, {h, 28.1695563, 5e-8}, {v, 13.6751968, 5e-8}}},
    {"db rh", {db, 75}, {rh, 50.3032182}, true, 17, {{wb, 62.5, 5e-8}, {w, 0.0092932, 5e-8}}},
    {"db w", {db, 75}, {w, 0.0092932}, true, -1, {{wb, 62.50008, f5}}},
    {"db h, on the grid", {db, 75}, {h, 28.1695563}, true, 0, {{wb, 62.5, 1e-10}}},
    {"db h, off the grid",
     {db, 75},
     {h, 28},
     true,
     0,
     {{wb, 62.2, 1e-10}, {h, 28, 0}, {rh, 49.25974, f5}, {w, 0.0090976, 5e-8}, {v, 13.67097, f5}, {dp, 54.67050, f5}}},
    {"db dp", {db, 75}, {dp, 55.2457239}, true, -1, {{wb, 62.5, f5}}},
    {"db v", {db, 75}, {v, 13.6751968}, true, -1, {{wb, 62.5, f5}}},
    {"wb rh, two halvings", {wb, 62.5}, {rh, 50.3032182}, true, 1, {{db, 75, 0}}},
    {"wb rh, saturated", {wb, 50}, {rh, 100}, true, -1, {{db, 50, f5}}},
    {"wb h, below the window", {wb, 62.5}, {h, 28}, false, 100, {}},
    {"wb h, above the window", {wb, 62.5}, {h, 29}, false, 100, {}},
    {"wb v, out of reach", {wb, 50}, {v, 30}, false, 100, {}},
    {"wet bulb above dry bulb", {db, 75}, {wb, 80}, false, 0, {{rh, 123.82, f2}}},
    {"false guard, refused", {db, 120}, {rh, 100}, false, 0, {{wb, 60, 0}, {w, 0.0810775, 5e-8}}},
    {"false guard in the cold",
     {db, 2},
     {rh, 30},
     true,
     0,
     {{wb, 60, 0}, {w, 0.0002609, 5e-8}, {h, 26.33, f2}, {v, 12.09, f2}, {dp, 82.73, f2}}},
    {"false guard of a volume", {db, 100}, {v, 13}, true, 0, {{wb, 60, 0}, {rh, 5.508, 5e-4}, {v, 13, 0}}},
    {"db dp in the gap", {db, 75}, {dp, 32.1}, true, -1, {{wb, 53.18, f2}, {dp, 32.1, 0}}},
    {"db dp above the searched range", {db, 120}, {dp, 100}, false, -1, {{wb, 98.41, f2}, {w, 0.0358, f4}}},
    {"rh w", {rh, 50.3032182}, {w, 0.0092932}, true, -1, {{db, 75, 1e-3}, {wb, 62.5, 1e-3}, {w, 0.0092932, 0}}},
};

TEST(PairTable, PublishedValues) {
  for (const auto& row : pairs) {
    SCOPED_TRACE(row.name);
    Resolution result = resolved(row.first, row.second, atm);
    EXPECT_EQ(result.resolved, row.resolved);
    if (row.iterations >= 0) {
      EXPECT_EQ(result.iterations, row.iterations);
    }
    for (const auto& expected : row.state) {
      EXPECT_NEAR(result.point.at(expected.kind), expected.value, expected.tolerance)
          << kindtexts[static_cast<std::size_t>(expected.kind)];
    }
  }
}

TEST(PairTable, EveryGuardIsThatOfItsOwnSearch) {
  // Each pair is one that another guard, or none, would treat differently.
  const struct {
    const char* name;
    Given first, second;
    double atm, wb;
    bool resolved;
    int iterations;
  } rows[] = {
      {"of a humidity ratio below all wet bulbs", {db, 2}, {w, 0.0002}, atm, 60, false, 0},
      {"of a dew point below all wet bulbs", {db, 2}, {dp, -20}, atm, 60, false, 0},
      {"of a volume looks at the lower side only", {db, 75}, {v, 30}, atm, 120, false, 100},
      {"of rh with w looks at the ratio, negative where water boils", {rh, 50}, {w, 0.02}, 3, 60, true, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Resolution result = resolved(row.first, row.second, row.atm);
    EXPECT_EQ(result.resolved, row.resolved);
    EXPECT_EQ(result.iterations, row.iterations);
    EXPECT_NEAR(result.point.wb, row.wb, 1e-9);
  }
}

TEST(PairTable, AirOfNegativeVolumeIsRefused) {
  const Resolution result = resolved({db, 75}, {w, 0.01}, 0.3);
  EXPECT_GT(result.point.rh, 0);
  EXPECT_LT(result.point.v, 0);
  EXPECT_FALSE(result.resolved);
}

TEST(PairTable, ShownAsPrinted) {
  const StatePoint point = resolved({db, 75}, {wb, 62.5}, atm).point;
  EXPECT_EQ(showvalue(point.rh), "50.3032182");
  EXPECT_EQ(showvalue(point.h), "28.1695563");
  EXPECT_EQ(showvalue(point.v), "13.6751968");
  EXPECT_EQ(showvalue(point.w), ".0092932");
  EXPECT_EQ(showvalue(point.dp), "55.2457239");
  EXPECT_EQ(showvalue(point.pv), ".4404820");
}

/// A state that every pair can find, and a pressure that fits none by accident.
TEST(PairTable, EveryPairFindsTheStateInBothOrders) {
  const double site = 27.3;
  const Resolution given = resolved({db, 75}, {wb, 62.5}, site);
  for (int i = 0; i < kindcount; ++i) {
    for (int j = 0; j < kindcount; ++j) {
      SCOPED_TRACE(std::string(kindtexts[static_cast<std::size_t>(i)]) + " with " +
                   kindtexts[static_cast<std::size_t>(j)]);
      StatePoint state = given.point;
      const auto first = *kindat(i);
      const auto second = *kindat(j);
      const Resolution result = resolved({first, state.at(first)}, {second, state.at(second)}, site);
      const bool refused = i == j || (first == w && second == dp) || (first == dp && second == w);
      ASSERT_EQ(result.resolved, !refused);
      if (refused) continue;
      EXPECT_NEAR(result.point.db, 75, 1.1);
      EXPECT_NEAR(result.point.wb, 62.5, 0.2);
      const Resolution swapped = resolved({second, state.at(second)}, {first, state.at(first)}, site);
      EXPECT_EQ(result.point.db, swapped.point.db);
      EXPECT_EQ(result.point.wb, swapped.point.wb);
      EXPECT_EQ(result.point.dp, swapped.point.dp);
      EXPECT_EQ(result.iterations, swapped.iterations);
    }
  }
}

TEST(PairTable, GivenValuesAreNotComputedAnew) {
  const Resolution result = resolved({db, 75}, {h, 28}, atm);
  EXPECT_EQ(result.point.h, 28);
  EXPECT_NE(psychro_h(result.point.db, result.point.wb, atm), 28);
}

TEST(PairTable, RelativeHumidityKeepsItsOwnHumidityRatio) {
  // The false guard makes the two ratios differ so much that nobody can mistake one for the other.
  const Resolution result = resolved({db, 2}, {rh, 30}, atm);
  EXPECT_EQ(result.point.w, psychro_wrh(2, 30, atm));
}

struct Edge {
  const char* name;
  Given first, second;
  bool accepted;
};

TEST(Limits, BelongToTheirRow) {
  // What is accepted is told by a search that ran or a property that was derived; the final check may refuse it after.
  const Edge rows[] = {
      {"db 0", {db, 0}, {wb, 62.5}, false},
      {"db 120", {db, 120}, {wb, 62.5}, true},
      {"db above 120", {db, 120.0001}, {wb, 62.5}, false},
      {"wb 0", {db, 75}, {wb, 0}, false},
      {"wb above 120", {db, 75}, {wb, 120.0001}, false},
      {"rh 0", {db, 75}, {rh, 0}, false},
      {"rh above 100", {db, 75}, {rh, 100.0001}, false},
      {"w 0.03", {db, 95}, {w, 0.03}, true},
      {"w above 0.03", {db, 95}, {w, 0.0300001}, false},
      {"db with h 61.9", {db, 95}, {h, 61.9}, true},
      {"db with h 61.95", {db, 95}, {h, 61.95}, false},
      {"wb with h 62", {wb, 97}, {h, 62}, true},
      {"wb with h 62.01", {wb, 97}, {h, 62.01}, false},
      {"rh with h 62", {rh, 50}, {h, 62}, true},
      {"rh with h 62.01", {rh, 50}, {h, 62.01}, false},
      {"w with h 61.95", {w, 0.02}, {h, 61.95}, false},
      {"h 61.95 with dp", {h, 61.95}, {dp, 60}, false},
      {"h 61.95 with v", {h, 61.95}, {v, 14}, false},
      {"dp -55", {db, 75}, {dp, -55}, false},
      {"dp just above -55", {db, 75}, {dp, -54.9999}, true},
      {"db with dp 120", {db, 120}, {dp, 120}, true},
      {"db with dp above 120", {db, 120}, {dp, 120.0001}, false},
      {"wb with dp 89", {wb, 90}, {dp, 89}, true},
      {"wb with dp 89.01", {wb, 90}, {dp, 89.01}, false},
      {"v 78", {db, 75}, {v, 78}, true},
      {"v above 78", {db, 75}, {v, 78.0001}, false},
      {"v 0", {db, 75}, {v, 0}, false},
      {"dp with v above 78", {dp, 50}, {v, 78.0001}, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Resolution result = resolved(row.first, row.second, atm);
    EXPECT_EQ(result.iterations > 0 || result.point.pv != 0, row.accepted);
    if (!row.accepted) {
      EXPECT_FALSE(result.resolved);
    }
  }
}

struct TypedPair {
  const char* name;
  std::optional<PropertyKind> kind1;
  const char* text1;
  std::optional<PropertyKind> kind2;
  const char* text2;
  bool resolved;
};

TEST(TypedValues, AreReadStrictly) {
  const TypedPair rows[] = {
      {"plain", db, "75", wb, " 62.5 ", true},
      {"trailing letters", db, "75abc", wb, "62.5", false},
      {"empty", db, "75", wb, "", false},
      {"minus", db, "75", rh, "-", false},
      {"overflow", db, "75", wb, "1e999", false},
      {"nan", db, "nan", wb, "62.5", false},
      {"hexadecimal", db, "0x4B", wb, "62.5", false},
      {"a dew point that is no number counts as 0", db, "75", dp, "-", true},
      {"no kind", std::nullopt, "75", wb, "62.5", false},
      {"two missing kinds", std::nullopt, "75", std::nullopt, "62.5", false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    SolverFields fields;
    const auto result = resolvepair(row.kind1, row.text1, row.kind2, row.text2, atm, openrangefinders(), fields);
    EXPECT_EQ(result.resolved, row.resolved);
  }
}

TEST(TypedValues, RubbishForADewPointIsTheDewPointZero) {
  SolverFields fields;
  const auto rubbish = resolvepair(db, "75", dp, "rubbish", atm, openrangefinders(), fields);
  const auto zero = resolved({db, 75}, {dp, 0}, atm);
  EXPECT_EQ(rubbish.point.dp, 0);
  EXPECT_EQ(rubbish.point.wb, zero.point.wb);
}

TEST(TypedValues, MinusOneIsResolvedButNotShown) {
  const auto result = resolved({db, 75}, {dp, -1}, atm);
  EXPECT_TRUE(result.resolved);
  EXPECT_EQ(showvalue(result.point.dp), "");
}

TEST(InputRules, ComeInOrder) {
  const struct {
    const char* name;
    std::optional<PropertyKind> kind1, kind2;
    const char *text1, *text2;
    InputFault fault;
  } rows[] = {
      {"fine", db, wb, "75", "62.5", InputFault::none},
      {"values are not judged", db, wb, "x", "-", InputFault::none},
      {"same kind before blank", db, db, "", "", InputFault::samekind},
      {"no kind twice", std::nullopt, std::nullopt, "1", "1", InputFault::samekind},
      {"ratio and dew point before blank", w, dp, "", "", InputFault::humidityratiowithdewpoint},
      {"dew point and ratio", dp, w, "1", "1", InputFault::humidityratiowithdewpoint},
      {"first blank", db, wb, "", "62.5", InputFault::blankvalue},
      {"second blank", db, wb, "75", "", InputFault::blankvalue},
      {"one kind missing", std::nullopt, wb, "75", "62.5", InputFault::none},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(inputfault(row.kind1, row.kind2, row.text1, row.text2), row.fault);
  }
}

TEST(Kinds, AreTheIndexesOfTheList) {
  EXPECT_EQ(kindat(0), db);
  EXPECT_EQ(kindat(6), v);
  EXPECT_EQ(kindat(-1), std::nullopt);
  EXPECT_EQ(kindat(7), std::nullopt);
}

TEST(AbsurdPressures, EveryPairEndsInTime) {
  const double values[kindcount] = {75, 62.5, 50, 0.01, 28, 50, 13.7};
  for (const double pressure : {0.0, -30.0, 1e-300, 1e300, novalue, 1 / 0.0}) {
    for (int i = 0; i < kindcount; ++i) {
      for (int j = i + 1; j < kindcount; ++j) {
        SCOPED_TRACE(std::to_string(pressure) + ": " + std::to_string(i) + " with " + std::to_string(j));
        const std::clock_t start = std::clock();
        const Resolution result = resolved({*kindat(i), values[i]}, {*kindat(j), values[j]}, pressure);
        EXPECT_LT(std::clock() - start, CLOCKS_PER_SEC / 2);
        if (!hasvalue(pressure) || pressure == 0) {
          EXPECT_FALSE(result.resolved);
        }
      }
    }
  }
}

}  // namespace
