/// \file
/// Texts that look for their place.
///
/// What has a fixed place on a sheet is put down first: texts as boxes, the frame and the scales as walls that no
/// label crosses, marks as boxes, what the engineer has drawn as lines that no label covers, other lines as what had
/// better not be covered. Every label then offers places with what each costs. `place` chooses so that no two texts
/// overlap and no line from a label to what it names meets a label, a mark or another such line: the more important
/// labels first, at their cheapest places; then a label that found none may send others to other places of theirs, or
/// away if they are less important; then each moves to where it is cheaper, as long as anything changes. What has no
/// place at all in the end is left out.
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
  double cost = 0;                                       ///< what speaks against it; what it covers is added
  std::vector<SheetPoint> leader = {};                   ///< line from what the label names, if it needs one
  std::vector<SheetTextOperation> more = {};             ///< further texts, all of them within `frame`
  std::optional<Box> frame = std::nullopt;               ///< drawn around the texts of a label that has several
  std::optional<SheetTextOperation> tag = std::nullopt;  ///< at what is named, for a label too far away for a leader
};

/// What the texts of a label take at a place, but for its tag.
Box boxOf(const SheetCanvas& canvas, const LabelPlace& place);

struct Label {
  double importance = 0;
  std::vector<LabelPlace> places;
  bool clears = false;  ///< the ground behind the text is cleared, so that a line under it has a gap there
  SheetPart part = SheetPart::scales;
  std::optional<SheetPoint> mark = std::nullopt;  ///< middle of the mark that it names, where leaders may begin
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
  /// Whether a box touches any, but for those with their middle in a place.
  bool any(const Box& box, const std::optional<SheetPoint>& but = std::nullopt) const;

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

  void fix(const Box& box) { fixed_.add(box); }                             ///< no label or leader covers this
  void wall(const std::vector<SheetPoint>& line) { add(walls_, line, 1); }  ///< no label or leader crosses this
  /// No label covers this, a process or another line of the engineer's; a leader crosses it where nothing else is left.
  void keepClear(const std::vector<SheetPoint>& line) { add(clear_, line, 1); }
  void line(const std::vector<SheetPoint>& line, double weight) { add(lines_, line, weight); }
  void add(Label label) { labels_.push_back(std::move(label)); }

  /// Whether a text could be there as far as everything fixed is concerned.
  bool isFree(const Box& box) const;

  /// Chooses the places and draws what has one. Returns how many were left out.
  std::size_t place(SheetCanvas& canvas, Color paper);

private:
  struct Candidate;
  class Chooser;

  static void add(LineIndex& index, const std::vector<SheetPoint>& line, double weight);
  std::optional<Candidate> candidate(const SheetCanvas& canvas, const Label& label, const LabelPlace& place) const;

  Box page_;
  double gap_;
  BoxIndex fixed_;
  LineIndex walls_, clear_, lines_;
  std::vector<Label> labels_;
};

}  // namespace moistair
