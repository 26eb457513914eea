// Documents: laid out again for another window, as at every step while its edge is dragged; undone and redone; and,
// with 10 000 points, written, read and the bytes that it takes.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include "model/documentfile.h"
#include "model/history.h"

namespace {

using namespace moistair;

constexpr ChartLimits limits{0, 120, 0, 0.03};
constexpr WindowSize inner{1366 * 15, 768 * 15};
const Setting setting{limits, {}};

Entry point(int number) {
  const std::string id = "P" + std::to_string(number);
  const StatePoint state{75, 62.5, 50.3032182, 0.0092932, 28.1695563, 55.2457239, 13.6751968, 0.440482};
  return {setting, MarkedPoint{{{{PropertyKind::db, "75"}, {PropertyKind::wb, "62.5"}}}, state, id}};
}

/// A standard chart with so many lines, a quarter of each kind, and so many points.
Document chart(int lines, int points) {
  Document document;
  document.entries.push_back({setting, DrawnChart{ChartType::standard}});
  const std::array<PropertyLine, 4> kinds = {{{LineKind::relativeHumidity, "55"},
                                              {LineKind::wetBulb, "65"},
                                              {LineKind::enthalpy, "30"},
                                              {LineKind::specificVolume, "14"}}};
  for (int i = 0; i < lines; ++i) document.entries.push_back({setting, kinds[static_cast<std::size_t>(i) % 4]});
  for (int i = 0; i < points; ++i) document.entries.push_back(point(i));
  return document;
}

void BM_LayOut(benchmark::State& state) {
  const Document document = chart(10, 20);
  for (auto _ : state) benchmark::DoNotOptimize(drawingOf(document, inner));
}
BENCHMARK(BM_LayOut)->Unit(benchmark::kMillisecond);

void BM_LayOutWithoutTheChart(benchmark::State& state) {
  Document document = chart(10, 20);
  document.entries.erase(document.entries.begin());
  for (auto _ : state) benchmark::DoNotOptimize(drawingOf(document, inner));
}
BENCHMARK(BM_LayOutWithoutTheChart)->Unit(benchmark::kMillisecond);

void BM_UndoAndRedo(benchmark::State& state) {
  History history(chart(0, 10000));
  history.carryOut(addition(history.document(), point(0)));
  for (auto _ : state) {
    history.undo();
    history.redo();
  }
}
BENCHMARK(BM_UndoAndRedo)->Unit(benchmark::kMicrosecond);

void BM_TenThousandPointsInMemory(benchmark::State& state) {
  for (auto _ : state) {
    const std::size_t before = mallinfo2().uordblks + mallinfo2().hblkhd;
    const Document document = chart(0, 10000);
    state.counters["bytes"] = static_cast<double>(mallinfo2().uordblks + mallinfo2().hblkhd - before);
  }
}
BENCHMARK(BM_TenThousandPointsInMemory)->Unit(benchmark::kMillisecond);

void BM_WriteTenThousandPoints(benchmark::State& state) {
  const Document document = chart(0, 10000);
  for (auto _ : state) state.counters["bytes"] = static_cast<double>(fileText(document).size());
}
BENCHMARK(BM_WriteTenThousandPoints)->Unit(benchmark::kMillisecond);

void BM_ReadTenThousandPoints(benchmark::State& state) {
  const std::string text = fileText(chart(0, 10000));
  for (auto _ : state) benchmark::DoNotOptimize(readDocument(text)->document.entries.data());
}
BENCHMARK(BM_ReadTenThousandPoints)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
