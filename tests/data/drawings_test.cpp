/// \file
/// Whole charts, operation by operation: what the life of the chart draws at each pressure, lines, points and mixtures
/// of its own added, is where it was recorded. A hundredth of a pixel is how far another C library may move it.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <map>

#include "chart/drawing.h"
#include "chart/mixingline.h"
#include "chart/pointmark.h"
#include "data/rows.h"
#include "model/chartcommands.h"
#include "model/pointreport.h"

namespace moistair::data {
namespace {

constexpr WindowSize window{12000, 6000};
constexpr float tolerance = 0.15F;  // twips

/// A drawing in the making, as the main window makes it.
struct Studio {
  RecordingCanvas canvas;
  ChartCommands chart{canvas};
  SolverFields solverFields;
  LimitTexts limits;

  explicit Studio(const std::string& head) {
    const std::map<std::string, PressureUnit> units = {
        {"inhg", PressureUnit::inhg}, {"psi", PressureUnit::psi}, {"elevation", PressureUnit::elevation}};
    const Fields words = fieldsOf(head, ' ');
    const Fields texts = fieldsOf(words[1]);
    limits = {texts[0], texts[1], texts[2], texts[3]};
    const PressureEntry entry{units.at(words[2]), words[3]};
    chart.setCurrentPressure(pressureFor(entry).inhg.value());
    chart.changePressure(entry, window);
    chart.chooseType(words[0] == "blank" ? ChartType::blank : ChartType::standard);
    EXPECT_TRUE(chart.startDraw(limits));
    chart.drawChart(window);
  }

  void add(const std::string& addition) {
    const std::map<std::string, LineKind> lines = {{"rh", LineKind::relativeHumidity},
                                                   {"wb", LineKind::wetBulb},
                                                   {"h", LineKind::enthalpy},
                                                   {"v", LineKind::specificVolume}};
    const std::size_t blank = addition.find(' ');
    const std::string name = addition.substr(0, blank), value = addition.substr(blank + 1);
    if (name == "point") {
      addPoint(fieldsOf(value));
    } else if (name == "mix") {
      Fields row = fieldsOf(value);
      row.insert(row.begin(), chart.document().current.pressure.text());
      EXPECT_STREQ(drawMixingLine(canvas, mixtureOf(row), chart.plotArea(window)), nullptr);
    } else {
      EXPECT_TRUE(chart.drawLine(lines.at(name), limits, value, window)) << addition;
    }
  }

  /// Two properties and an identification, each behind its name.
  void addPoint(const Fields& fields) {
    const auto value = [&](std::size_t at) { return fieldsOf(fields[at], '=')[1]; };
    const auto kind = [&](std::size_t at) { return kindOf(fieldsOf(fields[at], '=')[0]); };
    const RangeFinders finders = chartRangeFinders([this] { return chart.plotArea(window); });
    const Resolution found =
        resolvePair(kind(0), value(0), kind(1), value(1), chart.document().atm(), finders, solverFields);
    const StatePoint shown = readReport(fillReport(found.point, value(2), chart.document().pressure.entry));
    EXPECT_TRUE(found.resolved() && markPoint(canvas, shown, chart.plotArea(window), value(2))) << joined(fields);
  }
};

/// One operation: what it is, its numbers, and its color or text.
struct Step {
  char kind = '-';
  std::array<float, 4> numbers{};
  std::string rest;

  bool near(const Step& other) const {
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      if (!(std::abs(numbers[i] - other.numbers[i]) < tolerance)) return false;
    }
    return kind == other.kind && rest == other.rest;
  }
};

std::ostream& operator<<(std::ostream& out, const Step& step) {
  out << step.kind;
  for (const float number : step.numbers) out << ' ' << number;
  return out << " [" << step.rest << ']';
}

Step stepOf(const Operation& operation) {
  const auto colorOf = [](const Color& color) {
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", color.red, color.green, color.blue);
    return std::string(text.data());
  };
  if (const auto* text = std::get_if<TextOperation>(&operation)) return {'t', {text->x, text->y}, text->text};
  if (const auto* circle = std::get_if<CircleOperation>(&operation)) {
    return {'o', {circle->x, circle->y, circle->radius}, colorOf(circle->color)};
  }
  const auto& line = std::get<LineOperation>(operation);
  return {'-', {line.x1, line.y1, line.x2, line.y2}, line.color ? colorOf(*line.color) : "foreground"};
}

/// The recorded operation on a line of a file; record_drawings.py says how it is written.
Step stepOf(const std::string& line, const Step& last) {
  std::istringstream words(line);
  Step step;
  auto& at = step.numbers;
  words >> step.kind;
  if (step.kind == '>') {
    step = {'-', {last.numbers[2], last.numbers[3]}, last.rest};
    words >> at[2] >> at[3];
    return step;
  }
  words >> at[0] >> at[1];
  if (step.kind == 'o') words >> at[2];
  if (step.kind == '-') words >> at[2] >> at[3];
  words.get();
  std::getline(words, step.rest);
  return step;
}

/// Takes out what hangs on the last bit of the C library: whether a wet-bulb line of a family takes its
/// last step onto saturation, where the relative humidity is 100 but for rounding. The label goes back with the pen.
void settle(std::vector<Step>& steps, const PlotArea& area) {
  for (std::size_t i = 1; i < steps.size(); ++i) {
    const double wetBulb = steps[i].rest.starts_with("WB=") ? lenientNumber(steps[i].rest.substr(3)) : 0;
    const auto [x1, y1, x2, y2] = steps[i - 1].numbers;
    if (!(wetBulb > 0 && std::abs(area.plotX(wetBulb) - static_cast<double>(x2)) < 1)) continue;
    steps[i].numbers = {x1, y1};
    steps.erase(steps.begin() + static_cast<std::ptrdiff_t>(--i));
  }
}

class Drawings : public testing::TestWithParam<const char*> {};

TEST_P(Drawings, StandWhereTheyWereRecorded) {
  std::ifstream file(std::string(MOISTAIR_DATA) + "/drawings/" + GetParam() + ".txt");
  std::string line;
  std::getline(file, line);
  Studio studio(line);
  while (std::getline(file, line) && !line.empty()) studio.add(line);
  std::vector<Step> recorded, drawn;
  Step lastLine;
  while (std::getline(file, line)) {
    recorded.push_back(stepOf(line, lastLine));
    if (recorded.back().kind == '-') lastLine = recorded.back();
  }
  for (const Operation& operation : studio.canvas.drawing().operations) drawn.push_back(stepOf(operation));
  settle(recorded, studio.chart.plotArea(window));
  settle(drawn, studio.chart.plotArea(window));
  ASSERT_GT(recorded.size(), 200U) << "hardly anything is recorded";
  for (std::size_t i = 0; i < std::min(recorded.size(), drawn.size()); ++i) {
    ASSERT_TRUE(drawn[i].near(recorded[i]))
        << "operation " << i << "\n   drawn " << drawn[i] << "\nrecorded " << recorded[i];
  }
  ASSERT_EQ(drawn.size(), recorded.size()) << "one of the two goes on";
}

INSTANTIATE_TEST_SUITE_P(OfCharts, Drawings,
                         testing::Values("whole", "mountain", "additions", "cold", "close", "humid", "quarters",
                                         "high"));

}  // namespace
}  // namespace moistair::data
