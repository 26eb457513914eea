// The grid and the families of lines of a sheet, and the frame around them.
#include <algorithm>
#include <array>
#include <utility>

#include "engine/moistair.h"
#include "engine/saturation.h"
#include "engine/vaporterms.h"
#include "sheet/curves.h"
#include "sheet/halving.h"
#include "sheet/parts.h"
#include "sheet/steps.h"

namespace moistair {

namespace {

/// What a text had better not cover, by how much it matters [in terms of a place's cost].
constexpr double gridWeight = 0.03;
constexpr double familyWeight = 0.15;
constexpr double frameWeight = 2;

void gridLine(SheetWork& work, SheetPoint from, SheetPoint to, const Stroke& stroke) {
  work.canvas.polyline({from, to}, stroke.width, stroke.color, stroke.dash);
  work.board.line({from, to}, gridWeight);
}

/// A family of lines: the values that it has and how the texts on them read.
struct Family {
  LineKind kind;
  double step;
  double low, high;     ///< of the values
  const char* unit;     ///< behind every number
  const char* inWords;  ///< behind one of them in place of the unit
  double worded;        ///< the value that has the words, if it is on the chart
  double preferred;     ///< part of a line's length that suits its label best
  double main = 0;      ///< other values than the multiples of this have lighter lines; 0 for none
};

/// The longest of some lines.
std::vector<SheetPoint> longest(const std::vector<std::vector<SheetPoint>>& lines) {
  const auto shorter = [](const auto& a, const auto& b) { return lengthOf(a) < lengthOf(b); };
  const auto found = std::max_element(lines.begin(), lines.end(), shorter);
  return found == lines.end() ? std::vector<SheetPoint>() : *found;
}

SheetPart partOf(LineKind kind) {
  switch (kind) {
    case LineKind::relativeHumidity: return SheetPart::relativeHumidity;
    case LineKind::wetBulb: return SheetPart::wetBulb;
    case LineKind::enthalpy: return SheetPart::enthalpy;
    case LineKind::specificVolume: break;
  }
  return SheetPart::specificVolume;
}

/// Where the numbers of the relative humidities are: across all of their curves, from saturation to the corner of dry,
/// warm air.
std::array<SheetPoint, 2> humidityGuide(const SheetWork& work) {
  const SheetPlot& plot = work.plot;
  const auto& curve = work.boundary.saturation;
  const double width = plot.right - plot.left, height = plot.bottom - plot.top;
  const SheetPoint start = lengthOf(curve) > 8 * work.em() ? pointOnLine(curve, 0.6 * lengthOf(curve)).at
                                                           : SheetPoint{plot.left + 0.15 * width, plot.top};
  return {start, SheetPoint{plot.right - 0.06 * width, plot.bottom - 0.06 * height}};
}

/// The length along a line at which it is nearest to a straight one.
double nearestTo(const std::array<SheetPoint, 2>& guide, const std::vector<SheetPoint>& line) {
  constexpr int samples = 150;
  const double whole = lengthOf(line);
  const SheetPoint way = guide[1] - guide[0];
  double nearest = 1e9, at = 0;
  for (int i = 0; i <= samples; ++i) {
    const SheetPoint place = pointOnLine(line, whole * i / samples).at;
    const double part = std::clamp(dot(place - guide[0], way) / dot(way, way), 0.0, 1.0);
    const double off = distance(place, guide[0] + way * part);
    if (off < nearest) nearest = off, at = whole * i / samples;
  }
  return at;
}

void addLineLabel(SheetWork& work, const Family& family, double value, const std::vector<SheetPoint>& line) {
  const TextStyle style{work.em() * 0.85, false, work.theme.textOf(family.kind)};
  const std::string number = typeset(value, decimalsOf(family.main > 0 ? family.main : family.step));
  Label label{importance::family, {}, true, partOf(family.kind)};
  const bool guided = family.kind == LineKind::relativeHumidity && line.size() > 1;
  const double place = guided ? nearestTo(humidityGuide(work), line) : 0;
  const auto offered = [&](const std::string& text) {
    return guided ? placesAround(work.canvas, line, text, style, place)
                  : placesAlong(work.canvas, line, text, style, family.preferred);
  };
  label.places = offered(number + family.unit);
  if (std::abs(value - family.worded) < family.step / 2) {
    constexpr double advantage = 4;  // it is longer, and crosses more
    for (LabelPlace& place : label.places) place.cost += advantage;
    auto worded = offered(number + family.inWords);
    label.places.insert(label.places.end(), worded.begin(), worded.end());
  }
  work.board.add(std::move(label));
}

/// @param labeled whether a value's line has its label on it
template <class Labeled>
void drawFamily(SheetWork& work, const Family& family, const Labeled& labeled) {
  const Stroke& stroke = work.theme.of(family.kind);
  work.canvas.begin(partOf(family.kind));
  for (const double value : multiples(family.low, family.high, family.step)) {
    const auto lines = visibleLine(work.plot, family.kind, value, work.plot.atm);
    const bool light = family.main > 0 && !isMultiple(value, family.main);
    const Color color = light ? work.theme.lighter(stroke.color) : stroke.color;
    for (const auto& line : lines) {
      work.canvas.polyline(line, light ? 0.7 * stroke.width : stroke.width, color, stroke.dash);
      work.board.line(line, light ? gridWeight : familyWeight);
    }
    if (labeled(value)) addLineLabel(work, family, value, longest(lines));
  }
}

/// Steps between the lines and between the numbers, which are at lines.
struct WetBulbSteps {
  double lines, numbers;
};

/// How far the lines of two wet bulbs 1 deg F apart are from each other at the begin of the saturation curve [pixels],
/// where they are nearest; on a page that is high for its width they run almost along it.
double betweenWetBulbs(const SheetPlot& plot, double wb) {
  const SheetPoint at = plot.at(wb, saturationRatio(wb, plot.atm));
  const SheetPoint next = plot.at(wb + 1, saturationRatio(wb + 1, plot.atm));
  const SheetPoint along = plot.at(wb + 1, psychro_w(wb + 1, wb, plot.atm));
  return std::abs(cross(unit(along - at), next - at));
}

/// As wide as the wet bulbs are apart on the saturation curve, or at the left edge without one.
WetBulbSteps wetBulbSteps(const SheetWork& work) {
  const SheetPlot& plot = work.plot;
  const auto& curve = work.boundary.saturation;
  const double span = saturationDb(plot, plot.limits.highHr) - work.boundary.lowDb;
  const auto ratio = [&](double wb) { return psychro_w(plot.limits.lowDb, wb, plot.atm); };
  const double wb = plot.limits.lowDb - 5;
  const double upright = (ratio(wb + 1) - ratio(wb)) * plot.perW();
  const bool curved = span > 0 && lengthOf(curve) > 8 * work.em();
  const double perDegree = (curved ? lengthOf(curve) / span : upright) / work.em();
  constexpr double between = 0.95, betweenAcross = 0.4, betweenNumbers = 3;  // em
  double least = between / perDegree;
  if (curved) {
    const double across = betweenWetBulbs(plot, work.boundary.lowDb) / work.em();
    least = std::max(least, betweenAcross / across);
  }
  const double lines = stepFrom({0.1, 0.5, 1, 5, 10, 20}, least);
  return {lines, std::max(lines, stepFrom({0.5, 1, 5, 10, 20}, betweenNumbers / perDegree))};
}

/// Whether a text is between saturation and the scale of enthalpies, and not among the numbers of that one along the
/// edges of the plot.
bool isBelowEnthalpies(const SheetWork& work, const SheetTextOperation& text) {
  const double gap = 0.2 * work.em();
  const auto corners = textBox(text, work.canvas.extent(text.text, text.style)).corners();
  return std::all_of(corners.begin(), corners.end(), [&](SheetPoint corner) {
    return corner.x >= work.plot.left + gap && (work.boundary.top.empty() || corner.y >= work.plot.top + gap);
  });
}

/// Wet bulbs have their numbers outside, where they leave the saturation curve.
void labelWetBulbs(SheetWork& work, const WetBulbSteps& steps) {
  const SheetPlot& plot = work.plot;
  if (work.boundary.saturation.empty()) return;
  const double endDb = saturationDb(plot, plot.limits.highHr);
  for (const double wb : multiples(work.boundary.lowDb, endDb, steps.numbers)) {
    const SheetPoint at = plot.at(wb, saturationRatio(wb, plot.atm));
    const SheetPoint next = plot.at(wb + 0.01, saturationRatio(wb + 0.01, plot.atm));
    const SheetPoint along = unit(next - at);
    const SheetPoint outward{along.y, -along.x};
    const double tick = work.em() * 0.4;
    work.canvas.polyline({at, at + outward * tick}, work.theme.wetBulb.width, work.theme.wetBulb.color);
    const TextStyle style{work.em() * 0.9, isMultiple(wb, 2 * steps.numbers), work.theme.wetBulbText};
    Label label{importance::scale + (isMultiple(wb, 2 * steps.numbers) ? 50 : 20), {}, false, SheetPart::wetBulb};
    const std::string text = typeset(wb, decimalsOf(steps.numbers));
    for (const double slide : {0.0, 0.4, -0.4, 0.8}) {
      const SheetPoint place = at + along * (slide * work.em());
      SheetTextOperation number = textNextTo(work.canvas, place, outward, tick + 0.25 * work.em(), text, style);
      if (isBelowEnthalpies(work, number)) label.places.push_back({std::move(number), std::abs(slide)});
    }
    work.board.add(std::move(label));
  }
}

/// A wet bulb whose saturated state is on the chart has its number there, any other one on its line.
void drawWetBulbs(SheetWork& work) {
  const WetBulbSteps steps = wetBulbSteps(work);
  const double lowest = work.plot.limits.lowDb - 40;
  const double first = work.boundary.saturation.empty() ? work.plot.limits.highDb : work.boundary.lowDb;
  const double last = work.boundary.saturation.empty() ? 0 : saturationDb(work.plot, work.plot.limits.highHr);
  Family family{LineKind::wetBulb, steps.lines, lowest, work.plot.limits.highDb, "", " °F wet bulb", 0, 0.15,
                steps.numbers};
  if (work.boundary.saturation.empty()) {
    const auto ratio = [&](double wb) { return psychro_w(work.plot.limits.lowDb, wb, work.plot.atm); };
    const double middle = (work.plot.limits.lowHr + work.boundary.highHr) / 2;
    const double wb = lastWith([&](double t) { return ratio(t) <= middle; }, lowest, work.plot.limits.lowDb);
    family.worded = std::round(wb / steps.numbers) * steps.numbers;
  }
  drawFamily(work, family, [=](double wb) { return isMultiple(wb, steps.numbers) && (wb < first || wb > last); });
  labelWetBulbs(work, steps);
}

/// The specific volumes on the chart lie between that of its coldest dry air and that of its warmest moist air.
Family volumes(const SheetWork& work) {
  const auto& limits = work.plot.limits;
  const double low = volumeOf(volumeFactor(limits.lowDb), limits.lowHr, work.plot.atm);
  const double high = volumeOf(volumeFactor(limits.highDb), work.boundary.highHr, work.plot.atm);
  constexpr double mostLines = 14;
  constexpr double fewestLines = 3;
  double step = 0.5;
  if ((high - low) / step < fewestLines) step = stepFrom({0.02, 0.05, 0.1, 0.2, 0.5}, (high - low) / 8);
  if ((high - low) / step > mostLines) step = stepFrom({1, 2, 5, 10}, (high - low) / mostLines);
  const double middle = std::round((low + 0.45 * (high - low)) / step) * step;
  return {LineKind::specificVolume, step, low, high, "", " cu ft per lb of dry air", middle, 0.8};
}

Family enthalpies(const SheetWork& work) {
  const auto& limits = work.plot.limits;
  const double low = enthalpyOf(limits.lowDb, limits.lowHr);
  const double high = enthalpyOf(limits.highDb, work.boundary.highHr);
  const double step = stepFrom({0.5, 1, 2, 5, 10}, (high - low) / 20);
  const double middle = std::round((low + 0.4 * (high - low)) / step) * step;
  return {LineKind::enthalpy, step, low, high, "", " Btu per lb of dry air", middle, 0.5};
}

}  // namespace

void drawGrid(SheetWork& work) {
  work.canvas.begin(SheetPart::grid);
  const SheetPlot& plot = work.plot;
  const double em = work.em();
  constexpr double between = 0.8, betweenMain = 3.2;  // em
  const double dbStep = stepFrom({0.1, 0.2, 0.5, 1, 2, 5, 10}, between * em / plot.perDb());
  const double dbMain = stepFrom({0.5, 1, 2, 5, 10, 20}, betweenMain * em / plot.perDb());
  for (const bool main : {false, true}) {
    for (const double db : multiples(plot.limits.lowDb, plot.limits.highDb, dbStep)) {
      if (isMultiple(db, dbMain) != main) continue;
      const double top = topRatio(plot, db);
      if (top <= plot.limits.lowHr) continue;
      gridLine(work, plot.at(db, plot.limits.lowHr), plot.at(db, top), main ? work.theme.grid : work.theme.fineGrid);
    }
    const double wStep = stepFrom({0.00005, 0.0001, 0.0002, 0.0005, 0.001, 0.005}, between * em / plot.perW());
    const double wMain = stepFrom({0.0005, 0.001, 0.002, 0.005, 0.01}, 2.2 * em / plot.perW());
    for (const double w : multiples(plot.limits.lowHr, work.boundary.highHr, wStep)) {
      if (isMultiple(w, wMain) != main) continue;
      const SheetPoint from = plot.at(saturationDb(plot, w), w);
      gridLine(work, from, plot.at(plot.limits.highDb, w), main ? work.theme.grid : work.theme.fineGrid);
    }
  }
}

void drawFamilies(SheetWork& work) {
  if (!work.content.families) return;
  const auto always = [](double) { return true; };
  if (work.options.enthalpyLines) drawFamily(work, enthalpies(work), always);
  drawFamily(work, volumes(work), always);
  drawWetBulbs(work);
  drawFamily(work, {LineKind::relativeHumidity, 10, 10, 90, " %", " % relative humidity", 10, 0.62}, always);
}

void drawFrame(SheetWork& work) {
  work.canvas.begin(SheetPart::frame);
  const auto edges = work.boundary.outline(work.plot);
  work.canvas.polyline(edges, work.theme.frame.width, work.theme.frame.color);
  work.board.wall(edges);
  work.board.line(edges, frameWeight);
  const Stroke& saturation = work.theme.saturation;
  work.canvas.polyline(work.boundary.saturation, saturation.width, saturation.color);
}

}  // namespace moistair
