/// \file
/// A sheet as data: what is drawn on each page, and where a state of air lies on it.
///
/// Coordinates and sizes are in pixels of 1/96 inch, x to the right and y downward from the page's top left corner.
/// Whoever shows a sheet replays its operations in their order, on a screen, in a file or on paper; tests read them.
#pragma once

#include <functional>
#include <string>
#include <variant>
#include <vector>

#include "chart/canvas.h"
#include "chart/chartframe.h"

namespace moistair {

struct SheetPoint {
  double x = 0;
  double y = 0;

  bool operator==(const SheetPoint&) const = default;
};

enum class Dash { solid, dashed, dotted };

/// What an operation belongs to: a file groups by it, and a test knows by it what may cover what.
enum class SheetPart {
  grid,
  weather,
  zones,
  relativeHumidity,
  wetBulb,
  specificVolume,
  enthalpy,
  frame,
  scales,
  protractor,
  heading,
  lines,      ///< of constant property that were asked for, and their labels
  processes,  ///< what leads from one state to another: mixing lines and arrows
  points,     ///< marks and their labels
  leaders,    ///< lines from a label to what it names
  readouts,
  table,
  titleBlock
};

/// The part by the name that it has in a file: "relative-humidity".
const char* nameOf(SheetPart part);

struct PolylineOperation {
  std::vector<SheetPoint> points;
  double width = 1;
  Color color{};
  Dash dash = Dash::solid;
  SheetPart part = SheetPart::grid;
};

/// A filled polygon without an outline.
struct AreaOperation {
  std::vector<SheetPoint> outline;
  Color color{};
  SheetPart part = SheetPart::grid;
};

struct TextStyle {
  double size = 10;
  bool bold = false;
  Color color{};
};

/// Which end of a text its place says.
enum class Anchor { start, middle, end };

/// A text in one line.
struct SheetTextOperation {
  SheetPoint at;  ///< on the baseline
  std::string text;
  TextStyle style;
  Anchor anchor = Anchor::start;
  double angle = 0;  ///< turned about `at`, clockwise [degrees]
  SheetPart part = SheetPart::grid;
};

using SheetOperation = std::variant<PolylineOperation, AreaOperation, SheetTextOperation>;

/// What a text takes: its width, and what its letters reach above and below the baseline.
struct TextExtent {
  double width = 0;
  double ascent = 0;
  double descent = 0;
};

/// Gives the extent of a text; the one thing that a layout has to know of the fonts.
using ExtentFunction = std::function<TextExtent(const std::string& text, double size, bool bold)>;

/// Where states lie on the first page.
struct SheetPlot {
  double left = 0, top = 0, right = 0, bottom = 0;
  ChartLimits limits;
  double atm = 0;  ///< [in Hg]

  double perDb() const { return (right - left) / (limits.highDb - limits.lowDb); }  ///< pixels to the deg F
  double perW() const { return (bottom - top) / (limits.highHr - limits.lowHr); }   ///< pixels to the lb/lb
  SheetPoint at(double db, double w) const {
    return {left + (db - limits.lowDb) * perDb(), bottom - (w - limits.lowHr) * perW()};
  }
  double db(double x) const { return limits.lowDb + (x - left) / perDb(); }
  double w(double y) const { return limits.lowHr + (bottom - y) / perW(); }
  /// Whether there is air at a place: within the frame and not above saturation.
  bool holds(SheetPoint place) const;
};

struct SheetPage {
  std::vector<SheetOperation> operations;
};

struct SheetDrawing {
  double width = 0, height = 0;  ///< of every page
  Color paper{};
  std::vector<SheetPage> pages;
  SheetPlot plot;
};

}  // namespace moistair
