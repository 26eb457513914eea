// The windows that the main window opens, in the order of the flow: pressure, chart type, report, log, mixing.
#include <QDesktopServices>
#include <QFileInfo>
#include <QMenu>
#include <QTimer>
#include <QUrl>
#include <QWindow>

#include "engine/pressureunits.h"
#include "shell/entriesdock.h"
#include "shell/mainwindow.h"
#include "shell/sheets.h"
#include "shell/startup.h"
#include "toolkit/messages.h"
#include "toolkit/remembered.h"
#include "windows/logwindow.h"
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
  const Pressure& file = chart_->document().pressure;
  const Pressure typed{set, lenientNumber(pressureFor(set).inhg.value_or(std::string()))};
  if (samePressure(file.atm, typed.atm)) return;
  const QString text = QStringLiteral(
      "%1 was made at %2, and you have set %3. Which pressure holds? With the one that you have set "
      "the file's chart is cleared, and its entries can be put on a new one.");
  const bool keep = choice(this, text.arg(QFileInfo(firstFile_).fileName(), pressureWords(file), pressureWords(typed)),
                           QStringLiteral("The &file's"), QStringLiteral("The one I have &set"));
  if (keep) return;
  chart_->setCurrentPressure(*pressureFor(set).inhg);
  chart_->changePressure(set);
}

/// Limits that may not be drawn, and a chart that has to be drawn first, come with a Cancel that means nothing.
void MainWindow::answer(const Error& error) {
  const QString text = QString::fromStdString(error.words);
  const bool withCancel = error.code == ErrorCode::outOfRange || error.code == ErrorCode::waiting;
  withCancel ? messageOkCancel(this, text) : message(this, text);
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
  const auto makeCurrent = [this](const std::string& inhg) { chart_->setCurrentPressure(inhg); };
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
  chart_->changePressure(entry);
  leaveDialog();
}

void MainWindow::openChartType() {
  if (!chartType_) {
    chartType_ = new ChartTypeWindow;
    stayAbove(*chartType_, *this);
    connect(chartType_, &ChartTypeWindow::chosen, this, [this](ChartType type) {
      dismiss(chartType_);
      chart_->drawChart(type);
    });
    connect(chartType_, &ChartTypeWindow::left, this, [this] { dismiss(chartType_); });
  }
  chartType_->showNormal();  // also from its icon
  chartType_->raise();
  chartType_->activateWindow();
}

void MainWindow::openReport(const PointReport& report, const PairInput& input) {
  auto* window = new ReportWindow(this, report);
  connect(window, &ReportWindow::saveChosen, this, [this, window] { log_->append(pointRecord(window->report())); });
  connect(window, &ReportWindow::markChosen, this, [this, window, input] {
    chart_->markPoint(window->report(), input);
    leaveDialog();
  });
  connect(window, &ReportWindow::left, this, &MainWindow::leaveDialog);
  openDialog(window);
}

void MainWindow::openLog(const QString& content, const QString& title) {
  auto* window = new LogWindow(this, content);
  if (!title.isEmpty()) window->setWindowTitle(title);
  connect(window, &LogWindow::left, this, &MainWindow::leaveDialog);
  openDialog(window);
}

/// The menu holds what is there when it opens.
void MainWindow::listSessions(QMenu& menu) {
  menu.clear();
  for (const LogController::Kept& kept : log_->earlier()) {
    menu.addAction(kept.caption, this, [this, kept] {
      kept.work ? files_->openRecovered(kept.session.file) : log_->viewSession(kept.session);
    });
  }
  menu.setEnabled(!menu.isEmpty());
}

void MainWindow::openMixing() {
  if (leavesForSmallScreen(this)) {
    Q_EMIT ended();
    return;
  }
  auto* window = new MixingWindow({chart_->document().atm(), chart_->document().pressure.entry},
                                  {[this] { return strip_->limitTexts(); },
                                   [this](const MixingProblem& problem, const ChartLimits& limits) {
                                     return chart_->commands().drawMixture(problem, limits, windowSize());
                                   },
                                   pointsOf(chart_->document())},
                                  lastMixing_, this);
  connect(window, &MixingWindow::saveChosen, log_, &LogController::append);
  connect(window, &MixingWindow::drawn, this, &MainWindow::closeDialog);
  connect(window, &MixingWindow::left, this, [this] {
    strip_->waitCue(false);
    leaveDialog();
  });
  openDialog(window);
}

/// What was remembered is forgotten, and what can be seen of it is as at the first start.
void MainWindow::resetView() {
  forgetAll();
  entries_->reset();
  sheets_->reset();
  focusGraph();
}

void MainWindow::showHelp() {
  const QString path = helpPath();
  if (!path.isEmpty()) QDesktopServices::openUrl(QUrl::fromLocalFile(path));
  focusGraph();
}

}  // namespace moistair
