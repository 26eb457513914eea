/// \file
/// The main window: the strip of controls, the chart under it, and the flow between the windows.
///
/// It owns the session's values, the log and the chart, connects the controls to the procedures of the rooms, and opens
/// the dialogs. A dialog knows nothing of it: it gets what it needs and reports by signals. One of pressure, report,
/// log and mixing window can be open at a time, and this window takes no input meanwhile; the chart type window can be
/// open at the same time.
#pragma once

#include <QMainWindow>
#include <QPageLayout>
#include <QPointer>

#include "log/sessionlog.h"
#include "model/chartcommands.h"
#include "model/locate.h"
#include "shell/chartpointer.h"
#include "shell/documentfiles.h"
#include "shell/strip.h"
#include "shell/stripnotes.h"
#include "toolkit/graphview.h"
#include "toolkit/savedialog.h"
#include "windows/charttypewindow.h"
#include "windows/entriespanel.h"
#include "windows/mixingwindow.h"

namespace moistair {

class ReportWindow;
class Sheets;
class TypedPair;
struct EarlierSession;

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
  void makeStatusBar();
  void makeChartPointer();
  void makePanel(QMenu& view);
  void connectStrip();
  bool loadMain();
  void fillLists();
  void arrange();

  WindowSize windowSize() const;
  QSize visiblePlot() const;
  void previewPoint();

  void openDialog(Dialog* dialog);
  void closeDialog();
  void leaveDialog();
  void focusGraph();
  void answer(const Refusal& refusal);
  void warnOutOfSight(const Resolution& resolution);

  std::optional<QString> askSavePath(const SaveRequest& request);

  void openPressure();
  void changePressure(const PressureEntry& entry);
  void startFresh(const PressureEntry& entry);
  void settlePressure(const PressureEntry& set);
  QString waitingWords() const;
  void startDraw();
  void drawChart(ChartType chartType);
  void drawLine(LineKind kind, const QLineEdit& value);
  void locatePoint();
  void markPoint(const ReportWindow& report, const PairInput& input);
  void clearChart();
  void undo();
  void redo();
  void step(const std::function<void()>& change);
  void showDocument(Document document, bool fresh);
  void beginWork();
  void placePanel();
  void highlight(const std::vector<std::size_t>& entries);
  void typeOver(std::size_t entry, const GivenValue& value);
  void markStream(std::size_t entry, std::size_t part);
  void takeExact(const std::vector<std::size_t>& places);
  void writeCsv(const std::vector<TableRow>& all, const std::vector<TableRow>& chosen);
  void carryOver();
  void showHistory();
  void saveChart();
  void viewLog();
  void listSessions();
  void viewSession(const EarlierSession& session);
  void saveLog();
  void appendToLog(const std::vector<std::string>& lines);
  void openMixing();
  void showExportKey();
  void exportChart();
  void exportSheet();
  void printChart();
  void setupPage();
  QPageLayout page() const;
  void showHelp();
  void quitProgram();

  SessionLog log_;
  QMenu* earlier_;  ///< menu of the earlier sessions
  Strip* strip_;
  GraphView* graph_;
  ChartCommands chart_;
  ChartPointer* chartPointer_;
  DocumentFiles* files_;
  StatusLine* status_;
  TypedPair* typed_;   ///< the boxes while a place of the chart is in them
  StripNotes* notes_;  ///< what is said in it and marked in the strip
  Sheets* sheets_;
  EntriesPanel* panel_;        ///< table next to the chart
  SolverFields solverFields_;  ///< scratch of the nested searches of the live row
  RangeFinders finders_;
  LastStreams lastMixing_;
  SaveDialog saveDialog_;
  QPointer<Dialog> dialog_;
  QPointer<ChartTypeWindow> chartType_;
  QSize screen_;                     ///< size of the screen at start-up [pixels]
  std::optional<QPageLayout> page_;  ///< of printing, once it has been asked for
  QAction* undoAction_ = nullptr;
  QAction* redoAction_ = nullptr;
  QAction* carryOverAction_ = nullptr;
  QAction* exportChartAction_ = nullptr;
  QAction* exportSheetAction_ = nullptr;
  std::vector<std::size_t> highlighted_;        ///< entries highlighted on the chart
  QString firstFile_;                           ///< to be opened once the pressure window is left
  std::optional<PressureEntry> firstPressure_;  ///< set in that window
  bool panelPlaced_ = false;
  bool loaded_ = false;
  bool begun_ = false;  ///< whether that window has been left
};

}  // namespace moistair
