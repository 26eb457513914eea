// A standard chart on 0 to 120 deg F and 0 to 0.030 lb/lb in a window of 1366 x 768 pixels: the drawing list alone, and
// on the screen with the curve shown as it grows. Run the second under a display: xvfb-run -s "-screen 0 1366x768x24".
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTest>

#include "chart/drawchart.h"
#include "chart/drawing.h"
#include "toolkit/graphview.h"

namespace {

using namespace moistair;

constexpr ChartLimits limits{0, 120, 0, 0.03};
constexpr WindowSize inner{1366 * 15, 768 * 15};

void draw(ChartCanvas& canvas) {
  const PlotArea area{limits, plotFrame(limits), inner};
  drawChart({canvas, area, defaultPressure}, ChartType::standard, "Atmos. pr=29.92126 In Hg");
}

void BM_DrawingList(benchmark::State& state) {
  for (auto _ : state) {
    RecordingCanvas canvas;
    draw(canvas);
    benchmark::DoNotOptimize(canvas.drawing().operations.data());
  }
}
BENCHMARK(BM_DrawingList)->Unit(benchmark::kMillisecond);

void BM_OnScreen(benchmark::State& state) {
  GraphView graph;
  graph.resize(1366, 768);
  graph.show();
  if (!QTest::qWaitForWindowExposed(&graph)) state.SkipWithError("the window does not show");
  for (auto _ : state) {
    graph.canvas().cls();
    draw(graph.canvas());
    graph.repaint();
  }
}
BENCHMARK(BM_OnScreen)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  QApplication application(argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
