#include "sheet/labels.h"

#include <algorithm>
#include <numeric>

namespace moistair {

namespace {

constexpr double cellsize = 48;  // pixels
constexpr long rowlength = 1 << 20;

struct Candidate {
  const LabelPlace* place;
  Box box;  ///< with half of the gap around it
  double cost;
};

/// The squares of the page that a box may touch.
template <class Visit>
void visitcells(SheetPoint low, SheetPoint high, const Visit& visit) {
  const auto cell = [](double place) { return static_cast<long>(std::floor(std::clamp(place, -1e5, 1e5) / cellsize)); };
  for (long row = cell(low.y); row <= cell(high.y); ++row) {
    for (long column = cell(low.x); column <= cell(high.x); ++column) visit(row * rowlength + column);
  }
}

template <class Visit>
void visitcells(const Box& box, const Visit& visit) {
  const SheetPoint reach{std::abs(box.along.x) * box.halflength + std::abs(box.along.y) * box.halfheight,
                         std::abs(box.along.y) * box.halflength + std::abs(box.along.x) * box.halfheight};
  visitcells(box.centre - reach, box.centre + reach, visit);
}

/// The labels with the places that are left to them, the cheapest first, and where each stands.
class Chooser {
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
      if (chosen_[label] == none && !candidates_[label].empty() && tries-- > 0) makeroom(label);
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
  const Box& boxof(std::size_t label) const { return candidates_[label][chosen_[label]].box; }

  void put(std::size_t label, std::size_t place) {
    if (chosen_[label] != none) visitcells(boxof(label), [&](long cell) { std::erase(cells_[cell], label); });
    chosen_[label] = place;
    if (place != none) visitcells(boxof(label), [&](long cell) { cells_[cell].push_back(label); });
  }

  /// The labels that stand where a box would be; the first alone if no more than that is asked.
  std::vector<std::size_t> under(const Box& box, std::size_t but, bool all) const {
    std::vector<std::size_t> found;
    visitcells(box, [&](long cell) {
      const auto here = cells_.find(cell);
      if (here == cells_.end() || (!all && !found.empty())) return;
      for (const std::size_t other : here->second) {
        const bool known = std::find(found.begin(), found.end(), other) != found.end();
        if (other != but && !known && overlap(box, boxof(other))) found.push_back(other);
      }
    });
    return found;
  }

  /// Puts a label to its cheapest free place. Whether that is another one.
  bool settle(std::size_t label) {
    for (std::size_t i = 0; i < candidates_[label].size(); ++i) {
      if (i == chosen_[label]) return false;
      if (!under(candidates_[label][i].box, label, false).empty()) continue;
      put(label, i);
      return true;
    }
    return false;
  }

  /// Tries a label's places for one whose occupants can go elsewhere or are worth less than it, all together.
  void makeroom(std::size_t label) {
    for (std::size_t i = 0; i < candidates_[label].size(); ++i) {
      const auto occupants = under(candidates_[label][i].box, label, true);
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

/// What lies under the texts of a label.
void drawground(SheetCanvas& canvas, const Label& label, const LabelPlace& place, Color paper) {
  const auto corners = grown(boxof(canvas, place), 1).corners();
  const std::vector<SheetPoint> outline(corners.begin(), corners.end());
  if (label.clears) canvas.area(outline, paper);
  const Color color = place.text.style.color;
  constexpr double hairline = 0.6;
  if (place.frame) {
    canvas.polyline({corners[0], corners[1], corners[2], corners[3], corners[0]}, hairline, color);
  }
  if (!place.leader.empty()) canvas.polyline(place.leader, hairline, color);
}

void drawtexts(SheetCanvas& canvas, const LabelPlace& place) {
  canvas.text(place.text);
  for (const SheetTextOperation& text : place.more) canvas.text(text);
}

}  // namespace

Box boxof(const SheetCanvas& canvas, const LabelPlace& place) {
  return place.frame ? *place.frame : textbox(place.text, canvas.extent(place.text.text, place.text.style));
}

/// A long piece is cut, or it would be entered in all squares of the rectangle that it is the diagonal of.
void LineIndex::add(SheetPoint from, SheetPoint to, double weight) {
  if (distance(from, to) > 2 * cellsize) {
    const SheetPoint middle = (from + to) * 0.5;
    add(from, middle, weight);
    add(middle, to, weight);
    return;
  }
  const SheetPoint low{std::min(from.x, to.x), std::min(from.y, to.y)};
  const SheetPoint high{std::max(from.x, to.x), std::max(from.y, to.y)};
  visitcells(low, high, [&](long cell) { cells_[cell].push_back(pieces_.size()); });
  pieces_.push_back({from, to, weight});
}

double LineIndex::weightin(const Box& box) const {
  std::vector<std::size_t> passing;
  visitcells(box, [&](long cell) {
    const auto found = cells_.find(cell);
    if (found == cells_.end()) return;
    for (const std::size_t piece : found->second) {
      if (crosses(box, pieces_[piece].from, pieces_[piece].to)) passing.push_back(piece);
    }
  });
  std::sort(passing.begin(), passing.end());
  passing.erase(std::unique(passing.begin(), passing.end()), passing.end());
  double sum = 0;
  for (const std::size_t piece : passing) sum += pieces_[piece].weight;
  return sum;
}

void LabelBoard::add(LineIndex& index, const std::vector<SheetPoint>& line, double weight) {
  for (std::size_t i = 1; i < line.size(); ++i) index.add(line[i - 1], line[i], weight);
}

bool LabelBoard::isfree(const Box& box) const {
  for (const SheetPoint corner : box.corners()) {
    const SheetPoint off = corner - page_.centre;
    if (std::abs(off.x) > page_.halflength || std::abs(off.y) > page_.halfheight) return false;
  }
  return std::none_of(fixed_.begin(), fixed_.end(), [&](const Box& other) { return overlap(box, other); }) &&
         !walls_.any(box);
}

bool LabelBoard::isfree(const LabelPlace& place, const Box& box) const {
  if (!isfree(box)) return false;
  if (place.leader.empty()) return true;
  const SheetPoint from = place.leader.front();
  const SheetPoint to = place.leader.back();
  return !walls_.any({(from + to) * 0.5, unit(to - from), distance(from, to) / 2, 0.5});
}

std::size_t LabelBoard::place(SheetCanvas& canvas, Color paper) {
  std::vector<std::vector<Candidate>> candidates(labels_.size());
  std::vector<double> importances;
  for (std::size_t i = 0; i < labels_.size(); ++i) {
    importances.push_back(labels_[i].importance);
    for (const LabelPlace& place : labels_[i].places) {
      const Box box = boxof(canvas, place);
      if (!isfree(place, grown(box, gap_))) continue;
      candidates[i].push_back({&place, grown(box, gap_ / 2), place.cost + lines_.weightin(box)});
    }
    std::stable_sort(candidates[i].begin(), candidates[i].end(),
                     [](const Candidate& a, const Candidate& b) { return a.cost < b.cost; });
  }
  const std::vector<std::size_t> chosen = Chooser(candidates, importances).choose();
  std::size_t leftout = 0;
  std::vector<const LabelPlace*> places;
  for (std::size_t i = 0; i < labels_.size(); ++i) {
    places.push_back(chosen[i] == Chooser::none ? nullptr : candidates[i][chosen[i]].place);
    if (places[i] != nullptr) drawground(canvas, labels_[i], *places[i], paper);
  }
  for (const LabelPlace* place : places) {
    if (place != nullptr) drawtexts(canvas, *place);
    leftout += place == nullptr ? 1 : 0;
  }
  return leftout;
}

}  // namespace moistair
