/// \file
/// The answers to random pairs against a search that knows nothing of the equations: the plane of dry and wet bulbs,
/// cut into squares, each square again as long as both values lie between what its corners have, and Newton's method
/// from what is left. Only the lines on which an equation steps are known to it.
///
///   scananswers COUNT [SEED [PRESSURE ...]]      so many pairs of each kind at each pressure [in Hg]
///
/// Fails if an answer is missed or invented.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <vector>

#include "engine/exactsolutions.h"
#include "engine/moistair.h"
#include "text/numbertext.h"
#include "text/value.h"

using namespace moistair;
using enum PropertyKind;

namespace {

using Random = std::mt19937_64;
double between(Random& random, double low, double high) {
  return std::uniform_real_distribution<double>(low, high)(random);
}

double valueAt(PropertyKind kind, double dryBulb, double wetBulb, double atm) {
  switch (kind) {
    case db: return dryBulb;
    case wb: return wetBulb;
    case rh: return psychro_rh(dryBulb, wetBulb, atm);
    case w: return psychro_w(dryBulb, wetBulb, atm);
    case h: return psychro_h(dryBulb, wetBulb, atm);
    case dp: return psychro_dp(psychro_pv1(dryBulb, wetBulb, atm));
    default: return psychro_v(dryBulb, wetBulb, atm);
  }
}

struct Square {
  double left, right, bottom, top;  ///< dry bulbs, wet bulbs
};

struct Query {
  std::array<Given, 2> given;
  double atm;
};

struct Found {
  double dryBulb, wetBulb;
};

/// Whether a value may lie in a square: what nine points of it have, and half as much on either side.
bool mayContain(const Square& square, const Given& given, double atm) {
  double low = std::numeric_limits<double>::infinity();
  double high = -low;
  bool whole = true;
  for (const double x : {square.left, (square.left + square.right) / 2, square.right}) {
    for (const double y : {square.bottom, (square.bottom + square.top) / 2, square.top}) {
      const double value = valueAt(given.kind, x, y, atm);
      whole = whole && hasValue(value);
      low = std::fmin(low, value);
      high = std::fmax(high, value);
    }
  }
  const double margin = (high - low) / 2 + 1e-9;
  return given.value <= high + margin && (!whole || given.value >= low - margin);
}

bool isState(const Found& point, const Query& query) {
  const double dryBulb = point.dryBulb;
  const double wetBulb = point.wetBulb;
  const double humidity = valueAt(rh, dryBulb, wetBulb, query.atm);
  const double ratio = valueAt(w, dryBulb, wetBulb, query.atm);
  const double turn = std::exp(-24.873 / (2 * 0.8927));
  const bool ofDewPoint = query.given[0].kind == dp || query.given[1].kind == dp;
  return dryBulb > 0 && dryBulb <= 120 && wetBulb > 0 && wetBulb <= 120 && humidity > 0 && humidity <= 100 + 1e-9 &&
         ratio > 0 && ratio <= 0.03 * (1 + 1e-11) && valueAt(h, dryBulb, wetBulb, query.atm) > 0 &&
         (!ofDewPoint || psychro_pv1(dryBulb, wetBulb, query.atm) >= turn);
}

/// Newton's method from the middle of a square, or from its moistest corner if a dew point has no value in the middle,
/// kept within the region; no value if it does not arrive.
Found polished(const Square& square, const Square& region, const Query& query) {
  Found point{(square.left + square.right) / 2, (square.bottom + square.top) / 2};
  const auto off = [&](std::size_t i, double x, double y) {
    return valueAt(query.given[i].kind, x, y, query.atm) - query.given[i].value;
  };
  const auto farOff = [&] {
    double worst = 0;
    for (std::size_t i = 0; i < 2; ++i) {
      const double error = off(i, point.dryBulb, point.wetBulb) / propertyOf(query.given[i].kind).visible;
      worst = error == error ? std::max(worst, std::abs(error)) : std::numeric_limits<double>::infinity();
    }
    return worst;
  };
  if (!hasValue(farOff())) point = {square.left, square.top};
  double errors[2];
  bool arrived = false;
  for (int step = 0; step < 40; ++step) {
    const double x = point.dryBulb;
    const double y = point.wetBulb;
    const Square near{std::max(x - 1e-6, region.left), std::min(x + 1e-6, region.right),
                      std::max(y - 1e-6, region.bottom), std::min(y + 1e-6, region.top)};
    double slope[2][2];
    for (std::size_t i = 0; i < 2; ++i) {
      errors[i] = off(i, x, y);
      slope[i][0] = (off(i, near.right, y) - off(i, near.left, y)) / (near.right - near.left);
      slope[i][1] = (off(i, x, near.top) - off(i, x, near.bottom)) / (near.top - near.bottom);
    }
    const double determinant = slope[0][0] * slope[1][1] - slope[0][1] * slope[1][0];
    const double moveX = (errors[0] * slope[1][1] - errors[1] * slope[0][1]) / determinant;
    const double moveY = (errors[1] * slope[0][0] - errors[0] * slope[1][0]) / determinant;
    if (!hasValue(moveX) || !hasValue(moveY)) break;
    arrived = std::abs(moveX) < 1e-6 && std::abs(moveY) < 1e-6;
    // A step that leads away, or into air so dry that it has no dew point, is cut short.
    const double before = farOff();
    double part = 1;
    do {
      point.dryBulb = std::clamp(x - part * std::clamp(moveX, -1.0, 1.0), region.left, region.right);
      point.wetBulb = std::clamp(y - part * std::clamp(moveY, -1.0, 1.0), region.bottom, region.top);
      part /= 2;
    } while (!(farOff() < before) && part > 1e-4);
  }
  return arrived && farOff() < 1e-7 ? point : Found{noValue, noValue};
}

void scan(const Square& square, const Square& region, const Query& query, std::vector<Found>& found) {
  const double middle = (square.left + square.right) / 2;
  const double level = (square.bottom + square.top) / 2;
  const double size = std::max(square.right - square.left, square.top - square.bottom);
  if (size < 2) {
    for (const Given& given : query.given) {
      if (!mayContain(square, given, query.atm)) return;
    }
  }
  if (size < 0.004) {
    const Found point = polished(square, region, query);
    const auto same = [&](const Found& other) {
      return std::hypot(other.dryBulb - point.dryBulb, other.wetBulb - point.wetBulb) < 1e-6;
    };
    if (isState(point, query) && std::none_of(found.begin(), found.end(), same)) found.push_back(point);
    return;
  }
  scan({square.left, middle, square.bottom, level}, region, query, found);
  scan({middle, square.right, square.bottom, level}, region, query, found);
  scan({square.left, middle, level, square.top}, region, query, found);
  scan({middle, square.right, level, square.top}, region, query, found);
}

/// The last temperature over ice and the first over water.
std::array<double, 2> freezing() {
  double water = 31.9996;
  while (!((water + 459.67) * 0.555556 >= 273.15)) water += 1e-9;
  while ((std::nextafter(water, 0) + 459.67) * 0.555556 >= 273.15) water = std::nextafter(water, 0);
  return {std::nextafter(water, 0), water};
}

std::vector<Found> scanned(const Query& query) {
  const auto [ice, water] = freezing();
  std::vector<Found> found;
  for (const auto& [left, right] : {std::pair{0.0, ice}, {water, 120.0}}) {
    for (const auto& [bottom, top] : {std::pair{0.0, ice}, {water, 32.0}, {std::nextafter(32, 33), 120.0}}) {
      const Square region{left, right, bottom, top};
      scan(region, region, query, found);
    }
  }
  return found;
}

/// Half the pairs are those of a state, one in four of them with a wet or dry bulb at freezing; the others need have
/// nothing in common.
Query anyQuery(PropertyKind first, PropertyKind second, double atm, Random& random) {
  constexpr std::array<std::array<double, 2>, kindCount> usual = {
      {{0, 121}, {0, 110}, {0, 102}, {0, 0.031}, {0, 62}, {-60, 92}, {11, 16}}};
  const auto oneOf = [&](int count) { return std::uniform_int_distribution<int>(0, count - 1)(random); };
  const bool ofState = oneOf(2) == 0;
  for (;;) {
    double dryBulb = oneOf(8) == 0 ? between(random, 31, 33) : between(random, 0, 120);
    double wetBulb = oneOf(4) == 0 ? between(random, 30.5, 33.5) : between(random, 0, dryBulb);
    if (oneOf(20) == 0) wetBulb = dryBulb;
    Query query{{Given{first, 0}, Given{second, 0}}, atm};
    if (ofState && !isState({dryBulb, wetBulb}, query)) continue;
    for (Given& given : query.given) {
      const auto [low, high] = usual[static_cast<std::size_t>(given.kind)];
      given.value = ofState           ? valueAt(given.kind, dryBulb, wetBulb, atm)
                    : given.kind == v ? between(random, low, high) * defaultPressure / atm
                                      : between(random, low, high);
    }
    return query;
  }
}

void print(const char* words, const Query& query, double dryBulb, double wetBulb) {
  std::printf("%s: %d %.17g, %d %.17g at %g in Hg: dry bulb %.12g, wet bulb %.12g\n", words,
              static_cast<int>(query.given[0].kind), query.given[0].value, static_cast<int>(query.given[1].kind),
              query.given[1].value, query.atm, dryBulb, wetBulb);
}

}  // namespace

int main(int argc, char** argv) {
  const auto argument = [&](int at, double otherwise) { return at < argc ? lenientNumber(argv[at]) : otherwise; };
  const int count = static_cast<int>(argument(1, 2));
  Random random(static_cast<std::uint64_t>(argument(2, 1)));
  std::vector<double> pressures{defaultPressure, 20.577, 60.0};
  if (argc > 3) pressures.clear();
  for (int i = 3; i < argc; ++i) pressures.push_back(lenientNumber(argv[i]));
  std::array<int, 4> pairs{};  // without an answer, with one, with two, with more
  int faults = 0;
  for (const double atm : pressures) {
    for (int i = 0; i < kindCount * kindCount * count; ++i) {
      const auto first = *kindAt(i % kindCount);
      const auto second = *kindAt(i / kindCount % kindCount);
      if (first >= second || (first == w && second == dp)) continue;
      const Query query = anyQuery(first, second, atm, random);
      const ExactSolutions reported = exactSolutions(query.given[0], query.given[1], atm);
      const std::vector<Found> found = scanned(query);
      const auto apart = [](const StatePoint& state, const Found& point) {
        return std::hypot(state.db - point.dryBulb, state.wb - point.wetBulb) > 1e-4;
      };
      for (const Found& point : found) {
        const auto other = [&](const StatePoint& state) { return apart(state, point); };
        if (!std::all_of(reported.states.begin(), reported.states.end(), other)) continue;
        ++faults;
        print("missed", query, point.dryBulb, point.wetBulb);
      }
      for (const StatePoint& state : reported.states) {
        const auto other = [&](const Found& point) { return apart(state, point); };
        if (!std::all_of(found.begin(), found.end(), other)) continue;
        ++faults;
        print("invented", query, state.db, state.wb);
      }
      if (reported.states.empty() == (reported.reason == NoSolution::none)) print("reason", query, 0, ++faults);
      ++pairs[std::min<std::size_t>(found.size(), 3)];
    }
  }
  std::printf("%d pairs without an answer, %d with one, %d with two, %d with more; %d faults\n", pairs[0], pairs[1],
              pairs[2], pairs[3], faults);
  return faults == 0 && pairs[1] > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
