/// \file
/// The chart's controller: what the strip, the menus and the table ask of the chart, and what comes of it.
///
/// It owns the document (through `ChartCommands`) and resolves what is typed. What is typed it asks for at the moment
/// it needs it; what the windows then have to do it says by signals, in the order in which it is to be seen. It knows
/// no window, so a test hands in lists and boxes as functions. Whatever shows something of the document connects itself
/// to `changed`.
#pragma once

#include <QObject>
#include <functional>
#include <string>
#include <vector>

#include "model/chartcommands.h"
#include "model/givenvalues.h"
#include "model/pointreport.h"

namespace moistair {

class ChartController final : public QObject {
  Q_OBJECT

public:
  /// What is typed and chosen, and the size that the chart is laid out for.
  struct Inputs {
    std::function<LimitTexts()> limits;           ///< texts of the four lists
    std::function<PairInput()> pair;              ///< of the two boxes and their lists
    std::function<std::string()> identification;  ///< of a point
    std::function<WindowSize()> window;
  };

  ChartController(RecordingCanvas& canvas, Inputs inputs, QObject* parent = nullptr);

  const Document& document() const { return commands_.document(); }
  const History& history() const { return commands_.history(); }

  /// For those that change entries themselves: pointer, files, sheets.
  ChartCommands& commands() { return commands_; }

  WindowSize window() const { return inputs_.window(); }

  /// The fields that the live row's searches share.
  const SolverFields& solverFields() const { return solverFields_; }

  /// Where the limits that the lists show lie on the chart last drawn.
  PlotArea listedArea() const;

  /// The live row: at every change of a kind or a value, and silent but for a line that crosses nothing of the chart.
  void previewPoint();

  void setCurrentPressure(const std::string& inhg) { commands_.setCurrentPressure(inhg); }
  /// A chart is drawn for one pressure, so a new one starts everything from scratch.
  void changePressure(const PressureEntry& entry);
  void adoptFilePressure();

  void startDraw();
  void drawChart(ChartType type);
  void drawLine(LineKind kind, const std::string& value);
  void clearChart();

  void locatePoint();
  /// Marks the point of a report. @param input what it was located by
  void markPoint(const PointReport& report, const PairInput& input);

  void undo();
  void redo();
  /// Puts the entries of the previous chart on the current one, as far as they fit.
  void carryOver();
  /// Exact states in place of those that miss something, of some entries or, without any, of all.
  void takeExact(const std::vector<std::size_t>& places);
  void remove(const std::vector<std::size_t>& places);
  /// @param part of a mixture the stream
  void rename(std::size_t place, const std::string& identification, std::size_t part = 0);
  /// Another value for one that an entry was given; the table shows the old one where it cannot be.
  void typeOver(std::size_t place, const GivenValue& value);
  /// A stream of a mixture as a point.
  void markStream(std::size_t place, std::size_t part);

  /// Another document in place of the current one: its chart's limits go into the lists, its pressure becomes the
  /// current one. @param fresh for one that begins again, with empty boxes
  void open(Document document, bool fresh);

  /// Lays all out for another size.
  void layout();

Q_SIGNALS:
  /// The document is another one; the only way to hear of it.
  void changed(ChangedPart part);
  /// The document is the same, laid out for another size.
  void laidOut();

  void previewed(const Resolution& resolution);  ///< before the row shows it
  void located(const Location& location);
  void rowEmptied(bool dewPointToo);
  void rowFilled(const StatePoint& point);
  void rowSettled();  ///< the row shows the point that was located, or is empty
  void inputsEmptied();
  void limitsChosen(const ChartLimits& limits);  ///< for the lists

  void waiting(bool on);  ///< something takes its time
  void refused(const Error& error);
  void markRefused(const QString& reason);
  void reported(const QString& text);  ///< what the user has to know
  void failed(const QString& words);   ///< why a command has done nothing, next to the chart
  void typeAsked();                    ///< the chart type is to be chosen, and then `drawChart` called
  void reportAsked(const PointReport& report, const PairInput& input);
  void done();  ///< the chart gets the focus

private:
  void step(const std::function<void()>& change);

  Inputs inputs_;
  ChartCommands commands_;
  SolverFields solverFields_;
  RangeFinders finders_;
};

}  // namespace moistair
