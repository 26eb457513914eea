/// \file
/// The life of the chart on the main window: what may be drawn on it, and when.
///
/// A chart is current while the limits in the lists are those it was drawn for; only then may lines and points
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

inline constexpr const char* lineNotFeasible = "The line is either out of chart limits or is not feasible";

/// Which chart is current, and its scales: what a later line, point or chart is tested by.
struct ChartState {
  DrawnLimits drawn;
  PlotFrame frame;
};

class ChartLifecycle {
public:
  ChartLifecycle(ChartCanvas& canvas, SessionValues& values) : canvas_(canvas), values_(values) {}

  /// Takes the limits from the lists; a text that is no number leaves its limit as it was.
  void readLimits(const LimitTexts& texts) { moistair::readLimits(texts, limits_); }

  /// Whether the limits as last read are those of the chart on the canvas.
  bool hasCurrentChart() const { return checkDrawn(limits_, values_.drawn); }

  /// The first half of drawing: tests, and clears the canvas if there is no refusal.
  std::optional<Refusal> startDraw(const LimitTexts& texts);

  /// The tests of the second half, between which and the first the limits may have changed.
  std::optional<Refusal> testLimits(const LimitTexts& texts);

  /// The second half: draws the chart for the limits that have just passed the tests.
  void drawChart(WindowSize window);

  /// Back to an empty canvas.
  void clearChart();

  /// The same for a new pressure, whose header line is then on the canvas.
  void restart(WindowSize window);

  /// Adds a line to the chart. A value that is no number counts as 0.
  std::optional<Refusal> drawLine(LineKind kind, const LimitTexts& texts, std::string_view value, WindowSize window);

  /// Where the limits as last read lie on the chart last drawn.
  PlotArea plotArea(WindowSize window) const { return {limits_, frame_, window}; }

  double atmPressure() const { return values_.pressure.lenient(); }

  ChartState chartState() const { return {values_.drawn, frame_}; }
  /// Goes back to the chart that was current at another time. The canvas is the caller's affair.
  void restore(const ChartState& chartState);

private:
  Chart chart(WindowSize window) const { return {canvas_, plotArea(window), atmPressure()}; }

  ChartCanvas& canvas_;
  SessionValues& values_;
  ChartLimits limits_;
  PlotFrame frame_;
};

}  // namespace moistair
