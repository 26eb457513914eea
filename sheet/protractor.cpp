// The protractor of sensible heat ratios.
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
constexpr double rimRoom = 1.9;     // em: numbers around the rim
constexpr double wordsRoom = 3.2;   // em: two lines below the base

/// The direction on the chart in which the sensible part of the heat has a ratio to all of it, upward.
SheetPoint directionOf(const SheetPlot& plot, double ratio) {
  const double w = psychro_wrh(referenceDb, referenceRh, plot.atm);
  const double sensible = sensibleHeat(w);           // Btu/lb to the deg F
  const double latent = vaporEnthalpy(referenceDb);  // Btu/lb to the lb/lb
  // heat of 1 Btu/lb in all: this much warmer, this much more water
  SheetPoint toward{ratio / sensible * plot.perDb(), -(1 - ratio) / latent * plot.perW()};
  if (toward.y > 0) toward = toward * -1;
  return unit(toward);
}

void rim(SheetWork& work, SheetPoint center, double radius) {
  constexpr int pieces = 60;
  std::vector<SheetPoint> arc;
  for (int i = 0; i <= pieces; ++i) {
    const double angle = std::numbers::pi * i / pieces;
    arc.push_back(center + SheetPoint{std::cos(angle), -std::sin(angle)} * radius);
  }
  arc.push_back(arc.front());
  work.canvas.polyline(std::move(arc), work.theme.scale.width, work.theme.scale.color);
}

void spoke(SheetWork& work, SheetPoint center, SheetPoint toward, double from, double to, const Stroke& stroke) {
  work.canvas.polyline({center + toward * from, center + toward * to}, stroke.width, stroke.color);
}

}  // namespace

double protractorHeight(double width, double em) { return width / 2 + wordsRoom * em; }

void drawProtractor(SheetWork& work, SheetPoint corner, double width) {
  work.canvas.begin(SheetPart::protractor);
  const double em = work.em();
  const double radius = width / 2 - rimRoom * em;
  const SheetPoint center = corner + SheetPoint{width / 2, width / 2};
  rim(work, center, radius);
  const Stroke& scale = work.theme.scale;
  const auto label = [&](double ratio, const std::string& text, double importance) {
    const SheetPoint toward = directionOf(work.plot, ratio);
    spoke(work, center, toward, 0, radius, work.theme.grid);
    spoke(work, center, toward, radius - 0.6 * em, radius, scale);
    Label number{importance::caption + importance, {}, false};
    const TextStyle style = work.theme.text(0.85 * em);
    number.places.push_back({textNextTo(work.canvas, center + toward * radius, toward, 0.3 * em, text, style), 0, {}});
    work.board.add(std::move(number));
  };
  for (const double ratio : multiples(0, 1, 0.1)) {
    label(ratio, typeset(ratio, 1), isMultiple(ratio, 0.5) ? 20 : isMultiple(ratio, 0.2) ? 10 : 5);
  }
  for (const double ratio : multiples(0.05, 0.95, 0.1)) {
    spoke(work, center, directionOf(work.plot, ratio), radius - 0.4 * em, radius, scale);
  }
  for (const double ratio : {-0.5, -1.0, -2.0, 5.0, 2.0, 1.5}) {
    label(ratio, typeset(ratio, 1), 1);
  }
  label(1e6, "∞", 2);
  const TextStyle style = work.theme.text(0.9 * em);
  const auto words = [&](double below, const std::string& text, const TextStyle& look) {
    fixedText(work, centered(work.canvas, center + SheetPoint{0, below * em}, text, look));
  };
  words(1.35, "Sensible heat / total heat", style);
  words(2.5, "from the reference point, " + typeset(referenceDb, 0) + " °F " + typeset(referenceRh, 0) + " %",
        work.theme.small(0.85 * em));
  work.board.wall({center - SheetPoint{radius, 0}, center + SheetPoint{radius, 0}});
}

void drawReference(SheetWork& work) {
  const double w = psychro_wrh(referenceDb, referenceRh, work.plot.atm);
  if (!work.plot.limits.contain(referenceDb, w)) return;
  work.canvas.begin(SheetPart::protractor);
  const SheetPoint at = work.plot.at(referenceDb, w);
  const double radius = 0.42 * work.em();
  std::vector<SheetPoint> circle;
  for (int i = 0; i <= 24; ++i) circle.push_back(at + direction(15.0 * i) * radius);
  work.canvas.area(circle, work.theme.paper);
  work.canvas.polyline(circle, 0.9, work.theme.ink);
  const double reach = 1.7 * radius;
  for (const SheetPoint toward : {SheetPoint{1, 0}, SheetPoint{0, 1}}) {
    work.canvas.polyline({at - toward * reach, at + toward * reach}, 0.9, work.theme.ink);
  }
  work.board.fix(boxOf(at - SheetPoint{reach, reach}, at + SheetPoint{reach, reach}));
}

}  // namespace moistair
