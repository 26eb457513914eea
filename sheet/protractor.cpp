// The protractor of sensible heat ratios and of slopes, enthalpy over humidity ratio.
#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "engine/moistair.h"
#include "sheet/parts.h"
#include "sheet/steps.h"

namespace moistair {

namespace {

constexpr double referenceDb = 78;  // deg F
constexpr double referenceRh = 50;  // percent
constexpr double rimRoom = 2.9;     // em: ticks and numbers around the rim
constexpr double wordsRoom = 4.4;   // em: three lines below the base
constexpr double innerRim = 0.8;    // of the rim's radius

double latentHeat() { return vaporEnthalpy(referenceDb); }  ///< Btu/lb to the lb/lb

double sensibleHeatAt(const SheetPlot& plot) { return sensibleHeat(psychro_wrh(referenceDb, referenceRh, plot.atm)); }

/// The direction on the chart in which the sensible part of the heat has a ratio to all of it, upward: with heat of
/// 1 Btu/lb in all the air is this much warmer, and has this much more water.
SheetPoint directionOfRatio(const SheetPlot& plot, double ratio) {
  SheetPoint toward{ratio / sensibleHeatAt(plot) * plot.perDb(), -(1 - ratio) / latentHeat() * plot.perW()};
  if (toward.y > 0) toward = toward * -1;
  return unit(toward);
}

/// The direction in which the enthalpy changes by so much to the lb of water [Btu/lb], upward.
SheetPoint directionOfSlope(const SheetPlot& plot, double slope) {
  return unit({(slope - latentHeat()) / sensibleHeatAt(plot) * plot.perDb(), -plot.perW()});
}

SheetPoint at(double angle) { return {std::cos(angle), -std::sin(angle)}; }

/// A number at its tick, by the angle on the rim; the number itself may be moved along the rim.
struct RimNumber {
  std::string text;
  double tick, angle, half;  ///< `half`: of the angle that the text takes
  bool aboveBase;            ///< kept off the base line
};

/// Moves numbers that are too close to each other apart.
void spreadOut(std::vector<RimNumber>& numbers) {
  std::sort(numbers.begin(), numbers.end(), [](const RimNumber& a, const RimNumber& b) { return a.tick < b.tick; });
  for (int round = 0; round < 400; ++round) {
    bool moved = false;
    for (std::size_t i = 1; i < numbers.size(); ++i) {
      const double missing = numbers[i - 1].half + numbers[i].half - (numbers[i].angle - numbers[i - 1].angle);
      if (missing < 1e-4) continue;
      numbers[i - 1].angle -= missing / 2;
      numbers[i].angle += missing / 2;
      moved = true;
    }
    for (RimNumber& number : numbers) {
      const double end = number.aboveBase ? number.half : 0;
      number.angle = std::clamp(number.angle, end, std::numbers::pi - end);
    }
    if (!moved) return;
  }
}

/// A half circle with its ticks and numbers, outside or inside of it.
struct Rim {
  SheetWork& work;
  SheetPoint center;
  double radius;
  double side;  ///< 1 for numbers outside, -1 for inside
  std::vector<RimNumber> numbers = {};

  double numberRadius() const { return radius + side * (side > 0 ? 1.75 : 1.9) * work.em(); }
  TextStyle style() const { return work.theme.text(0.8 * work.em()); }

  void arc() const {
    constexpr int pieces = 60;
    std::vector<SheetPoint> points;
    for (int i = 0; i <= pieces; ++i) points.push_back(center + at(std::numbers::pi * i / pieces) * radius);
    work.canvas.polyline(std::move(points), work.theme.scale.width, work.theme.scale.color);
  }

  void tick(SheetPoint toward, double size) const {
    const Stroke& scale = work.theme.scale;
    const SheetPoint on = center + toward * radius;
    work.canvas.polyline({on, on + toward * (side * size * work.em())}, scale.width, scale.color);
  }

  void number(SheetPoint toward, std::string text) {
    const double angle = std::atan2(-toward.y, toward.x);
    const TextExtent extent = work.canvas.extent(text, style());
    const double size = std::abs(std::sin(angle)) * extent.width + std::abs(std::cos(angle)) * extent.ascent * 1.25;
    numbers.push_back({std::move(text), angle, angle, (size / 2 + 0.12 * work.em()) / numberRadius(), side < 0});
  }

  void drawNumbers() {
    spreadOut(numbers);
    for (const RimNumber& number : numbers) {
      tick(at(number.tick), 0.45);
      const SheetPoint from = center + at(number.tick) * (radius + side * 0.45 * work.em());
      const SheetPoint to = center + at(number.angle) * (radius + side * 0.95 * work.em());
      if (std::abs(number.angle - number.tick) > 0.01) work.canvas.polyline({from, to}, 0.5, work.theme.faded);
      fixedText(work, centered(work.canvas, center + at(number.angle) * numberRadius(), number.text, style()));
    }
  }
};

}  // namespace

double protractorHeight(double width, double em) { return width / 2 + wordsRoom * em; }

void drawProtractor(SheetWork& work, SheetPoint corner, double width) {
  work.canvas.begin(SheetPart::protractor);
  const double em = work.em();
  const double radius = width / 2 - rimRoom * em;
  const SheetPoint center = corner + SheetPoint{width / 2, width / 2};
  Rim outer{work, center, radius, 1}, inner{work, center, innerRim * radius, -1};
  const Stroke& scale = work.theme.scale;
  const auto spoke = [&](SheetPoint toward) {
    work.canvas.polyline({center, center + toward * radius}, work.theme.grid.width, work.theme.grid.color);
  };
  for (const double ratio : {0.0, 0.2, 0.4, 0.6, 0.8, 1.0, -0.5, -2.0, 2.0}) spoke(directionOfRatio(work.plot, ratio));
  outer.arc();
  inner.arc();
  work.canvas.polyline({center - SheetPoint{radius, 0}, center + SheetPoint{radius, 0}}, scale.width, scale.color);
  for (const double ratio : multiples(0.05, 0.95, 0.05)) outer.tick(directionOfRatio(work.plot, ratio), 0.25);
  for (const double ratio : {0.0, 0.2, 0.4, 0.6, 0.7, 0.8, 0.9, 1.0, -0.5, -1.0, -2.0, 4.0, 2.0, 1.5}) {
    outer.number(directionOfRatio(work.plot, ratio), typeset(ratio, 1));
  }
  outer.number(directionOfSlope(work.plot, 0), "∞");
  for (const double slope : multiples(-4500, 10000, 500)) inner.tick(directionOfSlope(work.plot, slope), 0.25);
  for (const double slope : {-2000.0, 0.0, 500.0, 1000.0, 1500.0, 2000.0, 5000.0}) {
    inner.number(directionOfSlope(work.plot, slope), typeset(slope, 0));
  }
  outer.drawNumbers();
  inner.drawNumbers();
  const auto words = [&](double below, const std::string& text, const TextStyle& look) {
    fixedText(work, centered(work.canvas, center + SheetPoint{0, below * em}, text, look));
  };
  words(1.3, "Outside: sensible heat / total heat", work.theme.text(0.85 * em));
  words(2.45, "Inside: enthalpy / humidity ratio, Btu/lb", work.theme.text(0.85 * em));
  words(3.6, "for 78 °F and 50 % relative humidity", work.theme.small(0.85 * em));
  work.board.fix(boxOf(center - SheetPoint{radius, radius}, center + SheetPoint{radius, 0}));
}

void drawReference(SheetWork& work) {
  const double w = psychro_wrh(referenceDb, referenceRh, work.plot.atm);
  if (!work.plot.limits.contain(referenceDb, w)) return;
  work.canvas.begin(SheetPart::protractor);
  const double em = work.em();
  const SheetPoint middle = work.plot.at(referenceDb, w);
  const double inside = 0.3 * em, reach = 0.8 * em;
  for (int turn = 0; turn < 4; ++turn) {
    const SheetPoint toward = direction(90.0 * turn);
    work.canvas.polyline({middle + toward * inside, middle + toward * reach}, 0.9, work.theme.faded);
  }
  work.board.fix(boxOf(middle - SheetPoint{reach, reach}, middle + SheetPoint{reach, reach}));
  Label label{importance::caption + 5, {}, true, SheetPart::protractor, middle};
  for (const double away : {0.15, 0.5, 0.9}) {
    for (const double angle : {-35.0, -145.0, 35.0, 145.0}) {
      LabelPlace place{textNextTo(work.canvas, middle, direction(angle), reach + away * em, "78 °F 50 %",
                                  work.theme.small(0.74 * em)),
                       away};
      if (withinPlot(work, place)) label.places.push_back(std::move(place));
    }
  }
  work.board.add(std::move(label));
}

}  // namespace moistair
