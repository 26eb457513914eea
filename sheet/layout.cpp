#include "sheet/layout.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "engine/saturation.h"
#include "sheet/curves.h"
#include "sheet/parts.h"
#include "sheet/systempages.h"
#include "text/numbertext.h"

namespace moistair {

namespace {

constexpr double blockGap = 1;           // em: between the parts of a page
constexpr double mostTable = 0.3;        // of the page under the chart; what is more goes on to the next
constexpr double leastChartHeight = 36;  // em
constexpr double leastProtractor = 22;   // em
constexpr double mostProtractor = 28;
constexpr double cornerGap = 2.9;  // em: the numbers of the enthalpy scale

/// A font gives the same width for the same text every time, and is slow.
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

/// A page's parts from the bottom upward.
struct PageParts {
  Box inner;       ///< within the margin
  Box titleBlock;  ///< without height if there is none
  Box above;       ///< all that is left above it

  explicit PageParts(const SheetOptions& options) {
    const double margin = std::min({options.margin, options.page.width / 10, options.page.height / 10});
    const SheetPoint low{margin, margin};
    const SheetPoint high{options.page.width - margin, options.page.height - margin};
    const double block = titleBlockHeight(options);
    inner = boxOf(low, high);
    titleBlock = boxOf({low.x, high.y - block}, high);
    const double gap = block > 0 ? blockGap * options.letterSize : 0;
    above = boxOf(low, {high.x, std::max(low.y, high.y - block - gap)});
  }
};

std::size_t rowsThatFit(const SheetOptions& options, double height) {
  std::size_t rows = 0;
  while (rows < 1000 && tableHeight(options, rows + 1) <= height) ++rows;
  return rows;
}

/// The limits, but no higher than saturation and the states reach, so that a cold chart fills its page.
ChartLimits reached(const SheetContent& content) {
  constexpr double step = 0.0005;
  ChartLimits limits = content.limits;
  double highest = saturationRatio(limits.highDb, content.pressure.atm);
  for (const SheetState& state : content.states) {
    if (limits.contain(state.db(), state.w())) highest = std::max(highest, state.w());
  }
  const double end = std::ceil(highest / step) * step;
  if (end < limits.highHr && end > limits.lowHr) limits.highHr = end;
  return limits;
}

/// The plot within its part of a page: what the scales leave of it.
SheetPlot plotWithin(const Box& area, const SheetWork& work) {
  const double em = work.em();
  const auto corners = area.corners();
  SheetPlot plot;
  plot.limits = reached(work.content);
  plot.atm = work.content.pressure.atm;
  plot.left = corners[0].x + 4.6 * em;
  plot.right = std::max(plot.left + 1, corners[1].x - rightRoom(work.canvas, work.options, plot.limits));
  plot.top = corners[0].y + 3.2 * em;
  plot.bottom = std::max(plot.top + 1, corners[2].y - bottomRoom(em) - weatherRoom(work.content.weather, em));
  return plot;
}

/// The protractor in the corner above saturation, as large as it fits below a place. Whether it does.
bool protractorInCorner(SheetWork& work, const std::vector<SheetPoint>& rule, SheetPoint place) {
  const double em = work.em();
  for (double width = mostProtractor * em; width >= leastProtractor * em; width -= em) {
    const SheetPoint end = place + SheetPoint{width, protractorHeight(width, em)};
    if (end.y > work.plot.bottom || !isClearOf(rule, end, cornerGap * em)) continue;
    drawProtractor(work, place, width);
    return true;
  }
  return false;
}

class SheetMaker {
public:
  SheetMaker(const SheetContent& content, const SheetOptions& options, ExtentFunction extent)
      : content_(content), options_(options), parts_(options), canvas_(std::move(extent)) {}

  SheetDrawing make() {
    drawing_.width = options_.page.width;
    drawing_.height = options_.page.height;
    drawing_.paper = themeOf(options_.colors).paper;
    spread();
    drawChart();
    while (next_ < last_) drawTablePage();
    for (const PageDrawer& draw : systemPages_) {
      draw(canvas_);
      endPage();
    }
    return std::move(drawing_);
  }

private:
  /// How many pages there are, and how many rows of the table are under the chart.
  void spread() {
    next_ = options_.table ? 0 : content_.states.size();
    last_ = content_.states.size() + (options_.notes ? content_.notes.size() : 0);
    const std::size_t rows = last_ - next_;
    const double page = 2 * parts_.above.halfHeight;
    const double leastChart = leastChartHeight * options_.letterSize;
    underChart_ = std::min(rows, rowsThatFit(options_, std::min(mostTable * page, page - leastChart)));
    const std::size_t further = std::max<std::size_t>(1, rowsThatFit(options_, page));
    pages_ = 1 + (rows - underChart_ + further - 1) / further;
    perPage_ = further;
    if (content_.system && options_.table) {
      systemPages_ = systemPages(*content_.system, options_, canvas_, parts_.above);
    }
    pages_ += systemPages_.size();
  }

  void drawChart() {
    const double em = options_.letterSize;
    const auto corners = parts_.above.corners();
    const double table = underChart_ > 0 ? tableHeight(options_, underChart_) + blockGap * em : 0;
    const Box area = boxOf(corners[0], {corners[2].x, corners[2].y - table});
    LabelBoard board(parts_.inner, 0.12 * em);
    SheetWork work{content_, options_, themeOf(options_.colors), canvas_, board, {}, {}};
    work.plot = plotWithin(area, work);
    work.boundary = boundaryOf(work.plot);
    const SheetPoint corner = corners[0];
    if (work.boundary.empty) {
      fixedText(work, centered(canvas_, area.center, "There is no air within these limits.", work.theme.text(em)));
      if (corner.y + headingHeight(work) < area.center.y - em) drawHeading(work, corner);  // the title block has it too
    } else {
      const bool protractor = makeRoomForHeading(work, corner);
      drawZoneAreas(work);
      drawWeather(work, area.corners()[2].y);
      drawZoneEdges(work);
      drawGrid(work);
      drawFamilies(work);
      const std::vector<SheetPoint> rule = enthalpyRule(work);
      drawEnthalpyScale(work, rule);
      drawFrame(work);
      drawBottomScale(work);
      drawEnthalpySecondHalf(work, rule, drawRightScales(work));
      if (protractor && options_.reference) drawReference(work);
      drawContent(work);
    }
    fixTable(board, corners[2].y - table, corners[2].y);
    board.place(canvas_, work.theme.paper);
    drawing_.plot = work.plot;
    if (underChart_ > 0) drawRows(corners[2].y - tableHeight(options_, underChart_), underChart_);
    endPage();
  }

  /// Heading and protractor are in the corner above saturation; what is too large for it goes above the chart. Whether
  /// there is a protractor.
  bool makeRoomForHeading(SheetWork& work, SheetPoint corner) {
    const double em = work.em();
    const double heading = headingHeight(work);
    const SheetPoint below = corner + SheetPoint{0, heading + 1.2 * em};
    drawHeading(work, corner);
    const SheetPoint headingend = corner + SheetPoint{headingWidth(work), heading};
    if (!isClearOf(enthalpyRule(work), headingend, cornerGap * em)) lower(work, heading + blockGap * em);
    if (!options_.protractor) return false;
    if (protractorInCorner(work, enthalpyRule(work), below)) return true;
    const double width = leastProtractor * em;
    const double height = protractorHeight(width, em);
    const SheetPoint place{parts_.inner.corners()[1].x - width, corner.y};
    const bool roomy = work.plot.bottom - corner.y > 3 * height && place.x > headingend.x + em;
    if (!roomy) return false;
    lower(work, std::max(0.0, corner.y + height + 3.2 * em - work.plot.top));
    drawProtractor(work, place, width);
    return true;
  }

  /// Makes the plot less high at its top.
  static void lower(SheetWork& work, double height) {
    work.plot.top = std::min(work.plot.bottom - 1, work.plot.top + height);
    work.boundary = boundaryOf(work.plot);
  }

  void fixTable(LabelBoard& board, double top, double bottom) const {
    const auto corners = parts_.inner.corners();
    if (bottom > top) board.fix(boxOf({corners[0].x, top}, {corners[1].x, bottom}));
    if (titleBlockHeight(options_) > 0) board.fix(parts_.titleBlock);
  }

  void drawTablePage() {
    drawRows(parts_.above.corners()[0].y, std::min(perPage_, last_ - next_));
    endPage();
  }

  void drawRows(double top, std::size_t rows) {
    const auto corners = parts_.above.corners();
    if (!table_) table_ = tableDrawer(canvas_, content_, options_, corners[2].x - corners[0].x);
    table_(boxOf({corners[0].x, top}, corners[2]), next_, rows);
    next_ += rows;
  }

  void endPage() {
    const std::size_t number = drawing_.pages.size() + 1;
    const std::string page = std::to_string(number) + " of " + std::to_string(pages_);
    if (options_.titleBlock) drawTitleBlock(canvas_, content_, options_, parts_.titleBlock, page);
    drawing_.pages.push_back(canvas_.takePage());
  }

  const SheetContent& content_;
  const SheetOptions& options_;
  PageParts parts_;
  SheetCanvas canvas_;
  SheetDrawing drawing_;
  TableDrawer table_;
  std::vector<PageDrawer> systemPages_;
  std::size_t next_ = 0, last_ = 0;  ///< rows of the table: the states, then the notes
  std::size_t underChart_ = 0, perPage_ = 1, pages_ = 1;
};

}  // namespace

SheetDrawing layoutSheet(const SheetContent& content, const SheetOptions& options, const ExtentFunction& extent) {
  if (options.limits) {
    SheetContent limited = content;
    limited.limits = *options.limits;
    SheetOptions rest = options;
    rest.limits.reset();
    return layoutSheet(limited, rest, extent);
  }
  SheetOptions complete = options;
  if (!(complete.letterSize > 0)) complete.letterSize = lettersFor(complete.page);
  complete.letterSize = std::min(complete.letterSize, mostLettersFor(complete.page));
  return SheetMaker(content, complete, remembered(extent)).make();
}

}  // namespace moistair
