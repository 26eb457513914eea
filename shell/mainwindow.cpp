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

constexpr const char* logfailed =
    "The data of this session cannot be kept: the log file cannot be written. Everything else works as usual.";

/// Smallest room below the menus for a strip: under it, a sixth of the height is left below the plot for the dry-bulb
/// scale and its texts. A screen that has not so much room has all that it can give.
QSize leastarea(const QSize& strip) {
  constexpr int menuandstatus = 80;  // pixels, with the window's frame
  const int line = static_cast<int>(std::ceil(double{lineheight} / twipsperpixel));
  const int screen = QGuiApplication::primaryScreen()->availableSize().height() - menuandstatus;
  return {strip.width(), std::max(4 * strip.height(), std::min(6 * (strip.height() + line), screen))};
}

}  // namespace

MainWindow::MainWindow(LogPlaces logplaces)
    : log_(std::move(logplaces)),
      strip_(new Strip),
      graph_(new GraphView),
      lifecycle_(graph_->canvas(), values_),
      chart_(graph_->canvas(), values_, lifecycle_),
      instrument_(new Instrument(*graph_, chart_, values_,
                                 {[this](const ChartLimits& limits) {
                                    const auto sheet = sheets_->plot();
                                    return sheet ? *sheet : plotbox(plotarea(limits, windowsize()));
                                  },
                                  [this] { return windowsize(); }})),
      files_(new DocumentFiles(*this, chart_, log_,
                               [this](Document document, bool fresh) { showdocument(std::move(document), fresh); })),
      status_(new StatusLine),
      typed_(new TypedPair(*strip_)),
      notes_(new StripNotes(*strip_, *status_, chart_, values_, log_,
                            [this] {
                              PlotArea area = lifecycle_.plotarea(windowsize());
                              readlimits(strip_->limittexts(), area.limits);
                              return area;
                            })),
      sheets_(new Sheets(*this, *graph_, chart_, log_)),
      panel_(new EntriesPanel(this)),
      finders_(chartrangefinders([this] {
        lifecycle_.readlimits(strip_->limittexts());
        return lifecycle_.plotarea(windowsize());
      })) {
  setObjectName(QStringLiteral("Form1"));
  setWindowTitle(QStringLiteral("Psychrometric chart - English Units"));
  auto* area = new QWidget;
  setCentralWidget(area);
  strip_->setParent(area);
  strip_->fit(0, 0);
  area->setMinimumSize(leastarea(strip_->minimumSizeHint()));
  for (QLineEdit* box : strip_->findChildren<QLineEdit*>())
    box->setAcceptDrops(false);  // a file is opened, not spelled
  graph_->setParent(area);
  graph_->setObjectName(QStringLiteral("graph"));
  graph_->setAccessibleName(tr("Psychrometric chart"));
  area->installEventFilter(this);
  QWidget::setTabOrder(strip_->lowdb, graph_);
  QWidget::setTabOrder(graph_, strip_->locatebutton);
  makemenus();
  makestatusbar();
  makeinstrument();
  connectstrip();
}

/// Here, since the caption of the window says what the program is.
void MainWindow::makestatusbar() {
  setStatusBar(status_);
  connect(files_, &DocumentFiles::captionchanged, this, [this] { status_->showdocument(files_->caption()); });
  connect(status_, &StatusLine::headerchosen, this, [this] { step([this] { chart_.takeheaderpressure(); }); });
  connect(status_, &StatusLine::exactchosen, this, [this] { notes_->useexact(); });
  connect(status_, &StatusLine::offerchosen, this,
          [this](Offer offer) { offer == Offer::previous ? again() : typed_->putback(); });
  connect(files_, &DocumentFiles::keeptried, status_, &StatusLine::showunkept);
  connect(typed_, &TypedPair::changed, this, [this] {
    status_->offer(Offer::typed, typed_->words(), tr("Click, or press Ctrl+Z in one of the two boxes."));
  });
  files_->follow();
}

/// What is chosen on the chart goes the way of what is typed.
void MainWindow::makeinstrument() {
  connect(sheets_, &Sheets::toggled, instrument_, &Instrument::follow);
  connect(sheets_, &Sheets::toggled, this, &MainWindow::showexportkey);
  connect(instrument_, &Instrument::chosen, typed_, &TypedPair::take);
  connect(instrument_, &Instrument::located, this, &MainWindow::locatepoint);
  connect(instrument_, &Instrument::exactchosen, this, [this](std::size_t entry) { takeExact({entry}); });
  connect(instrument_, &Instrument::refused, this, [this](const QString& reason) { message(this, reason); });
}

void MainWindow::makemenus() {
  QMenu* file = menuBar()->addMenu(tr("&File"));
  files_->fillmenu(*file);
  file->addSeparator();
  const auto add = [this](QMenu& menu, const QString& text, const QKeySequence& keys, auto run) {
    menu.addAction(text, this, run)->setShortcut(keys);
  };
  exportchartaction_ = file->addAction(tr("&Export chart..."), this, &MainWindow::exportchart);
  exportsheetaction_ = file->addAction(tr("Export s&heet..."), this, &MainWindow::exportsheet);
  file->addAction(tr("Page set&up..."), this, &MainWindow::setuppage);
  add(*file, tr("&Print..."), QKeySequence(Qt::CTRL | Qt::Key_P), &MainWindow::printchart);
  file->addSeparator();
  earlier_ = file->addMenu(tr("Earlier &sessions"));
  connect(file, &QMenu::aboutToShow, this, &MainWindow::listsessions);
  file->addSeparator();
  file->addAction(tr("E&xit"), this, &MainWindow::quitprogram);
  QMenu* edit = menuBar()->addMenu(tr("&Edit"));
  undoaction_ = edit->addAction(QString(), this, &MainWindow::undo);
  undoaction_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
  redoaction_ = edit->addAction(QString(), this, &MainWindow::redo);
  redoaction_->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
  edit->addSeparator();
  againaction_ = edit->addAction(tr("&Again on this chart"), this, &MainWindow::again);
  againaction_->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_A));
  edit->addSeparator();
  notes_->fillmenu(*edit);
  chart_.changed = [this] {
    status_->endanswer();
    showhistory();
    files_->follow();
    notes_->follow();
    sheets_->follow(visibleplot());
    showexportkey();
    if (!panel_->isHidden()) panel_->show(chart_.document());
    instrument_->follow();
  };
  showhistory();
  showexportkey();
  QMenu* view = menuBar()->addMenu(tr("&View"));
  makepanel(*view);
  sheets_->fillviewmenu(*view);
  QMenu* chart = menuBar()->addMenu(tr("Cha&rt"));
  fillchartmenu(*chart, *strip_);
  instrument_->fillmenu(*chart);
  add(*menuBar()->addMenu(tr("&Help")), tr("&Help"), Qt::Key_F1, &MainWindow::showhelp);
}

void MainWindow::makepanel(QMenu& view) {
  addDockWidget(Qt::RightDockWidgetArea, panel_);
  panel_->hide();
  QAction* toggle = panel_->toggleViewAction();
  toggle->setText(tr("&Points and lines"));
  toggle->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_L));
  view.addAction(toggle);
  connect(toggle, &QAction::toggled, this, &MainWindow::placepanel);
  connect(panel_, &QDockWidget::visibilityChanged, this,
          [this](bool shown) { shown ? panel_->show(chart_.document()) : lift({}); });
  connect(panel_, &EntriesPanel::selected, this, &MainWindow::lift);
  connect(panel_, &EntriesPanel::exactchosen, this, &MainWindow::takeExact);
  connect(panel_, &EntriesPanel::csvchosen, this, &MainWindow::writecsv);
  connect(panel_, &EntriesPanel::deletechosen, this, [this](const std::vector<std::size_t>& entries) {
    if (!entries.empty()) step([&] { chart_.change(deletion(chart_.document(), entries), windowsize()); });
  });
  connect(panel_, &EntriesPanel::renamed, this, [this](std::size_t entry, const QString& identification) {
    chart_.change(renaming(chart_.document(), entry, identification.toStdString()), windowsize());
  });
}

void MainWindow::connectstrip() {
  pressbyreturn(*strip_);
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

bool MainWindow::start(const QString& file) {
  firstfile_ = file;
  openpressure();
  return loaded_;
}

/// The load sequence, run once, before the first pressure is in force.
bool MainWindow::loadmain() {
  constexpr WindowSize layoutsize{10980, 7905};
  if (!(values_.pressure.lenient() > 0)) values_.pressure.settext(defaultpressuretext);
  chart_.start(layoutsize);
  if (leavesforsmallscreen(nullptr)) return false;
  filllists();
  values_.pressureentry = {};
  screen_ = QGuiApplication::primaryScreen()->size();
  arrange();
  if (!log_.newlog()) warning(this, QString::fromUtf8(logfailed));
  files_->collectleftwork();
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
  if (watched == centralWidget() && event->type() == QEvent::Resize) {
    arrange();
    chart_.layout(windowsize());
    sheets_->follow(visibleplot());
    lift(lifted_);
    instrument_->follow();
  }
  // A window manager puts the dialog that is clicked above the chart type window.
  const bool dialogcomesup = event->type() == QEvent::FocusIn || event->type() == QEvent::MouseButtonPress;
  if (dialogcomesup && charttype_ && dialog_ && watched == dialog_->windowHandle()) charttype_->raise();
  return QMainWindow::eventFilter(watched, event);
}

/// The part of the chart's widget that can be seen.
QSize MainWindow::visibleplot() const { return {centralWidget()->width(), centralWidget()->height() - graph_->y()}; }

WindowSize MainWindow::windowsize() const {
  return {centralWidget()->width() * twipsperpixel, centralWidget()->height() * twipsperpixel};
}

/// The live row: at every change of a kind or a value, and silent but for a line that crosses nothing of the chart.
void MainWindow::previewpoint() {
  strip_->emptyreadouts(true);
  const Resolution resolution =
      resolveinput(strip_->pairinput(), lifecycle_.atmpressure(), finders_, values_.solverfields);
  notes_->showpair(resolution);
  telloutofsight(resolution);
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
  if (!dialog_) quitprogram();
}

}  // namespace moistair
