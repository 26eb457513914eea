#include "engine/resolver.h"

#include <gtest/gtest.h>

#include <ctime>

#include "engine/moistair.h"
#include "engine/value.h"
#include "pairs.h"

using namespace moistair;
using enum PropertyKind;

namespace {

constexpr double atm = defaultpressure;
constexpr double f7 = 5e-8;    // seven printed decimals
constexpr double f5 = 5.1e-6;  // five
constexpr double f2 = 5.1e-3;  // two
constexpr int any = -1;        // where no count of iterations is known

TEST(PairTable, PublishedValues) {
  struct Expected {
    PropertyKind kind;
    double value, tolerance;
  };
  const struct {
    const char* name;
    Given first, second;
    bool resolved;
    int iterations;
    std::vector<Expected> state;
    double pressure = atm;
  } rows[] = {
      {"db wb", {db, 75}, {wb, 62.5}, true, 0, {{rh, 50.3032182, f7}, {h, 28.1695563, f7}, {v, 13.6751968, f7}}},
      {"db rh", {db, 75}, {rh, 50.3032182}, true, 17, {{wb, 62.5, f7}, {w, 0.0092932, f7}}},
      {"db w", {db, 75}, {w, 0.0092932}, true, any, {{wb, 62.50008, f5}}},
      {"db h on the grid", {db, 75}, {h, 28.1695563}, true, 0, {{wb, 62.5, 1e-10}}},
      {"db h off the grid, kept as given", {db, 75}, {h, 28}, true, 0, {{h, 28, 0}, {wb, 62.2, 1e-10}}},
      {"the rest of it", {db, 75}, {h, 28}, true, 0, {{rh, 49.25974, f5}, {v, 13.67097, f5}, {dp, 54.67050, f5}}},
      {"db dp", {db, 75}, {dp, 55.2457239}, true, any, {{wb, 62.5, f5}}},
      {"db v", {db, 75}, {v, 13.6751968}, true, any, {{wb, 62.5, f5}}},
      {"wb rh, two halvings", {wb, 62.5}, {rh, 50.3032182}, true, 1, {{db, 75, 0}}},
      {"wb rh, saturated", {wb, 50}, {rh, 100}, true, any, {{db, 50, f5}}},
      {"wb h, below the window", {wb, 62.5}, {h, 28}, false, 100, {}},
      {"wb h, above the window", {wb, 62.5}, {h, 29}, false, 100, {}},
      {"wb v, out of reach", {wb, 50}, {v, 30}, false, 100, {}},
      {"rh w", {rh, 50.3032182}, {w, 0.0092932}, true, any, {{db, 75, 1e-3}, {wb, 62.5, 1e-3}, {w, 0.0092932, 0}}},
      {"wet bulb above dry bulb", {db, 75}, {wb, 80}, false, 0, {{rh, 123.82, f2}}},
      {"air of negative volume", {db, 75}, {w, 0.01}, false, any, {{v, -1800.245, 1e-3}}, 0.3},
      {"db dp in the gap", {db, 75}, {dp, 32.1}, true, any, {{wb, 53.18, f2}, {dp, 32.1, 0}}},
      {"db dp above the searched range", {db, 120}, {dp, 100}, false, any, {{wb, 98.41, f2}, {w, 0.0358, f5 * 10}}},
      // What a false guard leaves is a wet bulb of 60: each row is one that another guard would treat differently.
      {"guard of rh, refused", {db, 120}, {rh, 100}, false, 0, {{wb, 60, 0}, {w, 0.0810775, f7}}},
      {"guard of rh in the cold", {db, 2}, {rh, 30}, true, 0, {{w, 0.0002609, f7}, {h, 26.33, f2}, {dp, 82.73, f2}}},
      {"guard of a volume", {db, 100}, {v, 13}, true, 0, {{wb, 60, 0}, {rh, 5.508, 5e-4}, {v, 13, 0}}},
      {"guard of a volume, one-sided", {db, 75}, {v, 30}, false, 100, {{wb, 120, 1e-9}}},
      {"guard of a humidity ratio", {db, 2}, {w, 0.0002}, false, 0, {{wb, 60, 0}}},
      {"guard of a dew point", {db, 2}, {dp, -20}, false, 0, {{wb, 60, 0}}},
      {"guard of rh with w, where water boils", {rh, 50}, {w, 0.02}, true, 0, {{wb, 60, 0}}, 3},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Resolution result = resolved(row.first, row.second, row.pressure);
    EXPECT_EQ(result.resolved(), row.resolved);
    EXPECT_TRUE(row.iterations == any || result.iterations == row.iterations) << result.iterations;
    for (const auto& [kind, value, tolerance] : row.state) {
      EXPECT_NEAR(result.point.at(kind), value, tolerance) << kindtexts[static_cast<std::size_t>(kind)];
    }
  }
}

/// A state that every pair can find, and a pressure that fits none by accident.
TEST(PairTable, EveryPairFindsTheStateInBothOrders) {
  const double site = 27.3;
  StatePoint state = resolved({db, 75}, {wb, 62.5}, site).point;
  for (int i = 0; i < kindcount * kindcount; ++i) {
    const auto first = *kindat(i / kindcount);
    const auto second = *kindat(i % kindcount);
    SCOPED_TRACE(testing::Message() << i / kindcount << " with " << i % kindcount);
    const Resolution result = resolved({first, state.at(first)}, {second, state.at(second)}, site);
    const bool refused = first == second || (first == w && second == dp) || (first == dp && second == w);
    ASSERT_EQ(result.resolved(), !refused);
    if (refused) continue;
    EXPECT_NEAR(result.point.db, 75, 1.1);
    EXPECT_NEAR(result.point.wb, 62.5, 0.2);
    const Resolution swapped = resolved({second, state.at(second)}, {first, state.at(first)}, site);
    EXPECT_EQ(result.point.db, swapped.point.db);
    EXPECT_EQ(result.point.wb, swapped.point.wb);
    EXPECT_EQ(result.iterations, swapped.iterations);
  }
  EXPECT_EQ(kindat(-1), std::nullopt);
  EXPECT_EQ(kindat(kindcount), std::nullopt);
}

TEST(Limits, BelongToTheirRow) {
  // What is accepted is told by a search that ran or a property that was derived; the final check may refuse it after.
  const struct {
    const char* name;
    Given first, second;
    bool accepted;
  } rows[] = {
      {"db 0", {db, 0}, {wb, 62.5}, false},
      {"db 120", {db, 120}, {wb, 62.5}, true},
      {"db above 120", {db, 120.0001}, {wb, 62.5}, false},
      {"wb above 120", {db, 75}, {wb, 120.0001}, false},
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
      {"dp with v above 78", {dp, 50}, {v, 78.0001}, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Resolution result = resolved(row.first, row.second, atm);
    EXPECT_EQ(result.iterations > 0 || result.point.pv != 0, row.accepted);
    EXPECT_FALSE(result.resolved() && !row.accepted);
  }
}

TEST(TypedValues, AreReadStrictly) {
  const struct {
    const char* name;
    std::optional<PropertyKind> kind1, kind2;
    const char* text2;
    bool resolved;
    double dewpoint;
  } rows[] = {
      {"plain", db, dp, " 55 ", true, 55},
      {"shown blank but resolved", db, dp, "-1", true, -1},
      {"a dew point that is no number counts as 0", db, dp, "55abc", true, 0},
      {"any other kind is refused with it", db, rh, "50abc", false, 0},
      {"no kind", std::nullopt, wb, "62.5", false, 0},
      {"two missing kinds", std::nullopt, std::nullopt, "62.5", false, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    SolverFields fields;
    const auto result = resolvepair(row.kind1, "75", row.kind2, row.text2, atm, openrangefinders(), fields);
    EXPECT_EQ(result.resolved(), row.resolved);
    EXPECT_EQ(result.point.dp, row.dewpoint);
  }
}

TEST(AbsurdPressures, EveryPairEndsInTime) {
  const double values[kindcount] = {75, 62.5, 50, 0.01, 28, 50, 13.7};
  for (const double pressure : {0.0, -30.0, 1e-300, 1e300, novalue, 1 / 0.0}) {
    for (int i = 0; i < kindcount; ++i) {
      for (int j = i + 1; j < kindcount; ++j) {
        SCOPED_TRACE(testing::Message() << pressure << ": " << i << " with " << j);
        const std::clock_t start = std::clock();
        const Resolution result = resolved({*kindat(i), values[i]}, {*kindat(j), values[j]}, pressure);
        EXPECT_LT(std::clock() - start, CLOCKS_PER_SEC / 2);
        EXPECT_FALSE(result.resolved() && (!hasvalue(pressure) || pressure == 0));
      }
    }
  }
}

}  // namespace
