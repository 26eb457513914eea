/// \file
/// Random pairs of properties, from ordinary to absurd, at random pressures: whatever a person types, the answer comes
/// between two keystrokes and is a state or none.
///
///   fuzzpairs COUNT [SEED]
///
/// Fails if a pair takes more than 50 ms of processor time (not judged in a sanitized build) or if a resolved state
/// has a property without a value.
#include <ctime>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>

#include "engine/numbertext.h"
#include "engine/openfinders.h"
#include "engine/resolver.h"
#include "engine/value.h"

using namespace moistair;

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr double slowest_allowed = std::numeric_limits<double>::infinity();
#else
constexpr double slowest_allowed = 50;
#endif

using Random = std::mt19937_64;

double between(Random& random, double low, double high) {
  return std::uniform_real_distribution<double>(low, high)(random);
}

int oneof(Random& random, int count) { return std::uniform_int_distribution<int>(0, count - 1)(random); }

/// Either sign, any magnitude of a double.
double anymagnitude(Random& random) {
  const double magnitude = std::pow(10.0, between(random, -308, 308));
  return oneof(random, 2) == 0 ? magnitude : -magnitude;
}

double value(PropertyKind kind, bool ordinary, Random& random) {
  constexpr std::array<double, kindcount> ends = {120, 120, 100, 0.03, 62, 120, 78};
  constexpr std::array<double, kindcount> usual = {75, 62.5, 50, 0.0093, 28, 55, 13.7};
  const auto index = static_cast<std::size_t>(kind);
  if (ordinary) return usual[index] * between(random, 0.7, 1.3);
  switch (oneof(random, 8)) {
    case 0: return between(random, -1e6, 1e6);
    case 1: return anymagnitude(random);
    case 2: return std::nextafter(ends[index], oneof(random, 2) == 0 ? 0 : 1000);
    case 3: return kind == PropertyKind::dp ? between(random, -60, 1) : 0;
    case 4: return novalue;
    default: return between(random, 0, ends[index]);
  }
}

double pressure(bool ordinary, Random& random) {
  if (ordinary) return between(random, 20, 31);
  switch (oneof(random, 8)) {
    case 0: return between(random, 0, 1e6);
    case 1: return anymagnitude(random);
    case 2: return between(random, -100, 1);
    case 3: return between(random, 0, 4);  // air and boiling water side by side
    case 4: return oneof(random, 2) == 0 ? 0 : novalue;
    default: return between(random, 5, 35);
  }
}

/// Processor time of this thread, so that a busy machine slows nothing down.
double milliseconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

bool whole(const StatePoint& point) {
  const double all[] = {point.db, point.wb, point.rh, point.w, point.h, point.dp, point.v, point.pv};
  return std::all_of(std::begin(all), std::end(all), hasvalue);
}

struct Case {
  Given first, second;
  double atm;
  double milliseconds = 0;
};

Case anycase(Random& random) {
  const auto kind1 = *kindat(oneof(random, kindcount));
  const auto kind2 = *kindat(oneof(random, kindcount));
  const bool ordinary = oneof(random, 2) == 0;
  return {{kind1, value(kind1, ordinary, random)}, {kind2, value(kind2, ordinary, random)}, pressure(ordinary, random)};
}

void print(const char* head, const Case& pair) {
  std::printf("%s: %s %s, %s %s at %s in Hg, %s ms\n", head, kindtexts[static_cast<std::size_t>(pair.first.kind)],
              numbertext(pair.first.value).c_str(), kindtexts[static_cast<std::size_t>(pair.second.kind)],
              numbertext(pair.second.value).c_str(), numbertext(pair.atm).c_str(),
              fourdecimals(pair.milliseconds).c_str());
}

}  // namespace

int main(int argc, char** argv) {
  const auto argument = [&](int at, double otherwise) { return at < argc ? lenientnumber(argv[at]) : otherwise; };
  const auto count = static_cast<std::int64_t>(argument(1, 4000));
  Random random(static_cast<std::uint64_t>(argument(2, 1)));
  SolverFields fields;  // never cleared, as in a window
  std::int64_t resolved = 0, faults = 0;
  Case slowest{};
  for (std::int64_t i = 0; i < count; ++i) {
    Case pair = anycase(random);
    const double start = milliseconds();
    const Resolution result = resolvepair(pair.first, pair.second, pair.atm, openrangefinders(), fields);
    pair.milliseconds = milliseconds() - start;
    if (pair.milliseconds > slowest.milliseconds) slowest = pair;
    resolved += result.resolved();
    const bool slow = pair.milliseconds > slowest_allowed;
    const bool broken = result.resolved() && !whole(result.point);
    if (slow) print("too slow", pair);
    if (broken) print("no value in a resolved state", pair);
    faults += slow || broken;
  }
  std::printf("%jd pairs, %jd resolved, %jd faults\n", count, resolved, faults);
  print("slowest", slowest);
  return faults == 0 && (count < 1000 || resolved > count / 100) ? EXIT_SUCCESS : EXIT_FAILURE;
}
