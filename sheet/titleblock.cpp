// The heading and the title block of a sheet.
#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

#include "sheet/parts.h"

namespace moistair {

namespace {

constexpr double headingSize = 1.9;  // em
constexpr double rowHeight = 2.6;
constexpr double cellGap = 0.5;
constexpr double captionSize = 0.68;

/// A cell of the title block: a small caption above what it says.
struct BlockCell {
  const char* caption;
  std::string text;
  bool whole = true;  ///< never cut off; what the engineer has typed may be
  bool bold = false;
};

constexpr std::size_t blockColumns = 4;
using BlockRow = std::array<BlockCell, blockColumns>;
using BlockWidths = std::array<double, blockColumns>;

/// The letters of a title block.
struct BlockLook {
  const Theme& theme;
  double em;

  TextStyle caption() const { return theme.small(captionSize * em); }
  TextStyle of(const BlockCell& cell) const { return cell.bold ? theme.bold(em) : theme.text(em); }
  double gap() const { return cellGap * em; }
  /// The widths at which all texts are whole, or those alone that are never cut off.
  BlockWidths widthsOf(const SheetCanvas& canvas, const std::array<BlockRow, 2>& rows, bool all) const {
    BlockWidths widths{};
    for (const BlockRow& row : rows) {
      for (std::size_t i = 0; i < blockColumns; ++i) {
        widths[i] = std::max(widths[i], canvas.widthOf(row[i].caption, caption()) + 2 * gap());
        const bool counts = all || row[i].whole;
        if (counts) widths[i] = std::max(widths[i], measured(canvas, row[i].text, of(row[i])) + 2 * gap());
      }
    }
    return widths;
  }
};

double sumOf(const BlockWidths& widths) { return std::accumulate(widths.begin(), widths.end(), 0.0); }

/// What the columns need is theirs; of the rest each has a part of what it has less than it had better have.
BlockWidths spread(const BlockWidths& needed, const BlockWidths& wanted, double width) {
  constexpr BlockWidths usual = {0.42, 0.26, 0.18, 0.14};
  BlockWidths missing{};
  for (std::size_t i = 0; i < blockColumns; ++i) {
    missing[i] = std::max(0.0, std::max(usual[i] * width, std::min(wanted[i], width)) - needed[i]);
  }
  const double rest = std::max(0.0, width - sumOf(needed));
  BlockWidths widths = needed;
  for (std::size_t i = 0; i < blockColumns && sumOf(missing) > 0; ++i) widths[i] += rest * missing[i] / sumOf(missing);
  return widths;
}

void drawRow(SheetCanvas& canvas, const BlockLook& look, const BlockRow& cells, const BlockWidths& widths,
             const SheetOptions& options, const Box& row) {
  const double em = options.letterSize;
  const double top = row.center.y - row.halfHeight;
  double x = row.center.x - row.halfLength;
  for (std::size_t i = 0; i < blockColumns; ++i) {
    const double room = widths[i] - 2 * look.gap();
    const SheetPoint corner{x + look.gap(), top};
    canvas.text(corner + SheetPoint{0, (0.25 + captionSize) * em}, cells[i].caption, look.caption());
    const auto [text, style] = shrunk(canvas, cells[i].text, look.of(cells[i]), room);
    canvas.text(corner + SheetPoint{0, (rowHeight - 0.6) * em}, text, style);
    x += widths[i];
    if (i + 1 < blockColumns)
      canvas.polyline({{x, top}, {x, top + 2 * row.halfHeight}}, look.theme.scale.width, look.theme.scale.color);
  }
}

std::vector<std::string> headingLines(const SheetContent& content) {
  std::vector<std::string> lines = {"Atmospheric pressure " + pressureText(content.pressure),
                                    limitsText(content.limits)};
  if (content.omitted == 1) lines.emplace_back("1 entry of the previous chart is not on this one");
  if (content.omitted > 1)
    lines.push_back(std::to_string(content.omitted) + " entries of the previous chart are not on this one");
  const std::vector<std::string> zones = zoneLegend(content);
  lines.insert(lines.end(), zones.begin(), zones.end());
  return lines;
}

const char* const headingText = "PSYCHROMETRIC CHART";

}  // namespace

double headingHeight(const SheetWork& work) {
  return (headingSize + static_cast<double>(headingLines(work.content).size()) * 1.45) * work.em();
}

double headingWidth(const SheetWork& work) {
  double width = work.canvas.widthOf(headingText, work.theme.bold(headingSize * work.em()));
  for (const std::string& line : headingLines(work.content)) {
    width = std::max(width, work.canvas.widthOf(line, work.theme.text(work.em())));
  }
  return width;
}

void drawHeading(SheetWork& work, SheetPoint corner) {
  work.canvas.begin(SheetPart::heading);
  const double em = work.em();
  const double room = work.options.page.width - 2 * corner.x;
  SheetPoint at = corner + SheetPoint{0, 0.8 * headingSize * em};
  const auto line = [&](const std::string& text, const TextStyle& style) {
    const FittedText fit = shrunk(work.canvas, text, style, room, 0.4);
    fixedText(work, {at, fit.text, fit.style, Anchor::start, 0});
  };
  line(headingText, work.theme.bold(headingSize * em));
  at.y += 0.2 * em;
  for (const std::string& words : headingLines(work.content)) {
    at.y += 1.45 * em;
    line(words, work.theme.text(em));
  }
}

double titleBlockHeight(const SheetOptions& options) {
  return options.titleBlock ? 2 * rowHeight * options.letterSize : 0;
}

void drawTitleBlock(SheetCanvas& canvas, const SheetContent& content, const SheetOptions& options, const Box& area,
                    const std::string& page) {
  canvas.begin(SheetPart::titleBlock);
  const Theme& theme = themeOf(options.colors);
  const auto corners = area.corners();
  canvas.polyline({corners[0], corners[1], corners[2], corners[3], corners[0]}, theme.frame.width, theme.frame.color);
  const SheetPoint left{corners[0].x, area.center.y};
  canvas.polyline({left, {corners[1].x, area.center.y}}, theme.scale.width, theme.scale.color);
  constexpr std::size_t longestDate = 24;  // bytes: any date, but not whatever else has been typed
  const std::array<BlockRow, 2> rows = {{
      {{{"TITLE", options.title, false, true},
        {"PROJECT", options.project, false},
        {"DRAWN BY", options.drawnBy, false},
        {"DATE", options.date, options.date.size() <= longestDate}}},
      {{{"ATMOSPHERIC PRESSURE", pressureText(content.pressure)},
        {"LIMITS", limitsText(content.limits)},
        {"PROGRAM", options.program},
        {"PAGE", page}}},
  }};
  const double width = 2 * area.halfLength;
  BlockLook look{theme, options.letterSize};
  const double least = sumOf(look.widthsOf(canvas, rows, false));
  if (least > width) look.em *= width / least;
  const BlockWidths widths = spread(look.widthsOf(canvas, rows, false), look.widthsOf(canvas, rows, true), width);
  Box row = area;
  row.halfHeight = area.halfHeight / 2;
  for (const std::size_t i : {std::size_t{0}, std::size_t{1}}) {
    row.center.y = area.center.y + (i == 0 ? -1 : 1) * row.halfHeight;
    drawRow(canvas, look, rows[i], widths, options, row);
  }
}

}  // namespace moistair
