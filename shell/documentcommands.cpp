// Commands of the main window about the document: its steps, its table, the previous chart.
#include <algorithm>
#include <utility>

#include "model/airhandler.h"
#include "model/carryover.h"
#include "model/exactentry.h"
#include "shell/filewriting.h"
#include "shell/mainwindow.h"
#include "shell/sheets.h"
#include "toolkit/filename.h"
#include "toolkit/messages.h"

namespace moistair {

namespace {

/// What could not be put on a chart again, as many as a message has room for.
QString leftOutText(const std::vector<LeftOut>& leftOut) {
  constexpr std::size_t most = 15;
  QString text = QStringLiteral("Not on this chart:");
  for (std::size_t i = 0; i < std::min(most, leftOut.size()); ++i) {
    text += QLatin1Char('\n') + QString::fromStdString(captionOf(leftOut[i].entry)) + QStringLiteral(": ") +
            QString::fromStdString(leftOut[i].reason);
  }
  if (leftOut.size() > most) text += QStringLiteral("\nand %1 more").arg(leftOut.size() - most);
  return text;
}

}  // namespace

void MainWindow::undo() {
  step([this] { chart_.undo(windowSize()); });
}

void MainWindow::redo() {
  step([this] { chart_.redo(windowSize()); });
}

/// The entries of the previous chart, worked out again for the current one. What does not fit stays in the document
/// and is reported with its reason.
void MainWindow::carryOver() {
  const auto limits = currentLimits(chart_.document());
  if (!limits) return;
  const Setting setting{*limits, {chart_.document().pressure.entry, chart_.document().atm()}};
  strip_->waitCue(true);
  CarriedOver found = moistair::carryOver(chart_.document().previous, setting, windowSize(),
                                            airHandlerPlace(chart_.document()).has_value());
  strip_->waitCue(false);
  const QString leftOut = leftOutText(found.leftOut);
  const bool all = found.leftOut.empty();
  step([&] {
    chart_.change(takingOver(chart_.document(), carryOverName, std::move(found.entries), std::move(found.leftOut)),
                  windowSize());
  });
  if (!all) message(this, leftOut);
  focusGraph();
}

/// Exact states in place of those that miss something, of some entries or of all.
void MainWindow::takeExact(const std::vector<std::size_t>& places) {
  const auto entries = exactEntries(chart_.document(), places);
  if (entries.empty()) return status_->answer(QStringLiteral("no exact state within the limits"), BoxMark::fault);
  const std::string name = entries.size() == 1 ? "Exact state of " + captionOf(entries.front().second)
                                               : "Exact states of " + std::to_string(entries.size()) + " entries";
  step([&] { chart_.change(exchanging(chart_.document(), entries, name), windowSize()); });
}

/// Another value for one that an entry was given. What cannot be is refused in words, and the table shows the old
/// value.
void MainWindow::typeOver(std::size_t place, const GivenValue& value) {
  const auto edited = withGiven(chart_.document().entries[place], value, windowSize());
  if (!edited) return status_->answer(QString::fromStdString(edited.error().words), BoxMark::fault);
  chart_.change(editing(chart_.document(), place, *edited), windowSize());
}

/// A stream of a mixture as a point.
void MainWindow::markStream(std::size_t place, std::size_t part) {
  const auto point = pointOf(chart_.document().entries[place], part, windowSize());
  if (!point) return status_->answer(QString::fromStdString(point.error().words), BoxMark::fault);
  chart_.change(addition(chart_.document(), *point), windowSize());
}

/// A step through what was done to the chart. It can make another pressure current, which the live row then shows.
void MainWindow::step(const std::function<void()>& change) {
  const std::string pressure = chart_.document().current.pressure.text();
  change();
  if (chart_.document().current.pressure.text() != pressure) previewPoint();
  focusGraph();
}

/// Another document in place of the current one: its chart's limits go into the lists, its pressure becomes the current
/// one.
void MainWindow::showDocument(Document document, bool fresh) {
  const Entry* chart = lastChart(document);
  const auto limits = currentLimits(document);
  if (limits) {
    strip_->setLimits(*limits);
  } else if (chart != nullptr) {
    strip_->setLimits(chart->setting.limits);
  }
  if (fresh) {
    strip_->emptyInputs();
    strip_->emptyReadouts(true);
  }
  step([&] { chart_.open(std::move(document), windowSize()); });
}

/// At first the table is next to the chart where the window is wide enough for both, and else over the part of the
/// chart where no air is; from then on where the user has put it. It has its place before it shows: docked first, it
/// would widen the window.
void MainWindow::placePanel() {
  if (std::exchange(panelPlaced_, true)) return;
  panel_->show(chart_.document());
  constexpr QSize overChart(480, 260);
  const bool room = width() >= centralWidget()->minimumWidth() + overChart.width();
  panel_->setFloating(!room);
  if (room) {
    resizeDocks({panel_}, {std::min(panel_->usefulHeight(), height() / 3)}, Qt::Vertical);
  } else {
    constexpr QPoint margin(90, 40);
    panel_->setGeometry(QRect(graph_->mapToGlobal(QPoint(0, 0)) + margin, overChart));
  }
}

/// Lifts entries of the document out on the chart; a chart itself would be all of it.
void MainWindow::highlight(const std::vector<std::size_t>& entries) {
  highlighted_ = entries;
  RecordingCanvas canvas;
  for (const std::size_t place : entries) {
    if (place >= chart_.document().entries.size()) continue;  // not on the chart
    const Entry& entry = chart_.document().entries[place];
    const bool part =
        !std::holds_alternative<DrawnChart>(entry.content) && !std::holds_alternative<HeaderLine>(entry.content);
    if (part) draw(entry, canvas, windowSize());
  }
  graph_->highlight(canvas.drawing());
  sheets_->highlight(entries);
}

/// With rows selected the kinds of file in the dialog are those rows and all.
void MainWindow::writeCsv(const std::vector<TableRow>& all, const std::vector<TableRow>& chosen) {
  SaveDialog dialog;
  QString title = QStringLiteral("Write as CSV");
  QStringList filters = {QStringLiteral("CSV file (*.csv)"), QStringLiteral("All files (*)")};
  if (chosen.size() < all.size()) {
    const QString part = QStringLiteral("%1 of %2 rows").arg(chosen.size()).arg(all.size());
    title += QStringLiteral(", ") + part;
    filters = {part + QStringLiteral(" (*.csv)"), QStringLiteral("All %1 rows (*.csv)").arg(all.size())};
  }
  const auto named = dialog.ask(this, {title, filters});
  if (!named) return;
  const auto path = completeName(this, title, *named, {QStringLiteral(".csv")});
  if (!path) return;
  const bool part = chosen.size() < all.size() && dialog.lastFilter() != filters.last();
  const auto reason = writeBytes(*path, tableText(part ? chosen : all, ','), log_);
  if (reason) warning(this, QStringLiteral("The table could not be written to ") + *path + QLatin1Char('\n') + *reason);
  status_->answerFile(QStringLiteral("table"), *path, reason);
}

/// Says in the menu what could be undone and done again, and offers what is left of the previous chart.
void MainWindow::showHistory() {
  const auto show = [](QAction& action, const QString& word, const std::string& name) {
    action.setEnabled(!name.empty());
    action.setText(name.empty() ? word
                                : word + QLatin1Char(' ') +
                                      QString::fromStdString(name).replace(QLatin1Char('&'), QStringLiteral("&&")));
  };
  show(*undoAction_, QStringLiteral("&Undo"), chart_.history().undoName());
  show(*redoAction_, QStringLiteral("&Redo"), chart_.history().redoName());
  carryOverAction_->setEnabled(currentLimits(chart_.document()) && !chart_.document().previous.empty() &&
                               chart_.history().undoName() != carryOverName);
  const std::size_t untried = untriedCount(chart_.document());
  const QString entries = untried == 1 ? QStringLiteral("1 entry") : QStringLiteral("%1 entries").arg(untried);
  status_->offer(
      Offer::previous,
      untried == 0 ? QString() : entries + QStringLiteral(" of the previous chart: put them on this one"),
      QStringLiteral("Click, or press %1.").arg(carryOverAction_->shortcut().toString(QKeySequence::NativeText)));
}

}  // namespace moistair
