// What the engineer has put on the chart: points, read-outs, mixing lines and lines of constant property.
#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "sheet/parts.h"
#include "text/value.h"

namespace moistair {

namespace {

constexpr double markRadius = 0.38;  // em

double radiusOf(const SheetWork& work, bool mixed) { return markRadius * work.em() * (mixed ? 1.25 : 1); }

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

/// A round mark; that of a mixture is a diamond, so that the two differ by more than their place.
void drawMark(SheetWork& work, const SheetState& state, bool mixed) {
  work.canvas.begin(SheetPart::points);
  const SheetPoint at = work.plot.at(state.db(), state.w());
  const double radius = radiusOf(work, mixed);
  const int corners = mixed ? 4 : 24;
  std::vector<SheetPoint> rim;
  for (int i = 0; i <= corners; ++i) rim.push_back(at + direction(360.0 * i / corners) * radius);
  work.canvas.area(rim, work.theme.mark);
  work.canvas.polyline(std::move(rim), 0.8, work.theme.paper);
  work.board.fix(boxOf(at - SheetPoint{radius, radius}, at + SheetPoint{radius, radius}));
}

/// A name in full, where there is room for it, then cut off, then the number. In a crowd the number comes first, and
/// where a table has the names they are left to it.
std::vector<Wording> wordingsOf(const SheetWork& work, const SheetState& state, const std::string& numbers,
                                bool crowded) {
  const bool named = isNamed(work, state);
  std::vector<Wording> wordings = {{numbers + state.mark(), named && !crowded ? 4.0 : 0.0}};
  if (!named || (crowded && work.options.table)) return wordings;
  double cost = crowded ? 3 : 0;
  for (const double most : {40.0, 24.0, 16.0, 10.0}) {
    const std::string name =
        fitted(work.canvas, state.name, work.theme.bold(work.em()), most * work.em()) + state.mark();
    if (name != wordings.back().text) wordings.push_back({name, cost});
    cost += 0.8;
  }
  return wordings;
}

/// The states that are on the plot, by the squares of the page that they are in.
class Crowd {
public:
  explicit Crowd(const SheetWork& work) : work_(work), side_(4 * work.em()) {
    for (std::size_t i = 0; i < work.content.states.size(); ++i) {
      if (isOnPlot(work, work.content.states[i])) squares_[squareOf(placeOf(i))].push_back(i);
    }
  }

  SheetPoint placeOf(std::size_t state) const {
    return work_.plot.at(work_.content.states[state].db(), work_.content.states[state].w());
  }

  /// Whether several others are so near that their names would not have room.
  bool isCrowded(std::size_t state) const {
    constexpr int several = 4;
    int near = 0;
    return anyNear(state, side_, [&](std::size_t) { return ++near > several; });
  }

  /// Those at the same place, this one among them.
  std::vector<std::size_t> atPlaceOf(std::size_t state) const {
    constexpr double same = 0.25;        // pixels
    constexpr std::size_t enough = 100;  // nobody reads more numbers
    std::vector<std::size_t> found;
    anyNear(state, same, [&](std::size_t other) {
      found.push_back(other);
      return found.size() == enough;
    });
    return found;
  }

private:
  using Square = std::pair<long, long>;

  Square squareOf(SheetPoint at) const {
    return {static_cast<long>(std::floor(at.x / side_)), static_cast<long>(std::floor(at.y / side_))};
  }

  template <class Visit>
  bool anyNear(std::size_t state, double reach, const Visit& visit) const {
    const SheetPoint at = placeOf(state);
    const auto [low, top] = squareOf(at - SheetPoint{reach, reach});
    const auto [high, bottom] = squareOf(at + SheetPoint{reach, reach});
    for (long x = low; x <= high; ++x) {
      for (long y = top; y <= bottom; ++y) {
        const auto square = squares_.find({x, y});
        if (square == squares_.end()) continue;
        for (const std::size_t other : square->second) {
          if (distance(placeOf(other), at) <= reach && visit(other)) return true;
        }
      }
    }
    return false;
  }

  const SheetWork& work_;
  double side_;
  std::map<Square, std::vector<std::size_t>> squares_;
};

/// Marks and labels of all states. A stream at the place of a marked point has no label of its own; that of the point
/// says both numbers.
class StateMarks {
public:
  explicit StateMarks(SheetWork& work) : work_(work), crowd_(work), roles_(work.content.states.size()) {
    for (const SheetMixture& mixture : work.content.mixtures) {
      for (const std::size_t stream : {mixture.one, mixture.other}) roles_[stream] = Role::stream;
      roles_[mixture.mixed] = Role::mixed;
    }
  }

  void draw() {
    for (std::size_t i = 0; i < roles_.size(); ++i) {
      const SheetState& state = work_.content.states[i];
      if (!isOnPlot(work_, state)) continue;
      const bool mixed = roles_[i] == Role::mixed;
      const double kind = state.pinned ? 2 : mixed ? 1 : 0;
      if (marks_.isFirst({state.db(), state.w(), kind})) {
        if (state.pinned) drawCross(work_, state);
        if (!state.pinned) drawMark(work_, state, mixed);
      }
      label(i);
    }
  }

private:
  enum class Role { point, stream, mixed };

  void label(std::size_t i) {
    // So many labels have their places around a pixel; what is there beyond them is in the table alone.
    constexpr int mostLabels = 64;
    const SheetPoint at = crowd_.placeOf(i);
    if (labels_[{std::lround(at.x), std::lround(at.y)}]++ >= mostLabels) return;
    const SheetState& state = work_.content.states[i];
    if (state.pinned) return labelPinned(work_, state, ++readouts_ <= 40);
    std::string numbers = std::to_string(state.number);
    for (const std::size_t other : crowd_.atPlaceOf(i)) {
      if (other == i || work_.content.states[other].pinned) continue;
      if (speaksFor(other, i)) return;
      if (speaksFor(i, other)) numbers += ", " + std::to_string(work_.content.states[other].number);
    }
    labelMark(work_, at, radiusOf(work_, roles_[i] == Role::mixed),
              wordingsOf(work_, state, numbers, crowd_.isCrowded(i)), importance::point);
  }

  /// Whether the label of one state does for another at its place, a stream.
  bool speaksFor(std::size_t one, std::size_t stream) const {
    if (roles_[stream] != Role::stream) return false;
    return roles_[one] != Role::stream || one < stream;
  }

  SheetWork& work_;
  Crowd crowd_;
  std::vector<Role> roles_;
  Covered marks_;
  std::map<std::pair<long, long>, int> labels_;
  int readouts_ = 0;
};

}  // namespace

void labelMark(SheetWork& work, SheetPoint at, double radius, const std::vector<Wording>& wordings, double worth) {
  const double em = work.em();
  const TextStyle style = work.theme.bold(em);
  Label label{worth, {}, true, SheetPart::points, at};
  for (const auto& [text, cost] : wordings) {
    for (const double away : {0.25, 1.6, 3.2, 5.5, 8.0}) {
      for (int turn = 0; turn < 12; ++turn) {
        const SheetPoint outward = direction(-35 - 30.0 * turn);  // to the upper right first
        const double upright = 0.03 * std::min(turn, 12 - turn);
        const double gap = radius + away * em;
        LabelPlace place{textNextTo(work.canvas, at, outward, gap, text, style), cost + upright + 0.45 * away, {}};
        if (away > 1) place.leader = {at + outward * radius, at + outward * (gap - 0.15 * em)};
        if (withinPlot(work, place)) label.places.push_back(std::move(place));
      }
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

void drawContent(SheetWork& work) {
  const SheetContent& content = work.content;
  if (content.system) drawSystem(work, *content.system);
  Covered lines, mixtures;
  for (const SheetLine& line : content.lines) {
    if (lines.isFirst({static_cast<double>(line.kind), line.value, line.atm})) drawLine(work, line);
  }
  for (const SheetMixture& mixture : content.mixtures) {
    std::vector<double> numbers = {mixture.share};
    for (const SheetState* state : statesOf(content, mixture)) numbers.insert(numbers.end(), {state->db(), state->w()});
    if (mixtures.isFirst(std::move(numbers))) drawMixture(work, mixture);
  }
  StateMarks(work).draw();
}

}  // namespace moistair