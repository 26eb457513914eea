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
constexpr double captionSize = 0.74;

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
    const auto [text, style] = shrunk(canvas, cells[i].text, look.of(cells[i]), room, smallestFor(options.letterSize));
    canvas.text(corner + SheetPoint{0, (rowHeight - 0.6) * em}, text, style);
    x += widths[i];
    if (i + 1 < blockColumns)
      canvas.polyline({{x, top}, {x, top + 2 * row.halfHeight}}, look.theme.scale.width, look.theme.scale.color);
  }
}

constexpr double leastHeading = 9 * pixelsPerInch / 72;
constexpr double widestHeading = 0.4;   // of the page
constexpr double highestHeading = 0.2;  // of the page, for the title

/// The words of a text on as many lines as they take; one that is longer than the most lines is cut off on its first.
std::vector<std::string> wrapped(const SheetCanvas& canvas, const std::string& text, const TextStyle& style,
                                 double width, double most) {
  std::vector<std::string> lines;
  std::string rest = text;
  while (!rest.empty() && static_cast<double>(lines.size() + 2) <= most && measured(canvas, rest, style) > width) {
    std::size_t end = std::string::npos;
    for (std::size_t blank = rest.find(' '); blank < 200; blank = rest.find(' ', blank + 1)) {
      if (canvas.widthOf(rest.substr(0, blank), style) > width) break;
      end = blank;
    }
    if (end == std::string::npos || end == 0) break;
    lines.push_back(rest.substr(0, end));
    rest.erase(0, end + 1);
  }
  if (measured(canvas, rest, style) > width) return {fitted(canvas, text, style, width)};  // the title block has it too
  if (!rest.empty()) lines.push_back(rest);
  return lines;
}

/// The user's title in large letters, then what the title block does not say.
struct Heading {
  TextStyle style;
  std::vector<std::string> title, lines;

  Heading(const SheetWork& work) : style(work.theme.bold(std::max(leastHeading, headingSize * work.em()))) {
    const std::string what = "Psychrometric chart";
    const bool titled = !work.options.title.empty() && work.options.title != what;
    const double least = work.canvas.widthOf(what, style) * 1.1;
    const double room = work.options.page.width - 2 * work.options.margin;
    title = wrapped(work.canvas, titled ? work.options.title : what, style,
                    std::min(room, std::max(least, widestHeading * work.options.page.width)),
                    highestHeading * work.options.page.height / lineHeight());
    if (titled) lines.push_back(what);
    if (!work.options.titleBlock) {
      lines.push_back("Atmospheric pressure " + pressureText(work.content.pressure));
      lines.push_back(limitsText(work.content.limits));
    }
    const std::size_t omitted = work.content.omitted;
    if (omitted > 0) {
      lines.push_back((omitted == 1 ? "1 entry" : std::to_string(omitted) + " entries") + " of the previous chart " +
                      (omitted == 1 ? "is" : "are") + " not on this one");
    }
    const std::vector<std::string> zones = zoneLegend(work.content);
    lines.insert(lines.end(), zones.begin(), zones.end());
  }

  double lineHeight() const { return 1.2 * style.size; }
};

}  // namespace

double headingHeight(const SheetWork& work) {
  const Heading heading(work);
  return static_cast<double>(heading.title.size()) * heading.lineHeight() +
         static_cast<double>(heading.lines.size()) * 1.45 * work.em();
}

double headingWidth(const SheetWork& work) {
  const Heading heading(work);
  double width = 0;
  for (const std::string& line : heading.title) width = std::max(width, work.canvas.widthOf(line, heading.style));
  for (const std::string& line : heading.lines) {
    width = std::max(width, work.canvas.widthOf(line, work.theme.text(work.em())));
  }
  return width;
}

void drawHeading(SheetWork& work, SheetPoint corner) {
  work.canvas.begin(SheetPart::heading);
  const Heading heading(work);
  SheetPoint at = corner + SheetPoint{0, 0.8 * heading.style.size};
  for (const std::string& line : heading.title) {
    fixedText(work, {at, line, heading.style, Anchor::start, 0});
    at.y += heading.lineHeight();
  }
  at.y += 1.35 * work.em() - 0.95 * heading.style.size;
  const double room = work.options.page.width - 2 * corner.x;
  for (const std::string& words : heading.lines) {
    const FittedText fit = shrunk(work.canvas, words, work.theme.text(work.em()), room, 0.7 * work.em());
    fixedText(work, {at, fit.text, fit.style, Anchor::start, 0});
    at.y += 1.45 * work.em();
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
