/// \file
/// A keystroke in the mixing window: a stream resolved and the mixture computed. The slowest is a nested pair in the
/// stream that is typed into; it has to stay below 10 ms, so that typing never lags.

#include <benchmark/benchmark.h>

#include <array>
#include <string>

#include "mixing/mixingproblem.h"

namespace moistair {
namespace {

struct Stream {
  const char* name;
  PropertyKind kind1;
  const char* value1;
  PropertyKind kind2;
  const char* value2;
  bool resolves = true;
};

using enum PropertyKind;

/// The state of 75 and 62.5 deg F by plain pairs and by every nested one, and a value on the way
/// there that no air has: its search runs to the end of its patience.
constexpr std::array<Stream, 11> streams = {{
    {"db_wb", db, "75", wb, "62.5"},
    {"rh_w", rh, "50.3032182", w, ".0092932"},
    {"rh_h", rh, "50.3032182", h, "28.1695563"},
    {"rh_dp", rh, "50.3032182", dp, "55.2457239"},
    {"rh_v", rh, "50.3032182", v, "13.6751968"},
    {"w_h", w, ".0092932", h, "28.1695563"},
    {"w_v", w, ".0092932", v, "13.6751968"},
    {"h_dp", h, "28.1695563", dp, "55.2457239"},
    {"h_v", h, "28.1695563", v, "13.6751968"},
    {"dp_v", dp, "55.2457239", v, "13.6751968"},
    {"rh_v_nowhere", rh, "75", v, "0.001", false},
}};

/// A keystroke in one of two streams of the same pair.
void keystroke(benchmark::State& state, const Stream& typed) {
  MixingProblem problem;
  problem.pressure = {29.92126, {}};
  for (AirStream& stream : problem.streams) {
    stream.kind1 = typed.kind1;
    stream.value1 = typed.value1;
    stream.kind2 = typed.kind2;
    stream.value2 = typed.value2;
    stream.flow = "1000";
  }
  resolvestream(problem, 1);
  for (auto _ : state) {
    resolvestream(problem, 0);
    mixstreams(problem);
    benchmark::DoNotOptimize(problem.mixed.dp.data());
  }
  if (problem.savable != typed.resolves) state.SkipWithError("another mixture than expected");
}

const bool registered = [] {
  for (const Stream& stream : streams) {
    benchmark::RegisterBenchmark(("keystroke/" + std::string(stream.name)).c_str(), keystroke, stream)
        ->Unit(benchmark::kMillisecond);
  }
  return true;
}();

}  // namespace
}  // namespace moistair

BENCHMARK_MAIN();
