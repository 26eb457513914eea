/// \file
/// The agreement between the chart's limits and the coordinates of the canvas.
///
/// The user picks four limits in lists; `PlotFrame` turns a dry bulb and a humidity ratio into canvas coordinates. The
/// plot takes ten twelfths of the window's width and three quarters of its height, worked out again from the window's
/// size whenever something is drawn. A line or a point may be added only while the limits in the lists are those of the
/// chart on the canvas (`checkDrawn`).
#pragma once

#include <array>
#include <string>

#include "chart/canvas.h"
#include "engine/moistair.h"
#include "engine/state.h"
#include "text/numbertext.h"

namespace moistair {

/// What the four lists offer, in their order.
inline constexpr std::array<const char*, 13> dryBulbLimits = {"0",  "10", "20", "30",  "40",  "50", "60",
                                                              "70", "80", "90", "100", "110", "120"};
inline constexpr std::array<const char*, 4> humidityRatioLimits = {"0", "0.010", "0.020", "0.030"};

/// What is shown: dry bulbs [deg F] and humidity ratios [lb/lb].
struct ChartLimits {
  double lowDb = 0, highDb = 0, lowHr = 0, highHr = 0;

  bool operator==(const ChartLimits&) const = default;

  /// Whether a state lies within them, ends included.
  bool contain(double db, double w) const { return db >= lowDb && db <= highDb && w >= lowHr && w <= highHr; }
};

/// The limits at the ends of the lists.
inline constexpr ChartLimits wholeChart{0, 120, 0, greatestRatio};

/// The same as the lists' texts.
struct LimitTexts {
  std::string lowDb, highDb, lowHr, highHr;
};

/// Limits of the chart on the canvas; empty texts before the first chart, and a lowDb that no list offers once the
/// canvas has been cleared.
struct DrawnLimits {
  NumberText lowDb, highDb, lowHr, highHr;
};

/// Inner size of the main window [twips]: whole pixels of 15, so single precision holds it exactly.
struct WindowSize {
  double width = 0;
  double height = 0;

  bool operator==(const WindowSize&) const = default;
};

/// Scales of the chart last drawn; all 0 before the first, and then no position has a value.
struct PlotFrame {
  double hrSpan = 0, dbSpan = 0, hrScale = 0, dbScale = 0;

  bool operator==(const PlotFrame&) const = default;
};

PlotFrame plotFrame(const ChartLimits& limits);

/// What every position on the canvas follows from.
struct PlotArea {
  ChartLimits limits;
  PlotFrame frame;
  WindowSize window;

  bool operator==(const PlotArea&) const = default;

  double left() const { return window.width / 12; }              ///< x of lowDb
  double right() const { return window.width * 11 / 12; }        ///< x of highDb
  double bottom() const { return window.height * 4700 / 6000; }  ///< y of lowHr
  double top() const { return window.height * 200 / 6000; }      ///< y of highHr
  bool empty() const { return !(window.width > 0 && window.height > 0); }

  double plotX(double db) const;  ///< no value before the first chart
  double plotY(double w) const;   ///< no value before the first chart
};

/// The plot of limits in a window, with the scales that a chart drawn for them has.
PlotArea plotArea(const ChartLimits& limits, const WindowSize& window);

/// Everything that a drawing step works with.
struct Chart {
  ChartCanvas& canvas;
  PlotArea area;
  double atmPressure = defaultPressure;       ///< [in Hg]
  SearchMode mode = SearchMode::accelerated;  ///< of all searches
};

/// Reads the lists' texts strictly; a text that is no number leaves its limit as it was.
void readLimits(const LimitTexts& texts, ChartLimits& limits);

/// Reads and tests the limits one by one and returns the message for the first that may not be drawn, or nullptr. The
/// limits behind that one are not read. The number is tested, not the text: "20.0" passes, "15" does not.
const char* validateLimits(const LimitTexts& texts, ChartLimits& limits);

/// Whether these are the limits of the chart on the canvas.
bool checkDrawn(const ChartLimits& limits, const DrawnLimits& drawn);

void rememberLimits(const ChartLimits& limits, DrawnLimits& drawn);

/// After this no limits count as drawn.
void forgetLimits(DrawnLimits& drawn);

/// The answer of every command that adds to a chart when checkDrawn is false.
inline constexpr const char* drawAxisFirst = "First draw axis as per latest chart limits";

}  // namespace moistair
