#include "chart/drawchart.h"

#include <initializer_list>

#include "chart/propertylines.h"
#include "charts.h"
#include "engine/value.h"

namespace moistair {
namespace {

using charttest::fulllimits;
using charttest::linesof;
using charttest::recorded;
using charttest::sealevel;

const HeaderTexts header{"0", "29.92126"};

Drawing drawn(ChartType type, const ChartLimits& limits, double atm) {
  return recorded([&](const Chart& chart) { drawchart(chart, type, header); }, limits, atm);
}

TEST(StandardChart, HoldsAllItsLines) {
  const Drawing drawing = drawn(ChartType::standard, fulllimits, sealevel);
  EXPECT_EQ(drawing.operations.size(), 2029u);
  EXPECT_EQ(linesof(drawing, colors::specificvolume).size(), 778u);
  EXPECT_EQ(linesof(drawing, colors::relativehumidity).size(), 732u);
  EXPECT_EQ(linesof(drawing, colors::wetbulb).size(), 256u);
  EXPECT_EQ(linesof(drawing, colors::finegrid).size(), 149u);
  EXPECT_EQ(linesof(drawing, colors::majorline).size(), 29u);
  EXPECT_EQ(linesof(drawing, foreground).size(), 3u);
  EXPECT_EQ(charttest::textsof(drawing).size(), 82u);
}

TEST(BlankChart, HasTheSaturationLineAlone) {
  const Drawing drawing = drawn(ChartType::blank, fulllimits, sealevel);
  EXPECT_EQ(linesof(drawing, colors::specificvolume).size(), 0u);
  EXPECT_EQ(linesof(drawing, colors::wetbulb).size(), 0u);
  EXPECT_EQ(linesof(drawing, colors::relativehumidity), linesof(recorded(drawsatline), colors::relativehumidity));
  EXPECT_EQ(linesof(drawing, colors::majorline).size(), 29u);
}

/// The sanitizers take their time: a sample is enough for them.
#ifdef __SANITIZE_ADDRESS__
constexpr int every = 29;
#else
constexpr int every = 1;
#endif

/// Calls `visit` with all limits that pass the tests of the lists.
template <class Visit>
void foralllimits(const Visit& visit) {
  for (const char* lowdb : drybulblimits) {
    for (const char* highdb : drybulblimits) {
      for (const char* lowhr : humidityratiolimits) {
        for (const char* highhr : humidityratiolimits) {
          ChartLimits limits;
          if (validatelimits({lowdb, highdb, lowhr, highhr}, limits) == nullptr) visit(limits);
        }
      }
    }
  }
}

/// Counts the steps of a drawing and those without a value, which a recording leaves out.
class CountingCanvas final : public ChartCanvas {
public:
  int steps = 0;
  int withoutvalue = 0;

  void Line(double x1, double y1, double x2, double y2, std::optional<Color>) override { count({x1, y1, x2, y2}); }
  void Circle(double x, double y, double radius, Color) override { count({x, y, radius}); }
  void Print(std::string_view) override { ++steps; }
  void MoveTo(double x, double y) override { count({x, y}); }
  void Cls() override {}
  void Refresh() override {}
  void KeepPicture() override {}
  void DropPicture() override {}

private:
  void count(std::initializer_list<double> coordinates) {
    ++steps;
    for (const double coordinate : coordinates) withoutvalue += hasvalue(coordinate) ? 0 : 1;
  }
};

CountingCanvas counted(ChartType type, const ChartLimits& limits, double atm) {
  CountingCanvas canvas;
  drawchart({canvas, charttest::areaof(limits), atm}, type, header);
  return canvas;
}

TEST(Charts, OfAllLimitsAreWhole) {
  for (const double atm : {sealevel, psychro_atm(5000)}) {
    int charts = 0;
    foralllimits([&](const ChartLimits& limits) {
      if (++charts % every != 0) return;
      const CountingCanvas standard = counted(ChartType::standard, limits, atm);
      const CountingCanvas blank = counted(ChartType::blank, limits, atm);
      EXPECT_EQ(standard.withoutvalue + blank.withoutvalue, 0) << limits.lowdb << " to " << limits.highdb;
      EXPECT_GT(blank.steps, 60) << limits.lowdb << " to " << limits.highdb;
      EXPECT_GE(standard.steps, blank.steps) << limits.lowdb << " to " << limits.highdb;
    });
    EXPECT_EQ(charts, 78 * 6);
  }
}

TEST(Charts, EndForEveryPressureThatCanStandInTheStore) {
  for (const double atm : {0.0, -29.92126, 1e-9, 0.1, 1e6, 1e300, -1e300, novalue}) {
    SCOPED_TRACE(atm);
    const Drawing drawing = drawn(ChartType::standard, fulllimits, atm);
    EXPECT_EQ(linesof(drawing, foreground).size(), 3u) << "the axes at least";
  }
}

}  // namespace
}  // namespace moistair
