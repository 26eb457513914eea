/// \file
/// Weather: a million rows of three columns read (goal: 1 s), the states of a year's 8760 hours and their cells.

#include <benchmark/benchmark.h>

#include <string>

#include "weather/bins.h"

namespace moistair {
namespace {

/// Rows a minute apart.
std::string logOf(int rows) {
  std::string text = "Time,Temp (F),RH\n";
  for (int i = 0; i < rows; ++i) {
    std::string time = timeWords(timeOfSeconds(1672531200 + std::int64_t{60} * i));
    text += time + ',' + std::to_string(40 + i / 60 % 50) + '.' + std::to_string(i % 10) + ',' +
            std::to_string(30 + i / 97 % 60) + '\n';
  }
  return text;
}

void readRows(benchmark::State& state) {
  const std::string text = logOf(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const auto file = readWeather(text);
    if (!file || file->rows.size() != static_cast<std::size_t>(state.range(0))) state.SkipWithError("rows are missing");
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

WeatherFile year() {
  WeatherFile file = *readWeather(logOf(8760 * 60));
  std::vector<WeatherRow> rows;
  for (std::size_t i = 0; i < file.rows.size(); i += 60) rows.push_back(file.rows[i]);
  file.rows = std::move(rows);
  return file;
}

void statesOfYear(benchmark::State& state) {
  const WeatherFile file = year();
  for (auto _ : state) {
    Oddities oddities;
    benchmark::DoNotOptimize(hoursOf(file, {}, oddities).data());
  }
}

void cellsOfYear(benchmark::State& state) {
  Oddities oddities;
  const auto hours = hoursOf(year(), {}, oddities);
  for (auto _ : state) benchmark::DoNotOptimize(cellsOf(hours, {}).data());
}

BENCHMARK(readRows)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(statesOfYear)->Unit(benchmark::kMillisecond);
BENCHMARK(cellsOfYear)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace moistair

BENCHMARK_MAIN();
