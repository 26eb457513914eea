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
QString pressurewords(const Pressure& pressure) {
  const std::string inhg = inhgwords(pressure.atm);
  const std::string entry = entrywords(pressure);
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

void MainWindow::opendialog(Dialog* dialog) {
  dialog_ = dialog;
  dialog->show();
  if (!charttype_) return;
  standover(*charttype_, *dialog);
  dialog->windowHandle()->installEventFilter(this);
}

/// Gives the input back to this window and destroys the dialog that took it.
void MainWindow::closedialog() {
  if (charttype_) standover(*charttype_, *this);
  dismiss(dialog_);
  activateWindow();
}

void MainWindow::leavedialog() {
  closedialog();
  focusgraph();
  if (!begun_) QTimer::singleShot(0, this, &MainWindow::beginwork);
  begun_ = true;
}

/// The pressure window of the start is left: now for the file that the program was started with, and for what a session
/// before may have left behind.
void MainWindow::beginwork() {
  if (!firstfile_.isEmpty() && files_->open(firstfile_) && firstpressure_) settlepressure(*firstpressure_);
  files_->offerleftwork();
}

/// The file that the program was started with has a pressure, and another one was set before it was opened.
void MainWindow::settlepressure(const PressureEntry& set) {
  const Pressure& file = chart_.document().pressure;
  const Pressure typed{set, lenientnumber(pressurefor(set).inhg.value_or(std::string()))};
  if (samepressure(file.atm, typed.atm)) return;
  const QString text =
      tr("%1 was made at %2, and you have set %3. Which pressure holds? With the one that you have set "
         "the file's chart is cleared, and its entries can be put on a new one.");
  const bool keep = choice(this, text.arg(QFileInfo(firstfile_).fileName(), pressurewords(file), pressurewords(typed)),
                           tr("The &file's"), tr("The one I have &set"));
  if (keep) return;
  values_.pressure.settext(*pressurefor(set).inhg);
  startafresh(set);
}

void MainWindow::focusgraph() { graph_->setFocus(); }

void MainWindow::answer(const Refusal& refusal) {
  const QString text = QString::fromUtf8(refusal.text);
  refusal.withcancel ? messageokcancel(this, text) : message(this, text);
}

/// A line of relative humidity that crosses nothing of the chart is told, whatever the search then makes of it.
void MainWindow::telloutofsight(const Resolution& resolution) {
  if (resolution.unseenline == PropertyKind::rh) message(this, QString::fromUtf8(linenotfeasible));
}

void MainWindow::openpressure() {
  if (dialog_) return;
  if (!loaded_) {
    if (!loadmain()) return;
    loaded_ = true;
    resize(screen()->availableSize() * 0.9);  // what restoring gives
    showMaximized();
  }
  auto* window = new PressureWindow(this, waitingwords());
  const auto putinforce = [this](const std::string& inhg) {
    values_.pressure.settext(inhg);
    notes_->follow();
  };
  putinforce(defaultpressuretext);
  connect(window, &PressureWindow::pressurewritten, this, putinforce);
  connect(window, &PressureWindow::pressureset, this, &MainWindow::changepressure);
  connect(window, &PressureWindow::left, this, &MainWindow::leavedialog);
  opendialog(window);
}

/// What the first pressure window says of the file that is opened after it.
QString MainWindow::waitingwords() const {
  if (begun_ || firstfile_.isEmpty()) return {};
  const QString name = QFileInfo(firstfile_).fileName();
  const auto pressure = pressureoffile(firstfile_);
  if (!pressure) return tr("%1 is opened after this window.").arg(name);
  return tr("%1 is opened after this window. It was made at %2.").arg(name, pressurewords(*pressure));
}

void MainWindow::changepressure(const PressureEntry& entry) {
  if (!begun_) firstpressure_ = entry;
  startafresh(entry);
  leavedialog();
}

/// A chart is drawn for one pressure, so a new one starts everything afresh.
void MainWindow::startafresh(const PressureEntry& entry) {
  strip_->emptyinputs();
  strip_->emptyreadouts(true);
  chart_.changepressure(entry, windowsize());
}

void MainWindow::startdraw() {
  if (const auto refusal = chart_.startdraw(strip_->limittexts())) {
    answer(*refusal);
    focusgraph();
    return;
  }
  if (!charttype_) {
    charttype_ = new ChartTypeWindow;
    standover(*charttype_, *this);
    connect(charttype_, &ChartTypeWindow::chosen, this, &MainWindow::drawchart);
    connect(charttype_, &ChartTypeWindow::left, this, [this] { dismiss(charttype_); });
  }
  charttype_->showNormal();  // also from its icon
  charttype_->raise();
  charttype_->activateWindow();
}

void MainWindow::drawchart(ChartType charttype) {
  values_.charttype = charttype;
  dismiss(charttype_);
  if (const auto refusal = lifecycle_.testlimits(strip_->limittexts())) {
    answer(*refusal);
  } else if (!lifecycle_.chartstands()) {
    strip_->waitcue(true);
    chart_.drawchart(windowsize());
    strip_->waitcue(false);
  }
  focusgraph();
}

void MainWindow::drawline(LineKind kind, const QLineEdit& value) {
  strip_->waitcue(true);
  const auto refusal = chart_.drawline(kind, strip_->limittexts(), value.text().toStdString(), windowsize());
  if (refusal) answer(*refusal);
  strip_->waitcue(false);
  focusgraph();
}

void MainWindow::locatepoint() {
  const auto chartstands = [this] {
    lifecycle_.readlimits(strip_->limittexts());
    return lifecycle_.chartstands();
  };
  const PairInput input = strip_->pairinput();
  const Location location =
      moistair::locatepoint(input, chartstands, lifecycle_.atmpressure(), finders_, values_.solverfields);
  notes_->located(location);
  telloutofsight(location.resolution);
  if (location.refusal) {
    answer(*location.refusal);
    focusgraph();
    return;
  }
  auto* window = new ReportWindow(
      this, fillreport(location.resolution.point, strip_->pointid->text().toStdString(), values_.pressureentry));
  connect(window, &ReportWindow::savechosen, this, [this, window] { appendtolog(pointrecord(window->report())); });
  connect(window, &ReportWindow::markchosen, this, [this, window, input] { markpoint(*window, input); });
  connect(window, &ReportWindow::left, this, &MainWindow::leavedialog);
  opendialog(window);
}

void MainWindow::markpoint(const ReportWindow& report, const PairInput& input) {
  const StatePoint shown = readreport(report.report());
  strip_->emptyreadouts(true);
  strip_->waitcue(true);
  const bool marked =
      chart_.markpoint(input, shown, strip_->limittexts(), strip_->pointid->text().toStdString(), windowsize());
  if (marked) strip_->show(shown);
  notes_->rowshown();
  if (!marked) message(dialog_, QString::fromUtf8(pointoutoflimits));
  strip_->waitcue(false);
  leavedialog();
}

void MainWindow::clearchart() {
  chart_.clearchart();
  strip_->emptyinputs();
  strip_->emptyreadouts(false);
  focusgraph();
}

/// Asks for a path; none, and the answer to it, if the user cancels.
std::optional<QString> MainWindow::asksavepath(const SaveRequest& request) {
  auto path = savedialog_.ask(this, request);
  if (path) {
    message(this, QStringLiteral("You saved the files as  ") + *path);
  } else {
    message(this, QStringLiteral("Dialog Cancelled"));
  }
  return path;
}

void MainWindow::savechart() {
  if (const auto path = asksavepath(
          {QStringLiteral("Save File"), {QStringLiteral("BMP File (*.bmp)"), QStringLiteral("AllFiles (*.*)")}})) {
    chart_.keeppicture();
    const auto reason = writepicture(*path, bmpcontent(graph_->picture()), log_);
    status_->answerfile(tr("chart"), *path, reason);
  }
  focusgraph();
}

void MainWindow::openmixing() {
  if (leavesforsmallscreen(this)) {
    Q_EMIT ended();
    return;
  }
  auto* window = new MixingWindow(values_,
                                  {[this] { return strip_->limittexts(); },
                                   [this](const MixingProblem& problem, const ChartLimits& limits) {
                                     return chart_.drawmixture(problem, limits, windowsize());
                                   }},
                                  lastmixing_, this);
  connect(window, &MixingWindow::savechosen, this, &MainWindow::appendtolog);
  connect(window, &MixingWindow::drawn, this, &MainWindow::closedialog);
  connect(window, &MixingWindow::left, this, [this] {
    strip_->waitcue(false);
    leavedialog();
  });
  opendialog(window);
}

/// Ctrl+E exports what is on the screen.
void MainWindow::showexportkey() {
  const QKeySequence key(Qt::CTRL | Qt::Key_E);
  const bool sheet = sheets_->isshown();
  exportchartaction_->setShortcut(sheet ? QKeySequence() : key);
  exportsheetaction_->setShortcut(sheet ? key : QKeySequence());
}

void MainWindow::exportchart() {
  const auto path = moistair::exportchart(this, log_, chart_.document(), centralWidget()->size());
  if (path) status_->answerfile(tr("chart"), *path);
  focusgraph();
}

void MainWindow::exportsheet() {
  const auto path = sheets_->exportsheet();
  if (path) status_->answerfile(tr("sheet"), *path);
  focusgraph();
}

/// Asked of the system at the first use: to look for a printer takes its time.
QPageLayout MainWindow::page() const { return page_ ? *page_ : firstpage(); }

void MainWindow::setuppage() {
  page_ = askpage(this, page());
  focusgraph();
}

void MainWindow::printchart() {
  page_ = sheets_->print(page());
  focusgraph();
}

void MainWindow::showhelp() {
  const QString path = helppath();
  if (!path.isEmpty()) QDesktopServices::openUrl(QUrl::fromLocalFile(path));
  focusgraph();
}

void MainWindow::quitprogram() {
  endsession();
  Q_EMIT ended();
}

}  // namespace moistair
