/// \file
/// The main window: the strip of controls, the chart under it, and the flow between the windows.
///
/// It owns the session's values, the log and the chart, connects the controls to the procedures of the rooms, and opens
/// the dialogs. A dialog knows nothing of it: it gets what it needs and reports by signals. One of pressure, report,
/// log and mixing window can be open at a time, and this window takes no input meanwhile; the chart type window stands
/// beside.
#pragma once

#include <QMainWindow>
#include <QPageLayout>
#include <QPointer>

#include "log/sessionlog.h"
#include "model/chartcommands.h"
#include "model/locate.h"
#include "model/sessionvalues.h"
#include "shell/documentfiles.h"
#include "shell/instrument.h"
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
  explicit MainWindow(LogPlaces logplaces);

  /// Start-up: the pressure window comes first and loads this window. False if the user leaves for a larger screen.
  /// @param file a document that is then opened, once the pressure window is left; empty for none
  bool start(const QString& file = {});

  /// The log goes, and what it held and what was unsaved is kept.
  void endsession();

Q_SIGNALS:
  /// The program ends at once, with all windows.
  void ended();

protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void makemenus();
  void makestatusbar();
  void makeinstrument();
  void makepanel(QMenu& view);
  void connectstrip();
  bool loadmain();
  void filllists();
  void arrange();

  WindowSize windowsize() const;
  QSize visibleplot() const;
  void previewpoint();

  void opendialog(Dialog* dialog);
  void closedialog();
  void leavedialog();
  void focusgraph();
  void answer(const Refusal& refusal);
  void telloutofsight(const Resolution& resolution);

  std::optional<QString> asksavepath(const SaveRequest& request);

  void openpressure();
  void changepressure(const PressureEntry& entry);
  void startafresh(const PressureEntry& entry);
  void settlepressure(const PressureEntry& set);
  QString waitingwords() const;
  void startdraw();
  void drawchart(ChartType charttype);
  void drawline(LineKind kind, const QLineEdit& value);
  void locatepoint();
  void markpoint(const ReportWindow& report, const PairInput& input);
  void clearchart();
  void undo();
  void redo();
  void step(const std::function<void()>& change);
  void showdocument(Document document, bool fresh);
  void beginwork();
  void placepanel();
  void lift(const std::vector<std::size_t>& entries);
  void takeExact(const std::vector<std::size_t>& places);
  void writecsv(const std::vector<TableRow>& all, const std::vector<TableRow>& chosen);
  void again();
  void showhistory();
  void savechart();
  void viewlog();
  void listsessions();
  void viewsession(const EarlierSession& session);
  void savelog();
  void appendtolog(const std::vector<std::string>& lines);
  void openmixing();
  void showexportkey();
  void exportchart();
  void exportsheet();
  void printchart();
  void setuppage();
  QPageLayout page() const;
  void showhelp();
  void quitprogram();

  SessionValues values_;
  SessionLog log_;
  QMenu* earlier_;  ///< menu of the earlier sessions
  Strip* strip_;
  GraphView* graph_;
  ChartLifecycle lifecycle_;
  ChartCommands chart_;
  Instrument* instrument_;
  DocumentFiles* files_;
  StatusLine* status_;
  TypedPair* typed_;   ///< the boxes while a place of the chart is in them
  StripNotes* notes_;  ///< what is said in it and marked in the strip
  Sheets* sheets_;
  EntriesPanel* panel_;  ///< table beside the chart
  RangeFinders finders_;
  LastStreams lastmixing_;
  SaveDialog savedialog_;
  QPointer<Dialog> dialog_;
  QPointer<ChartTypeWindow> charttype_;
  QSize screen_;                     ///< size of the screen at start-up [pixels]
  std::optional<QPageLayout> page_;  ///< of printing, once it has been asked for
  QAction* undoaction_ = nullptr;
  QAction* redoaction_ = nullptr;
  QAction* againaction_ = nullptr;
  QAction* exportchartaction_ = nullptr;
  QAction* exportsheetaction_ = nullptr;
  std::vector<std::size_t> lifted_;             ///< entries lifted out on the chart
  QString firstfile_;                           ///< to be opened once the pressure window is left
  std::optional<PressureEntry> firstpressure_;  ///< set in that window
  bool panelplaced_ = false;
  bool loaded_ = false;
  bool begun_ = false;  ///< whether that window has been left
};

}  // namespace moistair
