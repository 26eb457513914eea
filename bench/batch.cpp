/// \file
/// Rows a second of the headless tool's tables, on one thread and without the disk. The plain pair db,rh is the one
/// that counts: above 100,000 rows a second.

#include <benchmark/benchmark.h>

#include <array>
#include <string>

#include "cli/batchrows.h"
#include "engine/openfinders.h"

namespace moistair {
namespace {

/// A table of one pair: its first value rises from row to row, within what has a state.
struct Pair {
  const char* name;
  const char* header;
  double first, step;
  const char* second;
  bool full = false;
};

constexpr std::array<Pair, 6> pairs = {{
    {"db_rh", "db,rh", 40, .05, "50.3"},
    {"db_rh_full", "db,rh", 40, .05, "50.3", true},
    {"db_wb", "db,wb", 63, .02, "62.5"},
    {"db_h", "db,h", 70, .03, "28.1695563"},
    {"rh_v", "rh,v", 30, .05, "13.6751968"},
    {"dp_v", "dp,v", 40, .02, "13.6751968"},
}};

std::string block(const Pair& pair, std::size_t rows) {
  std::string text;
  for (std::size_t i = 0; i < rows; ++i) {
    text += std::to_string(pair.first + static_cast<double>(i) * pair.step) + "," + pair.second + "\n";
  }
  return text;
}

void batch(benchmark::State& state, const Pair& pair) {
  constexpr std::size_t rows = 1000;
  std::string_view names = pair.header;
  CsvRecord header;
  takeRecord(names, header);
  const BatchPlan plan{.columns = columnsOf(header, "bench"), .finders = &openRangeFinders(), .full = pair.full};
  const std::string text = block(pair, rows);
  std::size_t failed = 0;
  for (auto _ : state) {
    const BatchResult result = resolveRows(text, plan);
    failed = result.failed;
    benchmark::DoNotOptimize(result.text.data());
  }
  if (failed > 0) state.SkipWithError("rows without a state");
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(rows));
}

const bool registered = [] {
  for (const Pair& pair : pairs) {
    benchmark::RegisterBenchmark(("batch/" + std::string(pair.name)).c_str(), batch, pair)
        ->Unit(benchmark::kMillisecond);
  }
  return true;
}();

}  // namespace
}  // namespace moistair

BENCHMARK_MAIN();
