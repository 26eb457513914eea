/// \file
/// The life of the chart on the main window: what may be drawn on it, and when.
///
/// A chart counts as standing while the limits in the lists are those it was drawn for; only then may lines and points
/// be added, and only otherwise may a new one be drawn. Clearing the canvas or changing the pressure ends it. The main
/// window hands in the lists' texts and its size at each command and shows what comes back; no widget is needed here.
#pragma once

#include <optional>
#include <string_view>

#include "chart/chartframe.h"
#include "chart/propertylines.h"
#include "model/refusal.h"
#include "model/sessionvalues.h"

namespace moistair {

inline constexpr const char* linenotfeasible = "The line is either out of chart limits or is not feasible";

/// Which chart counts as standing, and where it has its scales: what a later line, point or chart is tested by.
struct ChartStand {
  DrawnLimits drawn;
  PlotFrame frame;
};

class ChartLifecycle {
public:
  ChartLifecycle(ChartCanvas& canvas, SessionValues& values) : canvas_(canvas), values_(values) {}

  /// Takes the limits from the lists; a text that is no number leaves its limit as it was.
  void readlimits(const LimitTexts& texts) { moistair::readlimits(texts, limits_); }

  /// Whether the limits as last read are those of the chart on the canvas.
  bool chartstands() const { return checkdrawn(limits_, values_.drawn); }

  /// The first half of drawing: tests, and clears the canvas if there is no refusal.
  std::optional<Refusal> startdraw(const LimitTexts& texts);

  /// The tests of the second half, between which and the first the limits may have changed.
  std::optional<Refusal> testlimits(const LimitTexts& texts);

  /// The second half: draws the chart for the limits that have just passed the tests.
  void drawchart(WindowSize window);

  /// Back to an empty canvas.
  void clearchart();

  /// The same for a new pressure, whose header line then stands on the canvas.
  void restart(WindowSize window);

  /// Adds a line to the chart. A value that is no number counts as 0.
  std::optional<Refusal> drawline(LineKind kind, const LimitTexts& texts, std::string_view value, WindowSize window);

  /// Where the limits as last read lie on the chart last drawn.
  PlotArea plotarea(WindowSize window) const { return {limits_, frame_, window}; }

  double atmpressure() const { return values_.pressure.lenient(); }

  ChartStand stand() const { return {values_.drawn, frame_}; }
  /// Goes back to what counted as standing at another time. The canvas is the caller's affair.
  void restore(const ChartStand& stand);

private:
  Chart chart(WindowSize window) const { return {canvas_, plotarea(window), atmpressure()}; }

  ChartCanvas& canvas_;
  SessionValues& values_;
  ChartLimits limits_;
  PlotFrame frame_;
};

}  // namespace moistair
