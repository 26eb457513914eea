#include "shell/entriesdock.h"

#include <algorithm>
#include <utility>

#include "shell/filewriting.h"
#include "shell/sheets.h"
#include "toolkit/messages.h"
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
  connect(panel_, &EntriesPanel::leaves, &chart, &ChartController::done);
}

void EntriesDock::fillViewMenu(QMenu& view) {
  window_.addDockWidget(Qt::RightDockWidgetArea, panel_);
  panel_->hide();
  QAction* toggle = panel_->toggleViewAction();
  toggle->setText(QStringLiteral("&Points and lines"));
  toggle->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_L));
  view.addAction(toggle);
  connect(toggle, &QAction::toggled, this, &EntriesDock::place);
}

/// At first the table is next to the chart where the window is wide enough for both, and else over the part of the
/// chart where no air is; from then on where the user has put it. It has its place before it shows: docked first, it
/// would widen the window.
void EntriesDock::place() {
  if (std::exchange(placed_, true)) return;
  panel_->show(chart_.document());
  constexpr QSize overChart(480, 260);
  const bool room = window_.width() >= window_.centralWidget()->minimumWidth() + overChart.width();
  panel_->setFloating(!room);
  if (room) {
    window_.resizeDocks({panel_}, {std::min(panel_->usefulHeight(), window_.height() / 3)}, Qt::Vertical);
  } else {
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
