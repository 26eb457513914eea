// What the engineer has put on the chart: points, mixing lines and lines of constant property.
#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "sheet/curves.h"
#include "sheet/parts.h"
#include "sheet/steps.h"
#include "text/numbertext.h"
#include "text/value.h"

namespace moistair {

namespace {

constexpr double markRadius = 0.38;  // em
constexpr double lineWidth = 1.7;
constexpr double mixingWidth = 1.5;
constexpr double lineWeight = 0.6;  // what covering one of these lines costs

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

void drawLine(SheetWork& work, const SheetLine& line) {
  const Stroke& stroke = work.theme.of(line.kind);
  Label label{importance::line, {}, true};
  for (const auto& piece : visibleLine(work.plot, line.kind, line.value, line.atm)) {
    work.canvas.polyline(piece, lineWidth, stroke.color);
    work.board.line(piece, lineWeight);
    const TextStyle style{0.9 * work.em(), true, stroke.color};
    for (const double preferred : {0.35}) {
      auto places = placesAlong(work.canvas, piece, nameOf(line), style, preferred);
      label.places.insert(label.places.end(), places.begin(), places.end());
    }
  }
  work.board.add(std::move(label));
}

bool isNamed(const SheetWork& work, const SheetState& state) {
  return work.options.labels == PointLabels::names && !state.name.empty();
}

bool isOnPlot(const SheetWork& work, const SheetState& state) {
  return work.plot.limits.contain(state.db(), state.w());
}

std::array<const SheetState*, 3> statesOf(const SheetContent& content, const SheetMixture& mixture) {
  return {&content.states[mixture.one], &content.states[mixture.mixed], &content.states[mixture.other]};
}

/// Whatever lies exactly over another of its kind is drawn once.
class Covered {
public:
  /// Whether this is the first with such numbers; one without a value counts as any other.
  bool isFirst(std::vector<double> numbers) {
    for (double& number : numbers) number = hasValue(number) ? number : 1e300;
    return seen_.insert(std::move(numbers)).second;
  }

private:
  std::set<std::vector<double>> seen_;
};

void drawMixture(SheetWork& work, const SheetMixture& mixture) {
  const std::array<const SheetState*, 3> three = statesOf(work.content, mixture);
  if (!std::all_of(three.begin(), three.end(), [&](const SheetState* state) { return isOnPlot(work, *state); })) return;
  std::vector<SheetPoint> line;
  for (const SheetState* state : three) line.push_back(work.plot.at(state->db(), state->w()));
  work.canvas.polyline(line, mixingWidth, work.theme.mark);
  work.board.line(line, lineWeight);
  if (!hasValue(mixture.share)) return;
  const double percent = 100 * mixture.share;
  const auto part = [&](double share, const SheetState& state) {
    return typeset(share, 1) + " % " + (isNamed(work, state) ? state.name : std::to_string(state.number));
  };
  const std::string text = part(percent, *three[0]) + " + " + part(100 - percent, *three[2]);
  const std::string shortText = typeset(percent, 1) + " % : " + typeset(100 - percent, 1) + " %";
  const TextStyle style{0.9 * work.em(), false, work.theme.mark};
  Label label{importance::share, {}, true};
  for (const double aside : {1.15, -1.15}) {
    for (const std::string& words : {text, shortText}) {
      for (LabelPlace& place : placesAlong(work.canvas, line, words, style, 0.5, aside * work.em())) {
        place.cost += (aside < 0 ? 0.1 : 0) + (words == text ? 0 : 1);
        if (withinPlot(work, place)) label.places.push_back(std::move(place));
      }
    }
  }
  const SheetPoint mixed = line[1];
  for (int turn = 0; turn < 8; ++turn) {  // where the line is too short for it
    const SheetPoint outward = direction(45.0 * turn + 20);
    for (const double away : {2.2, 4.0}) {
      LabelPlace place{textNextTo(work.canvas, mixed, outward, away * work.em(), text, style),
                       1 + away / 4,
                       {mixed, mixed + outward * (away * work.em())}};
      if (withinPlot(work, place)) label.places.push_back(std::move(place));
    }
  }
  work.board.add(std::move(label));
}

/// A round mark; that of a mixture is a diamond, so that the two differ by more than their place.
void drawMark(SheetWork& work, const SheetState& state, bool mixed) {
  const SheetPoint at = work.plot.at(state.db(), state.w());
  const double radius = markRadius * work.em() * (mixed ? 1.25 : 1);
  const int corners = mixed ? 4 : 24;
  std::vector<SheetPoint> rim;
  for (int i = 0; i <= corners; ++i) rim.push_back(at + direction(360.0 * i / corners) * radius);
  work.canvas.area(rim, work.theme.mark);
  work.canvas.polyline(std::move(rim), 0.8, work.theme.paper);
  work.board.fix(boxOf(at - SheetPoint{radius, radius}, at + SheetPoint{radius, radius}));
}

void labelState(SheetWork& work, const SheetState& state) {
  const double em = work.em();
  const SheetPoint at = work.plot.at(state.db(), state.w());
  const std::string number = std::to_string(state.number) + state.mark();
  const bool named = isNamed(work, state);
  Label label{importance::point, {}, true};
  const auto offer = [&](const std::string& text, double cost, double size) {
    const TextStyle style{size * em, true, work.theme.ink};
    for (const double away : {0.25, 1.6, 3.2, 5.5}) {
      for (int turn = 0; turn < 12; ++turn) {
        const SheetPoint outward = direction(-35 - 30.0 * turn);  // to the upper right first
        const double upright = 0.03 * std::min(turn, 12 - turn);
        const double gap = markRadius * em + away * em;
        LabelPlace place{textNextTo(work.canvas, at, outward, gap, text, style), cost + upright + 0.45 * away, {}};
        if (away > 1) place.leader = {at + outward * (markRadius * em), at + outward * (gap - 0.15 * em)};
        if (withinPlot(work, place)) label.places.push_back(std::move(place));
      }
    }
  };
  if (named) offer(fitted(work.canvas, state.name, work.theme.bold(em), 16 * em) + state.mark(), 0, 1);
  offer(number, named ? 4 : 0, 1);
  work.board.add(std::move(label));
}

}  // namespace

void drawContent(SheetWork& work) {
  const SheetContent& content = work.content;
  Covered lines, mixtures, marks;
  for (const SheetLine& line : content.lines) {
    if (lines.isFirst({static_cast<double>(line.kind), line.value, line.atm})) drawLine(work, line);
  }
  std::vector<bool> isMixed(content.states.size());
  for (const SheetMixture& mixture : content.mixtures) {
    isMixed[mixture.mixed] = true;
    std::vector<double> numbers = {mixture.share};
    for (const SheetState* state : statesOf(content, mixture)) numbers.insert(numbers.end(), {state->db(), state->w()});
    if (mixtures.isFirst(std::move(numbers))) drawMixture(work, mixture);
  }
  // So many labels have their places around a pixel; what is there beyond them is in the table alone.
  constexpr int mostLabels = 64;
  std::map<std::pair<long, long>, int> labels;
  for (std::size_t i = 0; i < content.states.size(); ++i) {
    const SheetState& state = content.states[i];
    if (!isOnPlot(work, state)) continue;
    const SheetPoint at = work.plot.at(state.db(), state.w());
    const bool labeled = labels[{std::lround(at.x), std::lround(at.y)}]++ < mostLabels;
    const double kind = state.pinned ? 2 : isMixed[i] ? 1 : 0;
    if (marks.isFirst({state.db(), state.w(), kind}))
      state.pinned ? drawCross(work, state) : drawMark(work, state, isMixed[i]);
    if (labeled) state.pinned ? labelPinned(work, state) : labelState(work, state);
  }
}

}  // namespace moistair
