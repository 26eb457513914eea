#include "chart/drawchart.h"

#include <initializer_list>

#include "support/charts.h"

namespace moistair::charttest {
namespace {

constexpr const char* header = "Atmos. pr=29.92126 In Hg";

TEST(Charts, HoldAllTheirLines) {
  const struct {
    const char* name;
    std::optional<Color> color;
    std::size_t standard, blank;
  } cases[] = {
      {"specific volume", colors::specificvolume, 778, 0},
      {"relative humidity", colors::relativehumidity, 732, 104},
      {"wet bulb", colors::wetbulb, 256, 0},
      {"fine grid", colors::finegrid, 149, 149},
      {"major lines", colors::majorline, 29, 29},
      {"axes", foreground, 3, 3},
  };
  const Drawing standard = recorded([](const Chart& chart) { drawchart(chart, ChartType::standard, header); });
  const Drawing blank = recorded([](const Chart& chart) { drawchart(chart, ChartType::blank, header); });
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    EXPECT_EQ(linesof(standard, test.color).size(), test.standard);
    EXPECT_EQ(linesof(blank, test.color).size(), test.blank);
  }
  EXPECT_EQ(wordsof(standard).size(), 82u);
  EXPECT_EQ(standard.operations.size(), 2029u);
}

/// Counts the steps of a drawing and those without a value, which a recording leaves out.
class CountingCanvas final : public ChartCanvas {
public:
  int steps = 0, withoutvalue = 0;

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

/// The sanitizers take their time: a sample is enough for them.
#ifdef __SANITIZE_ADDRESS__
constexpr int every = 29;
#else
constexpr int every = 1;
#endif

TEST(Charts, OfAllLimitsAreWhole) {
  int charts = 0;
  for (std::size_t i = 0; i < 13 * 13 * 4 * 4; ++i) {
    const LimitTexts texts{drybulblimits[i / 208], drybulblimits[i / 16 % 13], humidityratiolimits[i / 4 % 4],
                           humidityratiolimits[i % 4]};
    ChartLimits limits;
    if (validatelimits(texts, limits) != nullptr || ++charts % every != 0) continue;
    for (const double atm : {sealevel, psychro_atm(5000)}) {
      SCOPED_TRACE(testing::Message() << i << " at " << atm);
      CountingCanvas standard, blank;
      drawchart({standard, areaof(limits), atm}, ChartType::standard, header);
      drawchart({blank, areaof(limits), atm}, ChartType::blank, header);
      EXPECT_EQ(standard.withoutvalue + blank.withoutvalue, 0);
      EXPECT_GT(blank.steps, 60);
      EXPECT_GE(standard.steps, blank.steps);
    }
  }
  EXPECT_EQ(charts, 78 * 6);
}

TEST(Charts, EndForEveryPressureThatCanStandInTheStore) {
  for (const double atm : {0.0, -29.92126, 1e-300, 0.5, 1e6, 1e300, -1e300, novalue}) {
    SCOPED_TRACE(atm);
    const auto draw = [](const Chart& chart) { drawchart(chart, ChartType::standard, header); };
    EXPECT_EQ(linesof(recorded(draw, fulllimits, atm), foreground).size(), 3u) << "the axes at least";
  }
}

}  // namespace
}  // namespace moistair::charttest
