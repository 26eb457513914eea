#include "sheet/layout.h"

#include <algorithm>
#include <map>
#include <utility>

#include "sheet/curves.h"
#include "sheet/parts.h"
#include "text/numbertext.h"

namespace moistair {

namespace {

constexpr double blockgap = 1;           // em: between the parts of a page
constexpr double mosttable = 0.3;        // of the page under the chart; what is more goes on to the next
constexpr double leastchartheight = 36;  // em
constexpr double leastprotractor = 13;   // em
constexpr double mostprotractor = 25;
constexpr double wordsbeside = 3;  // em: what the words under the smallest are wider than it
constexpr double cornergap = 2.9;  // em: the numbers of the enthalpy scale

/// A font tells the same width for the same text again and again, and takes its time.
ExtentFunction remembered(const ExtentFunction& extent) {
  using Key = std::pair<std::string, bool>;
  constexpr double measured = 100;  // pixels: letters grow in proportion
  return [extent, known = std::map<Key, TextExtent>()](const std::string& text, double size, bool bold) mutable {
    const auto [found, fresh] = known.try_emplace({text, bold});
    if (fresh) found->second = extent(text, measured, bold);
    const TextExtent& at = found->second;
    const double scale = size / measured;
    return TextExtent{at.width * scale, at.ascent * scale, at.descent * scale};
  };
}

/// A page's parts from the bottom upwards.
struct PageParts {
  Box inner;       ///< within the margin
  Box titleblock;  ///< without height if there is none
  Box above;       ///< all that is left above it

  explicit PageParts(const SheetOptions& options) {
    const double margin = std::min({options.margin, options.page.width / 10, options.page.height / 10});
    const SheetPoint low{margin, margin};
    const SheetPoint high{options.page.width - margin, options.page.height - margin};
    const double block = titleblockheight(options);
    inner = boxof(low, high);
    titleblock = boxof({low.x, high.y - block}, high);
    const double gap = block > 0 ? blockgap * options.lettersize : 0;
    above = boxof(low, {high.x, std::max(low.y, high.y - block - gap)});
  }
};

std::size_t rowsthatfit(const SheetOptions& options, double height) {
  std::size_t rows = 0;
  while (rows < 1000 && tableheight(options, rows + 1) <= height) ++rows;
  return rows;
}

/// The plot within its part of a page: what the scales leave of it.
SheetPlot plotwithin(const Box& area, const SheetWork& work) {
  const double em = work.em();
  const auto corners = area.corners();
  SheetPlot plot;
  plot.limits = work.content.limits;
  plot.atm = work.content.pressure.atm;
  plot.left = corners[0].x + 4.6 * em;
  plot.right = std::max(plot.left + 1, corners[1].x - rightroom(work.canvas, work.options, plot.limits));
  plot.top = corners[0].y + 3.2 * em;
  plot.bottom = std::max(plot.top + 1, corners[2].y - bottomroom(em));
  return plot;
}

/// Whether all above and left of a corner is clear of a line by a gap.
bool clearof(const std::vector<SheetPoint>& rule, SheetPoint corner, double gap) {
  for (std::size_t i = 1; i < rule.size(); ++i) {
    if (crosses(boxof({-1e5, -1e5}, corner + SheetPoint{gap, gap}), rule[i - 1], rule[i])) return false;
  }
  return true;
}

/// The protractor in the corner above saturation, as large as it fits below a place. Whether it does.
bool protractorincorner(SheetWork& work, const std::vector<SheetPoint>& rule, SheetPoint place) {
  const double em = work.em();
  for (double width = mostprotractor * em; width >= leastprotractor * em; width -= em) {
    const double aside = std::max(0.0, (leastprotractor + 2 * wordsbeside) * em - width) / 2;
    const SheetPoint end = place + SheetPoint{width + 2 * aside, protractorheight(width, em)};
    if (end.y > work.plot.bottom || !clearof(rule, end, cornergap * em)) continue;
    drawprotractor(work, place + SheetPoint{aside, 0}, width);
    return true;
  }
  return false;
}

class SheetMaker {
public:
  SheetMaker(const SheetContent& content, const SheetOptions& options, const ExtentFunction& extent)
      : content_(content), options_(options), parts_(options), canvas_(extent) {}

  SheetDrawing make() {
    drawing_.width = options_.page.width;
    drawing_.height = options_.page.height;
    drawing_.paper = themeof(options_.colors).paper;
    spread();
    drawchart();
    while (next_ < last_) drawtablepage();
    return std::move(drawing_);
  }

private:
  /// How many pages there are, and how many rows of the table are under the chart.
  void spread() {
    next_ = options_.table ? 0 : content_.states.size();
    last_ = content_.states.size() + (options_.notes ? content_.notes.size() : 0);
    const std::size_t rows = last_ - next_;
    const double page = 2 * parts_.above.halfheight;
    const double leastchart = leastchartheight * options_.lettersize;
    underchart_ = std::min(rows, rowsthatfit(options_, std::min(mosttable * page, page - leastchart)));
    const std::size_t further = std::max<std::size_t>(1, rowsthatfit(options_, page));
    pages_ = 1 + (rows - underchart_ + further - 1) / further;
    perpage_ = further;
  }

  void drawchart() {
    const double em = options_.lettersize;
    const auto corners = parts_.above.corners();
    const double table = underchart_ > 0 ? tableheight(options_, underchart_) + blockgap * em : 0;
    const Box area = boxof(corners[0], {corners[2].x, corners[2].y - table});
    LabelBoard board(parts_.inner, 0.12 * em);
    SheetWork work{content_, options_, themeof(options_.colors), canvas_, board, {}, {}};
    work.plot = plotwithin(area, work);
    work.boundary = boundaryof(work.plot);
    const SheetPoint corner = corners[0];
    if (work.boundary.empty) {
      drawheading(work, corner);
      fixedtext(work, centred(canvas_, area.centre, "There is no air within these limits.", work.theme.text(em)));
    } else {
      makeroomforheading(work, corner);
      drawgrid(work);
      drawfamilies(work);
      drawenthalpyscale(work, enthalpyrule(work));
      drawframe(work);
      drawbottomscale(work);
      drawrightscales(work);
      if (options_.protractor) drawreference(work);
      drawcontent(work);
    }
    fixtable(board, corners[2].y - table, corners[2].y);
    board.place(canvas_, work.theme.paper);
    drawing_.plot = work.plot;
    if (underchart_ > 0) drawrows(corners[2].y - tableheight(options_, underchart_), underchart_);
    endpage();
  }

  /// Heading and protractor stand in the corner above saturation; what is too large for it stands above the chart.
  void makeroomforheading(SheetWork& work, SheetPoint corner) {
    const double em = work.em();
    const double heading = headingheight(work);
    const SheetPoint below = corner + SheetPoint{0, heading + 1.2 * em};
    drawheading(work, corner);
    const SheetPoint headingend = corner + SheetPoint{headingwidth(work), heading};
    if (!clearof(enthalpyrule(work), headingend, cornergap * em)) lower(work, heading + blockgap * em);
    if (!options_.protractor || protractorincorner(work, enthalpyrule(work), below)) return;
    const double width = leastprotractor * em;
    const double height = protractorheight(width, em);
    const SheetPoint place{parts_.inner.corners()[1].x - width - wordsbeside * em, corner.y};
    const bool roomy = work.plot.bottom - corner.y > 3 * height && place.x > headingend.x + wordsbeside * em;
    if (!roomy) return;
    lower(work, std::max(0.0, corner.y + height + 3.2 * em - work.plot.top));
    drawprotractor(work, place, width);
  }

  /// Makes the plot less high at its top.
  static void lower(SheetWork& work, double height) {
    work.plot.top = std::min(work.plot.bottom - 1, work.plot.top + height);
    work.boundary = boundaryof(work.plot);
  }

  void fixtable(LabelBoard& board, double top, double bottom) const {
    const auto corners = parts_.inner.corners();
    if (bottom > top) board.fix(boxof({corners[0].x, top}, {corners[1].x, bottom}));
    if (titleblockheight(options_) > 0) board.fix(parts_.titleblock);
  }

  void drawtablepage() {
    drawrows(parts_.above.corners()[0].y, std::min(perpage_, last_ - next_));
    endpage();
  }

  void drawrows(double top, std::size_t rows) {
    const auto corners = parts_.above.corners();
    if (!table_) table_ = tabledrawer(canvas_, content_, options_, corners[2].x - corners[0].x);
    table_(boxof({corners[0].x, top}, corners[2]), next_, rows);
    next_ += rows;
  }

  void endpage() {
    const std::size_t number = drawing_.pages.size() + 1;
    const std::string page = std::to_string(number) + " of " + std::to_string(pages_);
    if (options_.titleblock) drawtitleblock(canvas_, content_, options_, parts_.titleblock, page);
    drawing_.pages.push_back(canvas_.takepage());
  }

  const SheetContent& content_;
  const SheetOptions& options_;
  PageParts parts_;
  SheetCanvas canvas_;
  SheetDrawing drawing_;
  TableDrawer table_;
  std::size_t next_ = 0, last_ = 0;  ///< rows of the table: the states, then the notes
  std::size_t underchart_ = 0, perpage_ = 1, pages_ = 1;
};

}  // namespace

SheetDrawing layoutsheet(const SheetContent& content, const SheetOptions& options, const ExtentFunction& extent) {
  const ExtentFunction known = remembered(extent);
  SheetOptions complete = options;
  if (!(complete.lettersize > 0)) complete.lettersize = lettersfor(complete.page);
  complete.lettersize = std::min(complete.lettersize, mostlettersfor(complete.page));
  return SheetMaker(content, complete, known).make();
}

}  // namespace moistair
