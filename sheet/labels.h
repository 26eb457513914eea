/// \file
/// Texts that look for their place.
///
/// What has a fixed place on a sheet is put down first: texts as boxes, the frame and the scales as walls that no
/// label crosses, marks as boxes, lines as what had better not be covered. Every label then offers places with what
/// each costs. `place` chooses so that no two texts overlap: the more important labels first, at their cheapest places;
/// then a label that found none may send others to other places of theirs, or away if they are less important; then
/// each moves to where it is cheaper, as long as anything changes. What has no place at all in the end is left out.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "sheet/geometry.h"
#include "sheet/sheetcanvas.h"

namespace moistair {

/// A place that a label could have.
struct LabelPlace {
  SheetTextOperation text;
  double cost = 0;                            ///< what speaks against it; what it covers is added
  std::vector<SheetPoint> leader = {};        ///< line from what the label names, if it needs one
  std::vector<SheetTextOperation> more = {};  ///< further texts, all of them within `frame`
  std::optional<Box> frame = std::nullopt;    ///< drawn around the texts of a label that has several
};

/// What a label takes at a place.
Box boxOf(const SheetCanvas& canvas, const LabelPlace& place);

struct Label {
  double importance = 0;
  std::vector<LabelPlace> places;
  bool clears = false;  ///< the ground behind the text is cleared, so that a line under it has a gap there
};

/// Pieces of line by the squares of the page that they pass, so that a box finds those near it. Where they are a crowd
/// they count roughly, those that run alike as one, so that a place is judged as fast as on any other page.
class LineIndex {
public:
  void add(SheetPoint from, SheetPoint to, double weight);
  /// The sum of the weights of what passes a box, as soon as it exceeds what is enough.
  double weightIn(const Box& box, double enough) const;
  bool any(const Box& box) const { return weightIn(box, 0) > 0; }

private:
  struct Piece {
    SheetPoint from, to;
    double weight;
    mutable std::size_t asked = 0;  ///< the last query that it was met in: it may pass several squares
  };
  std::vector<Piece> pieces_;
  std::unordered_map<long, std::vector<std::size_t>> cells_;
  std::unordered_map<long, std::size_t> crowds_;        ///< how many pieces have their middle in a square
  std::map<std::array<double, 4>, std::size_t> alike_;  ///< pieces of crowds by their rough ends
  mutable std::size_t queries_ = 0;
};

/// Boxes by the squares of the page that they touch. Those that lie over each other, as marks of equal points do, count
/// once, and a crowd of them only roughly.
class BoxIndex {
public:
  void add(Box box);
  bool any(const Box& box) const;

private:
  struct Cell {
    std::vector<std::size_t> touching;  ///< boxes
    std::vector<std::size_t> centered;
  };
  std::vector<Box> boxes_;
  std::unordered_map<long, Cell> cells_;
};

class LabelBoard {
public:
  /// @param page what texts stay within
  /// @param gap that is kept between texts [pixels]
  LabelBoard(const Box& page, double gap) : page_(page), gap_(gap) {}

  void fix(const Box& box) { fixed_.add(box); }                             ///< no label covers this
  void wall(const std::vector<SheetPoint>& line) { add(walls_, line, 1); }  ///< no label crosses this
  void line(const std::vector<SheetPoint>& line, double weight) { add(lines_, line, weight); }
  void add(Label label) { labels_.push_back(std::move(label)); }

  /// Whether a text could be there as far as everything fixed is concerned.
  bool isFree(const Box& box) const;
  bool isFree(const LabelPlace& place, const Box& box) const;

  /// Chooses the places and draws what has one. Returns how many were left out.
  std::size_t place(SheetCanvas& canvas, Color paper);

private:
  static void add(LineIndex& index, const std::vector<SheetPoint>& line, double weight);

  Box page_;
  double gap_;
  BoxIndex fixed_;
  LineIndex walls_, lines_;
  std::vector<Label> labels_;
};

}  // namespace moistair
