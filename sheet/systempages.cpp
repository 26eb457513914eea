#include "sheet/systempages.h"

#include <algorithm>
#include <memory>
#include <numeric>
#include <utility>

#include "process/systemdiagram.h"
#include "process/systemtables.h"
#include "sheet/sheetwork.h"
#include "sheet/steps.h"
#include "sheet/systemtheme.h"
#include "text/numberformat.h"

namespace moistair {

namespace {

constexpr double rowHeight = 1.6;  // em
constexpr double titleHeight = 2.2;
constexpr double headHeight = 2.7;
constexpr double blockGap = 1.6;
constexpr double noteHeight = 1.5;
constexpr double leastDiagram = 0.62;  // of the letters: smaller ones cannot be read

std::string textOf(const SystemCell& cell, const SystemColumn& column) {
  if (!cell.text.empty() || column.decimals < 0) return cell.text;
  return hasValue(cell.value) ? typeset(cell.value, column.decimals) : "–";
}

/// A table with its letters and the widths of its columns.
class TableView {
public:
  TableView(SystemTable table, const SheetCanvas& canvas, const SheetOptions& options, double width)
      : table_(std::move(table)),
        theme_(themeOf(options.colors)),
        page_(options.letterSize),
        em_(page_),
        width_(width) {
    measure(canvas);
    const double sum = std::accumulate(widths_.begin(), widths_.end(), 0.0);
    if (sum > width) {
      em_ *= width / sum;
      measure(canvas);
    }
    const double rest = width - std::accumulate(widths_.begin(), widths_.end(), 0.0);
    for (double& column : widths_) column += std::max(0.0, rest) / static_cast<double>(widths_.size());
  }

  std::size_t rows() const { return table_.rows.size(); }
  double height(std::size_t rows) const {
    return page_ * (titleHeight + headHeight + rowHeight * static_cast<double>(rows));
  }

  void draw(SheetCanvas& canvas, SheetPoint corner, std::size_t first, std::size_t count) const {
    canvas.begin(SheetPart::table);
    const std::string title = std::string(table_.title) + (first > 0 ? ", continued" : "");
    canvas.text({corner.x, corner.y + 1.3 * page_}, title, theme_.bold(1.1 * page_));
    const double top = corner.y + titleHeight * page_;
    const double right = corner.x + width_;
    const double below = top + headHeight * page_;
    canvas.area({{corner.x, top}, {right, top}, {right, below}, {corner.x, below}}, theme_.shade);
    double x = corner.x;
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      const SystemColumn& column = table_.columns[i];
      text(canvas, x, top + 1.2 * page_, i, column.head, theme_.bold(0.85 * em_));
      text(canvas, x, top + 2.3 * page_, i, column.unit, theme_.small(0.8 * em_));
      for (std::size_t row = 0; row < count; ++row) {
        const double y = below + page_ * (rowHeight * static_cast<double>(row) + 1.15);
        text(canvas, x, y, i, textOf(table_.rows[first + row][i], column), styleOf(i));
      }
      x += widths_[i];
    }
    const auto rule = [&](double y, const Stroke& stroke) {
      canvas.polyline({{corner.x, y}, {right, y}}, stroke.width, stroke.color);
    };
    for (std::size_t row = 1; row < count; ++row) {
      rule(below + page_ * rowHeight * static_cast<double>(row), theme_.grid);
    }
    for (const double y : {top, below, corner.y + height(count)}) rule(y, theme_.scale);
  }

private:
  TextStyle styleOf(std::size_t column) const { return column == 0 ? theme_.bold(em_) : theme_.text(em_); }

  /// Texts begin at the left of their column, numbers end at the right.
  void text(SheetCanvas& canvas, double left, double y, std::size_t column, const std::string& words,
            const TextStyle& style) const {
    const bool number = table_.columns[column].decimals >= 0;
    const auto [text, shown] = shrunk(canvas, words, style, widths_[column] - 0.6 * em_, 0.7 * style.size);
    canvas.text({number ? left + widths_[column] - 0.4 * em_ : left + 0.4 * em_, y}, text, shown,
                number ? Anchor::end : Anchor::start);
  }

  void measure(const SheetCanvas& canvas) {
    constexpr double mostName = 16;
    widths_.assign(table_.columns.size(), 0);
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      const SystemColumn& column = table_.columns[i];
      double& width = widths_[i];
      width = std::max(canvas.widthOf(column.head, theme_.bold(0.85 * em_)),
                       canvas.widthOf(column.unit, theme_.small(0.8 * em_)));
      for (const auto& row : table_.rows) width = std::max(width, measured(canvas, textOf(row[i], column), styleOf(i)));
      width = std::min(width, mostName * em_) + 1.2 * em_;
    }
  }

  SystemTable table_;
  const Theme& theme_;
  double page_;  ///< letters of the sheet [pixels]
  double em_;    ///< those of the table, smaller if it has no room otherwise
  double width_;
  std::vector<double> widths_;
};

/// Puts parts below each other, and on to the next page.
class PageFiller {
public:
  PageFiller(const SheetOptions& options, const SheetCanvas& canvas, const Box& area)
      : options_(options), canvas_(canvas), area_(area), y_(top()) {}

  void add(SystemTable table) {
    const auto view = std::make_shared<TableView>(std::move(table), canvas_, options_, 2 * area_.halfLength);
    for (std::size_t first = 0; first < view->rows();) {
      std::size_t count = view->rows() - first;
      while (count > 1 && view->height(count) > left()) --count;
      const bool tooFew = count < std::min<std::size_t>(3, view->rows() - first);
      if ((tooFew || view->height(count) > left()) && y_ > top()) {
        nextPage();
        continue;
      }
      put(view->height(count),
          [view, first, count](SheetCanvas& canvas, SheetPoint corner) { view->draw(canvas, corner, first, count); });
      first += count;
    }
  }

  void add(const std::string& note) {
    const double em = options_.letterSize;
    const TextStyle style = themeOf(options_.colors).small(0.9 * em);
    const double width = 2 * area_.halfLength;
    if (noteHeight * em > left()) nextPage();
    y_ -= 0.8 * em;  // notes are close to what they are on
    put((noteHeight - 0.2) * em, [note, style, width, em](SheetCanvas& canvas, SheetPoint corner) {
      canvas.begin(SheetPart::table);
      const auto [text, shown] = shrunk(canvas, note, style, width, 0.5 * style.size);
      canvas.text({corner.x, corner.y + 1.1 * em}, text, shown);
    });
  }

  void add(const SystemDiagram& diagram) {
    if (diagram.blocks.empty()) return;
    const double em = options_.letterSize;
    const double scale = std::min(em, 2 * area_.halfLength / diagram.width);
    const bool fits = scale >= leastDiagram * em && titleHeight * em + diagram.height * scale <= left();
    if (!fits && y_ > top()) nextPage();
    const SheetPoint low = area_.corners()[2];
    put(left(), [diagram, options = options_, low](SheetCanvas& canvas, SheetPoint corner) {
      const Theme& theme = themeOf(options.colors);
      canvas.begin(SheetPart::table);
      canvas.text({corner.x, corner.y + 1.3 * options.letterSize}, "Air handler", theme.bold(1.1 * options.letterSize));
      drawDiagram(canvas, diagram, options, boxOf({corner.x, corner.y + titleHeight * options.letterSize}, low));
    });
  }

  std::vector<PageDrawer> take() { return std::move(pages_); }

private:
  double top() const { return area_.corners()[0].y; }
  double left() const { return area_.corners()[2].y - y_; }
  void nextPage() {
    y_ = top();
    fresh_ = true;
  }

  void put(double height, std::function<void(SheetCanvas&, SheetPoint)> draw) {
    if (std::exchange(fresh_, false)) pages_.emplace_back([](SheetCanvas&) {});
    const SheetPoint corner{area_.corners()[0].x, y_};
    pages_.back() = [before = std::move(pages_.back()), draw = std::move(draw), corner](SheetCanvas& canvas) {
      before(canvas);
      draw(canvas, corner);
    };
    y_ += height + blockGap * options_.letterSize;
  }

  const SheetOptions& options_;
  const SheetCanvas& canvas_;
  Box area_;
  double y_;
  bool fresh_ = true;
  std::vector<PageDrawer> pages_;
};

/// What kind a block is, by the color of its process.
Stroke outlineOf(StepKind kind, const SheetOptions& options) {
  Stroke stroke = themeOf(options.colors).frame;
  if (isProcess(kind)) stroke.color = strokeOf(lookOf(kind), options.colors).color;
  return stroke;
}

}  // namespace

double drawDiagram(SheetCanvas& canvas, const SystemDiagram& diagram, const SheetOptions& options, const Box& area) {
  const Theme& theme = themeOf(options.colors);
  const double scale = std::min({options.letterSize, 2 * area.halfLength / std::max(1.0, diagram.width),
                                 2 * area.halfHeight / std::max(1.0, diagram.height)});
  const SheetPoint corner = area.corners()[0];
  const auto at = [&](double x, double y) { return corner + SheetPoint{x, y} * scale; };
  for (const DiagramDuct& duct : diagram.ducts) {
    std::vector<SheetPoint> line;
    for (const DiagramPoint& point : duct.points) line.push_back(at(point.x, point.y));
    const SheetPoint along = unit(line.back() - line[line.size() - 2]) * scale;
    const SheetPoint across{-along.y, along.x};
    canvas.area({line.back(), line.back() - along * 0.7 + across * 0.3, line.back() - along * 0.7 - across * 0.3},
                theme.ink);
    canvas.polyline(std::move(line), 0.12 * scale, theme.ink);
  }
  for (const DiagramBlock& block : diagram.blocks) {
    const SheetPoint low = at(block.left, block.top), high = at(block.left + block.width, block.top + block.height);
    const std::vector<SheetPoint> rim{low, {high.x, low.y}, high, {low.x, high.y}, low};
    const Stroke stroke = outlineOf(block.kind, options);
    canvas.area(rim, theme.shade);
    canvas.polyline(rim, 0.15 * scale, stroke.color);
    const double room = (block.width - 0.8) * scale;
    const auto put = [&](double y, const std::string& words, const TextStyle& style) {
      const auto [text, shown] = shrunk(canvas, words, style, room, 0.7 * style.size);
      canvas.text(at(block.left + block.width / 2, block.top + y), text, shown, Anchor::middle);
    };
    put(1.4, block.name, theme.bold(scale));
    for (std::size_t i = 0; i < block.lines.size(); ++i) {
      put(2.65 + 1.25 * static_cast<double>(i), block.lines[i], i == 0 ? theme.small(0.9 * scale) : theme.text(scale));
    }
  }
  for (const DiagramJoint& joint : diagram.joints) {
    const auto lines = static_cast<double>(joint.lines.size());
    for (std::size_t i = 0; i < joint.lines.size(); ++i) {
      const double row = static_cast<double>(i);
      const double y = joint.below ? 1.15 + 1.1 * row : 1.1 * (row - lines + 1) - 0.4;
      const auto [text, shown] = shrunk(canvas, joint.lines[i], theme.text(0.9 * scale), 7 * scale, 0.63 * scale);
      canvas.text(at(joint.at.x, joint.at.y + y), text, shown);
    }
  }
  return diagram.height * scale;
}

std::vector<PageDrawer> systemPages(const SolvedSystem& system, const SheetOptions& options, const SheetCanvas& canvas,
                                    const Box& area) {
  PageFiller pages(options, canvas, area);
  if (system.system.steps.empty()) return {};
  pages.add(equipmentTable(system));
  for (const std::string& note : factorNotes(system.site)) pages.add(note);
  pages.add(stateTable(system));
  pages.add(diagramOf(system));
  return pages.take();
}

}  // namespace moistair
