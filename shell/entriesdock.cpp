#include "shell/entriesdock.h"

#include <QApplication>
#include <algorithm>
#include <utility>

#include "shell/filewriting.h"
#include "shell/sheets.h"
#include "toolkit/messages.h"
#include "toolkit/remembered.h"
#include "toolkit/savedialog.h"

namespace moistair {

EntriesDock::EntriesDock(QMainWindow& window, GraphView& graph, ChartController& chart, Sheets& sheets,
                         const SessionLog& log)
    : QObject(&window),
      window_(window),
      graph_(graph),
      chart_(chart),
      sheets_(sheets),
      log_(log),
      panel_(new EntriesPanel(&window)) {
  connect(&chart, &ChartController::laidOut, this, [this] { highlight(highlighted_); });
  connect(&chart, &ChartController::changed, this, [this](ChangedPart part) {
    if (part == ChangedPart::content && !panel_->isHidden()) panel_->show(chart_.document());
  });
  connect(panel_, &QDockWidget::visibilityChanged, this,
          [this](bool shown) { shown ? panel_->show(chart_.document()) : highlight({}); });
  connect(panel_, &EntriesPanel::selected, this, &EntriesDock::highlight);
  connect(panel_, &EntriesPanel::exactChosen, &chart, &ChartController::takeExact);
  connect(panel_, &EntriesPanel::csvChosen, this, &EntriesDock::writeCsv);
  connect(panel_, &EntriesPanel::deleteChosen, &chart, &ChartController::remove);
  connect(panel_, &EntriesPanel::renamed, &chart,
          [&chart](std::size_t entry, std::size_t part, const QString& identification) {
            chart.rename(entry, identification.toStdString(), part);
          });
  connect(panel_, &EntriesPanel::typed, &chart, &ChartController::typeOver);
  connect(panel_, &EntriesPanel::pointChosen, &chart, &ChartController::markStream);
  connect(panel_, &EntriesPanel::leaves, this, &EntriesDock::goBack);
  connect(panel_, &EntriesPanel::arranged, this,
          [this] { remember(memory::tableColumns, panel_->columnArrangement()); });
  connect(panel_, &QDockWidget::dockLocationChanged, this, &EntriesDock::rememberPlace);
  connect(panel_, &QDockWidget::topLevelChanged, this, &EntriesDock::rememberPlace);
}

void EntriesDock::fillViewMenu(QMenu& view) {
  window_.addDockWidget(Qt::BottomDockWidgetArea, panel_);
  panel_->hide();
  QAction* toggle = panel_->toggleViewAction();
  toggle->setText(QStringLiteral("&Points and lines"));
  view.addAction(toggle);
  connect(toggle, &QAction::toggled, this, &EntriesDock::place);
  view.addAction(QStringLiteral("To the &table and back"), this, &EntriesDock::goThereOrBack)
      ->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_L));
  panel_->arrangeColumns(remembered(memory::tableColumns).toStringList());
}

void EntriesDock::goThereOrBack() {
  if (panel_->isAncestorOf(QApplication::focusWidget())) return goBack();
  if (panel_->isHidden()) panel_->toggleViewAction()->trigger();
  panel_->activateWindow();
  panel_->setFocus();
}

/// A table that floats is a window of its own.
void EntriesDock::goBack() {
  window_.activateWindow();
  Q_EMIT chart_.done();
}

void EntriesDock::reset() {
  placed_ = false;
  panel_->hide();
  panel_->arrangeColumns({});
  window_.addDockWidget(Qt::BottomDockWidgetArea, panel_);
}

/// Only where the user has put it: its first place depends on the screen.
void EntriesDock::rememberPlace() {
  if (placed_ && panel_->isVisible()) remember(memory::docks, window_.saveState());
}

/// At its first showing; from then on it is where the user has put it.
void EntriesDock::place() {
  if (placed_) return;
  panel_->show(chart_.document());
  if (!window_.restoreState(remembered(memory::docks).toByteArray())) placeFirst();
  placed_ = true;
}

/// Below the chart where the window is high enough for both, and else over the part of the chart where no air is. It
/// has its place before it shows: docked first, it would make the window larger.
void EntriesDock::placeFirst() {
  const int height = panel_->usefulHeight();
  const bool room = window_.centralWidget()->height() - window_.centralWidget()->minimumHeight() >= height;
  panel_->setFloating(!room);
  if (room) {
    window_.resizeDocks({panel_}, {height}, Qt::Vertical);
  } else {
    constexpr QSize overChart(480, 260);
    constexpr QPoint margin(90, 40);
    panel_->setGeometry(QRect(graph_.mapToGlobal(QPoint(0, 0)) + margin, overChart));
  }
}

/// Highlights entries of the document on the chart; a chart itself would be all of it.
void EntriesDock::highlight(const std::vector<std::size_t>& entries) {
  highlighted_ = entries;
  RecordingCanvas canvas;
  for (const std::size_t place : entries) {
    if (place >= chart_.document().entries.size()) continue;  // not on the chart
    const Entry& entry = chart_.document().entries[place];
    const bool part =
        !std::holds_alternative<DrawnChart>(entry.content) && !std::holds_alternative<HeaderLine>(entry.content);
    if (part) draw(entry, canvas, chart_.window());
  }
  graph_.highlight(canvas.drawing());
  sheets_.highlight(entries);
}

/// With rows selected the kinds of file in the dialog are those rows and all.
void EntriesDock::writeCsv(const std::vector<TableRow>& all, const std::vector<TableRow>& chosen) {
  SaveDialog dialog;
  QString title = QStringLiteral("Write as CSV");
  QStringList filters = {QStringLiteral("CSV file (*.csv)"), QStringLiteral("All files (*)")};
  if (chosen.size() < all.size()) {
    const QString part = QStringLiteral("%1 of %2 rows").arg(chosen.size()).arg(all.size());
    title += QStringLiteral(", ") + part;
    filters = {part + QStringLiteral(" (*.csv)"), QStringLiteral("All %1 rows (*.csv)").arg(all.size())};
  }
  const auto named = dialog.ask(&window_, {title, filters});
  if (!named) return;
  const auto path = completeName(&window_, title, *named, {QStringLiteral(".csv")});
  if (!path) return;
  const bool part = chosen.size() < all.size() && dialog.lastFilter() != filters.last();
  const Outcome outcome = writeBytes(*path, tableText(part ? chosen : all, ','), log_);
  if (!outcome) warning(&window_, notWrittenText(QStringLiteral("The table"), *path, outcome.error()));
  Q_EMIT written(*path, outcome);
}

}  // namespace moistair
