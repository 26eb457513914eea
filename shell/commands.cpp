// What each button and menu entry of the main window runs, and the windows they open.
#include <QDesktopServices>
#include <QFileInfo>
#include <QTimer>
#include <QUrl>
#include <QWindow>

#include "chart/pointmark.h"
#include "engine/pressureunits.h"
#include "model/pointreport.h"
#include "paint/exports.h"
#include "shell/chartexport.h"
#include "shell/filewriting.h"
#include "shell/mainwindow.h"
#include "shell/sheets.h"
#include "shell/startup.h"
#include "toolkit/filename.h"
#include "toolkit/messages.h"
#include "windows/pressurewindow.h"
#include "windows/reportwindow.h"

namespace moistair {

namespace {

/// "24.8961 in Hg, 5000 ft"
QString pressureWords(const Pressure& pressure) {
  const std::string inhg = inhgWords(pressure.atm);
  const std::string entry = entryWords(pressure);
  return QString::fromStdString(inhg == entry ? inhg : inhg + ", " + entry);
}

/// Takes a window away. It is destroyed once its own event is over.
template <class Window>
void dismiss(QPointer<Window>& window) {
  if (!window) return;
  window->hide();
  window->deleteLater();
  window = nullptr;
}

}  // namespace

void MainWindow::openDialog(Dialog* dialog) {
  dialog_ = dialog;
  dialog->show();
  if (!chartType_) return;
  stayAbove(*chartType_, *dialog);
  dialog->windowHandle()->installEventFilter(this);
}

/// Gives the input back to this window and destroys the dialog that took it.
void MainWindow::closeDialog() {
  if (chartType_) stayAbove(*chartType_, *this);
  dismiss(dialog_);
  activateWindow();
}

void MainWindow::leaveDialog() {
  closeDialog();
  focusGraph();
  if (!begun_) QTimer::singleShot(0, this, &MainWindow::beginWork);
  begun_ = true;
}

/// The pressure window of the start is left: now for the file that the program was started with, and for what a session
/// before may have left behind.
void MainWindow::beginWork() {
  if (!firstFile_.isEmpty() && files_->open(firstFile_) && firstPressure_) settlePressure(*firstPressure_);
  files_->offerRecoveredWork();
}

/// The file that the program was started with has a pressure, and another one was set before it was opened.
void MainWindow::settlePressure(const PressureEntry& set) {
  const Pressure& file = chart_.document().pressure;
  const Pressure typed{set, lenientNumber(pressureFor(set).inhg.value_or(std::string()))};
  if (samePressure(file.atm, typed.atm)) return;
  const QString text = QStringLiteral(
      "%1 was made at %2, and you have set %3. Which pressure holds? With the one that you have set "
      "the file's chart is cleared, and its entries can be put on a new one.");
  const bool keep = choice(this, text.arg(QFileInfo(firstFile_).fileName(), pressureWords(file), pressureWords(typed)),
                           QStringLiteral("The &file's"), QStringLiteral("The one I have &set"));
  if (keep) return;
  chart_.setCurrentPressure(*pressureFor(set).inhg);
  startFresh(set);
}

void MainWindow::focusGraph() { graph_->setFocus(); }

void MainWindow::answer(const Refusal& refusal) {
  const QString text = QString::fromUtf8(refusal.text);
  refusal.withCancel ? messageOkCancel(this, text) : message(this, text);
}

/// A line of relative humidity that does not cross the chart gets a message, whatever the search then finds.
void MainWindow::warnOutOfSight(const Resolution& resolution) {
  if (resolution.unseenLine == PropertyKind::rh) message(this, QString::fromUtf8(lineNotFeasible));
}

void MainWindow::openPressure() {
  if (dialog_) return;
  if (!loaded_) {
    if (!loadMain()) return;
    loaded_ = true;
    resize(screen()->availableSize() * 0.9);  // what restoring gives
    showMaximized();
  }
  auto* window = new PressureWindow(this, waitingWords());
  const auto makeCurrent = [this](const std::string& inhg) { chart_.setCurrentPressure(inhg); };
  makeCurrent(defaultPressureText);
  connect(window, &PressureWindow::pressureWritten, this, makeCurrent);
  connect(window, &PressureWindow::pressureSet, this, &MainWindow::changePressure);
  connect(window, &PressureWindow::left, this, &MainWindow::leaveDialog);
  openDialog(window);
}

/// What the first pressure window says of the file that is opened after it.
QString MainWindow::waitingWords() const {
  if (begun_ || firstFile_.isEmpty()) return {};
  const QString name = QFileInfo(firstFile_).fileName();
  const auto pressure = pressureOfFile(firstFile_);
  if (!pressure) return QStringLiteral("%1 is opened after this window.").arg(name);
  return QStringLiteral("%1 is opened after this window. It was made at %2.").arg(name, pressureWords(*pressure));
}

void MainWindow::changePressure(const PressureEntry& entry) {
  if (!begun_) firstPressure_ = entry;
  startFresh(entry);
  leaveDialog();
}

/// A chart is drawn for one pressure, so a new one starts everything from scratch.
void MainWindow::startFresh(const PressureEntry& entry) {
  strip_->emptyInputs();
  strip_->emptyReadouts(true);
  chart_.changePressure(entry, windowSize());
}

void MainWindow::startDraw() {
  if (const auto refusal = chart_.startDraw(strip_->limitTexts())) {
    answer(*refusal);
    focusGraph();
    return;
  }
  if (!chartType_) {
    chartType_ = new ChartTypeWindow;
    stayAbove(*chartType_, *this);
    connect(chartType_, &ChartTypeWindow::chosen, this, &MainWindow::drawChart);
    connect(chartType_, &ChartTypeWindow::left, this, [this] { dismiss(chartType_); });
  }
  chartType_->showNormal();  // also from its icon
  chartType_->raise();
  chartType_->activateWindow();
}

void MainWindow::drawChart(ChartType chartType) {
  chart_.chooseType(chartType);
  dismiss(chartType_);
  if (const auto refusal = chart_.testLimits(strip_->limitTexts())) {
    answer(*refusal);
  } else if (!hasCurrentChart(chart_.document())) {
    strip_->waitCue(true);
    chart_.drawChart(windowSize());
    strip_->waitCue(false);
  }
  focusGraph();
}

void MainWindow::drawLine(LineKind kind, const QLineEdit& value) {
  strip_->waitCue(true);
  const auto refusal = chart_.drawLine(kind, strip_->limitTexts(), value.text().toStdString(), windowSize());
  if (refusal) answer(*refusal);
  strip_->waitCue(false);
  focusGraph();
}

void MainWindow::locatePoint() {
  const auto hasCurrentChart = [this] {
    chart_.readLimits(strip_->limitTexts());
    return moistair::hasCurrentChart(chart_.document());
  };
  const PairInput input = strip_->pairInput();
  const Location location =
      moistair::locatePoint(input, hasCurrentChart, chart_.document().atm(), finders_, solverFields_);
  notes_->located(location);
  warnOutOfSight(location.resolution);
  if (location.refusal) {
    answer(*location.refusal);
    focusGraph();
    return;
  }
  auto* window = new ReportWindow(this, fillReport(location.resolution.point, strip_->pointId->text().toStdString(),
                                                   chart_.document().pressure.entry));
  connect(window, &ReportWindow::saveChosen, this, [this, window] { appendToLog(pointRecord(window->report())); });
  connect(window, &ReportWindow::markChosen, this, [this, window, input] { markPoint(*window, input); });
  connect(window, &ReportWindow::left, this, &MainWindow::leaveDialog);
  openDialog(window);
}

void MainWindow::markPoint(const ReportWindow& report, const PairInput& input) {
  const StatePoint shown = readReport(report.report());
  strip_->emptyReadouts(true);
  strip_->waitCue(true);
  const bool marked =
      chart_.markPoint(input, shown, strip_->limitTexts(), strip_->pointId->text().toStdString(), windowSize());
  if (marked) strip_->show(shown);
  notes_->rowShown();
  if (!marked) message(dialog_, QString::fromUtf8(pointOutOfLimits));
  strip_->waitCue(false);
  leaveDialog();
}

void MainWindow::clearChart() {
  chart_.clearChart();
  strip_->emptyInputs();
  strip_->emptyReadouts(false);
  focusGraph();
}

/// Asks for a path; none, and the answer to it, if the user cancels.
std::optional<QString> MainWindow::askSavePath(const SaveRequest& request) {
  auto path = saveDialog_.ask(this, request);
  if (path) {
    message(this, QStringLiteral("You saved the files as  ") + *path);
  } else {
    message(this, QStringLiteral("Dialog Cancelled"));
  }
  return path;
}

void MainWindow::saveChart() {
  if (const auto path = askSavePath(
          {QStringLiteral("Save File"), {QStringLiteral("BMP File (*.bmp)"), QStringLiteral("AllFiles (*.*)")}})) {
    chart_.keepPicture();
    const auto reason = writePicture(*path, bmpContent(graph_->picture()), log_);
    status_->answerFile(QStringLiteral("chart"), *path, reason);
  }
  focusGraph();
}

void MainWindow::openMixing() {
  if (leavesForSmallScreen(this)) {
    Q_EMIT ended();
    return;
  }
  auto* window = new MixingWindow({chart_.document().atm(), chart_.document().pressure.entry},
                                  {[this] { return strip_->limitTexts(); },
                                   [this](const MixingProblem& problem, const ChartLimits& limits) {
                                     return chart_.drawMixture(problem, limits, windowSize());
                                   },
                                   pointsOf(chart_.document())},
                                  lastMixing_, this);
  connect(window, &MixingWindow::saveChosen, this, &MainWindow::appendToLog);
  connect(window, &MixingWindow::drawn, this, &MainWindow::closeDialog);
  connect(window, &MixingWindow::left, this, [this] {
    strip_->waitCue(false);
    leaveDialog();
  });
  openDialog(window);
}

/// Ctrl+E exports what is on the screen.
void MainWindow::showExportKey() {
  const QKeySequence key(Qt::CTRL | Qt::Key_E);
  const bool sheet = sheets_->isShown();
  exportChartAction_->setShortcut(sheet ? QKeySequence() : key);
  exportSheetAction_->setShortcut(sheet ? key : QKeySequence());
}

void MainWindow::exportChart() {
  const auto path = moistair::exportChart(this, log_, chart_.document(), centralWidget()->size());
  if (path) status_->answerFile(QStringLiteral("chart"), *path);
  focusGraph();
}

void MainWindow::exportSheet() {
  const auto path = sheets_->exportSheet();
  if (path) status_->answerFile(QStringLiteral("sheet"), *path);
  focusGraph();
}

/// Asked of the system at the first use: to look for a printer takes its time.
QPageLayout MainWindow::page() const { return page_ ? *page_ : firstPage(); }

void MainWindow::setupPage() {
  page_ = askPage(this, page());
  focusGraph();
}

void MainWindow::printChart() {
  page_ = sheets_->print(page());
  focusGraph();
}

void MainWindow::showHelp() {
  const QString path = helpPath();
  if (!path.isEmpty()) QDesktopServices::openUrl(QUrl::fromLocalFile(path));
  focusGraph();
}

void MainWindow::quitProgram() {
  endSession();
  Q_EMIT ended();
}

}  // namespace moistair
