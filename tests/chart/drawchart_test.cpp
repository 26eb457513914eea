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
  int steps = 0, withoutValue = 0;

  void line(double x1, double y1, double x2, double y2, std::optional<Color>) override { count({x1, y1, x2, y2}); }
  void circle(double x, double y, double radius, Color) override { count({x, y, radius}); }
  void print(std::string_view) override { ++steps; }
  void moveTo(double x, double y) override { count({x, y}); }
  void cls() override {}
  void refresh() override {}
  void keepPicture() override {}
  void dropPicture() override {}

private:
  void count(std::initializer_list<double> coordinates) {
    ++steps;
    for (const double coordinate : coordinates) withoutValue += hasValue(coordinate) ? 0 : 1;
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
    const LimitTexts texts{dryBulbLimits[i / 208], dryBulbLimits[i / 16 % 13], humidityRatioLimits[i / 4 % 4],
                           humidityRatioLimits[i % 4]};
    ChartLimits limits;
    if (validateLimits(texts, limits) != nullptr || ++charts % every != 0) continue;
    for (const double atm : {seaLevel, psychro_atm(5000)}) {
      SCOPED_TRACE(testing::Message() << i << " at " << atm);
      CountingCanvas standard, blank;
      drawChart({standard, areaOf(limits), atm}, ChartType::standard, header);
      drawChart({blank, areaOf(limits), atm}, ChartType::blank, header);
      EXPECT_EQ(standard.withoutValue + blank.withoutValue, 0);
      EXPECT_GT(blank.steps, 60);
      EXPECT_GE(standard.steps, blank.steps);
    }
  }
  EXPECT_EQ(charts, 78 * 6);
}

TEST(Charts, EndForEveryPressureThatCanStandInTheStore) {
  for (const double atm : {0.0, -29.92126, 1e-300, 0.5, 1e6, 1e300, -1e300, noValue}) {
    const auto draw = [](const Chart& chart) { drawChart(chart, ChartType::standard, header); };
    EXPECT_NE(textsOf(recorded(draw, fullLimits, atm)).find(header), std::string::npos)
        << "the titles at least, " << atm;
  }
}

}  // namespace
}  // namespace moistair::test
