/// \file
/// The main window: the strip of controls and the chart under it.
///
/// It puts strip, chart, status line, menus and controllers together and opens the dialogs; what a command does is in
/// the controllers (chart, files, log, pointer). A dialog knows nothing of it: it gets what it needs and reports by
/// signals. One of pressure, report, log and mixing window can be open at a time, and this window takes no input
/// meanwhile; the chart type window can be open at the same time.
#pragma once

#include <QMainWindow>
#include <QPointer>

#include "chart/reading.h"
#include "shell/chartcontroller.h"
#include "shell/filescontroller.h"
#include "shell/logcontroller.h"
#include "shell/strip.h"
#include "toolkit/dialog.h"
#include "toolkit/graphview.h"
#include "windows/charttypewindow.h"
#include "windows/mixingwindow.h"

namespace moistair {

class ChartPointer;
class EntriesDock;
class FileCommands;
class Sheets;
class StatusLine;
class StripNotes;
class TypedPair;
class WeatherCommands;

class MainWindow final : public QMainWindow {
  Q_OBJECT

public:
  explicit MainWindow(LogPlaces logPlaces);

  /// Start-up: the pressure window comes first and loads this window. False if the user leaves for a larger screen.
  /// @param file a document that is then opened, once the pressure window is left; empty for none
  bool start(const QString& file = {});

  /// The log goes, and what it held and what was unsaved is kept.
  void endSession();

Q_SIGNALS:
  /// The program ends at once, with all windows.
  void ended();

protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void makeMenus();
  void connectStrip();
  void connectChart();
  void connectStatus();
  void connectLog();
  bool loadMain();
  void fillLists();
  void arrange();

  WindowSize windowSize() const;
  QSize visiblePlot() const;
  PlotBox plotOf(const ChartLimits& limits) const;

  void openDialog(Dialog* dialog);
  void closeDialog();
  void leaveDialog();
  void focusGraph() { graph_->setFocus(); }
  void answer(const Error& error);

  void openPressure();
  void changePressure(const PressureEntry& entry);
  void settlePressure(const PressureEntry& set);
  QString waitingWords() const;
  void beginWork();
  void openChartType();
  void openReport(const PointReport& report, const PairInput& input);
  void openLog(const QString& content, const QString& title);
  void listSessions(QMenu& menu);
  void openMixing();
  void resetView();
  void showHelp();
  void quitProgram();

  Strip* strip_;
  GraphView* graph_;
  ChartController* chart_;
  LogController* log_;
  StatusLine* status_;
  TypedPair* typed_;  ///< the boxes while a place of the chart is in them
  FilesController* files_;
  StripNotes* notes_;  ///< what is said in the status line and marked in the strip
  Sheets* sheets_;
  FileCommands* fileCommands_;
  EntriesDock* entries_;  ///< table next to the chart
  ChartPointer* pointer_;
  WeatherCommands* weather_;  ///< layer of weather over the chart
  LastStreams lastMixing_;
  QPointer<Dialog> dialog_;
  QPointer<ChartTypeWindow> chartType_;
  QSize screen_;                                ///< size of the screen at start-up [pixels]
  QString firstFile_;                           ///< to be opened once the pressure window of the start is left
  std::optional<PressureEntry> firstPressure_;  ///< set in that window
  bool loaded_ = false;
  bool begun_ = false;  ///< whether that window has been left
};

}  // namespace moistair
