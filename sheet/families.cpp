// The grid and the families of lines of a sheet, and the frame around them.
#include <algorithm>
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
constexpr double gridweight = 0.03;
constexpr double familyweight = 0.15;
constexpr double frameweight = 2;

void gridline(SheetWork& work, SheetPoint from, SheetPoint to, const Stroke& stroke) {
  work.canvas.polyline({from, to}, stroke.width, stroke.color, stroke.dash);
  work.board.line({from, to}, gridweight);
}

/// A family of lines: the values that it has and how the texts on them read.
struct Family {
  LineKind kind;
  double step;
  double low, high;     ///< of the values
  const char* unit;     ///< behind every number
  const char* inwords;  ///< behind one of them in place of the unit
  double worded;        ///< the value that has the words, if it is on the chart
  double preferred;     ///< part of a line's length at which its label stands best
};

/// The longest of some lines.
std::vector<SheetPoint> longest(const std::vector<std::vector<SheetPoint>>& lines) {
  const auto shorter = [](const auto& a, const auto& b) { return lengthof(a) < lengthof(b); };
  const auto found = std::max_element(lines.begin(), lines.end(), shorter);
  return found == lines.end() ? std::vector<SheetPoint>() : *found;
}

void addlinelabel(SheetWork& work, const Family& family, double value, const std::vector<SheetPoint>& line) {
  const TextStyle style{work.em() * 0.85, false, work.theme.of(family.kind).color};
  const std::string number = typeset(value, decimalsof(family.step));
  Label label{importance::family, {}, true};
  label.places = placesalong(work.canvas, line, number + family.unit, style, family.preferred);
  if (std::abs(value - family.worded) < family.step / 2) {
    constexpr double advantage = 4;  // it is longer, and crosses more
    for (LabelPlace& place : label.places) place.cost += advantage;
    auto worded = placesalong(work.canvas, line, number + family.inwords, style, family.preferred);
    label.places.insert(label.places.end(), worded.begin(), worded.end());
  }
  work.board.add(std::move(label));
}

/// @param labelled whether a value's line has its label on it
template <class Labelled>
void drawfamily(SheetWork& work, const Family& family, const Labelled& labelled) {
  const Stroke& stroke = work.theme.of(family.kind);
  for (const double value : multiples(family.low, family.high, family.step)) {
    const auto lines = visibleline(work.plot, family.kind, value, work.plot.atm);
    for (const auto& line : lines) {
      work.canvas.polyline(line, stroke.width, stroke.color, stroke.dash);
      work.board.line(line, familyweight);
    }
    if (labelled(value)) addlinelabel(work, family, value, longest(lines));
  }
}

/// Wet bulbs have their numbers outside, where they leave the saturation curve.
void labelwetbulbs(SheetWork& work, double step) {
  const SheetPlot& plot = work.plot;
  if (work.boundary.saturation.empty()) return;
  const double enddb = saturationdb(plot, plot.limits.highhr);
  for (const double wb : multiples(work.boundary.lowdb, enddb, step)) {
    const SheetPoint at = plot.at(wb, saturationratio(wb, plot.atm));
    const SheetPoint next = plot.at(wb + 0.01, saturationratio(wb + 0.01, plot.atm));
    const SheetPoint along = unit(next - at);
    const SheetPoint outward{along.y, -along.x};
    const double tick = work.em() * 0.4;
    work.canvas.polyline({at, at + outward * tick}, work.theme.wetbulb.width, work.theme.wetbulb.color);
    const TextStyle style{work.em() * 0.9, ismultiple(wb, 2 * step), work.theme.wetbulb.color};
    Label label{importance::scale + (ismultiple(wb, 2 * step) ? 50 : 20), {}, false};
    const std::string text = typeset(wb, decimalsof(step));
    for (const double slide : {0.0, 0.4, -0.4}) {
      const SheetPoint place = at + along * (slide * work.em());
      label.places.push_back(
          {beside(work.canvas, place, outward, tick + 0.25 * work.em(), text, style), std::abs(slide), {}});
    }
    work.board.add(std::move(label));
  }
}

/// The step of the wet bulbs, as wide as they are apart on the saturation curve, or at the left edge without one.
double wetbulbstep(const SheetWork& work) {
  const SheetPlot& plot = work.plot;
  const auto& curve = work.boundary.saturation;
  const double span = saturationdb(plot, plot.limits.highhr) - work.boundary.lowdb;
  const auto ratio = [&](double wb) { return psychro_w(plot.limits.lowdb, wb, plot.atm); };
  const double wb = plot.limits.lowdb - 5;
  const double upright = (ratio(wb + 1) - ratio(wb)) * plot.perw();
  const bool curved = span > 0 && lengthof(curve) > 8 * work.em();
  const double perdegree = (curved ? lengthof(curve) / span : upright) / work.em();
  constexpr double usual = 5;
  constexpr double wide = 16;  // em between two of these: a narrow chart, which has room for more
  return usual * perdegree > wide ? stepfrom({0.5, 1, 2}, 4.5 / perdegree) : stepfrom({usual, 10, 20}, 3.4 / perdegree);
}

/// A wet bulb whose saturated state is on the chart has its number there, any other one on its line.
void drawwetbulbs(SheetWork& work) {
  const double step = wetbulbstep(work);
  const double lowest = work.plot.limits.lowdb - 40;
  const double first = work.boundary.saturation.empty() ? work.plot.limits.highdb : work.boundary.lowdb;
  const double last = work.boundary.saturation.empty() ? 0 : saturationdb(work.plot, work.plot.limits.highhr);
  Family family{LineKind::wetbulb, step, lowest, work.plot.limits.highdb, "", " °F wet bulb", 0, 0.15};
  if (work.boundary.saturation.empty()) {
    const auto ratio = [&](double wb) { return psychro_w(work.plot.limits.lowdb, wb, work.plot.atm); };
    const double middle = (work.plot.limits.lowhr + work.boundary.highhr) / 2;
    const double wb = lastwith([&](double t) { return ratio(t) <= middle; }, lowest, work.plot.limits.lowdb);
    family.worded = std::round(wb / step) * step;
  }
  drawfamily(work, family, [=](double wb) { return wb < first || wb > last; });
  labelwetbulbs(work, step);
}

/// The specific volumes on the chart lie between that of its coldest dry air and that of its warmest moist air.
Family volumes(const SheetWork& work) {
  const auto& limits = work.plot.limits;
  const double low = volumeof(volumefactor(limits.lowdb), limits.lowhr, work.plot.atm);
  const double high = volumeof(volumefactor(limits.highdb), work.boundary.highhr, work.plot.atm);
  constexpr double mostlines = 14;
  constexpr double fewestlines = 3;
  double step = 0.5;
  if ((high - low) / step < fewestlines) step = stepfrom({0.02, 0.05, 0.1, 0.2, 0.5}, (high - low) / 8);
  if ((high - low) / step > mostlines) step = stepfrom({1, 2, 5, 10}, (high - low) / mostlines);
  const double middle = std::round((low + 0.45 * (high - low)) / step) * step;
  return {LineKind::specificvolume, step, low, high, "", " cu ft per lb of dry air", middle, 0.8};
}

Family enthalpies(const SheetWork& work) {
  const auto& limits = work.plot.limits;
  const double low = enthalpyof(limits.lowdb, limits.lowhr);
  const double high = enthalpyof(limits.highdb, work.boundary.highhr);
  const double step = stepfrom({0.5, 1, 2, 5, 10}, (high - low) / 20);
  const double middle = std::round((low + 0.4 * (high - low)) / step) * step;
  return {LineKind::enthalpy, step, low, high, "", " Btu per lb of dry air", middle, 0.5};
}

}  // namespace

void drawgrid(SheetWork& work) {
  const SheetPlot& plot = work.plot;
  const double em = work.em();
  const double dbstep = stepfrom({0.5, 1, 5, 10}, 1.3 * em / plot.perdb());
  const double dbmain = stepfrom({0.5, 1, 2, 5, 10, 20}, 3.2 * em / plot.perdb());
  for (const bool main : {false, true}) {
    for (const double db : multiples(plot.limits.lowdb, plot.limits.highdb, dbstep)) {
      if (ismultiple(db, dbmain) != main) continue;
      const double top = highestratio(plot, db);
      if (top <= plot.limits.lowhr) continue;
      gridline(work, plot.at(db, plot.limits.lowhr), plot.at(db, top), main ? work.theme.grid : work.theme.finegrid);
    }
    const double wstep = stepfrom({0.0001, 0.0002, 0.0005, 0.001, 0.005}, 1.2 * em / plot.perw());
    const double wmain = stepfrom({0.0005, 0.001, 0.002, 0.005, 0.01}, 2.2 * em / plot.perw());
    for (const double w : multiples(plot.limits.lowhr, work.boundary.highhr, wstep)) {
      if (ismultiple(w, wmain) != main) continue;
      const SheetPoint from = plot.at(saturationdb(plot, w), w);
      gridline(work, from, plot.at(plot.limits.highdb, w), main ? work.theme.grid : work.theme.finegrid);
    }
  }
}

void drawfamilies(SheetWork& work) {
  if (!work.content.families) return;
  const auto always = [](double) { return true; };
  if (work.options.enthalpylines) drawfamily(work, enthalpies(work), always);
  drawfamily(work, volumes(work), always);
  drawwetbulbs(work);
  drawfamily(work, {LineKind::relativehumidity, 10, 10, 90, " %", " % relative humidity", 10, 0.62}, always);
}

void drawframe(SheetWork& work) {
  const auto edges = work.boundary.outline(work.plot);
  work.canvas.polyline(edges, work.theme.frame.width, work.theme.frame.color);
  work.board.wall(edges);
  work.board.line(edges, frameweight);
  const Stroke& saturation = work.theme.saturation;
  work.canvas.polyline(work.boundary.saturation, saturation.width, saturation.color);
}

}  // namespace moistair
