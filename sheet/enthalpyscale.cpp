// The oblique scale of enthalpies beyond saturation.
#include <algorithm>
#include <utility>

#include "engine/moistair.h"
#include "sheet/halving.h"
#include "sheet/parts.h"
#include "sheet/steps.h"

namespace moistair {

namespace {

constexpr int halvings = 40;
constexpr double distanceFromCurve = 4.2;  // em: a row of numbers and a row of words have room there

double enthalpyAt(const SheetPlot& plot, SheetPoint place) { return enthalpyOf(plot.db(place.x), plot.w(place.y)); }

/// The direction in which the enthalpy stays, up and to the left.
SheetPoint outwardAt(const SheetPlot& plot, SheetPoint place) {
  const double rise = sensibleHeat(plot.w(place.y)) / vaporEnthalpy(plot.db(place.x));  // lb/lb to the deg F
  return unit({-plot.perDb(), -rise * plot.perW()});
}

/// A curve moved to its left by a distance.
std::vector<SheetPoint> movedOut(const std::vector<SheetPoint>& curve, double distance) {
  std::vector<SheetPoint> moved;
  for (std::size_t i = 0; i < curve.size(); ++i) {
    const SheetPoint along = unit(curve[std::min(i + 1, curve.size() - 1)] - curve[i == 0 ? 0 : i - 1]);
    moved.push_back(curve[i] + SheetPoint{along.y, -along.x} * distance);
  }
  return moved;
}

/// The part of a rising line that is right of one edge and below another, its ends on them.
std::vector<SheetPoint> cut(const std::vector<SheetPoint>& line, double left, double top) {
  const auto inside = [&](SheetPoint point) { return point.x >= left && point.y >= top; };
  std::vector<SheetPoint> part;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (i > 0 && inside(line[i]) != inside(line[i - 1])) {
      const bool entering = inside(line[i]);
      part.push_back(lastWith(inside, line[entering ? i : i - 1], line[entering ? i - 1 : i], halvings));
    }
    if (inside(line[i])) part.push_back(line[i]);
  }
  return part;
}

/// The sine of the angle between a piece of the rule and the direction in which the enthalpy stays.
double steepness(const SheetPlot& plot, SheetPoint from, SheetPoint to) {
  return std::abs(cross(unit(to - from), outwardAt(plot, from)));
}

/// Ticks on a flatter piece of the rule could not be distinguished from it.
constexpr double flattest = 0.1;
/// On a flatter piece than this the numbers are next to the rule and not beyond the ticks, which are longer there.
constexpr double flat = 0.35;

/// A place on the rule.
struct RulePlace {
  SheetPoint at;
  SheetPoint aside;  ///< straight away from the rule, outward
  double steepness;
};

/// Where an enthalpy is on the rule, on which it rises all along; nowhere where the rule is too flat.
std::optional<RulePlace> onRule(const SheetPlot& plot, const std::vector<SheetPoint>& rule, double h) {
  for (std::size_t i = 1; i < rule.size(); ++i) {
    const double low = enthalpyAt(plot, rule[i - 1]);
    const double high = enthalpyAt(plot, rule[i]);
    if (!(low <= h && h <= high) || low == high) continue;
    const auto below = [&](SheetPoint place) { return enthalpyAt(plot, place) <= h; };
    const SheetPoint at = lastWith(below, rule[i - 1], rule[i], halvings);
    const double steep = steepness(plot, rule[i - 1], rule[i]);
    const SheetPoint along = unit(rule[i] - rule[i - 1]);
    return steep > flattest ? std::optional(RulePlace{at, {along.y, -along.x}, steep}) : std::nullopt;
  }
  return std::nullopt;
}

/// The longest part of the rule that has ticks.
std::vector<SheetPoint> tickedPart(const SheetPlot& plot, const std::vector<SheetPoint>& rule) {
  std::vector<SheetPoint> longest, part;
  for (std::size_t i = 1; i < rule.size(); ++i) {
    if (steepness(plot, rule[i - 1], rule[i]) <= flattest) {
      part.clear();
      continue;
    }
    if (part.empty()) part.push_back(rule[i - 1]);
    part.push_back(rule[i]);
    if (lengthOf(part) > lengthOf(longest)) longest = part;
  }
  return longest;
}

/// The length of the rule as it is seen along the lines of constant enthalpy [pixels].
double breadthOf(const SheetPlot& plot, const std::vector<SheetPoint>& rule) {
  double sum = 0;
  for (std::size_t i = 1; i < rule.size(); ++i) {
    sum += std::abs(cross(rule[i] - rule[i - 1], outwardAt(plot, rule[i])));
  }
  return sum;
}

}  // namespace

std::vector<SheetPoint> enthalpyRule(const SheetWork& work) {
  const Boundary& boundary = work.boundary;
  std::vector<SheetPoint> rule = boundary.left;
  if (!boundary.saturation.empty()) {
    const double top = boundary.top.empty() ? 0 : work.plot.top;
    auto beyond = cut(movedOut(boundary.saturation, distanceFromCurve * work.em()), work.plot.left, top);
    if (beyond.empty() && !boundary.left.empty() && !boundary.top.empty()) beyond.push_back({work.plot.left, top});
    rule.insert(rule.end(), beyond.begin(), beyond.end());
  }
  rule.insert(rule.end(), boundary.top.begin() + (rule.empty() || boundary.top.empty() ? 0 : 1), boundary.top.end());
  return rule;
}

namespace {

struct RuleSteps {
  double fine, main;
};

RuleSteps stepsOf(const SheetWork& work, const std::vector<SheetPoint>& rule) {
  const double span = enthalpyAt(work.plot, rule.back()) - enthalpyAt(work.plot, rule.front());
  const double perUnit = breadthOf(work.plot, rule) / span / work.em();
  return {stepFrom({0.1, 0.2, 0.5, 1, 5}, 0.4 / perUnit), stepFrom({0.5, 1, 2, 5, 10}, 2.6 / perUnit)};
}

/// Ticks and numbers of a rule along which the enthalpy rises.
/// @param side 1 for those beyond saturation, -1 for those below the chart
void drawTicks(SheetWork& work, const std::vector<SheetPoint>& rule, const RuleSteps& steps, double side) {
  const SheetPlot& plot = work.plot;
  const double em = work.em();
  const Stroke& stroke = work.theme.scale;
  for (const double h : multiples(enthalpyAt(plot, rule.front()), enthalpyAt(plot, rule.back()), steps.fine)) {
    const auto at = onRule(plot, rule, h);
    if (!at) continue;
    const SheetPoint outward = outwardAt(plot, at->at) * side;
    const bool numbered = isMultiple(h, steps.main);
    const double size = (numbered ? 0.75 : 0.35) * std::max(1.0, flat / at->steepness) * em;
    work.canvas.polyline({at->at, at->at + outward * size}, stroke.width, stroke.color);
    if (!numbered) continue;
    const std::string text = typeset(h, decimalsOf(steps.main));
    Label label{importance::scale + (isMultiple(h, 10) ? 40 : 10), {}, false};
    const bool isFlat = at->steepness < flat;
    const SheetPoint end = at->at + outward * size;
    for (const double away : {0.25, 0.6, 1.0, 1.5}) {
      const SheetPoint aside = isFlat ? at->aside * side : outward;
      label.places.push_back({textNextTo(work.canvas, end, aside, away * em, text, work.theme.text(em)), away});
    }
    work.board.add(std::move(label));
  }
}

}  // namespace

bool isClearOf(const std::vector<SheetPoint>& rule, SheetPoint corner, double gap) {
  for (std::size_t i = 1; i < rule.size(); ++i) {
    if (crosses(boxOf({-1e5, -1e5}, corner + SheetPoint{gap, gap}), rule[i - 1], rule[i])) return false;
  }
  return true;
}

void drawEnthalpyScale(SheetWork& work, const std::vector<SheetPoint>& rule) {
  const SheetPlot& plot = work.plot;
  const double em = work.em();
  const Stroke& stroke = work.theme.scale;
  if (rule.size() < 2) return;
  work.canvas.begin(SheetPart::scales);
  work.canvas.polyline(rule, stroke.width, stroke.color);
  work.board.wall(rule);
  const double low = enthalpyAt(plot, rule.front());
  const double high = enthalpyAt(plot, rule.back());
  if (!(high > low)) return;
  drawTicks(work, rule, stepsOf(work, rule), 1);
  const TextStyle style = work.theme.text(0.9 * em);
  const std::vector<SheetPoint> ticked = tickedPart(plot, rule);
  Label words{importance::caption, {}, false};
  double cost = 0;
  for (const char* text : {"Enthalpy, Btu per lb of dry air", "Enthalpy, Btu/lb", "Btu/lb"}) {
    for (const double aside : {2.9, 3.5}) {
      for (LabelPlace& place : placesAlong(work.canvas, ticked, text, style, 0.55, aside * em)) {
        place.cost += cost + aside;
        words.places.push_back(std::move(place));
      }
    }
    cost += 3;
  }
  work.board.add(std::move(words));
  if (work.boundary.saturation.empty() || !work.content.families) return;
  const TextStyle wetBulb{0.85 * em, false, work.theme.wetBulbText};
  Label saturation{importance::caption, {}, false, SheetPart::wetBulb};
  for (const char* text : {"Wet bulb and saturation temperature, °F", "Wet bulb, °F"}) {
    for (const double aside : {2.75, 3.05, 3.3}) {
      auto places = placesAlong(work.canvas, work.boundary.saturation, text, wetBulb, 0.5, aside * em);
      saturation.places.insert(saturation.places.end(), places.begin(), places.end());
    }
  }
  work.board.add(std::move(saturation));
}

void drawEnthalpySecondHalf(SheetWork& work, const std::vector<SheetPoint>& rule, SheetPoint corner) {
  const SheetPlot& plot = work.plot;
  const double em = work.em();
  if (rule.size() < 2 || !(enthalpyAt(plot, rule.back()) > enthalpyAt(plot, rule.front()))) return;
  const double low = enthalpyAt(plot, rule.front());
  const double high = enthalpyAt(plot, rule.back());
  const double top = plot.at(0, work.boundary.highHr).y;
  const auto within = [&](SheetPoint place) {
    return enthalpyAt(plot, place) >= low && enthalpyAt(plot, place) <= high;
  };
  SheetPoint from{plot.at(std::max(plot.limits.lowDb, work.boundary.lowDb), 0).x, corner.y};
  SheetPoint to{corner.x, top};
  if (!within(corner)) return;  // both halves would not meet
  if (!within(from)) from = lastWith(within, corner, from, halvings);
  if (!within(to)) to = lastWith(within, corner, to, halvings);
  const std::vector<SheetPoint> second = {from, corner, to};
  work.canvas.begin(SheetPart::scales);
  work.canvas.polyline(second, work.theme.scale.width, work.theme.scale.color);
  work.board.wall(second);
  drawTicks(work, second, stepsOf(work, rule), -1);
  Label words{importance::caption, {}, false};
  const TextStyle style = work.theme.text(0.85 * em);
  const double beyond = corner.x + 1.4 * em + work.canvas.widthOf("50", work.theme.text(em));
  double cost = 0;
  for (const char* text : {"Enthalpy, Btu per lb of dry air", "Enthalpy, Btu/lb", "Btu/lb"}) {
    words.places.push_back(
        {centered(work.canvas, {beyond + 0.42 * em, (top + plot.bottom) / 2}, text, style, -90), cost});
    cost += 1;
  }
  work.board.add(std::move(words));
}

}  // namespace moistair
