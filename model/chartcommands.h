/// \file
/// The commands of the main window that change the chart, each recorded as it is carried out.
///
/// They are the only way in which the document changes. What they have drawn is then an entry of it; undo, redo,
/// the changes of the table of entries and an opened document draw all of it again. The prescribed commands, with
/// what they test, refuse and clear, are in chartlifecycle.cpp. Lists' texts and the size of the window are handed in
/// at each command; no widget is needed here.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/history.h"
#include "model/locate.h"
#include "text/error.h"

namespace moistair {

/// What of a document is another one.
enum class ChangedPart {
  content,          ///< what a file holds, what could be undone, or whether it is saved; perhaps the pressure too
  currentPressure,  ///< nothing else
};

class ChartCommands {
public:
  std::function<void(ChangedPart part)> changed;  ///< after every change of the document or of what could be undone

  explicit ChartCommands(RecordingCanvas& canvas) : canvas_(canvas) {}

  const Document& document() const { return history_.document(); }
  const History& history() const { return history_; }

  /// The header line of start-up, which states the current pressure as a number. Nothing to undo.
  void start(WindowSize window);

  /// Another current pressure [in Hg], as the pressure window writes it: on the chart nothing changes.
  void setCurrentPressure(const std::string& inhg);

  /// A new pressure, which is already the current one: the canvas is cleared for its header line.
  void changePressure(const PressureEntry& entry, WindowSize window);

  /// Takes the limits from the lists; a text that is no number leaves its limit as it was.
  void readLimits(const LimitTexts& texts);

  /// The same one by one, each with its test, as for drawing: out of range where one may not be drawn.
  Outcome testLimits(const LimitTexts& texts);

  /// The first half of drawing: tests, and clears the canvas if nothing speaks against it.
  Outcome startDraw(const LimitTexts& texts);

  /// The type of the charts that are drawn from now on.
  void chooseType(ChartType type) { history_.current().chartType = type; }

  /// The second half, for limits that have passed the tests again: they may have changed since the first.
  void drawChart(WindowSize window);

  /// Back to an empty canvas.
  void clearChart();

  /// Adds a line to the chart, or waits for one. A value that is no number counts as 0.
  Outcome drawLine(LineKind kind, const LimitTexts& texts, std::string_view value, WindowSize window);

  /// Marks the point of a report; false, and nothing drawn, outside the limits of the lists.
  /// @param input what it was located by
  /// @param shown the state of the report, `readReport`
  bool markPoint(const PairInput& input, const StatePoint& shown, const LimitTexts& texts,
                 std::string_view identification, WindowSize window);

  /// Draws the mixing line of a problem, or answers with the message of what was rejected.
  /// @param limits those of the lists, as the mixing window reads them
  const char* drawMixture(const MixingProblem& problem, const ChartLimits& limits, WindowSize window);

  /// "Save chart": all that is drawn becomes the background picture.
  void keepPicture();

  /// Where the limits as last read lie on the chart last drawn.
  PlotArea plotArea(WindowSize window) const;

  /// Makes the pressure that the header states the current one again.
  void adoptFilePressure();

  /// Draws an entry that is complete, with the limits and the pressure that it has, or answers with the message of what
  /// refuses it.
  const char* add(Entry entry, WindowSize window);

  /// Draws all of the document again, for a window of another size; the canvas hears of it once it is whole.
  void layout(WindowSize window);

  void undo(WindowSize window);
  void redo(WindowSize window);

  /// A change made from the document as it is now: a deletion, a renaming, entries put on the chart again.
  void change(Change change, WindowSize window);

  /// Another document in place of this one, with nothing to undo. Its pressure becomes the current one, the type
  /// of its chart the one last chosen; limits for the lists are the caller's to take from it.
  void open(Document document, WindowSize window);

  /// Another title block of the sheet, which nothing of the chart shows.
  void retitle(TitleBlock titleBlock);

  /// Other zones, which are no part of the drawing.
  void rezone(ZoneLayer zoneLayer);

  void markSaved();
  void markUnsaved();

private:
  void record(Change change);
  void bringBack(const Pressure& earlier, WindowSize window);
  void replace(Document document);
  void notify(ChangedPart part = ChangedPart::content) const;

  RecordingCanvas& canvas_;
  History history_;
};

}  // namespace moistair
