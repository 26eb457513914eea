/// \file
/// What a key press costs: one property function, one pair of each row, and the pair that takes longest.
///
/// A pair is resolved at every key press. Targets on a desktop machine: dry bulb with wet bulb below 0.5 us, a row with
/// one search that converges below 10 us, the slowest pair below 8 ms,
/// all answers of a pair below 20 us.
#include <benchmark/benchmark.h>

#include <string>

#include "engine/answers.h"
#include "engine/moistair.h"
#include "engine/openfinders.h"
#include "engine/resolver.h"
#include "engine/solvers.h"

using namespace moistair;
using enum PropertyKind;

namespace {

/// Hides the arguments from the optimiser and times f.
template <class... Arguments>
void timed(benchmark::State& state, double (*f)(Arguments...), Arguments... arguments) {
  for (auto _ : state) {
    (benchmark::DoNotOptimize(arguments), ...);
    benchmark::DoNotOptimize(f(arguments...));
  }
}

constexpr double sealevel = defaultpressure;

BENCHMARK_CAPTURE(timed, psychro_pvs_ice, psychro_pvs, 20.0);
BENCHMARK_CAPTURE(timed, psychro_pvs_water, psychro_pvs, 75.0);
BENCHMARK_CAPTURE(timed, psychro_pv1, psychro_pv1, 75.0, 62.5, sealevel);
BENCHMARK_CAPTURE(timed, psychro_dp, psychro_dp, 0.44);
BENCHMARK_CAPTURE(timed, psychro_w, psychro_w, 75.0, 62.5, sealevel);
BENCHMARK_CAPTURE(timed, psychro_h, psychro_h, 75.0, 62.5, sealevel);
BENCHMARK_CAPTURE(timed, psychro_rh, psychro_rh, 75.0, 62.5, sealevel);
BENCHMARK_CAPTURE(timed, psychro_v, psychro_v, 75.0, 62.5, sealevel);
BENCHMARK_CAPTURE(timed, psychro_wrh, psychro_wrh, 75.0, 50.0, sealevel);
BENCHMARK_CAPTURE(timed, psychro_atm, psychro_atm, 5000.0);
BENCHMARK_CAPTURE(timed, psychro_wb, psychro_wb, 75.0, 28.0, sealevel);

void resolve(benchmark::State& state, Given first, Given second) {
  SolverFields fields;
  for (auto _ : state) {
    benchmark::DoNotOptimize(first);
    benchmark::DoNotOptimize(resolvepair(first, second, sealevel, openrangefinders(), fields));
  }
}

void answerpair(benchmark::State& state, Given first, Given second) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(first);
    benchmark::DoNotOptimize(answers(first, second, sealevel));
  }
}

/// The state of 75 and 62.5 from every pair of its properties.
void resolverows() {
  const Given given[kindcount] = {{db, 75},        {wb, 62.5},       {rh, 50.3032182}, {w, 0.0092932},
                                  {h, 28.1695563}, {dp, 55.2457239}, {v, 13.6751968}};
  const char* names[kindcount] = {"db", "wb", "rh", "w", "h", "dp", "v"};
  for (int i = 0; i < kindcount; ++i) {
    for (int j = i + 1; j < kindcount; ++j) {
      if (given[i].kind == w && given[j].kind == dp) continue;
      const std::string pair = std::string("/") + names[i] + "_" + names[j];
      benchmark::RegisterBenchmark(("resolve" + pair).c_str(), resolve, given[i], given[j]);
      benchmark::RegisterBenchmark(("answers" + pair).c_str(), answerpair, given[i], given[j]);
    }
  }
}

// No search of this pair converges: a hundred iterations of two inner searches of a hundred each.
BENCHMARK_CAPTURE(resolve, slowest, {dp, 50}, {v, 78});

[[maybe_unused]] const bool registered = (resolverows(), true);

}  // namespace

BENCHMARK_MAIN();
