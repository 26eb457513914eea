// Lines of constant property and of mixtures: what the engineer has drawn between points.
#include <algorithm>
#include <utility>

#include "sheet/curves.h"
#include "sheet/parts.h"
#include "sheet/steps.h"
#include "text/numbertext.h"
#include "text/value.h"

namespace moistair {

namespace {

constexpr double lineWidth = 1.7;
constexpr double mixingWidth = 1.5;

/// How a line of constant property is called on itself.
std::string nameOf(const SheetLine& line) {
  const std::string value = typeset(numberText(line.value));
  switch (line.kind) {
    case LineKind::relativeHumidity: return value + " % RH";
    case LineKind::wetBulb: return "WB " + value + " °F";
    case LineKind::enthalpy: return "h " + value + " Btu/lb";
    case LineKind::specificVolume: break;
  }
  return "v " + value + " cu ft/lb";
}

/// Adds places on both sides of a line to a label, those close to it first.
void addPlacesNextTo(SheetWork& work, Label& label, const std::vector<SheetPoint>& line, const std::string& text,
                     const TextStyle& style, double preferred, double cost) {
  for (const double away : {0.75, 0.95, 1.3}) {
    for (const double side : {1.0, -1.0}) {
      for (LabelPlace& place : placesAlong(work.canvas, line, text, style, preferred, side * away * work.em())) {
        place.cost += cost + away + (side < 0 ? 0.1 : 0);
        if (withinPlot(work, place)) label.places.push_back(std::move(place));
      }
    }
  }
}

}  // namespace

void drawLine(SheetWork& work, const SheetLine& line) {
  const Stroke& stroke = work.theme.of(line.kind);
  work.canvas.begin(SheetPart::lines);
  Label label{importance::line, {}, true, SheetPart::lines};
  for (const auto& piece : visibleLine(work.plot, line.kind, line.value, line.atm)) {
    work.canvas.polyline(piece, lineWidth, stroke.color);
    work.board.keepClear(piece);
    addPlacesNextTo(work, label, piece, nameOf(line), {0.9 * work.em(), true, work.theme.textOf(line.kind)}, 0.35, 0);
  }
  work.board.add(std::move(label));
}

void drawMixture(SheetWork& work, const SheetMixture& mixture) {
  const auto three = statesOf(work.content, mixture);
  if (!std::all_of(three.begin(), three.end(), [&](const SheetState* state) { return isOnPlot(work, *state); })) return;
  std::vector<SheetPoint> line;
  for (const SheetState* state : three) line.push_back(work.plot.at(state->db(), state->w()));
  work.canvas.begin(SheetPart::processes);
  work.canvas.polyline(line, mixingWidth, work.theme.mark);
  work.board.keepClear(line);
  if (!hasValue(mixture.share)) return;
  const double percent = 100 * mixture.share;
  const auto shares = [&](bool names) {
    const auto part = [&](double share, const SheetState& state) {
      const std::string number = std::to_string(state.number);
      return typeset(share, 1) + " % of " + (names && isNamed(work, state) ? state.name : number);
    };
    return part(percent, *three[0]) + " + " + part(100 - percent, *three[2]);
  };
  const TextStyle style{0.9 * work.em(), false, work.theme.mark};
  Label label{importance::share, {}, true, SheetPart::processes, line[1]};
  const bool named = isNamed(work, *three[0]) || isNamed(work, *three[2]);
  for (const bool names : {true, false}) {
    if (names && !named) continue;
    const std::string text = shares(names);
    const double cost = names || !named ? 0 : 1;
    addPlacesNextTo(work, label, line, text, style, 0.5, cost);
    for (int turn = 0; turn < 12; ++turn) {  // where the line is too short for it
      const SheetPoint outward = direction(-35 - 30.0 * turn);
      for (const double away : {2.2, 4.0, 6.5, 9.0}) {
        LabelPlace place{textNextTo(work.canvas, line[1], outward, away * work.em(), text, style),
                         cost + 2 + away / 4,
                         {line[1] + outward * (0.6 * work.em()), line[1] + outward * ((away - 0.15) * work.em())}};
        if (withinPlot(work, place)) label.places.push_back(std::move(place));
      }
    }
  }
  work.board.add(std::move(label));
}

}  // namespace moistair
