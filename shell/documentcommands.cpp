// Commands of the main window about the document: its steps, its table, the chart before.
#include <algorithm>
#include <utility>

#include "model/again.h"
#include "model/exactentry.h"
#include "shell/filewriting.h"
#include "shell/mainwindow.h"
#include "shell/sheets.h"
#include "toolkit/filename.h"
#include "toolkit/messages.h"

namespace moistair {

namespace {

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

}  // namespace

void MainWindow::undo() {
  step([this] { chart_.undo(windowsize()); });
}

void MainWindow::redo() {
  step([this] { chart_.redo(windowsize()); });
}

/// The entries of the previous chart, worked out again for the current one. What does not fit stays in the document
/// and is reported with its reason.
void MainWindow::again() {
  const auto limits = standinglimits(chart_.document());
  if (!limits) return;
  const Setting setting{*limits, {values_.pressureentry, lifecycle_.atmpressure()}};
  strip_->waitcue(true);
  Again found = moistair::again(chart_.document().previous, setting, windowsize());
  strip_->waitcue(false);
  const QString leftout = leftouttext(found.leftout);
  const bool all = found.leftout.empty();
  step([&] {
    chart_.change(takingover(chart_.document(), againname, std::move(found.entries), std::move(found.leftout)),
                  windowsize());
  });
  if (!all) message(this, leftout);
  focusgraph();
}

/// Exact states in place of those that miss something, of some entries or of all.
void MainWindow::takeExact(const std::vector<std::size_t>& places) {
  const auto entries = exactEntries(chart_.document(), places);
  if (entries.empty()) return status_->answer(tr("no exact state within the limits"), BoxMark::fault);
  const std::string name = entries.size() == 1 ? "Exact state of " + captionof(entries.front().second)
                                               : "Exact states of " + std::to_string(entries.size()) + " entries";
  step([&] { chart_.change(exchanging(chart_.document(), entries, name), windowsize()); });
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

/// At first the table stands beside the chart where the window is wide enough for both, and else over the part of the
/// chart where no air is; from then on where the user has put it. It has its place before it shows: docked first, it
/// would widen the window.
void MainWindow::placepanel() {
  if (std::exchange(panelplaced_, true)) return;
  panel_->show(chart_.document());
  constexpr QSize overchart(480, 260);
  const bool room = width() >= centralWidget()->minimumWidth() + overchart.width();
  panel_->setFloating(!room);
  if (room) {
    resizeDocks({panel_}, {std::min(panel_->fullwidth(), width() / 2)}, Qt::Horizontal);
  } else {
    constexpr QPoint margin(90, 40);
    panel_->setGeometry(QRect(graph_->mapToGlobal(QPoint(0, 0)) + margin, overchart));
  }
}

/// Lifts entries of the document out on the chart; a chart itself would be all of it.
void MainWindow::lift(const std::vector<std::size_t>& entries) {
  lifted_ = entries;
  RecordingCanvas canvas;
  for (const std::size_t place : entries) {
    if (place >= chart_.document().entries.size()) continue;  // not on the chart
    const Entry& entry = chart_.document().entries[place];
    const bool part =
        !std::holds_alternative<DrawnChart>(entry.content) && !std::holds_alternative<HeaderLine>(entry.content);
    if (part) draw(entry, canvas, windowsize());
  }
  graph_->lift(canvas.drawing());
  sheets_->lift(entries);
}

/// With rows selected the kinds of file in the dialog are those rows and all.
void MainWindow::writecsv(const std::vector<TableRow>& all, const std::vector<TableRow>& chosen) {
  SaveDialog dialog;
  QString title = tr("Write as CSV");
  QStringList filters = {tr("CSV file (*.csv)"), tr("All files (*)")};
  if (chosen.size() < all.size()) {
    const QString part = tr("%1 of %2 rows").arg(chosen.size()).arg(all.size());
    title += QStringLiteral(", ") + part;
    filters = {part + tr(" (*.csv)"), tr("All %1 rows (*.csv)").arg(all.size())};
  }
  const auto named = dialog.ask(this, {title, filters});
  if (!named) return;
  const auto path = completename(this, title, *named, {QStringLiteral(".csv")});
  if (!path) return;
  const bool part = chosen.size() < all.size() && dialog.lastfilter() != filters.last();
  const auto reason = writebytes(*path, tabletext(part ? chosen : all, ','), log_);
  if (reason) warning(this, QStringLiteral("The table could not be written to ") + *path + QLatin1Char('\n') + *reason);
  status_->answerfile(tr("table"), *path, reason);
}

/// Says in the menu what could be undone and done again, and offers what is left of the previous chart.
void MainWindow::showhistory() {
  const auto show = [](QAction& action, const QString& word, const std::string& name) {
    action.setEnabled(!name.empty());
    action.setText(name.empty() ? word
                                : word + QLatin1Char(' ') +
                                      QString::fromStdString(name).replace(QLatin1Char('&'), QStringLiteral("&&")));
  };
  show(*undoaction_, tr("&Undo"), chart_.history().undoname());
  show(*redoaction_, tr("&Redo"), chart_.history().redoname());
  againaction_->setEnabled(standinglimits(chart_.document()) && !chart_.document().previous.empty() &&
                           chart_.history().undoname() != againname);
  const std::size_t untried = untriedcount(chart_.document());
  const QString entries = untried == 1 ? tr("1 entry") : tr("%1 entries").arg(untried);
  status_->offer(Offer::previous,
                 untried == 0 ? QString() : entries + tr(" of the previous chart: put them on this one"),
                 tr("Click, or press %1.").arg(againaction_->shortcut().toString(QKeySequence::NativeText)));
}

}  // namespace moistair
