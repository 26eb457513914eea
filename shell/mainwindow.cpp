#include "shell/mainwindow.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QMenuBar>
#include <QScreen>
#include <QWindow>
#include <cmath>

#include "chart/chartfinders.h"
#include "engine/pressureunits.h"
#include "shell/chartmenu.h"
#include "shell/sheets.h"
#include "shell/startup.h"
#include "shell/typedpair.h"
#include "toolkit/messages.h"

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
    : log_(std::move(logPlaces)),
      strip_(new Strip),
      graph_(new GraphView),
      chart_(graph_->canvas()),
      chartPointer_(new ChartPointer(*graph_, chart_,
                                     {[this](const ChartLimits& limits) {
                                        const auto sheet = sheets_->plot();
                                        return sheet ? *sheet : plotBox(plotArea(limits, windowSize()));
                                      },
                                      [this] { return windowSize(); }})),
      files_(new DocumentFiles(*this, chart_, log_,
                               [this](Document document, bool fresh) { showDocument(std::move(document), fresh); })),
      status_(new StatusLine),
      typed_(new TypedPair(*strip_)),
      notes_(new StripNotes(*strip_, *status_, chart_, solverFields_, log_,
                            [this] {
                              PlotArea area = chart_.plotArea(windowSize());
                              readLimits(strip_->limitTexts(), area.limits);
                              return area;
                            })),
      sheets_(new Sheets(*this, *graph_, chart_, log_)),
      panel_(new EntriesPanel(this)),
      finders_(chartRangeFinders([this] {
        chart_.readLimits(strip_->limitTexts());
        return chart_.plotArea(windowSize());
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
  makeMenus();
  makeStatusBar();
  makeChartPointer();
  connectStrip();
}

/// Here, since the caption of the window says what the program is.
void MainWindow::makeStatusBar() {
  setStatusBar(status_);
  connect(files_, &DocumentFiles::captionchanged, this, [this] { status_->showDocument(files_->caption()); });
  connect(status_, &StatusLine::headerchosen, this, [this] { step([this] { chart_.adoptFilePressure(); }); });
  connect(status_, &StatusLine::exactChosen, this, [this] { notes_->useExact(); });
  connect(status_, &StatusLine::offerChosen, this,
          [this](Offer offer) { offer == Offer::previous ? carryOver() : typed_->putBack(); });
  connect(files_, &DocumentFiles::keepTried, status_, &StatusLine::showUnkept);
  connect(typed_, &TypedPair::changed, this, [this] {
    status_->offer(Offer::typed, typed_->words(), QStringLiteral("Click, or press Ctrl+Z in one of the two boxes."));
  });
  files_->follow();
}

/// What is chosen on the chart goes the way of what is typed.
void MainWindow::makeChartPointer() {
  connect(sheets_, &Sheets::toggled, chartPointer_, &ChartPointer::follow);
  connect(sheets_, &Sheets::toggled, this, &MainWindow::showExportKey);
  connect(chartPointer_, &ChartPointer::chosen, typed_, &TypedPair::take);
  connect(chartPointer_, &ChartPointer::located, this, &MainWindow::locatePoint);
  connect(chartPointer_, &ChartPointer::exactChosen, this, [this](std::size_t entry) { takeExact({entry}); });
  connect(chartPointer_, &ChartPointer::refused, this, [this](const QString& reason) { message(this, reason); });
}

void MainWindow::makeMenus() {
  QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
  files_->fillMenu(*file);
  file->addSeparator();
  const auto add = [this](QMenu& menu, const QString& text, const QKeySequence& keys, auto run) {
    menu.addAction(text, this, run)->setShortcut(keys);
  };
  exportChartAction_ = file->addAction(QStringLiteral("&Export chart..."), this, &MainWindow::exportChart);
  exportSheetAction_ = file->addAction(QStringLiteral("Export s&heet..."), this, &MainWindow::exportSheet);
  file->addAction(QStringLiteral("Page set&up..."), this, &MainWindow::setupPage);
  add(*file, QStringLiteral("&Print..."), QKeySequence(Qt::CTRL | Qt::Key_P), &MainWindow::printChart);
  file->addSeparator();
  earlier_ = file->addMenu(QStringLiteral("Earlier &sessions"));
  connect(file, &QMenu::aboutToShow, this, &MainWindow::listSessions);
  file->addSeparator();
  file->addAction(QStringLiteral("E&xit"), this, &MainWindow::quitProgram);
  QMenu* edit = menuBar()->addMenu(QStringLiteral("&Edit"));
  undoAction_ = edit->addAction(QString(), this, &MainWindow::undo);
  undoAction_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
  redoAction_ = edit->addAction(QString(), this, &MainWindow::redo);
  redoAction_->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
  edit->addSeparator();
  carryOverAction_ = edit->addAction(QStringLiteral("&Again on this chart"), this, &MainWindow::carryOver);
  carryOverAction_->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_A));
  edit->addSeparator();
  notes_->fillMenu(*edit);
  chart_.changed = [this](ChangedPart part) {
    if (part == ChangedPart::currentPressure) return notes_->follow();
    status_->endAnswer();
    showHistory();
    files_->follow();
    notes_->follow();
    sheets_->follow(visiblePlot());
    showExportKey();
    if (!panel_->isHidden()) panel_->show(chart_.document());
    chartPointer_->follow();
  };
  showHistory();
  showExportKey();
  QMenu* view = menuBar()->addMenu(QStringLiteral("&View"));
  makePanel(*view);
  sheets_->fillViewMenu(*view);
  QMenu* chart = menuBar()->addMenu(QStringLiteral("Cha&rt"));
  fillChartMenu(*chart, *strip_);
  chartPointer_->fillMenu(*chart);
  add(*menuBar()->addMenu(QStringLiteral("&Help")), QStringLiteral("&Help"), Qt::Key_F1, &MainWindow::showHelp);
}

void MainWindow::makePanel(QMenu& view) {
  addDockWidget(Qt::RightDockWidgetArea, panel_);
  panel_->hide();
  QAction* toggle = panel_->toggleViewAction();
  toggle->setText(QStringLiteral("&Points and lines"));
  toggle->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_L));
  view.addAction(toggle);
  connect(toggle, &QAction::toggled, this, &MainWindow::placePanel);
  connect(panel_, &QDockWidget::visibilityChanged, this,
          [this](bool shown) { shown ? panel_->show(chart_.document()) : highlight({}); });
  connect(panel_, &EntriesPanel::selected, this, &MainWindow::highlight);
  connect(panel_, &EntriesPanel::exactChosen, this, &MainWindow::takeExact);
  connect(panel_, &EntriesPanel::csvChosen, this, &MainWindow::writeCsv);
  connect(panel_, &EntriesPanel::deleteChosen, this, [this](const std::vector<std::size_t>& entries) {
    if (!entries.empty()) step([&] { chart_.change(deletion(chart_.document(), entries), windowSize()); });
  });
  connect(panel_, &EntriesPanel::renamed, this,
          [this](std::size_t entry, std::size_t part, const QString& identification) {
            chart_.change(renaming(chart_.document(), entry, identification.toStdString(), part), windowSize());
          });
  connect(panel_, &EntriesPanel::typed, this, &MainWindow::typeOver);
  connect(panel_, &EntriesPanel::pointChosen, this, &MainWindow::markStream);
  connect(panel_, &EntriesPanel::leaves, this, &MainWindow::focusGraph);
}

void MainWindow::connectStrip() {
  pressByReturn(*strip_);
  const auto command = [this](QPushButton* button, auto run) { connect(button, &QPushButton::clicked, this, run); };
  command(strip_->drawButton, &MainWindow::startDraw);
  command(strip_->pressureButton, &MainWindow::openPressure);
  command(strip_->locateButton, &MainWindow::locatePoint);
  command(strip_->clearButton, &MainWindow::clearChart);
  command(strip_->saveChartButton, &MainWindow::saveChart);
  command(strip_->viewLogButton, &MainWindow::viewLog);
  command(strip_->saveLogButton, &MainWindow::saveLog);
  command(strip_->mixingButton, &MainWindow::openMixing);
  command(strip_->helpButton, &MainWindow::showHelp);
  command(strip_->exitButton, &MainWindow::quitProgram);
  const auto line = [this](QPushButton* button, LineKind kind, const QLineEdit* value) {
    connect(button, &QPushButton::clicked, this, [this, kind, value] { drawLine(kind, *value); });
  };
  line(strip_->rhLineButton, LineKind::relativeHumidity, strip_->rhValue);
  line(strip_->wbLineButton, LineKind::wetBulb, strip_->wbValue);
  line(strip_->hLineButton, LineKind::enthalpy, strip_->hValue);
  line(strip_->vLineButton, LineKind::specificVolume, strip_->vValue);
  for (ListBox* list : {strip_->firstKind, strip_->secondKind}) {
    connect(list, &ListBox::chosen, this, &MainWindow::previewPoint);
  }
  for (QLineEdit* box : {strip_->firstValue, strip_->secondValue}) {
    connect(box, &QLineEdit::textChanged, this, &MainWindow::previewPoint);
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
  chart_.start(layoutSize);
  if (leavesForSmallScreen(nullptr)) return false;
  fillLists();
  screen_ = QGuiApplication::primaryScreen()->size();
  arrange();
  if (!log_.newLog()) warning(this, QString::fromUtf8(logFailed));
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
    chart_.layout(windowSize());
    sheets_->follow(visiblePlot());
    highlight(highlighted_);
    chartPointer_->follow();
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

/// The live row: at every change of a kind or a value, and silent but for a line that crosses nothing of the chart.
void MainWindow::previewPoint() {
  strip_->emptyReadouts(true);
  const Resolution resolution = resolveInput(strip_->pairInput(), chart_.document().atm(), finders_, solverFields_);
  notes_->showPair(resolution);
  warnOutOfSight(resolution);
  if (!resolution.resolved()) return;
  strip_->show(resolution.point);
  if (loaded_ && !isVisible()) show();
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

}  // namespace moistair
