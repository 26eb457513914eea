/// \file
/// The surface that a page of a sheet is drawn on: it records, and it measures texts.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "sheet/sheetdrawing.h"

namespace moistair {

class SheetCanvas {
public:
  explicit SheetCanvas(ExtentFunction extent) : extent_(std::move(extent)) {}

  /// What follows belongs to this part.
  void begin(SheetPart part) { part_ = part; }

  void polyline(std::vector<SheetPoint> points, double width, Color color, Dash dash = Dash::solid) {
    if (points.size() > 1)
      page_.operations.emplace_back(PolylineOperation{std::move(points), width, color, dash, part_});
  }
  void area(std::vector<SheetPoint> outline, Color color) {
    page_.operations.emplace_back(AreaOperation{std::move(outline), color, part_});
  }
  void text(SheetTextOperation text) {
    text.part = part_;
    if (!text.text.empty()) page_.operations.emplace_back(std::move(text));
  }
  void text(SheetPoint at, std::string text, const TextStyle& style, Anchor anchor = Anchor::start, double angle = 0) {
    this->text({at, std::move(text), style, anchor, angle});
  }

  TextExtent extent(const std::string& text, const TextStyle& style) const {
    return extent_(text, style.size, style.bold);
  }
  double widthOf(const std::string& text, const TextStyle& style) const { return extent(text, style).width; }

  SheetPage takePage() { return std::exchange(page_, {}); }

private:
  ExtentFunction extent_;
  SheetPage page_;
  SheetPart part_ = SheetPart::grid;
};

}  // namespace moistair
