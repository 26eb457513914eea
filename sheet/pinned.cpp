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

constexpr double padding = 0.35;  // em

/// A read-out as a frame with texts: what it measures, and itself at a corner.
struct Readout {
  std::vector<std::array<std::string, 2>> lines;
  TextStyle style;
  double em, column, width, height;

  Readout(const SheetWork& work, const SheetState& state)
      : lines(readoutOf(state)), style(work.theme.text(0.8 * work.em())), em(work.em()), column(0) {
    for (const auto& line : lines) {
      for (const std::string& text : line) column = std::max(column, work.canvas.widthOf(text, style));
    }
    width = 2 * column + 3 * padding * em;
    height = (static_cast<double>(lines.size()) * rowHeight + 2 * padding) * em;
  }

  LabelPlace at(SheetPoint corner) const {
    LabelPlace place;
    place.frame = boxOf(corner, corner + SheetPoint{width, height});
    for (std::size_t i = 0; i < lines.size(); ++i) {
      const double y = corner.y + (padding + 0.75 + static_cast<double>(i) * rowHeight) * em;
      place.more.push_back({{corner.x + padding * em, y}, lines[i][0], style, Anchor::start, 0});
      place.more.push_back({{corner.x + 2 * padding * em + column, y}, lines[i][1], style, Anchor::start, 0});
    }
    place.text = place.more.front();
    place.text.style.bold = true;
    place.more.erase(place.more.begin());
    return place;
  }

  static constexpr double rowHeight = 1.02;
};

/// Places around the cross.
void addPlacesAround(const SheetWork& work, const Readout& readout, SheetPoint at, double radius, Label& label) {
  for (const double away : {0.6, 2.0, 4.0, 7.0}) {
    for (int turn = 0; turn < 12; ++turn) {
      const SheetPoint outward = direction(-145 + 30.0 * turn);  // to the upper left first
      const double reach = std::min(std::abs(outward.x) > 0.01 ? readout.width / 2 / std::abs(outward.x) : 1e9,
                                    std::abs(outward.y) > 0.01 ? readout.height / 2 / std::abs(outward.y) : 1e9);
      const SheetPoint center = at + outward * (radius + away * work.em() + reach);
      LabelPlace place = readout.at(center - SheetPoint{readout.width / 2, readout.height / 2});
      place.cost = 0.03 * std::min(turn, 12 - turn) + 0.3 * away;
      place.leader = {at + outward * radius, at + outward * (radius + away * work.em())};
      if (withinPlot(work, place)) label.places.push_back(std::move(place));
    }
  }
}

/// Where there is no room around the cross, its number is next to it, and the read-out above saturation; where there is
/// none there either, the number is all.
void addNumber(const SheetWork& work, const SheetState& state, const Readout& readout, SheetPoint at, double radius,
               bool above, Label& label) {
  constexpr int across = 8, down = 8;
  constexpr double off = 3.2;  // em: beyond the numbers of the enthalpy scale
  const double em = work.em();
  const SheetPlot& plot = work.plot;
  const std::vector<SheetPoint> rule = enthalpyRule(work);
  const std::string number = std::to_string(state.number);
  std::vector<SheetTextOperation> tags;
  for (int turn = 0; turn < 6; ++turn) {
    const SheetPoint outward = direction(-35 - 60.0 * turn);
    tags.push_back(textNextTo(work.canvas, at, outward, radius + 0.2 * em, number, work.theme.bold(0.8 * em)));
  }
  const double width = plot.right - plot.left - readout.width;
  const double height = plot.bottom - plot.top - readout.height;
  for (int i = 0; above && i < across * down && width > 0 && height > 0; ++i) {
    const SheetPoint corner{plot.left + width * (i % across) / across,
                            plot.top - 2 * em + height * std::floor(i / across) / down};
    const SheetPoint nearest = corner + SheetPoint{readout.width, readout.height};
    if (rule.empty() || !isClearOf(rule, nearest, off * em)) continue;
    for (const SheetTextOperation& tag : tags) {
      LabelPlace place = readout.at(corner);
      place.tag = tag;
      place.cost = 8 + 0.02 * distance(at, nearest) / em;
      label.places.push_back(std::move(place));
    }
  }
  for (const SheetTextOperation& tag : tags) label.places.push_back({tag, 20});
}

/// Half of the cross's width [pixels].
double armOf(const SheetWork& work) { return 0.55 * work.em(); }

}  // namespace

void drawCross(SheetWork& work, const SheetState& state) {
  work.canvas.begin(SheetPart::readouts);
  const SheetPoint at = work.plot.at(state.db(), state.w());
  const double arm = armOf(work);
  for (const SheetPoint toward : {SheetPoint{1, 0}, SheetPoint{0, 1}}) {
    work.canvas.polyline({at - toward * arm, at + toward * arm}, 1.2, work.theme.mark);
  }
  work.board.fix(boxOf(at - SheetPoint{arm, arm}, at + SheetPoint{arm, arm}));
}

void labelPinned(SheetWork& work, const SheetState& state, bool above) {
  const SheetPoint at = work.plot.at(state.db(), state.w());
  const Readout readout(work, state);
  Label label{importance::point, {}, true, SheetPart::readouts, at};
  addPlacesAround(work, readout, at, armOf(work), label);
  addNumber(work, state, readout, at, armOf(work), above, label);
  work.board.add(std::move(label));
}

}  // namespace moistair
