#include "sheet/labels.h"

#include <algorithm>
#include <numeric>
#include <span>
#include <utility>

namespace moistair {

namespace {

constexpr double cellSize = 48;  // pixels
constexpr long rowLength = 1 << 20;
constexpr std::size_t boxCrowd = 64, lineCrowd = 256;  // so many boxes or pieces with their middles in one square
constexpr double grain = 4;                            // pixels, of what is in a crowd

long cellAt(double place) { return static_cast<long>(std::floor(std::clamp(place, -1e5, 1e5) / cellSize)); }

long cellOf(SheetPoint place) { return cellAt(place.y) * rowLength + cellAt(place.x); }

/// Whether something holds for one of the squares of the page that a rectangle touches.
template <class Test>
bool anyCell(SheetPoint low, SheetPoint high, const Test& test) {
  for (long row = cellAt(low.y); row <= cellAt(high.y); ++row) {
    for (long column = cellAt(low.x); column <= cellAt(high.x); ++column) {
      if (test(row * rowLength + column)) return true;
    }
  }
  return false;
}

/// The same of the squares that a box may touch.
template <class Test>
bool anyCell(const Box& box, const Test& test) {
  const SheetPoint reach{std::abs(box.along.x) * box.halfLength + std::abs(box.along.y) * box.halfHeight,
                         std::abs(box.along.y) * box.halfLength + std::abs(box.along.x) * box.halfHeight};
  return anyCell(box.center - reach, box.center + reach, test);
}

template <class Visit>
void visitCells(const Box& box, const Visit& visit) {
  anyCell(box, [&](long cell) {
    visit(cell);
    return false;
  });
}

constexpr double hairline = 0.6;

Box boxOf(const SheetCanvas& canvas, const SheetTextOperation& text) {
  return textBox(text, canvas.extent(text.text, text.style));
}

/// What lies under the texts of a label.
void drawGround(SheetCanvas& canvas, const Label& label, const LabelPlace& place, Color paper) {
  const auto clear = [&](const Box& box) {
    const auto corners = box.corners();
    canvas.area({corners.begin(), corners.end()}, paper);
  };
  canvas.begin(label.part);
  const Box box = grown(moistair::boxOf(canvas, place), 1);
  if (label.clears) clear(box);
  if (label.clears && place.tag) clear(boxOf(canvas, *place.tag));
  if (place.frame) {
    const auto corners = box.corners();
    canvas.polyline({corners[0], corners[1], corners[2], corners[3], corners[0]}, hairline, place.text.style.color);
  }
}

void drawTexts(SheetCanvas& canvas, const Label& label, const LabelPlace& place) {
  canvas.begin(label.part);
  canvas.text(place.text);
  for (const SheetTextOperation& text : place.more) canvas.text(text);
  if (place.tag) canvas.text(*place.tag);
}

}  // namespace

/// A place of a label, with half of the gap around all that it takes.
struct LabelBoard::Candidate {
  const LabelPlace* place;
  double cost;
  std::array<Box, 3> boxes{};  ///< of its texts, its leader and its tag
  std::size_t count = 0;

  std::span<const Box> all() const { return {boxes.data(), count}; }
  bool touches(const Box& box) const {
    return std::any_of(boxes.begin(), boxes.begin() + static_cast<long>(count),
                       [&](const Box& own) { return overlap(box, own); });
  }
};

/// The labels with the places that are left to them, the cheapest first, and where each is.
class LabelBoard::Chooser {
public:
  static constexpr std::size_t none = static_cast<std::size_t>(-1);

  Chooser(const std::vector<std::vector<Candidate>>& candidates, const std::vector<double>& importances)
      : candidates_(candidates), importances_(importances), chosen_(candidates.size(), none) {}

  std::vector<std::size_t> choose() {
    std::vector<std::size_t> order(candidates_.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return importances_[a] > importances_[b]; });
    for (const std::size_t label : order) settle(label);
    int tries = 400;  // a page that is full stays so
    for (const std::size_t label : order) {
      if (chosen_[label] == none && !candidates_[label].empty() && tries-- > 0) makeRoom(label);
    }
    constexpr int rounds = 3;
    bool moved = true;
    for (int round = 0; round < rounds && moved; ++round) {
      moved = false;
      for (const std::size_t label : order) moved = settle(label) || moved;
    }
    return chosen_;
  }

private:
  const Candidate& chosen(std::size_t label) const { return candidates_[label][chosen_[label]]; }

  void put(std::size_t label, std::size_t place) {
    if (chosen_[label] != none) {
      for (const Box& box : chosen(label).all()) visitCells(box, [&](long cell) { std::erase(cells_[cell], label); });
    }
    chosen_[label] = place;
    if (place == none) return;
    for (const Box& box : chosen(label).all()) visitCells(box, [&](long cell) { cells_[cell].push_back(label); });
  }

  /// The labels that are where one would be.
  std::vector<std::size_t> under(const Candidate& candidate, std::size_t but) const {
    std::vector<std::size_t> found;
    for (const Box& box : candidate.all()) {
      visitCells(box, [&](long cell) {
        const auto here = cells_.find(cell);
        if (here == cells_.end()) return;
        for (const std::size_t other : here->second) {
          const bool known = std::find(found.begin(), found.end(), other) != found.end();
          if (other != but && !known && chosen(other).touches(box)) found.push_back(other);
        }
      });
    }
    return found;
  }

  /// Whether another label is where one would be.
  bool isTaken(const Candidate& candidate, std::size_t but) const {
    const auto boxes = candidate.all();
    return std::any_of(boxes.begin(), boxes.end(), [&](const Box& box) {
      return anyCell(box, [&](long cell) {
        const auto here = cells_.find(cell);
        return here != cells_.end() && std::any_of(here->second.begin(), here->second.end(), [&](std::size_t other) {
                 return other != but && chosen(other).touches(box);
               });
      });
    });
  }

  /// Puts a label to its cheapest free place. Whether that is another one.
  bool settle(std::size_t label) {
    for (std::size_t i = 0; i < candidates_[label].size(); ++i) {
      if (i == chosen_[label]) return false;
      if (isTaken(candidates_[label][i], label)) continue;
      put(label, i);
      return true;
    }
    return false;
  }

  /// Tries a label's places for one whose occupants can go elsewhere or are worth less than it, all together.
  void makeRoom(std::size_t label) {
    for (std::size_t i = 0; i < candidates_[label].size(); ++i) {
      const auto occupants = under(candidates_[label][i], label);
      std::vector<std::size_t> before;
      for (const std::size_t other : occupants) before.push_back(chosen_[other]);
      for (const std::size_t other : occupants) put(other, none);
      put(label, i);
      double lost = 0;
      for (const std::size_t other : occupants) {
        if (!settle(other)) lost += importances_[other];
      }
      if (lost < importances_[label]) return;
      put(label, none);
      for (const std::size_t other : occupants) put(other, none);
      for (std::size_t j = 0; j < occupants.size(); ++j) put(occupants[j], before[j]);
    }
  }

  const std::vector<std::vector<Candidate>>& candidates_;
  const std::vector<double>& importances_;
  std::vector<std::size_t> chosen_;
  std::unordered_map<long, std::vector<std::size_t>> cells_;
};

Box boxOf(const SheetCanvas& canvas, const LabelPlace& place) {
  return place.frame ? *place.frame : textBox(place.text, canvas.extent(place.text.text, place.text.style));
}

/// A long piece is cut, or it would be entered in all squares of the rectangle that it is the diagonal of.
void LineIndex::add(SheetPoint from, SheetPoint to, double weight) {
  if (distance(from, to) > 2 * cellSize) {
    const SheetPoint middle = (from + to) * 0.5;
    add(from, middle, weight);
    add(middle, to, weight);
    return;
  }
  if (++crowds_[cellOf((from + to) * 0.5)] > lineCrowd) {
    const auto rough = [](double place) { return std::round(place / grain) * grain; };
    from = {rough(from.x), rough(from.y)};
    to = {rough(to.x), rough(to.y)};
    const auto [found, fresh] = alike_.try_emplace({from.x, from.y, to.x, to.y}, pieces_.size());
    if (!fresh) {
      pieces_[found->second].weight += weight;
      return;
    }
  }
  const SheetPoint low{std::min(from.x, to.x), std::min(from.y, to.y)};
  const SheetPoint high{std::max(from.x, to.x), std::max(from.y, to.y)};
  anyCell(low, high, [&](long cell) {
    cells_[cell].push_back(pieces_.size());
    return false;
  });
  pieces_.push_back({from, to, weight});
}

double LineIndex::weightIn(const Box& box, double enough) const {
  ++queries_;
  double sum = 0;
  anyCell(box, [&](long cell) {
    const auto found = cells_.find(cell);
    if (found == cells_.end()) return false;
    return std::any_of(found->second.begin(), found->second.end(), [&](std::size_t number) {
      const Piece& piece = pieces_[number];
      const bool fresh = std::exchange(piece.asked, queries_) != queries_;
      if (fresh && crosses(box, piece.from, piece.to)) sum += piece.weight;
      return sum > enough;
    });
  });
  return sum;
}

void BoxIndex::add(Box box) {
  std::vector<std::size_t>& centered = cells_[cellOf(box.center)].centered;
  if (centered.size() >= boxCrowd && box.along.y == 0) {
    const auto corners = box.corners();
    const auto down = [](double place) { return std::floor(place / grain) * grain; };
    const auto up = [](double place) { return std::ceil(place / grain) * grain; };
    box = moistair::boxOf({down(corners[0].x), down(corners[0].y)}, {up(corners[2].x), up(corners[2].y)});
  }
  const auto same = [&](std::size_t other) { return boxes_[other] == box; };
  if (std::any_of(centered.begin(), centered.end(), same)) return;
  centered.push_back(boxes_.size());
  visitCells(box, [&](long cell) { cells_[cell].touching.push_back(boxes_.size()); });
  boxes_.push_back(box);
}

bool BoxIndex::any(const Box& box, const std::optional<SheetPoint>& but) const {
  return anyCell(box, [&](long cell) {
    const auto found = cells_.find(cell);
    if (found == cells_.end()) return false;
    const auto& boxes = found->second.touching;
    return std::any_of(boxes.begin(), boxes.end(), [&](std::size_t other) {
      return overlap(box, boxes_[other]) && !(but && distance(*but, boxes_[other].center) < 1e-6);
    });
  });
}

void LabelBoard::add(LineIndex& index, const std::vector<SheetPoint>& line, double weight) {
  for (std::size_t i = 1; i < line.size(); ++i) index.add(line[i - 1], line[i], weight);
}

bool LabelBoard::isFree(const Box& box) const {
  for (const SheetPoint corner : box.corners()) {
    const SheetPoint off = corner - page_.center;
    if (std::abs(off.x) > page_.halfLength || std::abs(off.y) > page_.halfHeight) return false;
  }
  return !fixed_.any(box) && !walls_.any(box) && !clear_.any(box);
}

/// What a label would take at a place; nothing where something fixed is in its way.
std::optional<LabelBoard::Candidate> LabelBoard::candidate(const SheetCanvas& canvas, const Label& label,
                                                           const LabelPlace& place) const {
  constexpr double enough = 100;  // what covers as much is nobody's choice
  constexpr double crossing = 6;  // of a leader over a line of the engineer's
  Candidate candidate{&place, place.cost};
  const Box box = moistair::boxOf(canvas, place);
  if (!isFree(grown(box, gap_))) return std::nullopt;
  candidate.boxes[candidate.count++] = grown(box, gap_ / 2);
  if (place.tag) {
    const Box tag = boxOf(canvas, *place.tag);
    if (!isFree(grown(tag, gap_))) return std::nullopt;
    candidate.boxes[candidate.count++] = grown(tag, gap_ / 2);
  }
  if (!place.leader.empty()) {
    const SheetPoint from = place.leader.front();
    const SheetPoint to = place.leader.back();
    const Box leader{(from + to) * 0.5, unit(to - from), distance(from, to) / 2, hairline};
    if (walls_.any(leader) || fixed_.any(leader, label.mark)) return std::nullopt;
    if (fixed_.any(grown(box, 4 * gap_), label.mark)) return std::nullopt;  // it would seem to name another mark
    candidate.boxes[candidate.count++] = grown(leader, gap_ / 2);
    candidate.cost += crossing * clear_.weightIn(leader, enough);
  }
  candidate.cost += lines_.weightIn(grown(box, gap_ / 2), enough);
  return candidate;
}

std::size_t LabelBoard::place(SheetCanvas& canvas, Color paper) {
  std::stable_sort(labels_.begin(), labels_.end(), [](const Label& a, const Label& b) { return a.part < b.part; });
  std::vector<std::vector<Candidate>> candidates(labels_.size());
  std::vector<double> importances;
  for (std::size_t i = 0; i < labels_.size(); ++i) {
    importances.push_back(labels_[i].importance);
    for (const LabelPlace& place : labels_[i].places) {
      if (const auto free = candidate(canvas, labels_[i], place)) candidates[i].push_back(*free);
    }
    std::stable_sort(candidates[i].begin(), candidates[i].end(),
                     [](const Candidate& a, const Candidate& b) { return a.cost < b.cost; });
  }
  const std::vector<std::size_t> chosen = Chooser(candidates, importances).choose();
  std::vector<std::pair<const Label*, const LabelPlace*>> shown;
  for (std::size_t i = 0; i < labels_.size(); ++i) {
    if (chosen[i] != Chooser::none) shown.emplace_back(&labels_[i], candidates[i][chosen[i]].place);
  }
  for (const auto& [label, place] : shown) drawGround(canvas, *label, *place, paper);
  canvas.begin(SheetPart::leaders);
  for (const auto& [label, place] : shown) {
    if (!place->leader.empty()) canvas.polyline(place->leader, hairline, place->text.style.color);
  }
  for (const auto& [label, place] : shown) drawTexts(canvas, *label, *place);
  return labels_.size() - shown.size();
}

}  // namespace moistair
