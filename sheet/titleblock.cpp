// The heading and the title block of a sheet.
#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

#include "sheet/parts.h"

namespace moistair {

namespace {

constexpr double headingsize = 1.9;  // em
constexpr double rowheight = 2.6;
constexpr double cellgap = 0.5;
constexpr double captionsize = 0.68;

/// A cell of the title block: a small caption above what it says.
struct BlockCell {
  const char* caption;
  std::string text;
  bool whole = true;  ///< never cut off; what the engineer has typed may be
  bool bold = false;
};

constexpr std::size_t blockcolumns = 4;
using BlockRow = std::array<BlockCell, blockcolumns>;
using BlockWidths = std::array<double, blockcolumns>;

/// The letters of a title block.
struct BlockLook {
  const Theme& theme;
  double em;

  TextStyle caption() const { return theme.small(captionsize * em); }
  TextStyle of(const BlockCell& cell) const { return cell.bold ? theme.bold(em) : theme.text(em); }
  double gap() const { return cellgap * em; }
  /// The widths at which all texts are whole, or those alone that are never cut off.
  BlockWidths widthsof(const SheetCanvas& canvas, const std::array<BlockRow, 2>& rows, bool all) const {
    BlockWidths widths{};
    for (const BlockRow& row : rows) {
      for (std::size_t i = 0; i < blockcolumns; ++i) {
        widths[i] = std::max(widths[i], canvas.widthof(row[i].caption, caption()) + 2 * gap());
        const bool counts = all || row[i].whole;
        if (counts) widths[i] = std::max(widths[i], measured(canvas, row[i].text, of(row[i])) + 2 * gap());
      }
    }
    return widths;
  }
};

double sumof(const BlockWidths& widths) { return std::accumulate(widths.begin(), widths.end(), 0.0); }

/// What the columns need is theirs; of the rest each has a part of what it has less than it had better have.
BlockWidths spread(const BlockWidths& needed, const BlockWidths& wanted, double width) {
  constexpr BlockWidths usual = {0.42, 0.26, 0.18, 0.14};
  BlockWidths missing{};
  for (std::size_t i = 0; i < blockcolumns; ++i) {
    missing[i] = std::max(0.0, std::max(usual[i] * width, std::min(wanted[i], width)) - needed[i]);
  }
  const double rest = std::max(0.0, width - sumof(needed));
  BlockWidths widths = needed;
  for (std::size_t i = 0; i < blockcolumns && sumof(missing) > 0; ++i) widths[i] += rest * missing[i] / sumof(missing);
  return widths;
}

void drawrow(SheetCanvas& canvas, const BlockLook& look, const BlockRow& cells, const BlockWidths& widths,
             const SheetOptions& options, const Box& row) {
  const double em = options.lettersize;
  const double top = row.centre.y - row.halfheight;
  double x = row.centre.x - row.halflength;
  for (std::size_t i = 0; i < blockcolumns; ++i) {
    const double room = widths[i] - 2 * look.gap();
    const SheetPoint corner{x + look.gap(), top};
    canvas.text(corner + SheetPoint{0, (0.25 + captionsize) * em}, cells[i].caption, look.caption());
    const auto [text, style] = shrunk(canvas, cells[i].text, look.of(cells[i]), room);
    canvas.text(corner + SheetPoint{0, (rowheight - 0.6) * em}, text, style);
    x += widths[i];
    if (i + 1 < blockcolumns)
      canvas.polyline({{x, top}, {x, top + 2 * row.halfheight}}, look.theme.scale.width, look.theme.scale.color);
  }
}

std::vector<std::string> headinglines(const SheetContent& content) {
  std::vector<std::string> lines = {"Atmospheric pressure " + pressuretext(content.pressure),
                                    limitstext(content.limits)};
  if (content.omitted == 1) lines.emplace_back("1 entry of the previous chart is not on this one");
  if (content.omitted > 1)
    lines.push_back(std::to_string(content.omitted) + " entries of the previous chart are not on this one");
  return lines;
}

const char* const headingtext = "PSYCHROMETRIC CHART";

}  // namespace

double headingheight(const SheetWork& work) {
  return (headingsize + static_cast<double>(headinglines(work.content).size()) * 1.45) * work.em();
}

double headingwidth(const SheetWork& work) {
  double width = work.canvas.widthof(headingtext, work.theme.bold(headingsize * work.em()));
  for (const std::string& line : headinglines(work.content)) {
    width = std::max(width, work.canvas.widthof(line, work.theme.text(work.em())));
  }
  return width;
}

void drawheading(SheetWork& work, SheetPoint corner) {
  const double em = work.em();
  const double room = work.options.page.width - 2 * corner.x;
  SheetPoint at = corner + SheetPoint{0, 0.8 * headingsize * em};
  const auto line = [&](const std::string& text, const TextStyle& style) {
    const FittedText fit = shrunk(work.canvas, text, style, room, 0.4);
    fixedtext(work, {at, fit.text, fit.style, Anchor::start, 0});
  };
  line(headingtext, work.theme.bold(headingsize * em));
  at.y += 0.2 * em;
  for (const std::string& words : headinglines(work.content)) {
    at.y += 1.45 * em;
    line(words, work.theme.text(em));
  }
}

double titleblockheight(const SheetOptions& options) {
  return options.titleblock ? 2 * rowheight * options.lettersize : 0;
}

void drawtitleblock(SheetCanvas& canvas, const SheetContent& content, const SheetOptions& options, const Box& area,
                    const std::string& page) {
  const Theme& theme = themeof(options.colors);
  const auto corners = area.corners();
  canvas.polyline({corners[0], corners[1], corners[2], corners[3], corners[0]}, theme.frame.width, theme.frame.color);
  const SheetPoint left{corners[0].x, area.centre.y};
  canvas.polyline({left, {corners[1].x, area.centre.y}}, theme.scale.width, theme.scale.color);
  constexpr std::size_t longestdate = 24;  // bytes: any date, but not whatever else has been typed
  const std::array<BlockRow, 2> rows = {{
      {{{"TITLE", options.title, false, true},
        {"PROJECT", options.project, false},
        {"DRAWN BY", options.drawnby, false},
        {"DATE", options.date, options.date.size() <= longestdate}}},
      {{{"ATMOSPHERIC PRESSURE", pressuretext(content.pressure)},
        {"LIMITS", limitstext(content.limits)},
        {"PROGRAM", options.program},
        {"PAGE", page}}},
  }};
  const double width = 2 * area.halflength;
  BlockLook look{theme, options.lettersize};
  const double least = sumof(look.widthsof(canvas, rows, false));
  if (least > width) look.em *= width / least;
  const BlockWidths widths = spread(look.widthsof(canvas, rows, false), look.widthsof(canvas, rows, true), width);
  Box row = area;
  row.halfheight = area.halfheight / 2;
  for (const std::size_t i : {std::size_t{0}, std::size_t{1}}) {
    row.centre.y = area.centre.y + (i == 0 ? -1 : 1) * row.halfheight;
    drawrow(canvas, look, rows[i], widths, options, row);
  }
}

}  // namespace moistair
