/// \file
/// A system of ten steps: its text read, compiled and solved (goal: 20 us), and rows of it on one thread and without
/// the disk.

#include <benchmark/benchmark.h>

#include <string>

#include "cli/processrows.h"

namespace moistair {
namespace {

constexpr const char* tenSteps =
    "# An air handler with economizer, preheater and steam humidifier\n"
    "OA: air scfm=2000,db=95,rh=40\n"
    "RA: air db=78,rh=50,acfm=8000\n"
    "RL: part RA share=0.25\n"
    "PH: heat OA db=50,idle=pass\n"
    "MA: mix PH RL.rest\n"
    "CC: coil MA db=55,rh=92,idle=pass\n"
    "HU: steam CC w=0.006,idle=pass\n"
    "SF: fan HU inwg=3,eff=0.7\n"
    "RM: room SF sensible=100MBH,latent=20MBH\n"
    "EX: fan RM inwg=1,eff=60%\n";

void read(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(readSystem(tenSteps));
}

void readAndCompile(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(compile(readSystem(tenSteps).text.system));
}

void readCompileAndSolve(benchmark::State& state) {
  for (auto _ : state) {
    const Compilation compilation = compile(readSystem(tenSteps).text.system);
    const Solution solution = solve(compilation.system, Site{});
    if (!solution.complete) state.SkipWithError("a step without a result");
    benchmark::DoNotOptimize(solution.results.data());
  }
}

void rows(benchmark::State& state, const char* columns) {
  constexpr int count = 1000;
  std::string_view names = "OA.db,OA.rh\n";
  CsvRecord header;
  takeRecord(names, header);
  SystemText text = readSystem(tenSteps).text;
  ProcessPlan plan;
  plan.first.input = inputColumns(header, "bench", text.system);
  plan.first.system = compile(text.system).system;
  plan.first.results = resultColumns(columns, plan.first.system);
  plan.shape.selection = plan.first.input.selection;
  plan.shape.results = plan.first.results.size();
  std::string block;
  for (int i = 0; i < count; ++i) block += std::to_string(60 + .035 * i) + "," + std::to_string(30 + .03 * i) + "\n";
  for (auto _ : state) {
    if (processRows(block, plan).failed > 0) state.SkipWithError("rows without a result");
  }
  state.SetItemsProcessed(state.iterations() * count);
}

/// From keys to a solved design (goal: 0.5 ms).
void singleZone(benchmark::State& state) {
  const std::vector<std::string> keys = {"room.db=78",    "room.rh=50",    "room.total=120000", "room.shr=0.7",
                                         "outdoor.db=95", "outdoor.rh=55", "supply.db=58",      "fan.inwg=3",
                                         "fan.eff=0.7",   "return.dt=1.5", "outdoor.acfm=1000"};
  for (auto _ : state) {
    Designer designer(readKeys(*readymadeNamed("single-zone"), keys).keys, Site{});
    if (!designer.design().errors.empty()) state.SkipWithError("no solution");
  }
}

BENCHMARK(singleZone)->Unit(benchmark::kMicrosecond);
BENCHMARK(read)->Unit(benchmark::kMicrosecond);
BENCHMARK(readAndCompile)->Unit(benchmark::kMicrosecond);
BENCHMARK(readCompileAndSolve)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(rows, all_columns, "")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(rows, two_columns, "SF.db,CC.total")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace moistair

BENCHMARK_MAIN();
