#include "shell/mainwindow.h"

#include <QCloseEvent>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QMenuBar>
#include <QScreen>
#include <QUrl>

#include "chart/scales.h"
#include "mixing/mixingwindow.h"
#include "paint/exports.h"
#include "paint/replay.h"
#include "pressure/pressureunits.h"
#include "pressure/pressurewindow.h"
#include "session/locate.h"
#include "session/logwindow.h"
#include "session/pointmark.h"
#include "session/pointreport.h"
#include "session/reportwindow.h"
#include "shell/chartexport.h"
#include "shell/startup.h"
#include "toolkit/messages.h"

namespace moistair {

namespace {

constexpr const char* logfailed =
    "The data of this session cannot be kept: the log file can not be written. Everything else works as usual.";
constexpr const char* appendfailed = "The data could not be saved: the log file can not be written.";
constexpr const char* viewfailed = "The saved data can not be shown: the log file can not be read.";

}  // namespace

MainWindow::MainWindow(std::filesystem::path logpath)
    : log_(std::move(logpath)),
      strip_(new Strip),
      graph_(new GraphView),
      lifecycle_(graph_->canvas(), values_),
      finders_(chartrangefinders(lifecycle_, {[this] { return strip_->limittexts(); }, [this] { return windowsize(); }},
                                 [this] { message(this, QString::fromUtf8(linenotfeasible)); })) {
  setObjectName(QStringLiteral("Form1"));
  setWindowTitle(QStringLiteral("Psychrometric chart - English Units"));
  auto* area = new QWidget;
  area->setMinimumSize(640, 400);
  setCentralWidget(area);
  strip_->setParent(area);
  graph_->setParent(area);
  graph_->setObjectName(QStringLiteral("graph"));
  graph_->setAccessibleName(tr("Psychrometric chart"));
  area->installEventFilter(this);
  QWidget::setTabOrder(strip_->lowdb, graph_);
  QWidget::setTabOrder(graph_, strip_->locatebutton);
  makemenus();
  connectstrip();
}

void MainWindow::makemenus() {
  QMenu* file = menuBar()->addMenu(tr("&File"));
  file->addAction(tr("&Export chart..."), this, &MainWindow::exportchart);
  file->addAction(tr("&Print..."), this, &MainWindow::printchart);
  file->addSeparator();
  file->addAction(tr("E&xit"), this, &MainWindow::quitprogram);
  QMenu* help = menuBar()->addMenu(tr("&Help"));
  help->addAction(tr("&Help"), this, &MainWindow::showhelp);
}

void MainWindow::connectstrip() {
  const auto command = [this](QPushButton* button, auto run) { connect(button, &QPushButton::clicked, this, run); };
  command(strip_->drawbutton, &MainWindow::startdraw);
  command(strip_->pressurebutton, &MainWindow::openpressure);
  command(strip_->locatebutton, &MainWindow::locatepoint);
  command(strip_->clearbutton, &MainWindow::clearchart);
  command(strip_->savechartbutton, &MainWindow::savechart);
  command(strip_->viewlogbutton, &MainWindow::viewlog);
  command(strip_->savelogbutton, &MainWindow::savelog);
  command(strip_->mixingbutton, &MainWindow::openmixing);
  command(strip_->helpbutton, &MainWindow::showhelp);
  command(strip_->exitbutton, &MainWindow::quitprogram);
  const auto line = [this](QPushButton* button, LineKind kind, const QLineEdit* value) {
    connect(button, &QPushButton::clicked, this, [this, kind, value] { drawline(kind, *value); });
  };
  line(strip_->rhlinebutton, LineKind::relativehumidity, strip_->rhvalue);
  line(strip_->wblinebutton, LineKind::wetbulb, strip_->wbvalue);
  line(strip_->hlinebutton, LineKind::enthalpy, strip_->hvalue);
  line(strip_->vlinebutton, LineKind::specificvolume, strip_->vvalue);
  for (ListBox* list : {strip_->firstkind, strip_->secondkind}) {
    connect(list, &ListBox::chosen, this, &MainWindow::previewpoint);
  }
  for (QLineEdit* box : {strip_->firstvalue, strip_->secondvalue}) {
    connect(box, &QLineEdit::textChanged, this, &MainWindow::previewpoint);
  }
}

bool MainWindow::start() {
  openpressure();
  return loaded_;
}

/// The load sequence, run once, before the first pressure is in force.
bool MainWindow::loadmain() {
  constexpr WindowSize layoutsize{10980, 7905};
  if (!(values_.pressure.lenient() > 0)) values_.pressure.settext(defaultpressuretext);
  printstartheader(graph_->canvas(), layoutsize, values_.pressure.lenient());
  if (leavesforsmallscreen(nullptr)) return false;
  filllists();
  values_.pressuremode = "0";
  values_.pressureentered = defaultpressuretext;
  screen_ = QGuiApplication::primaryScreen()->size();
  arrange();
  if (!log_.newlog()) message(this, QString::fromUtf8(logfailed));
  strip_->savelogbutton->setEnabled(false);
  return true;
}

void MainWindow::filllists() {
  strip_->lowdb->fill(drybulblimits);
  strip_->highdb->fill(drybulblimits);
  strip_->lowhr->fill(humidityratiolimits);
  strip_->highhr->fill(humidityratiolimits);
  strip_->lowdb->select(0);
  strip_->highdb->select(strip_->highdb->count() - 1);
  strip_->lowhr->select(0);
  strip_->highhr->select(strip_->highhr->count() - 1);
  strip_->firstkind->fill(kindtexts);
  strip_->secondkind->fill(kindtexts);
  strip_->firstkind->select(0);
  strip_->secondkind->select(1);
}

/// Gives the strip the window's width and the chart all that is below it. The chart is as large as the screen was at
/// the start and never smaller than what can be seen.
void MainWindow::arrange() {
  constexpr int belowgraph = 60;
  const QSize inner = centralWidget()->size();
  const int striproom = inner.height() / 6 - static_cast<int>(static_cast<double>(lineheight) / twipsperpixel);
  const int top = strip_->fit(inner.width(), striproom);
  strip_->setGeometry(0, 0, inner.width(), top);
  graph_->setGeometry(0, top, std::max(screen_.width(), inner.width()),
                      std::max(screen_.height() - top - belowgraph, inner.height() - top));
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == centralWidget() && event->type() == QEvent::Resize) arrange();
  return QMainWindow::eventFilter(watched, event);
}

WindowSize MainWindow::windowsize() const {
  return {centralWidget()->width() * twipsperpixel, centralWidget()->height() * twipsperpixel};
}

/// The live row: at every change of a kind or a value, and silent.
void MainWindow::previewpoint() {
  strip_->emptyreadouts(true);
  const PairInput input = pairinput();
  if (inputfault(input.kind1, input.kind2, input.value1, input.value2) != InputFault::none) return;
  const Resolution resolution = resolvepair(input.kind1, input.value1, input.kind2, input.value2,
                                            lifecycle_.atmpressure(), finders_, values_.solverfields);
  if (!resolution.resolved) return;
  strip_->show(resolution.point);
  if (loaded_ && !isVisible()) show();
}

PairInput MainWindow::pairinput() const {
  return {kindat(strip_->firstkind->selected()), kindat(strip_->secondkind->selected()),
          strip_->firstvalue->text().toStdString(), strip_->secondvalue->text().toStdString()};
}

void MainWindow::opendialog(Dialog* dialog) {
  dialog_ = dialog;
  dialog->show();
  if (charttype_) charttype_->raise();
}

/// Gives the input back to this window and destroys the dialog that took it.
void MainWindow::closedialog() {
  if (!dialog_) return;
  dialog_->hide();
  dialog_->deleteLater();
  dialog_ = nullptr;
  activateWindow();
}

void MainWindow::focusgraph() { graph_->setFocus(); }

void MainWindow::answer(const Refusal& refusal) {
  const QString text = QString::fromUtf8(refusal.text);
  refusal.withcancel ? messageokcancel(this, text) : message(this, text);
}

void MainWindow::openpressure() {
  if (dialog_) return;
  auto* window = new PressureWindow(this);
  if (!loaded_) {
    if (!loadmain()) return;
    loaded_ = true;
    showMaximized();
  }
  values_.pressure.settext(defaultpressuretext);
  connect(window, &PressureWindow::pressurewritten, this,
          [this](const std::string& inhg) { values_.pressure.settext(inhg); });
  connect(window, &PressureWindow::pressureset, this, &MainWindow::changepressure);
  connect(window, &PressureWindow::left, this, [this] {
    closedialog();
    focusgraph();
  });
  opendialog(window);
}

/// A chart stands for one pressure, so a new one starts everything afresh.
void MainWindow::changepressure(int unit, const QString& entered) {
  strip_->emptyinputs();
  strip_->emptyreadouts(true);
  values_.pressuremode = std::to_string(unit);
  values_.pressureentered = entered.toStdString();
  lifecycle_.restart(windowsize());
  closedialog();
  focusgraph();
}

void MainWindow::startdraw() {
  if (const auto refusal = lifecycle_.startdraw(strip_->limittexts())) {
    answer(*refusal);
    focusgraph();
    return;
  }
  if (!charttype_) {
    charttype_ = new ChartTypeWindow;
    connect(charttype_, &ChartTypeWindow::chosen, this, &MainWindow::drawchart);
    connect(charttype_, &ChartTypeWindow::left, charttype_, &QObject::deleteLater);
  }
  charttype_->show();
  charttype_->raise();
  charttype_->activateWindow();
}

void MainWindow::drawchart(const QString& charttype) {
  values_.charttype = charttype.toStdString();
  charttype_->hide();
  charttype_->deleteLater();
  charttype_ = nullptr;
  const LimitTexts limits = strip_->limittexts();
  if (const auto refusal = lifecycle_.testlimits(limits)) {
    answer(*refusal);
  } else if (!lifecycle_.chartstands(limits)) {
    strip_->waitcue(true);
    lifecycle_.drawchart(windowsize());
    strip_->waitcue(false);
  }
  focusgraph();
}

void MainWindow::drawline(LineKind kind, const QLineEdit& value) {
  strip_->waitcue(true);
  const auto refusal = lifecycle_.drawline(kind, strip_->limittexts(), value.text().toStdString(), windowsize());
  if (refusal) answer(*refusal);
  strip_->waitcue(false);
  focusgraph();
}

void MainWindow::locatepoint() {
  const auto chartstands = [this] { return lifecycle_.chartstands(strip_->limittexts()); };
  const Location location =
      moistair::locatepoint(pairinput(), chartstands, lifecycle_.atmpressure(), finders_, values_.solverfields);
  if (location.fault != LocateFault::none) {
    answer({locatemessage(location.fault), location.fault == LocateFault::nochart});
    focusgraph();
    return;
  }
  auto* window = new ReportWindow(this, fillreport(location.point, strip_->pointid->text().toStdString(),
                                                   values_.pressuremode, values_.pressureentered));
  connect(window, &ReportWindow::savechosen, this, [this, window] { appendtolog(pointrecord(window->report())); });
  connect(window, &ReportWindow::markchosen, this, [this, window] { markpoint(*window); });
  connect(window, &ReportWindow::left, this, [this] {
    closedialog();
    focusgraph();
  });
  opendialog(window);
}

void MainWindow::markpoint(const ReportWindow& report) {
  const StatePoint shown = readreport(report.report());
  strip_->emptyreadouts(true);
  strip_->waitcue(true);
  const bool marked = moistair::markpoint(graph_->canvas(), shown, strip_->limittexts(), windowsize(),
                                          strip_->pointid->text().toStdString());
  if (marked) {
    strip_->show(shown);
  } else {
    message(dialog_, QString::fromUtf8(pointoutoflimits));
  }
  strip_->waitcue(false);
  closedialog();
  focusgraph();
}

void MainWindow::clearchart() {
  lifecycle_.clearchart();
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
    graph_->canvas().KeepPicture();
    writebmp(graph_->drawing(), graph_->size(), devicePixelRatio(), *path);
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
  connect(window, &LogWindow::left, this, [this] {
    closedialog();
    focusgraph();
  });
  opendialog(window);
}

void MainWindow::savelog() {
  if (const auto path = asksavepath({QStringLiteral("Save Pont data in File"),
                                     {QStringLiteral("Txt File (*.txt)"), QStringLiteral("AllFiles (*.*)")}})) {
    log_.copyto(path->toStdString());
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
  const MixingChart chart{graph_->canvas(), [this] { return strip_->limittexts(); }, [this] { return windowsize(); }};
  auto* window = new MixingWindow(values_, chart, this);
  connect(window, &MixingWindow::savechosen, this, &MainWindow::appendtolog);
  connect(window, &MixingWindow::drawn, this, &MainWindow::closedialog);
  connect(window, &MixingWindow::left, this, [this] {
    closedialog();
    strip_->waitcue(false);
    focusgraph();
  });
  opendialog(window);
}

void MainWindow::exportchart() {
  moistair::exportchart(this, graph_->drawing(), centralWidget()->size());
  focusgraph();
}

void MainWindow::printchart() {
  moistair::printchart(this, graph_->drawing(), centralWidget()->size());
  focusgraph();
}

void MainWindow::showhelp() {
  const QString path = helppath();
  if (!path.isEmpty()) QDesktopServices::openUrl(QUrl::fromLocalFile(path));
  focusgraph();
}

void MainWindow::quitprogram() {
  log_.remove();
  Q_EMIT ended();
}

/// A click on this window while a dialog keeps the user out would take the keys from the dialog.
bool MainWindow::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate && dialog_) dialog_->activateWindow();
  return QMainWindow::event(event);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (!dialog_) quitprogram();
}

}  // namespace moistair
