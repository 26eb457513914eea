/// \file
/// The searches whose result is not the exact state: wet bulbs in tenths of a degree, dry bulbs one midpoint further
/// on. No property tells whether such a result is right, only the steps that lead to it do. So here they are a second
/// time, one after the other as one would carry them out on paper, with nothing but the property functions in common,
/// and both must agree to the last bit on random states.
///
/// MOISTAIR_STATES in the environment sets the number of states for each pair, 1000 if not set.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <random>
#include <utility>

#include "engine/moistair.h"
#include "engine/numbertext.h"
#include "pairs.h"

using namespace moistair;
using enum PropertyKind;

namespace {

/// A number as it comes back from a field that keeps it as text.
double fieldof(double number) { return lenientnumber(numbertext(number)); }

struct Sheet {
  double atm = 0;
  double candidate = 0, given = 0, returned = 0, wetbulb = 0, low = 0, high = 0;  // all as read back from text
};

template <class F>
int bisect(double& x, const F& f, double target, double tolerance, bool guard) {
  double low = 0;
  double high = 120;
  x = (high + low) / 2;
  if (!guard) return 0;
  int count = 0;
  bool finished = false;
  while (!finished) {
    count = count + 1;
    if (f(x) > target) {
      (f(x + 0.01) > f(x) ? high : low) = x;
      x = (high + low) / 2;
    }
    if (f(x) < target) {
      (f(x + 0.01) > f(x) ? low : high) = x;
      x = (high + low) / 2;
    }
    if (std::abs(f(x) - target) < tolerance) finished = true;
    if (count == 100) finished = true;
  }
  return count;
}

double walk(double db, double h, double atm) {
  double t = db;
  const auto descend = [&](double step) {
    double s = 0;
    do {
      s = 0.24 * t + (1061 + 0.444 * t) * psychro_w(t, t, atm);
      t = t - step;
    } while (!(s < h));
  };
  descend(1);
  t = t + 2;
  descend(0.1);
  return t + 0.1;
}

double wetbulbwithrh(const Sheet& sheet) {
  double wb = 0;
  const auto f = [&](double x) { return psychro_rh(sheet.candidate, x, sheet.atm); };
  bisect(wb, f, sheet.given, 1e-06, sheet.given <= 100 && sheet.given >= 0);
  return wb;
}

double wetbulbwithh(const Sheet& sheet) { return walk(sheet.candidate, sheet.given, sheet.atm); }

double wetbulbwithspvol(const Sheet& sheet) {
  double wb = 0;
  const auto f = [&](double x) { return psychro_v(sheet.candidate, x, sheet.atm); };
  bisect(wb, f, sheet.given, 1e-07, sheet.given > f(0));
  return wb;
}

double dewpoint(double db, double wb, double atm) { return psychro_dp(psychro_pv1(db, wb, atm)); }

void dbrangeofrh(Sheet& sheet, double rh) {
  bool found = false;
  for (int db = 1; db <= 121; ++db) {
    const double w = psychro_wrh(db, rh, sheet.atm);
    if (0 <= db && db <= 120 && 0 <= w && w <= 0.03) {
      if (!std::exchange(found, true)) sheet.low = db - 1;
      sheet.high = db;
    }
  }
}

void dbrangeofh(Sheet& sheet, double h) {
  bool found = false;
  for (int db = 119; db >= -1; --db) {
    const double wb = walk(db, h, sheet.atm);
    const double w = psychro_w(db, wb, sheet.atm);
    const double rh = psychro_rh(db, wb, sheet.atm);
    if (0 <= db && db <= 120 && 0 < w && w <= 0.03 && 0 <= rh && rh <= 100) {
      if (!std::exchange(found, true)) sheet.high = db + 2;
      sheet.low = db - 1;
    }
  }
}

void dbrangeofspvol(Sheet& sheet, double v) {
  bool found = false;
  for (int db = 119; db >= -1; --db) {
    const auto f = [&](double x) { return psychro_v(db, x, sheet.atm); };
    const bool between = f(0) < v && v < f(120);
    double wb = 0;
    const int count = bisect(wb, f, v, 1e-07, between);
    if (count == 100) break;
    if (!between) continue;
    const double w = psychro_w(db, wb, sheet.atm);
    const double rh = psychro_rh(db, wb, sheet.atm);
    if (0 <= db && db <= 120 && 0 < w && w <= 0.03 && rh <= 100) {
      if (!std::exchange(found, true)) sheet.high = db + 1;
      sheet.low = db;
    }
  }
}

struct PlainRow {
  const char* name;
  PropertyKind first, second;
  double firstlimit, secondlimit;
  void (*finder)(Sheet&, double);
  double (*completed)(const Sheet&);
  double (*returned)(double, double, double);
  PropertyKind given, target;
  double tolerance;
  bool rises;
};

const PlainRow rows[] = {
    {"db_h", db, h, 120, 61.9, nullptr, nullptr, nullptr, db, h, 0, false},
    {"wb_h", wb, h, 120, 62, nullptr, nullptr, nullptr, wb, h, 0, false},
    {"rh_h", rh, h, 100, 62, dbrangeofrh, wetbulbwithrh, psychro_h, rh, h, 1e-05, true},
    {"rh_dp", rh, dp, 100, 120, dbrangeofrh, wetbulbwithrh, dewpoint, rh, dp, 1e-05, true},
    {"rh_v", rh, v, 100, 78, dbrangeofrh, wetbulbwithrh, psychro_v, rh, v, 1e-05, true},
    {"w_h", w, h, 0.03, 61.9, dbrangeofh, wetbulbwithh, psychro_w, h, w, 0.0001, false},
    {"w_v", w, v, 0.03, 78, dbrangeofspvol, wetbulbwithspvol, psychro_w, v, w, 1e-05, false},
    {"h_dp", h, dp, 61.9, 120, dbrangeofh, wetbulbwithh, dewpoint, h, dp, 0.001, false},
    {"h_v", h, v, 61.9, 78, dbrangeofh, wetbulbwithh, psychro_v, h, v, 1e-05, true},
    {"dp_v", dp, v, 120, 78, dbrangeofspvol, wetbulbwithspvol, dewpoint, v, dp, 0.001, false},
};

struct PlainResult {
  bool resolved = false;
  int iterations = 0;
  StatePoint point;
};

/// The outer search. Returns false if the row fails with it.
bool searchdrybulb(const PlainRow& row, Sheet& sheet, PlainResult& result) {
  const double given = result.point.at(row.given);
  const double target = result.point.at(row.target);
  row.finder(sheet, fieldof(given));
  double high = sheet.high;
  double low = sheet.low;
  double drybulb = fieldof((high + low) / 2);
  sheet.candidate = drybulb;
  sheet.given = fieldof(given);
  const auto solve = [&] {
    const double wetbulb = row.completed(sheet);
    const double returned = row.returned(sheet.candidate, wetbulb, sheet.atm);
    if (hasvalue(returned)) sheet.returned = fieldof(returned);
    sheet.wetbulb = fieldof(wetbulb);
  };
  bool finished = false;
  while (!finished) {
    result.iterations = result.iterations + 1;
    solve();
    if (sheet.returned > target) {
      (row.rises ? high : low) = drybulb;
      drybulb = fieldof((high + low) / 2);
      sheet.candidate = drybulb;
    }
    solve();
    if (sheet.returned < target) {
      (row.rises ? low : high) = drybulb;
      drybulb = fieldof((high + low) / 2);
      sheet.candidate = drybulb;
    }
    if (std::abs(sheet.returned - target) < row.tolerance) finished = true;
    if (result.iterations == 100) finished = true;
  }
  if (row.first == h && row.second == dp) {
    if (std::abs(sheet.returned - target) >= 0.5) return false;
  } else if (result.iterations == 100) {
    return false;
  }
  result.point.db = drybulb;
  result.point.wb = row.first == rh && row.second == h ? walk(drybulb, target, sheet.atm) : sheet.wetbulb;
  return true;
}

bool carryout(const PlainRow& row, Sheet& sheet, PlainResult& result) {
  StatePoint& point = result.point;
  if (row.first == db) {
    point.wb = walk(point.db, point.h, sheet.atm);
    return true;
  }
  if (row.first == wb) {
    const auto f = [&](double x) { return psychro_h(x, point.wb, sheet.atm); };
    result.iterations = bisect(point.db, f, point.h, 1e-07, true);
    return result.iterations < 100;
  }
  return searchdrybulb(row, sheet, result);
}

PlainResult plainsteps(const PlainRow& row, double first, double second, Sheet& sheet) {
  PlainResult result;
  StatePoint& point = result.point;
  point.at(row.first) = first;
  point.at(row.second) = second;
  const auto inside = [](PropertyKind kind, double value, double limit) {
    return value > (kind == dp ? -55 : 0) && value <= limit;
  };
  if (!inside(row.first, first, row.firstlimit) || !inside(row.second, second, row.secondlimit)) return result;
  if (!carryout(row, sheet, result)) return result;
  const auto derived = [&](PropertyKind kind, double value) {
    if (kind != row.first && kind != row.second && hasvalue(value)) point.at(kind) = value;
  };
  derived(rh, psychro_rh(point.db, point.wb, sheet.atm));
  derived(h, psychro_h(point.db, point.wb, sheet.atm));
  derived(w, psychro_w(point.db, point.wb, sheet.atm));
  derived(v, psychro_v(point.db, point.wb, sheet.atm));
  derived(dp, dewpoint(point.db, point.wb, sheet.atm));
  result.resolved = 0 < point.db && point.db <= 120 && 0 < point.wb && point.wb <= 120 && 0 < point.w &&
                    point.w <= 0.03 && 0 < point.rh && point.rh <= 100 && point.v > 0 && point.h > 0;
  return result;
}

using Random = std::mt19937_64;

double between(Random& random, double low, double high) {
  return std::uniform_real_distribution<double>(low, high)(random);
}

/// A state that air can have and that the chart can show.
StatePoint anystate(Random& random, double atm) {
  while (true) {
    const double drybulb = between(random, 1, 119);
    const double wetbulb = between(random, std::max(1.0, drybulb - 45), drybulb);
    const Resolution state = resolved({db, drybulb}, {wb, wetbulb}, atm);
    if (state.resolved()) return state.point;
  }
}

/// What a row's random states have shown.
struct Tally {
  int states = 0, failures = 0;
  double deviation1 = 0, deviation2 = 0;
};

void compare(const PlainRow& row, int count, Tally& tally) {
  Random random(20240229);
  Sheet sheet;
  SolverFields fields;  // as old as the sheet: a finder that finds nothing leaves both on the same range
  for (int i = 0; i < count && !testing::Test::HasFailure(); ++i) {
    sheet.atm = between(random, 18, 32);
    StatePoint state = anystate(random, sheet.atm);
    const bool independent = i % 5 == 4;  // two values that may not belong together
    const double first = independent ? between(random, 0, row.firstlimit) : state.at(row.first);
    const double second = state.at(row.second);
    SCOPED_TRACE(numbertext(first) + ", " + numbertext(second) + " at " + numbertext(sheet.atm));

    PlainResult plain = plainsteps(row, first, second, sheet);
    Resolution result = resolvepair({row.first, first}, {row.second, second}, sheet.atm, openrangefinders(), fields);
    EXPECT_EQ(result.resolved(), plain.resolved);
    EXPECT_EQ(result.iterations, plain.iterations);
    for (int kind = 0; plain.resolved && kind < kindcount; ++kind) {
      EXPECT_EQ(result.point.at(*kindat(kind)), plain.point.at(*kindat(kind)));
    }
    if (independent) continue;
    ++tally.states;
    tally.failures += result.resolved() ? 0 : 1;
    if (!result.resolved()) continue;
    Resolution found = resolved({db, result.point.db}, {wb, result.point.wb}, sheet.atm);
    tally.deviation1 = std::max(tally.deviation1, std::abs(found.point.at(row.first) - first));
    tally.deviation2 = std::max(tally.deviation2, std::abs(found.point.at(row.second) - second));
  }
}

TEST(PlainSteps, LeadToTheSameState) {
  const char* set = std::getenv("MOISTAIR_STATES");
  const int count = set == nullptr ? 1000 : static_cast<int>(lenientnumber(set));
  for (const PlainRow& row : rows) {
    SCOPED_TRACE(row.name);
    Tally tally;
    compare(row, count, tally);
    std::printf("%s: %s %% of %d states not found, deviation from the given values up to %s and %s\n", row.name,
                fourdecimals(100.0 * tally.failures / std::max(tally.states, 1)).c_str(), tally.states,
                showvalue(tally.deviation1).c_str(), showvalue(tally.deviation2).c_str());
  }
}

}  // namespace
