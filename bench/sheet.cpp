// Sheets: laid out again as at every step while the window's edge is dragged, painted on the screen, and made as files.
#include <benchmark/benchmark.h>
#include <QGuiApplication>
#include <QPainter>

#include "model/document.h"
#include "paint/sheetpaint.h"

namespace {

using namespace moistair;

const Setting setting{{0, 120, 0, 0.03}, {}};

/// A standard chart with a line of each kind and twenty points in a crowd.
SheetContent content() {
  Document document;
  document.entries.push_back({setting, DrawnChart{ChartType::standard}});
  const std::array<PropertyLine, 4> lines = {{{LineKind::relativeHumidity, "55"},
                                              {LineKind::wetBulb, "65"},
                                              {LineKind::enthalpy, "30"},
                                              {LineKind::specificVolume, "14"}}};
  for (const PropertyLine& line : lines) document.entries.push_back({setting, line});
  for (int i = 0; i < 20; ++i) {
    const StatePoint state{70.0 + i % 5, 62.5, 50, 0.009 + 0.0004 * (i / 5), 28, 55, 13.6, 0.44};
    document.entries.push_back({setting, MarkedPoint{{}, state, "Zone " + std::to_string(i)}});
  }
  return contentOf(document);
}

SheetOptions onscreen(int width) {
  SheetOptions options;
  options.page = {static_cast<double>(width), 1000};
  options.titleBlock = options.table = false;
  return options;
}

void BM_LayOut(benchmark::State& state) {
  const SheetContent shown = content();
  const ExtentFunction extents = sheetExtents();
  int width = 1500;
  for (auto _ : state) {
    width = 1500 + (width + 7) % 400;  // another one each time
    benchmark::DoNotOptimize(layoutSheet(shown, onscreen(width), extents));
  }
}
BENCHMARK(BM_LayOut)->Unit(benchmark::kMillisecond);

void BM_Paint(benchmark::State& state) {
  const SheetDrawing sheet = layoutSheet(content(), onscreen(1920), sheetExtents());
  QImage image(1920, 1000, QImage::Format_RGB32);
  for (auto _ : state) {
    QPainter painter(&image);
    paintPage(sheet, 0, painter);
  }
}
BENCHMARK(BM_Paint)->Unit(benchmark::kMillisecond);

void BM_File(benchmark::State& state, const char* ending) {
  const SheetDrawing sheet = layoutSheet(content(), {}, sheetExtents());
  for (auto _ : state) state.counters["bytes"] = static_cast<double>(sheetContent(ending, sheet, "Sheet", 1).size());
}
BENCHMARK_CAPTURE(BM_File, pdf, ".pdf")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_File, svg, ".svg")->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
