#include "shell/mainwindow.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QMenuBar>
#include <QScreen>
#include <QWindow>
#include <cmath>

#include "shell/chartmenu.h"
#include "shell/chartpointer.h"
#include "shell/editmenu.h"
#include "shell/entriesdock.h"
#include "shell/filecommands.h"
#include "shell/sheets.h"
#include "shell/startup.h"
#include "shell/statusline.h"
#include "shell/stripnotes.h"
#include "shell/typedpair.h"
#include "shell/weathercommands.h"
#include "shell/zones.h"
#include "toolkit/messages.h"
#include "windows/about.h"

namespace moistair {

namespace {

constexpr const char* logFailed =
    "The data of this session cannot be kept: the log file cannot be written. Everything else works as usual.";

/// Smallest room below the menus for a strip: under it, a sixth of the height is left below the plot for the dry-bulb
/// scale and its texts. A screen that has not so much room has all that it can give.
QSize leastArea(const QSize& strip) {
  constexpr int menuAndStatus = 80;  // pixels, with the window's frame
  const int line = static_cast<int>(std::ceil(double{lineHeight} / twipsPerPixel));
  const int screen = QGuiApplication::primaryScreen()->availableSize().height() - menuAndStatus;
  return {strip.width(), std::max(4 * strip.height(), std::min(6 * (strip.height() + line), screen))};
}

}  // namespace

MainWindow::MainWindow(LogPlaces logPlaces)
    : strip_(new Strip),
      graph_(new GraphView),
      chart_(new ChartController(
          graph_->canvas(),
          {[this] { return strip_->limitTexts(); }, [this] { return strip_->pairInput(); },
           [this] { return strip_->pointId->text().toStdString(); }, [this] { return windowSize(); }},
          this)),
      log_(new LogController(std::move(logPlaces), this)),
      status_(new StatusLine),
      typed_(new TypedPair(*strip_)),
      files_(new FilesController(*chart_, log_->log(), fileDialogs(*this), this)),
      notes_(new StripNotes(*strip_, *status_, *chart_, log_->log())),
      sheets_(new Sheets(*this, *graph_, *chart_, log_->log(), [this] { return visiblePlot(); })),
      fileCommands_(new FileCommands(*this, *graph_, *chart_, *sheets_, *log_)),
      entries_(new EntriesDock(*this, *graph_, *chart_, *sheets_, log_->log())),
      pointer_(new ChartPointer(*graph_, *chart_, [this](const ChartLimits& limits) { return plotOf(limits); })),
      weather_(new WeatherCommands(*this, *graph_, *chart_, [this](const ChartLimits& limits) {
        return sheets_->isShown() ? std::nullopt : std::optional(plotOf(limits));
      })) {
  setObjectName(QStringLiteral("Form1"));
  setWindowTitle(QStringLiteral("Psychrometric chart - English Units"));
  auto* area = new QWidget;
  setCentralWidget(area);
  strip_->setParent(area);
  strip_->fit(0, 0);
  area->setMinimumSize(leastArea(strip_->minimumSizeHint()));
  for (QLineEdit* box : strip_->findChildren<QLineEdit*>())
    box->setAcceptDrops(false);  // a file is opened, not spelled
  graph_->setParent(area);
  graph_->setObjectName(QStringLiteral("graph"));
  graph_->setAccessibleName(QStringLiteral("Psychrometric chart"));
  area->installEventFilter(this);
  QWidget::setTabOrder(strip_->lowDb, graph_);
  QWidget::setTabOrder(graph_, strip_->locateButton);
  openDropped(*this, *files_);
  makeMenus();
  setStatusBar(status_);
  connectChart();
  connectStatus();
  connectLog();
  connectStrip();
}

/// What a command comes to, in the order in which it is to be seen.
void MainWindow::connectChart() {
  connect(chart_, &ChartController::rowEmptied, strip_, &Strip::emptyReadouts);
  connect(chart_, &ChartController::rowFilled, this, [this](const StatePoint& point) {
    strip_->show(point);
    if (loaded_ && !isVisible()) show();
  });
  connect(chart_, &ChartController::inputsEmptied, strip_, &Strip::emptyInputs);
  connect(chart_, &ChartController::limitsChosen, strip_, &Strip::setLimits);
  connect(chart_, &ChartController::waiting, strip_, &Strip::waitCue);
  connect(chart_, &ChartController::refused, this, &MainWindow::answer);
  connect(chart_, &ChartController::markRefused, this, [this](const QString& reason) { message(dialog_, reason); });
  connect(chart_, &ChartController::reported, this, [this](const QString& text) { message(this, text); });
  connect(chart_, &ChartController::typeAsked, this, &MainWindow::openChartType);
  connect(chart_, &ChartController::reportAsked, this, &MainWindow::openReport);
  connect(chart_, &ChartController::done, this, &MainWindow::focusGraph);
  // What is chosen on the chart goes the way of what is typed.
  PointerController& pointer = pointer_->controller();
  connect(sheets_, &Sheets::toggled, &pointer, &PointerController::follow);
  connect(&pointer, &PointerController::chosen, typed_, &TypedPair::take);
  connect(sheets_, &Sheets::toggled, weather_, &WeatherCommands::follow);
  connect(weather_, &WeatherCommands::refused, this, [this](const QString& reason) { message(this, reason); });
  connect(weather_, &WeatherCommands::done, this, &MainWindow::focusGraph);
  connect(&pointer, &PointerController::located, chart_, &ChartController::locatePoint);
  connect(&pointer, &PointerController::refused, this, [this](const QString& reason) { message(this, reason); });
}

void MainWindow::connectStatus() {
  connect(chart_, &ChartController::changed, status_, [this](ChangedPart part) {
    if (part == ChangedPart::content) status_->endAnswer();
  });
  connect(chart_, &ChartController::failed, status_,
          [this](const QString& words) { status_->answer(words, BoxMark::fault); });
  connect(files_, &FilesController::captionChanged, status_, [this] { status_->showDocument(files_->caption()); });
  connect(files_, &FilesController::keepTried, status_, &StatusLine::showUnkept);
  connect(fileCommands_, &FileCommands::written, status_, &StatusLine::answerFile);
  connect(fileCommands_, &FileCommands::done, this, &MainWindow::focusGraph);
  connect(entries_, &EntriesDock::written, status_, [this](const QString& path, const Outcome& outcome) {
    status_->answerFile(QStringLiteral("table"), path, outcome);
  });
  connect(status_, &StatusLine::headerchosen, chart_, &ChartController::adoptFilePressure);
  connect(status_, &StatusLine::exactChosen, notes_, &StripNotes::useExact);
  connect(status_, &StatusLine::offerChosen, this,
          [this](Offer offer) { offer == Offer::previous ? chart_->carryOver() : typed_->putBack(); });
  connect(typed_, &TypedPair::changed, this, [this] {
    status_->offer(Offer::typed, typed_->words(), QStringLiteral("Click, or press Ctrl+Z in one of the two boxes."));
  });
  status_->showDocument(files_->caption());
}

void MainWindow::connectLog() {
  connect(log_, &LogController::shown, this, &MainWindow::openLog);
  connect(log_, &LogController::unreadable, this, [this](const QString& text) {
    warning(this, text);
    focusGraph();
  });
  connect(log_, &LogController::appended, this, [this](const QString& words) {
    strip_->saveLogButton->setEnabled(true);
    status_->answer(words);
    if (auto* mixing = qobject_cast<MixingWindow*>(dialog_)) mixing->answer(words);
    notes_->follow();
  });
  connect(log_, &LogController::notAppended, this, [this](const QString& text) { warning(dialog_, text); });
}

void MainWindow::makeMenus() {
  QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
  fillFileMenu(*file, *files_);
  file->addSeparator();
  fileCommands_->fillMenu(*file);
  file->addSeparator();
  QMenu* earlier = file->addMenu(QStringLiteral("Earlier &sessions"));
  connect(file, &QMenu::aboutToShow, this, [this, earlier] { listSessions(*earlier); });
  file->addSeparator();
  file->addAction(QStringLiteral("E&xit"), this, &MainWindow::quitProgram);
  QMenu* edit = menuBar()->addMenu(QStringLiteral("&Edit"));
  new EditMenu(*edit, *chart_, *status_);
  notes_->fillMenu(*edit);
  QMenu* view = menuBar()->addMenu(QStringLiteral("&View"));
  entries_->fillViewMenu(*view);
  sheets_->fillViewMenu(*view);
  view->addSeparator();
  view->addAction(QStringLiteral("&Reset"), this, &MainWindow::resetView)
      ->setToolTip(QStringLiteral("Table, sheets and folder as before the first session"));
  QMenu* chart = menuBar()->addMenu(QStringLiteral("Cha&rt"));
  fillChartMenu(*chart, *strip_);
  auto* zones = new Zones(*this, *graph_, *chart_, [this](const ChartLimits& limits) {
    return sheets_->isShown() ? std::nullopt : std::optional(plotOf(limits));
  });
  connect(sheets_, &Sheets::toggled, zones, &Zones::follow);
  pointer_->fillMenu(*chart);
  chart->addSeparator();
  zones->fillMenu(*chart);
  weather_->fillMenu(*chart);
  QMenu* help = menuBar()->addMenu(QStringLiteral("&Help"));
  help->addAction(QStringLiteral("&Help"), this, &MainWindow::showHelp)->setShortcut(Qt::Key_F1);
  help->addAction(QStringLiteral("&About Moistair"), this, [this] { showAbout(this); });
}

void MainWindow::connectStrip() {
  pressByReturn(*strip_);
  const auto command = [](QPushButton* button, auto* receiver, auto run) {
    connect(button, &QPushButton::clicked, receiver, run);
  };
  command(strip_->drawButton, chart_, &ChartController::startDraw);
  command(strip_->pressureButton, this, &MainWindow::openPressure);
  command(strip_->locateButton, chart_, &ChartController::locatePoint);
  command(strip_->clearButton, chart_, &ChartController::clearChart);
  command(strip_->saveChartButton, fileCommands_, &FileCommands::saveChart);
  command(strip_->viewLogButton, log_, &LogController::view);
  command(strip_->saveLogButton, fileCommands_, &FileCommands::saveLog);
  command(strip_->mixingButton, this, &MainWindow::openMixing);
  command(strip_->helpButton, this, &MainWindow::showHelp);
  command(strip_->exitButton, this, &MainWindow::quitProgram);
  const auto line = [this](QPushButton* button, LineKind kind, const QLineEdit* value) {
    connect(button, &QPushButton::clicked, chart_,
            [this, kind, value] { chart_->drawLine(kind, value->text().toStdString()); });
  };
  line(strip_->rhLineButton, LineKind::relativeHumidity, strip_->rhValue);
  line(strip_->wbLineButton, LineKind::wetBulb, strip_->wbValue);
  line(strip_->hLineButton, LineKind::enthalpy, strip_->hValue);
  line(strip_->vLineButton, LineKind::specificVolume, strip_->vValue);
  for (ListBox* list : {strip_->firstKind, strip_->secondKind}) {
    connect(list, &ListBox::chosen, chart_, &ChartController::previewPoint);
  }
  for (QLineEdit* box : {strip_->firstValue, strip_->secondValue}) {
    connect(box, &QLineEdit::textChanged, chart_, &ChartController::previewPoint);
  }
}

bool MainWindow::start(const QString& file) {
  firstFile_ = file;
  openPressure();
  return loaded_;
}

/// The load sequence, run once, before the first pressure is set.
bool MainWindow::loadMain() {
  constexpr WindowSize layoutSize{10980, 7905};
  chart_->commands().start(layoutSize);
  if (leavesForSmallScreen(nullptr)) return false;
  fillLists();
  screen_ = QGuiApplication::primaryScreen()->size();
  arrange();
  if (!log_->log().newLog()) warning(this, QString::fromUtf8(logFailed));
  files_->collectRecoveredWork();
  strip_->saveLogButton->setEnabled(false);
  return true;
}

void MainWindow::fillLists() {
  strip_->lowDb->fill(dryBulbLimits);
  strip_->highDb->fill(dryBulbLimits);
  strip_->lowHr->fill(humidityRatioLimits);
  strip_->highHr->fill(humidityRatioLimits);
  strip_->lowDb->select(0);
  strip_->highDb->select(strip_->highDb->count() - 1);
  strip_->lowHr->select(0);
  strip_->highHr->select(strip_->highHr->count() - 1);
  strip_->firstKind->fill(kindTexts);
  strip_->secondKind->fill(kindTexts);
  strip_->firstKind->select(0);
  strip_->secondKind->select(1);
}

/// Gives the strip the window's width and the chart all that is below it. The chart is as large as the screen was at
/// the start and never smaller than what can be seen.
void MainWindow::arrange() {
  constexpr int belowGraph = 60;
  const QSize inner = centralWidget()->size();
  const int stripRoom = inner.height() / 6 - static_cast<int>(static_cast<double>(lineHeight) / twipsPerPixel);
  const int top = strip_->fit(inner.width(), stripRoom);
  strip_->setGeometry(0, 0, inner.width(), top);
  graph_->setGeometry(0, top, std::max(screen_.width(), inner.width()),
                      std::max(screen_.height() - top - belowGraph, inner.height() - top));
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == centralWidget() && event->type() == QEvent::Resize) {
    arrange();
    chart_->layout();
  }
  // A window manager puts the dialog that is clicked above the chart type window.
  const bool dialogComesUp = event->type() == QEvent::FocusIn || event->type() == QEvent::MouseButtonPress;
  if (dialogComesUp && chartType_ && dialog_ && watched == dialog_->windowHandle()) chartType_->raise();
  return QMainWindow::eventFilter(watched, event);
}

/// The part of the chart's widget that can be seen.
QSize MainWindow::visiblePlot() const { return {centralWidget()->width(), centralWidget()->height() - graph_->y()}; }

WindowSize MainWindow::windowSize() const {
  return {centralWidget()->width() * twipsPerPixel, centralWidget()->height() * twipsPerPixel};
}

/// Where the plot of limits lies on the chart's widget, which shows the drawing or a sheet.
PlotBox MainWindow::plotOf(const ChartLimits& limits) const {
  const auto sheet = sheets_->plot();
  return sheet ? *sheet : plotBox(plotArea(limits, windowSize()));
}

/// A click on this window while a dialog keeps the user out would take the keys from the dialog.
bool MainWindow::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate && dialog_) dialog_->activateWindow();
  return QMainWindow::event(event);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->setAccepted(!dialog_);
  if (!dialog_) quitProgram();
}

void MainWindow::endSession() {
  files_->end();
  log_->log().end();
}

void MainWindow::quitProgram() {
  endSession();
  Q_EMIT ended();
}

}  // namespace moistair
