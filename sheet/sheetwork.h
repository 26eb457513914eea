/// \file
/// What the parts of a sheet are drawn with, and the forms in which they put down texts.
#pragma once

#include <string>
#include <vector>

#include "sheet/boundary.h"
#include "sheet/content.h"
#include "sheet/labels.h"
#include "sheet/options.h"
#include "sheet/sheetcanvas.h"
#include "sheet/theme.h"

namespace moistair {

struct SheetWork {
  const SheetContent& content;
  const SheetOptions& options;
  const Theme& theme;
  SheetCanvas& canvas;
  LabelBoard& board;
  SheetPlot plot;
  Boundary boundary;

  double em() const { return options.letterSize; }  ///< what every distance is a multiple of [pixels]
};

/// What a label is worth: what the engineer has put there, then what the chart cannot be read without.
namespace importance {
inline constexpr double point = 1000;
inline constexpr double line = 900;
inline constexpr double share = 850;
inline constexpr double scale = 500;   ///< a number on a scale; rounder ones by up to 100 more
inline constexpr double family = 400;  ///< the value of a line of a family
inline constexpr double caption = 300;
}  // namespace importance

/// A text with its middle at a place.
SheetTextOperation centered(const SheetCanvas& canvas, SheetPoint center, std::string text, const TextStyle& style,
                            double angle = 0);

/// A text outside a line: its nearest part is `gap` away from a place, in a direction.
SheetTextOperation textNextTo(const SheetCanvas& canvas, SheetPoint place, SheetPoint outward, double gap,
                              std::string text, const TextStyle& style);

/// Draws a text at a fixed place, which labels then avoid.
void fixedText(SheetWork& work, SheetTextOperation text);

/// Whether a label of an entry would stay off the scales: it and its leader within the plot's edges.
bool withinPlot(const SheetWork& work, const LabelPlace& place);

/// Places for a text along a line, turned as the line runs there, its middle `aside` of the line [pixels, to the left
/// of its direction]; those near `preferred`, a part of the line's length, cost least.
std::vector<LabelPlace> placesAlong(const SheetCanvas& canvas, const std::vector<SheetPoint>& line,
                                    const std::string& text, const TextStyle& style, double preferred,
                                    double aside = 0);

/// The same about a place of the line, by its length from the begin [pixels], the nearest costing least.
std::vector<LabelPlace> placesAround(const SheetCanvas& canvas, const std::vector<SheetPoint>& line,
                                     const std::string& text, const TextStyle& style, double place);

/// A text as wide as its room at most: what is cut off ends in an ellipsis.
std::string fitted(const SheetCanvas& canvas, const std::string& text, const TextStyle& style, double width);

/// The width of a text, and more than any page has for one that is too long to be measured.
double measured(const SheetCanvas& canvas, const std::string& text, const TextStyle& style);

/// A text in letters so small, down to a size, that it is no wider than its room; what is too wide even so is cut off.
struct FittedText {
  std::string text;
  TextStyle style;
};
FittedText shrunk(const SheetCanvas& canvas, const std::string& text, const TextStyle& style, double width,
                  double smallest);

}  // namespace moistair
