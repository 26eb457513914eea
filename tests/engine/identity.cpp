/// \file
/// Whether the quick way of searching and the plain one end alike, to the last bit and the last iteration: random pairs
/// from ordinary to absurd, crowded where a forecast could go wrong, and the property lines of charts.
///
///   identity COUNT [SEED [PAIR]]      COUNT inputs for each pair of the table, or for the one of that number
///
/// It also fails if a resolved state has a property without a value, or if the quick way takes more than 50 ms of
/// processor time for a pair (not judged in a sanitized build).
#include <ctime>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <limits>
#include <random>

#include "chart/drawchart.h"
#include "chart/drawing.h"
#include "chart/propertylines.h"
#include "engine/moistair.h"
#include "engine/openfinders.h"
#include "engine/resolver.h"
#include "engine/solvers.h"

using namespace moistair;
using enum PropertyKind;

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr double slowestAllowed = std::numeric_limits<double>::infinity();
#else
constexpr double slowestAllowed = 50000;
#endif

using Random = std::mt19937_64;

double between(Random& random, double low, double high) {
  return std::uniform_real_distribution<double>(low, high)(random);
}

int oneOf(Random& random, int count) { return std::uniform_int_distribution<int>(0, count - 1)(random); }

/// Either sign, any magnitude between two powers of ten.
double magnitude(Random& random, double low, double high) {
  const double number = std::pow(10.0, between(random, low, high));
  return oneOf(random, 2) == 0 ? number : -number;
}

double pressure(Random& random) {
  switch (oneOf(random, 12)) {
    case 0: return std::abs(magnitude(random, -1, 2.18));
    case 1: return between(random, 0, 5);  // air and boiling water side by side
    case 2: return between(random, 3.9, 12);
    case 3: return oneOf(random, 4) > 0 ? between(random, 30, 210) : magnitude(random, -308, 308);
    case 4: return oneOf(random, 16) > 0 ? defaultPressure : oneOf(random, 2) == 0 ? 0 : noValue;
    default: return between(random, 18, 32);
  }
}

/// Dry bulb and wet bulb of air, crowded round freezing and saturation.
StatePoint air(Random& random, double atm) {
  StatePoint state;
  const auto crowd = [&] { return 32 + magnitude(random, -13, 0.7); };
  const int style = oneOf(random, 8);
  state.db = style == 0 ? crowd() : between(random, 0.5, 120);
  state.wb = style == 1   ? crowd()
             : style == 2 ? state.db - magnitude(random, -13, 0)
                          : between(random, std::max(0.0, state.db - 60), state.db);
  if (style == 1) state.db = state.wb + between(random, -1, 60);
  const double pv = psychro_pv1(state.db, state.wb, atm);
  state.rh = psychro_rh(state.db, state.wb, atm);
  state.w = psychro_w(state.db, state.wb, atm);
  state.h = psychro_h(state.db, state.wb, atm);
  state.v = psychro_v(state.db, state.wb, atm);
  state.dp = psychro_dp(pv);
  return state;
}

/// A value at an end of its limits, anywhere between them, in the gap of the dew point, or none that air has.
double loneValue(PropertyKind kind, Random& random) {
  constexpr std::array<double, kindCount> ends = {120, 120, 100, 0.03, 62, 120, 78};
  const double end = kind == h && oneOf(random, 2) == 0    ? 61.9
                     : kind == dp && oneOf(random, 2) == 0 ? 89
                                                           : ends[static_cast<std::size_t>(kind)];
  switch (oneOf(random, 10)) {
    case 0: return std::nextafter(end, oneOf(random, 2) == 0 ? 0 : 1000);
    case 1: return end;
    case 2: return kind == dp ? -55 + std::abs(magnitude(random, -13, 1)) : std::abs(magnitude(random, -300, -3)) * end;
    case 3: return kind == dp ? between(random, 31.99, 32.22) : end - std::abs(magnitude(random, -12, 0)) * end;
    case 4: return oneOf(random, 20) > 0 ? between(random, 0, end) : magnitude(random, -308, 308);
    case 5: return oneOf(random, 20) > 0 ? between(random, 0, end) : noValue;
    default: return between(random, 0, end);
  }
}

/// As computed, or as someone has typed it.
double asGiven(double value, Random& random) {
  switch (oneOf(random, 3)) {
    case 0: return std::nearbyint(value * 1e7) / 1e7;
    case 1: return std::nearbyint(value * 100) / 100;
    default: return value;
  }
}

struct Case {
  Given first, second;
  double atm;
};

Case anyCase(PropertyKind first, PropertyKind second, Random& random) {
  const double atm = pressure(random);
  const StatePoint state = air(random, atm);
  const int style = oneOf(random, 10);
  const double value1 = style == 0 || style == 1 ? loneValue(first, random) : asGiven(state.at(first), random);
  const double value2 = style == 0 || style == 2 ? loneValue(second, random) : asGiven(state.at(second), random);
  return {{first, value1}, {second, value2}, atm};
}

double microseconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) * 1e-3;
}

bool sameBits(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) || (std::isnan(a) && std::isnan(b));
}

constexpr std::array<double StatePoint::*, 8> properties = {&StatePoint::db, &StatePoint::wb, &StatePoint::rh,
                                                            &StatePoint::w,  &StatePoint::h,  &StatePoint::dp,
                                                            &StatePoint::v,  &StatePoint::pv};

bool same(const Resolution& one, const Resolution& two) {
  return one.reason == two.reason && one.kind == two.kind && one.iterations == two.iterations &&
         one.unseenLine == two.unseenLine && std::all_of(properties.begin(), properties.end(), [&](auto property) {
           return sameBits(one.point.*property, two.point.*property);
         });
}

bool whole(const Resolution& result) {
  return !result.resolved() || std::all_of(properties.begin(), properties.end(),
                                           [&](auto property) { return hasValue(result.point.*property); });
}

std::int64_t faults = 0;

void fault(const char* what, const Case& given) {
  if (++faults > 20) return;
  std::printf("%s: %d %.17g, %d %.17g at %.17g in Hg\n", what, static_cast<int>(given.first.kind), given.first.value,
              static_cast<int>(given.second.kind), given.second.value, given.atm);
}

void comparePair(PropertyKind first, PropertyKind second, std::int64_t count, Random& random) {
  SolverFields referenceFields, acceleratedFields;  // never cleared, as in a window
  std::int64_t resolved = 0;
  double slowest = 0;
  for (std::int64_t i = 0; i < count; ++i) {
    const Case given = anyCase(first, second, random);
    const double start = microseconds();
    const Resolution accelerated =
        resolvePair(given.first, given.second, given.atm, openRangeFinders(), acceleratedFields);
    const double time = microseconds() - start;
    const Resolution reference =
        resolvePair(given.first, given.second, given.atm, openRangeFinders(SearchMode::reference), referenceFields);
    resolved += accelerated.resolved();
    slowest = std::max(slowest, time);
    if (!same(reference, accelerated)) fault("another end", given);
    if (!whole(accelerated)) fault("no value in a resolved state", given);
    if (time > slowestAllowed) fault("too slow", given);
  }
  std::printf("%-26s %-26s %jd of %jd resolved, slowest %.0f us\n", kindTexts[static_cast<std::size_t>(first)],
              kindTexts[static_cast<std::size_t>(second)], resolved, count, slowest);
}

/// The searches by name, with arguments that no pair lets through.
void compareFunctions(std::int64_t count, Random& random) {
  const auto wbOfW = [](double a, double b, double atm, SearchMode mode) { return wbWithDbAndW(a, b, atm, mode).x; };
  const auto wbOfV = [](double a, double b, double atm, SearchMode mode) { return wbWithDbAndV(a, b, atm, mode).x; };
  const struct {
    const char* name;
    PropertyKind first, second;
    double (*f)(double, double, double, SearchMode);
  } rows[] = {{"psychro_wb", db, h, psychro_wb},       {"psychro_h1", db, rh, psychro_h1},
              {"dbwithrhandhr", rh, w, dbWithRhAndHr}, {"wbwithdbandhr", db, w, wbOfW},
              {"wbwithdbandspvol", db, v, wbOfV},      {"spvolwithdbandhr", db, w, spvolWithDbAndHr}};
  for (const auto& row : rows) {
    for (std::int64_t i = 0; i < count; ++i) {
      Case given = anyCase(row.first, row.second, random);
      if (oneOf(random, 8) == 0) given.first.value += between(random, -60, 60);
      const auto result = [&](SearchMode mode) {
        return row.f(given.first.value, given.second.value, given.atm, mode);
      };
      if (!sameBits(result(SearchMode::accelerated), result(SearchMode::reference))) fault(row.name, given);
    }
  }
}

/// A number through its text and past it, ties and powers of ten among them.
void compareRounding(std::int64_t count, Random& random) {
  for (std::int64_t i = 0; i < count; ++i) {
    const double tie = (std::floor(between(random, 0, 1e15)) + 0.5) / std::pow(10.0, oneOf(random, 24));
    const double power = std::pow(10.0, oneOf(random, 40) - 20);
    const double any = i % 3 == 0 ? tie : i % 3 == 1 ? power : magnitude(random, -12, 17);
    for (const double number : {any, std::nextafter(any, 0), std::nextafter(any, 1e300)}) {
      if (!sameBits(fifteenDigits(number), strictNumber(numberText(number)))) fault("rounding", {{db, number}, {}, 0});
    }
  }
}

void compareCharts(std::int64_t count, Random& random) {
  constexpr WindowSize window{1366 * 15, 768 * 15};
  for (std::int64_t i = 0; i < count; ++i) {
    ChartLimits limits{10.0 * oneOf(random, 12), 0, 0.01 * oneOf(random, 3), 0};
    limits.highDb = std::min(120.0, limits.lowDb + 10.0 * (1 + oneOf(random, 12)));
    limits.highHr = std::min(0.03, limits.lowHr + 0.01 * (1 + oneOf(random, 3)));
    const double atm = i == 0 ? defaultPressure : pressure(random);
    const double line = loneValue(h, random);
    const auto drawn = [&](SearchMode mode) {
      RecordingCanvas canvas;
      const Chart chart{canvas, plotArea(limits, window), atm, mode};
      drawChart(chart, ChartType::standard, "");
      traceEnthLine(chart, line);
      return canvas.drawing();
    };
    if (drawn(SearchMode::accelerated) != drawn(SearchMode::reference))
      fault("another chart", {{db, limits.lowDb}, {h, line}, atm});
  }
}

}  // namespace

int main(int argc, char** argv) {
  const auto argument = [&](int at, double otherwise) { return at < argc ? lenientNumber(argv[at]) : otherwise; };
  const auto count = static_cast<std::int64_t>(argument(1, 1000));
  Random random(static_cast<std::uint64_t>(argument(2, 1)));
  const int only = static_cast<int>(argument(3, 0));
  int pair = 0;
  for (int one = 0; one < kindCount; ++one) {
    for (int two = one + 1; two < kindCount; ++two) {
      if (*kindAt(one) == w && *kindAt(two) == dp) continue;
      if (++pair == only || only == 0) comparePair(*kindAt(one), *kindAt(two), count, random);
    }
  }
  if (only == 0) {
    compareFunctions(count, random);
    compareRounding(count, random);
    compareCharts(1 + count / 1000, random);
  }
  std::printf("%jd faults\n", faults);
  return faults == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
