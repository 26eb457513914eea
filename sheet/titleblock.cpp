// The heading and the title block of a sheet.
#include <algorithm>
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
  double part;  ///< of the row's width
  bool bold = false;
};

void drawrow(SheetCanvas& canvas, const SheetOptions& options, const std::vector<BlockCell>& cells, const Box& row) {
  const Theme& theme = themeof(options.colors);
  const double em = options.lettersize;
  const double top = row.centre.y - row.halfheight;
  double x = row.centre.x - row.halflength;
  for (const BlockCell& cell : cells) {
    const double width = cell.part * 2 * row.halflength;
    const double room = width - 2 * cellgap * em;
    const TextStyle small = theme.small(captionsize * em);
    const TextStyle style = cell.bold ? theme.bold(em) : theme.text(em);
    const SheetPoint corner{x + cellgap * em, top};
    canvas.text(corner + SheetPoint{0, (0.25 + captionsize) * em}, fitted(canvas, cell.caption, small, room), small);
    canvas.text(corner + SheetPoint{0, (rowheight - 0.6) * em}, fitted(canvas, cell.text, style, room), style);
    x += width;
    if (&cell != &cells.back())
      canvas.polyline({{x, top}, {x, top + 2 * row.halfheight}}, theme.scale.width, theme.scale.color);
  }
}

std::vector<std::string> headinglines(const SheetContent& content) {
  return {"Atmospheric pressure " + pressuretext(content.pressure), limitstext(content.limits)};
}

const char* const headingtext = "PSYCHROMETRIC CHART";

}  // namespace

double headingheight(double em) { return (headingsize + 2 * 1.45) * em; }

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
    fixedtext(work, {at, fitted(work.canvas, text, style, room), style, Anchor::start, 0});
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
  Box row = area;
  row.halfheight = area.halfheight / 2;
  row.centre.y = area.centre.y - row.halfheight;
  drawrow(canvas, options,
          {{"TITLE", options.title, 0.42, true},
           {"PROJECT", options.project, 0.26},
           {"DRAWN BY", options.drawnby, 0.18},
           {"DATE", options.date, 0.14}},
          row);
  row.centre.y = area.centre.y + row.halfheight;
  drawrow(canvas, options,
          {{"ATMOSPHERIC PRESSURE", pressuretext(content.pressure), 0.42},
           {"LIMITS", limitstext(content.limits), 0.26},
           {"PROGRAM", options.program, 0.18},
           {"PAGE", page, 0.14}},
          row);
}

}  // namespace moistair
