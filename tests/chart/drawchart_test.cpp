#include "chart/drawchart.h"

#include <initializer_list>

#include "support/charts.h"
#include "text/value.h"

namespace moistair::test {
namespace {

constexpr const char* header = "Atmos. pr=29.92126 In Hg";

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
    const auto draw = [](const Chart& chart) { drawchart(chart, ChartType::standard, header); };
    EXPECT_NE(textsof(recorded(draw, fulllimits, atm)).find(header), std::string::npos)
        << "the titles at least, " << atm;
  }
}

}  // namespace
}  // namespace moistair::test
