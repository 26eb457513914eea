// What each button and menu entry of the main window runs.
#include <QDateTime>
#include <QDesktopServices>
#include <QMenu>
#include <QTimer>
#include <QUrl>
#include <QWindow>
#include <algorithm>

#include "document/again.h"
#include "document/documentfile.h"
#include "paint/exports.h"
#include "session/earliersessions.h"
#include "session/outputfile.h"
#include "session/pointmark.h"
#include "session/pointreport.h"
#include "session/pressureunits.h"
#include "shell/chartexport.h"
#include "shell/filewriting.h"
#include "shell/mainwindow.h"
#include "shell/startup.h"
#include "toolkit/filename.h"
#include "toolkit/messages.h"
#include "windows/logwindow.h"
#include "windows/mixingwindow.h"
#include "windows/pressurewindow.h"
#include "windows/reportwindow.h"

namespace moistair {

namespace {

constexpr const char* appendfailed = "The data could not be saved: the log file cannot be written.";
constexpr const char* holdsthelog = "This file holds the saved data of this session. The chart was not saved.";
constexpr const char* sessiongone = "The data of this session cannot be shown: its file cannot be read.";
constexpr const char* viewfailed = "The saved data cannot be shown: the log file cannot be read.";

/// When something was last saved in a session, by the clock on the wall.
QString timeof(const EarlierSession& session) {
  return QDateTime::fromSecsSinceEpoch(session.lastsaved).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

/// What could not be put on a chart again, as many as a message has room for.
QString leftouttext(const std::vector<LeftOut>& leftout) {
  constexpr std::size_t most = 15;
  QString text = QStringLiteral("Not on this chart:");
  for (std::size_t i = 0; i < std::min(most, leftout.size()); ++i) {
    text += QLatin1Char('\n') + QString::fromStdString(captionof(leftout[i].entry)) + QStringLiteral(": ") +
            QString::fromStdString(leftout[i].reason);
  }
  if (leftout.size() > most) text += QStringLiteral("\nand %1 more").arg(leftout.size() - most);
  return text;
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
  if (!firstfile_.isEmpty()) files_->open(firstfile_);
  files_->offerleftwork();
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
  auto* window = new PressureWindow(this);
  values_.pressure.settext(defaultpressuretext);
  connect(window, &PressureWindow::pressurewritten, this,
          [this](const std::string& inhg) { values_.pressure.settext(inhg); });
  connect(window, &PressureWindow::pressureset, this, &MainWindow::changepressure);
  connect(window, &PressureWindow::left, this, &MainWindow::leavedialog);
  opendialog(window);
}

/// A chart stands for one pressure, so a new one starts everything afresh.
void MainWindow::changepressure(const PressureEntry& entry) {
  strip_->emptyinputs();
  strip_->emptyreadouts(true);
  chart_.changepressure(entry, windowsize());
  leavedialog();
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
  const PairInput input = pairinput();
  const Location location =
      moistair::locatepoint(input, chartstands, lifecycle_.atmpressure(), finders_, values_.solverfields);
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
  if (marked) {
    strip_->show(shown);
  } else {
    message(dialog_, QString::fromUtf8(pointoutoflimits));
  }
  strip_->waitcue(false);
  leavedialog();
}

void MainWindow::clearchart() {
  chart_.clearchart();
  strip_->emptyinputs();
  strip_->emptyreadouts(false);
  focusgraph();
}

void MainWindow::undo() {
  step([this] { chart_.undo(windowsize()); });
}

void MainWindow::redo() {
  step([this] { chart_.redo(windowsize()); });
}

/// The lines and points of the chart before, worked out anew for the one that stands. What does not come through is
/// told, with its reason.
void MainWindow::again() {
  const auto limits = standinglimits(chart_.document());
  if (!limits) return;
  const Setting setting{*limits, {values_.pressureentry, lifecycle_.atmpressure()}};
  strip_->waitcue(true);
  Again found = moistair::again(chart_.history().chartbefore(), setting, windowsize());
  strip_->waitcue(false);
  if (!found.entries.empty()) {
    step([&] { chart_.change(additions(chart_.document(), std::move(found.entries), againname), windowsize()); });
  }
  if (!found.leftout.empty()) message(this, leftouttext(found.leftout));
  focusgraph();
}

/// A step through what was done to the chart. It can bring another pressure in force, which the live row then shows.
void MainWindow::step(const std::function<void()>& change) {
  const std::string pressure = values_.pressure.text();
  change();
  if (values_.pressure.text() != pressure) previewpoint();
  focusgraph();
}

/// Another document in place of what stands: its chart's limits go into the lists, its pressure comes in force.
void MainWindow::showdocument(Document document, bool fresh) {
  const Entry* chart = lastchart(document);
  if (chart != nullptr) values_.charttype = std::get<DrawnChart>(chart->content).type;
  const auto limits = standinglimits(document);
  if (limits) {
    strip_->setlimits(*limits);
  } else if (chart != nullptr) {
    strip_->setlimits(chart->setting.limits);
  }
  if (fresh) {
    strip_->emptyinputs();
    strip_->emptyreadouts(true);
  }
  step([&] { chart_.open(std::move(document), windowsize()); });
}

/// The table stands beside the chart where the window is wide enough for both, and else over the part of the chart
/// where no air is.
void MainWindow::placepanel(bool shown) {
  if (!shown) {
    lift({});
    return;
  }
  constexpr QSize overchart(480, 260);
  const bool room = width() >= centralWidget()->minimumWidth() + overchart.width();
  panel_->setFloating(!room);
  if (room) {
    resizeDocks({panel_}, {width() - centralWidget()->minimumWidth()}, Qt::Horizontal);
  } else {
    constexpr QPoint margin(90, 40);
    panel_->setGeometry(QRect(graph_->mapToGlobal(QPoint(0, 0)) + margin, overchart));
  }
  panel_->show(chart_.document());
}

/// Lifts entries of the document out on the chart; a chart itself would be all of it.
void MainWindow::lift(const std::vector<std::size_t>& entries) {
  lifted_ = entries;
  RecordingCanvas canvas;
  for (const std::size_t place : entries) {
    const Entry& entry = chart_.document().entries[place];
    const bool part =
        !std::holds_alternative<DrawnChart>(entry.content) && !std::holds_alternative<HeaderLine>(entry.content);
    if (part) draw(entry, canvas, windowsize());
  }
  graph_->lift(canvas.drawing());
}

void MainWindow::writecsv(const std::string& table) {
  SaveDialog dialog;
  const QString title = tr("Write as CSV");
  const auto chosen = dialog.ask(this, {title, {tr("CSV file (*.csv)"), tr("All files (*)")}});
  if (!chosen) return;
  const auto path = completename(this, title, *chosen, {QStringLiteral(".csv")});
  if (!path) return;
  const auto reason = writebytes(*path, table);
  if (reason) message(this, QStringLiteral("The table could not be written to ") + *path + QLatin1Char('\n') + *reason);
}

/// Says in the menu what could be undone and done again.
void MainWindow::showhistory() {
  const auto show = [](QAction& action, const QString& word, const std::string& name) {
    action.setEnabled(!name.empty());
    action.setText(name.empty() ? word
                                : word + QLatin1Char(' ') +
                                      QString::fromStdString(name).replace(QLatin1Char('&'), QStringLiteral("&&")));
  };
  show(*undoaction_, tr("&Undo"), chart_.history().undoname());
  show(*redoaction_, tr("&Redo"), chart_.history().redoname());
  againaction_->setEnabled(standinglimits(chart_.document()) && !chart_.history().chartbefore().empty() &&
                           chart_.history().undoname() != againname);
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
    const auto name = nativename(*path);
    if (name && log_.isat(*name)) {
      message(this, QString::fromUtf8(holdsthelog));
    } else if (name) {
      const QByteArray picture = bmpcontent(graph_->picture());
      if (!picture.isEmpty()) writefile(*name, {picture.data(), static_cast<std::size_t>(picture.size())});
    }
  }
  focusgraph();
}

void MainWindow::viewlog() {
  const auto text = log_.read();
  if (!text) {
    message(this, QString::fromUtf8(viewfailed));
    focusgraph();
    return;
  }
  auto* window = new LogWindow(this, QString::fromStdString(*text));
  connect(window, &LogWindow::left, this, &MainWindow::leavedialog);
  opendialog(window);
}

/// The menu holds what is there when it opens: other copies of the program add to it.
void MainWindow::listsessions() {
  earlier_->clear();
  for (const EarlierSession& session : earliersessions(log_.sessions())) {
    earlier_->addAction(timeof(session), this, [this, session] { viewsession(session); });
  }
  for (const EarlierSession& work : earliersessions(log_.sessions(), documentending)) {
    earlier_->addAction(timeof(work) + tr(", unsaved chart"), this, [this, work] { files_->openkept(work.file); });
  }
  earlier_->setEnabled(!earlier_->isEmpty());
}

void MainWindow::viewsession(const EarlierSession& session) {
  const auto text = readlog(session.file);
  if (!text) {
    message(this, QString::fromUtf8(sessiongone));
    focusgraph();
    return;
  }
  auto* window = new LogWindow(this, QString::fromStdString(*text));
  window->setWindowTitle(QStringLiteral("Saved data of ") + timeof(session));
  connect(window, &LogWindow::left, this, &MainWindow::leavedialog);
  opendialog(window);
}

void MainWindow::savelog() {
  if (const auto path = asksavepath({QStringLiteral("Save Pont data in File"),
                                     {QStringLiteral("Txt File (*.txt)"), QStringLiteral("AllFiles (*.*)")}})) {
    if (const auto name = nativename(*path)) log_.copyto(*name);
  }
  focusgraph();
}

void MainWindow::appendtolog(const std::vector<std::string>& lines) {
  if (log_.append(lines)) {
    strip_->savelogbutton->setEnabled(true);
  } else {
    message(dialog_, QString::fromUtf8(appendfailed));
  }
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
                                  this);
  connect(window, &MixingWindow::savechosen, this, &MainWindow::appendtolog);
  connect(window, &MixingWindow::drawn, this, &MainWindow::closedialog);
  connect(window, &MixingWindow::left, this, [this] {
    strip_->waitcue(false);
    leavedialog();
  });
  opendialog(window);
}

void MainWindow::exportchart() {
  moistair::exportchart(this, chart_.document(), centralWidget()->size());
  focusgraph();
}

/// Asked of the system at the first use: to look for a printer takes its time.
QPageLayout MainWindow::page() const { return page_ ? *page_ : firstpage(); }

void MainWindow::setuppage() {
  page_ = askpage(this, page());
  focusgraph();
}

void MainWindow::printchart() {
  page_ = moistair::printchart(this, chart_.document(), page());
  focusgraph();
}

void MainWindow::showhelp() {
  const QString path = helppath();
  if (!path.isEmpty()) QDesktopServices::openUrl(QUrl::fromLocalFile(path));
  focusgraph();
}

void MainWindow::endsession() {
  files_->end();
  log_.end();
}

void MainWindow::quitprogram() {
  endsession();
  Q_EMIT ended();
}

}  // namespace moistair
