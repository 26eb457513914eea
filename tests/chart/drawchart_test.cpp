#include "chart/drawchart.h"

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

TEST(Charts, OfAllLimitsAreWhole) {
  for (const double atm : {sealevel, psychro_atm(5000)}) {
    int charts = 0;
    foralllimits([&](const ChartLimits& limits) {
      if (++charts % every != 0) return;
      const std::size_t standard = drawn(ChartType::standard, limits, atm).operations.size();
      const std::size_t blank = drawn(ChartType::blank, limits, atm).operations.size();
      EXPECT_GT(blank, 60u) << limits.lowdb << " to " << limits.highdb;
      EXPECT_GE(standard, blank) << limits.lowdb << " to " << limits.highdb;
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
