/// \file
/// The commands of the main window that change the chart, each recorded as it is carried out.
///
/// They draw and refuse exactly as `ChartLifecycle`, `markPoint` and `drawMixingLine` do, and what they have drawn is
/// then an entry of the document. Undo, redo, the changes of the table of entries and an opened document draw all of it
/// again. The main window owns one and hands in the lists' texts and its size at each command; no widget is needed
/// here.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/chartlifecycle.h"
#include "model/history.h"
#include "model/locate.h"

namespace moistair {

class ChartCommands {
public:
  std::function<void()> changed;  ///< after everything that changes the document or what could be undone

  /// @param lifecycle works on the same canvas and the same values
  ChartCommands(RecordingCanvas& canvas, SessionValues& values, ChartLifecycle& lifecycle)
      : canvas_(canvas), values_(values), lifecycle_(lifecycle) {}

  const Document& document() const { return history_.document(); }
  const History& history() const { return history_; }

  /// The header line of start-up, which states the current pressure as a number. Nothing to undo.
  void start(WindowSize window);

  std::optional<Refusal> startDraw(const LimitTexts& texts);  ///< the first half of drawing, as in ChartLifecycle
  void drawChart(WindowSize window);                          ///< the second, for limits that have passed the tests
  void clearChart();

  /// A new pressure, which is already the current one: the canvas is cleared for its header line.
  void changePressure(const PressureEntry& entry, WindowSize window);

  /// Makes the pressure that the header states the current one again.
  void adoptFilePressure();

  std::optional<Refusal> drawLine(LineKind kind, const LimitTexts& texts, std::string_view value, WindowSize window);

  /// Marks the point of a report; false, and nothing drawn, outside the limits of the lists.
  /// @param input what it was located by
  /// @param shown the state of the report, `readReport`
  bool markPoint(const PairInput& input, const StatePoint& shown, const LimitTexts& texts,
                 std::string_view identification, WindowSize window);

  /// Draws the mixing line of a problem, or answers with the message of what was rejected.
  /// @param limits those of the lists, as the mixing window reads them
  const char* drawMixture(const MixingProblem& problem, const ChartLimits& limits, WindowSize window);

  /// Draws an entry that is complete, with the limits and the pressure that it has, or answers with the message of what
  /// refuses it.
  const char* add(Entry entry, WindowSize window);

  /// "Save chart": all that is drawn becomes the background picture.
  void keepPicture();

  /// Draws all of the document again, for a window of another size; the canvas hears of it once it is whole.
  void layout(WindowSize window);

  void undo(WindowSize window);
  void redo(WindowSize window);

  /// A change made from the document as it is now: a deletion, a renaming, entries put on the chart again.
  void change(Change change, WindowSize window);

  /// Another document in place of this one, with nothing to undo. Its pressure becomes the current one; limits and type
  /// for the lists are the caller's to take from it.
  void open(Document document, WindowSize window);

  /// Another title block of the sheet, which nothing of the chart shows.
  void retitle(TitleBlock titleBlock);

  void markSaved();
  void markUnsaved();

private:
  Setting setting() const;
  void record(Change change);
  void bringBack(const Pressure& earlier, WindowSize window);
  void notify() const;

  RecordingCanvas& canvas_;
  SessionValues& values_;
  ChartLifecycle& lifecycle_;
  History history_;
};

}  // namespace moistair
