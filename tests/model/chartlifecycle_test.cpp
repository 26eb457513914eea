// The chart from the first drawing to a new pressure, without a widget. The current pressure is never the default.
#include <gtest/gtest.h>

#include "model/chartcommands.h"

namespace moistair {
namespace {

constexpr WindowSize window{12000, 6000};
constexpr const char* alreadyDrawn =
    "Do one of the followings to draw new chart - 1) Change chart ranges 2) Reset atmos. pressure 3) Clear graph ";
constexpr const char* lowerDryBulbOnly = "Choose Lower Dry bulb temperature for chart only from the drop down menu";

const LimitTexts whole{"0", "120", "0", "0.030"}, narrow{"40", "80", "0", "0.030"}, beside{"15", "80", "0", "0.030"};
const LimitTexts notANumbers{"abc", "80", "0", "0.030"};

class ChartLife : public testing::Test {
protected:
  ChartLife() {
    chart.setCurrentPressure("24.8961078291965");
    chart.changePressure({PressureUnit::elevation, "5000"}, window);
    chart.chooseType(ChartType::blank);
    canvas.cls();
  }

  std::string texts() const {
    std::string all;
    for (const Operation& operation : canvas.drawing().operations) {
      if (const auto* text = std::get_if<TextOperation>(&operation)) all += text->text + "|";
    }
    return all;
  }

  bool shows(const char* text) const { return texts().find(text) != std::string::npos; }
  bool empty() const { return canvas.drawing().operations.empty(); }

  /// Both halves of drawing, as the two windows run them; the refusal, empty for none.
  std::string draw(const LimitTexts& limits) {
    const Outcome cleared = chart.startDraw(limits);
    if (!cleared) return cleared.error().words;
    EXPECT_TRUE(chart.testLimits(limits));
    chart.drawChart(window);
    return "";
  }

  std::string line(const LimitTexts& limits, LineKind kind = LineKind::wetBulb, const char* value = "60") {
    const Outcome drawn = chart.drawLine(kind, limits, value, window);
    if (drawn) return "";
    EXPECT_EQ(drawn.error().code == ErrorCode::waiting, drawn.error().words == drawAxisFirst);
    return drawn.error().words;
  }

  RecordingCanvas canvas;
  ChartCommands chart{canvas};
};

TEST_F(ChartLife, NothingIsAddedBeforeTheFirst) {
  canvas.print("header");
  EXPECT_EQ(line(whole), drawAxisFirst);
  EXPECT_EQ(draw(beside), lowerDryBulbOnly);
  EXPECT_EQ(texts(), "header|") << "a refused chart clears nothing";
  EXPECT_EQ(draw(whole), "");
  EXPECT_FALSE(shows("header"));
  EXPECT_TRUE(shows("Site elevation=5000 ft|"));
  EXPECT_TRUE(shows("1.1456|")) << "the vapour pressure of 0.03 is not that of this pressure: " << texts();
}

TEST_F(ChartLife, TakesLinesWhileItStandsAndNoSecondChart) {
  draw(whole);
  const std::size_t drawn = canvas.drawing().operations.size();
  EXPECT_EQ(draw(whole), alreadyDrawn);
  EXPECT_EQ(canvas.drawing().operations.size(), drawn);
  const struct {
    LineKind kind;
    const char *value, *label;  ///< no label where nothing can be drawn
  } lines[] = {{LineKind::relativeHumidity, "35", "Rh= 35 "}, {LineKind::relativeHumidity, "35x", "Rh= 0 "},
               {LineKind::relativeHumidity, "101", nullptr},  {LineKind::wetBulb, "65.50", "WB= 65.5 "},
               {LineKind::wetBulb, "200", nullptr},           {LineKind::enthalpy, "28", "h= 28 "},
               {LineKind::enthalpy, "-1e9", nullptr},         {LineKind::specificVolume, "16.75", "v= 16.75 "},
               {LineKind::specificVolume, "", nullptr}};
  for (const auto& [kind, value, label] : lines) {
    EXPECT_EQ(line(whole, kind, value), label == nullptr ? lineNotFeasible : "") << value;
    EXPECT_TRUE(label == nullptr || shows(label)) << label;
  }
}

TEST_F(ChartLife, OtherLimitsInTheListsRefuseLinesAndAllowAChart) {
  draw(whole);
  EXPECT_EQ(line(narrow), drawAxisFirst);
  EXPECT_EQ(line(whole), "") << "the lists are back at the limits of the chart";
  EXPECT_EQ(draw(narrow), "");
  EXPECT_FALSE(shows("WB= 60 ")) << "the chart before is gone";
  EXPECT_EQ(line(notANumbers), "") << "a text that is no number leaves the limit as it was";
  EXPECT_EQ(line(whole), drawAxisFirst);
}

TEST_F(ChartLife, LeftBetweenItsHalvesLeavesAnEmptyCanvasWithTheOldLimits) {
  draw(whole);
  EXPECT_TRUE(chart.startDraw(narrow));
  EXPECT_TRUE(empty());
  EXPECT_EQ(line(narrow), drawAxisFirst);
  EXPECT_EQ(draw(whole), alreadyDrawn) << "the limits are those remembered, though nothing is seen of them";
  EXPECT_EQ(line(whole), "");
  EXPECT_EQ(texts(), "WB= 60 |");
}

TEST_F(ChartLife, ClearedTakesTheSameLimitsAgain) {
  draw(whole);
  canvas.keepPicture();
  EXPECT_TRUE(chart.startDraw(narrow));
  EXPECT_FALSE(empty()) << "the picture that was saved is the background of the next chart";
  chart.clearChart();
  EXPECT_TRUE(empty()) << "and goes with clearing";
  EXPECT_EQ(line(whole), drawAxisFirst);
  EXPECT_EQ(draw(whole), "");
}

TEST_F(ChartLife, ANewPressureStartsAfresh) {
  draw(whole);
  canvas.keepPicture();
  chart.setCurrentPressure("29.9295087");
  chart.changePressure({PressureUnit::psi, "14.7"}, window);
  EXPECT_EQ(texts(), "Atmos. pr=14.7 Pounds/sq inch|");
  EXPECT_EQ(line(whole), drawAxisFirst);
  EXPECT_EQ(draw(whole), "");
  EXPECT_TRUE(shows("1.3772|")) << texts();
  chart.setCurrentPressure("30abc");
  EXPECT_EQ(chart.document().atm(), 30) << "the store is read leniently";
}

TEST_F(ChartLife, ALineFollowsTheWindowOfItsMoment) {
  draw(whole);
  EXPECT_TRUE(chart.drawLine(LineKind::wetBulb, whole, "60", {24000, 6000}));
  EXPECT_EQ(std::get<TextOperation>(canvas.drawing().operations.back()).x, 12000) << "60 deg F, of twice the width";
}

}  // namespace
}  // namespace moistair
