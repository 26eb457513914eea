// Readings that are kept on the chart.
#include <algorithm>
#include <array>
#include <utility>

#include "sheet/parts.h"
#include "sheet/steps.h"

namespace moistair {

namespace {

/// The lines of a read-out: its number, then two properties each.
std::vector<std::array<std::string, 2>> readoutOf(const SheetState& state) {
  using enum PropertyKind;
  constexpr std::array order = {db, w, wb, h, rh, v, dp, pv};
  std::vector<std::array<std::string, 2>> lines = {{std::to_string(state.number), {}}};
  for (std::size_t i = 0; i < order.size(); i += 2) {
    std::array<std::string, 2> line;
    for (const std::size_t column : {std::size_t{0}, std::size_t{1}}) {
      const Property& property = propertyOf(order[i + column]);
      const double value = state.properties[columnOf(property.kind)];
      line[column] = std::string(property.symbol) + " " + typeset(value, property.decimals);
    }
    lines.push_back(line);
  }
  return lines;
}

Label pinnedLabel(const SheetWork& work, const SheetState& state, SheetPoint at, double radius) {
  constexpr double rowHeight = 1.15;
  constexpr double padding = 0.35;
  const double em = work.em();
  const auto lines = readoutOf(state);
  const TextStyle style = work.theme.text(0.8 * em);
  double column = 0;
  for (const auto& line : lines) {
    for (const std::string& text : line) column = std::max(column, work.canvas.widthOf(text, style));
  }
  const double width = 2 * column + 3 * padding * em;
  const double height = (static_cast<double>(lines.size()) * rowHeight * 0.85 + 2 * padding) * em;
  Label label{importance::point, {}, true};
  for (const double away : {0.6, 2.0, 4.0, 7.0}) {
    for (int turn = 0; turn < 12; ++turn) {
      const SheetPoint outward = direction(-145 + 30.0 * turn);  // to the upper left first
      const double reach = std::min(std::abs(outward.x) > 0.01 ? width / 2 / std::abs(outward.x) : 1e9,
                                    std::abs(outward.y) > 0.01 ? height / 2 / std::abs(outward.y) : 1e9);
      const SheetPoint center = at + outward * (radius + away * em + reach);
      const SheetPoint corner = center - SheetPoint{width / 2, height / 2};
      LabelPlace place;
      place.cost = 0.03 * std::min(turn, 12 - turn) + 0.3 * away;
      place.leader = {at + outward * radius, at + outward * (radius + away * em)};
      place.frame = boxOf(corner, corner + SheetPoint{width, height});
      for (std::size_t i = 0; i < lines.size(); ++i) {
        const double y = corner.y + (padding + 0.65 + static_cast<double>(i) * rowHeight * 0.85) * em;
        place.more.push_back({{corner.x + padding * em, y}, lines[i][0], style, Anchor::start, 0});
        place.more.push_back({{corner.x + 2 * padding * em + column, y}, lines[i][1], style, Anchor::start, 0});
      }
      place.text = place.more.front();
      place.text.style.bold = true;
      place.more.erase(place.more.begin());
      if (withinPlot(work, place)) label.places.push_back(std::move(place));
    }
  }
  return label;
}

/// Half of the cross's width [pixels].
double armOf(const SheetWork& work) { return 0.55 * work.em(); }

}  // namespace

void drawCross(SheetWork& work, const SheetState& state) {
  const SheetPoint at = work.plot.at(state.db(), state.w());
  const double arm = armOf(work);
  for (const SheetPoint toward : {SheetPoint{1, 0}, SheetPoint{0, 1}}) {
    work.canvas.polyline({at - toward * arm, at + toward * arm}, 1.2, work.theme.mark);
  }
  work.board.fix(boxOf(at - SheetPoint{arm, arm}, at + SheetPoint{arm, arm}));
}

void labelPinned(SheetWork& work, const SheetState& state) {
  work.board.add(pinnedLabel(work, state, work.plot.at(state.db(), state.w()), armOf(work)));
}

}  // namespace moistair
