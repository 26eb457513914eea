#include "sheet/sheetwork.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "sheet/halving.h"

namespace moistair {

SheetTextOperation centered(const SheetCanvas& canvas, SheetPoint center, std::string text, const TextStyle& style,
                            double angle) {
  const TextExtent extent = canvas.extent(text, style);
  const SheetPoint along = direction(angle);
  const SheetPoint down{-along.y, along.x};
  return {center + down * ((extent.ascent - extent.descent) / 2), std::move(text), style, Anchor::middle, angle};
}

SheetTextOperation textNextTo(const SheetCanvas& canvas, SheetPoint place, SheetPoint outward, double gap,
                              std::string text, const TextStyle& style) {
  const TextExtent extent = canvas.extent(text, style);
  const double halfWidth = extent.width / 2;
  const double halfHeight = (extent.ascent + extent.descent) / 2;
  // as far as the box reaches in that direction before its edge, so that numbers on a slanted scale stay in a row
  const double byWidth = std::abs(outward.x) > 1e-9 ? halfWidth / std::abs(outward.x) : 1e9;
  const double byHeight = std::abs(outward.y) > 1e-9 ? halfHeight / std::abs(outward.y) : 1e9;
  return centered(canvas, place + outward * (gap + std::min(byWidth, byHeight)), std::move(text), style);
}

void fixedText(SheetWork& work, SheetTextOperation text) {
  if (text.text.empty()) return;
  work.board.fix(textBox(text, work.canvas.extent(text.text, text.style)));
  work.canvas.text(std::move(text));
}

bool withinPlot(const SheetWork& work, const LabelPlace& place) {
  const SheetPlot& plot = work.plot;
  const auto within = [&](SheetPoint point) {
    return point.x >= plot.left && point.x <= plot.right && point.y >= plot.top && point.y <= plot.bottom;
  };
  const auto corners = boxOf(work.canvas, place).corners();
  return std::all_of(corners.begin(), corners.end(), within) &&
         std::all_of(place.leader.begin(), place.leader.end(), within);
}

namespace {

/// A text of some width with its middle at a place of a line, or to the left of it.
SheetTextOperation textOn(const SheetCanvas& canvas, const std::vector<SheetPoint>& line, const std::string& text,
                          const TextStyle& style, double middle, double width, double aside) {
  const SheetPoint from = pointOnLine(line, middle - width / 2).at;
  const SheetPoint to = pointOnLine(line, middle + width / 2).at;
  const SheetPoint along = unit(to - from);
  const SheetPoint left{along.y, -along.x};
  const SheetPoint on = ((from + to) * 0.5 + pointOnLine(line, middle).at) * 0.5;
  return centered(canvas, on + left * aside, text, style, readingAngle(along));
}

constexpr double leastLine = 1.3;  // of a text's width, for a line that carries it

}  // namespace

std::vector<LabelPlace> placesAlong(const SheetCanvas& canvas, const std::vector<SheetPoint>& line,
                                    const std::string& text, const TextStyle& style, double preferred, double aside) {
  constexpr int count = 24;
  std::vector<LabelPlace> places;
  const double width = canvas.widthOf(text, style);
  const double whole = lengthOf(line);
  if (line.size() < 2 || whole < width * leastLine) return places;
  for (int i = 0; i <= count; ++i) {
    const double part = static_cast<double>(i) / count;
    const double middle = width * 0.6 + (whole - width * 1.2) * part;
    places.push_back({textOn(canvas, line, text, style, middle, width, aside), 2 * std::abs(part - preferred), {}});
  }
  return places;
}

std::vector<LabelPlace> placesAround(const SheetCanvas& canvas, const std::vector<SheetPoint>& line,
                                     const std::string& text, const TextStyle& style, double place) {
  constexpr int count = 24;
  std::vector<LabelPlace> places;
  const double width = canvas.widthOf(text, style);
  const double whole = lengthOf(line);
  if (line.size() < 2 || whole < width * leastLine) return places;
  for (int i = -count; i <= count; ++i) {
    const double middle = place + i * 0.6 * style.size;
    if (middle < 0.6 * width || middle > whole - 0.6 * width) continue;
    places.push_back({textOn(canvas, line, text, style, middle, width, 0), 0.08 * std::abs(i), {}});
  }
  return places;
}

namespace {

constexpr std::size_t longest = 1000;  // bytes; no page has room for more, and to measure more takes its time

}  // namespace

double measured(const SheetCanvas& canvas, const std::string& text, const TextStyle& style) {
  return text.size() <= longest ? canvas.widthOf(text, style) : 1e9;
}

std::string fitted(const SheetCanvas& canvas, const std::string& text, const TextStyle& style, double width) {
  if (measured(canvas, text, style) <= width) return text;
  const auto fits = [&](std::size_t length) { return canvas.widthOf(text.substr(0, length) + "…", style) <= width; };
  std::size_t keep = lastWith(fits, std::size_t{0}, std::min(text.size(), longest));
  while (keep > 0 && (static_cast<unsigned char>(text[keep]) & 0xC0) == 0x80) --keep;  // not within a letter
  return keep == 0 ? std::string() : text.substr(0, keep) + "…";
}

FittedText shrunk(const SheetCanvas& canvas, const std::string& text, const TextStyle& style, double width,
                  double smallest) {
  constexpr double slack = 1e-6;  // what is shrunk to its room is not to be cut off for the sake of rounding
  const double whole = measured(canvas, text, style);
  TextStyle small = style;
  if (whole > width) small.size = std::max(std::min(smallest, style.size), style.size * width / whole);
  return {fitted(canvas, text, small, width * (1 + slack)), small};
}

}  // namespace moistair
