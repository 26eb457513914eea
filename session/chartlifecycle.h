/// \file
/// The life of the chart on the main window: what may be drawn on it, and when.
///
/// A chart counts as standing while the limits in the lists are those it was drawn for; only then may lines and points
/// be added, and only otherwise may a new one be drawn. Clearing the canvas or changing the pressure ends it. The main
/// window hands in the lists' texts and its size at each command and shows what comes back; no widget is needed here.
#pragma once

#include <functional>
#include <optional>

#include "chart/canvas.h"
#include "chart/chartframe.h"
#include "chart/scales.h"
#include "session/sessionvalues.h"

namespace moistair {

/// Why a command is not carried out, in the words for the user.
struct Refusal {
  const char* text;
  bool withcancel = false;  ///< buttons OK and Cancel, whose answer means nothing, instead of OK
};

/// The lines that a user can add by value.
enum class LineKind { relativehumidity, wetbulb, enthalpy, specificvolume };

inline constexpr const char* linenotfeasible = "The line is either out of chart limits or is not feasible";

class ChartLifecycle {
public:
  ChartLifecycle(ChartCanvas& canvas, SessionValues& values) : canvas_(canvas), values_(values) {}

  /// Reads the limits and tells whether they are those of the chart on the canvas.
  bool chartstands(const LimitTexts& texts);

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

  /// Where a line of limits in the lists lies on the chart last drawn.
  PlotArea plotarea(const LimitTexts& texts, WindowSize window);

  HeaderTexts header() const { return {values_.pressuremode, values_.pressureentered}; }
  double atmpressure() const { return values_.pressure.lenient(); }

private:
  Chart chart(WindowSize window) const { return {canvas_, {limits_, frame_, window}, atmpressure()}; }

  ChartCanvas& canvas_;
  SessionValues& values_;
  ChartLimits limits_;
  PlotFrame frame_;
};

/// Range finders that keep to the chart. `nothingfound` is called when a line of relative humidity crosses nothing of
/// it.
RangeFinders chartrangefinders(ChartLifecycle& lifecycle, ChartLook look, std::function<void()> nothingfound);

}  // namespace moistair
