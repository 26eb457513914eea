#include "windows/entriespanel.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace moistair {

namespace {

constexpr int rowSpacing = 6;  // logical pixels

}  // namespace

EntriesPanel::EntriesPanel(QWidget* main)
    : QDockWidget(QStringLiteral("Points and lines"), main), table_(new QTableView) {
  setObjectName(QStringLiteral("entries"));
  table_->setModel(&model_);
  table_->setAccessibleName(windowTitle());
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setTabKeyNavigation(false);
  table_->setWordWrap(false);
  table_->verticalHeader()->hide();
  table_->horizontalHeader()->setHighlightSections(false);  // bold heads would not fit
  table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + rowSpacing);
  table_->setContextMenuPolicy(Qt::ActionsContextMenu);
  auto* panel = new QWidget;
  auto* rows = new QVBoxLayout(panel);
  auto* buttons = new QHBoxLayout;
  rows->addWidget(table_);
  rows->addLayout(buttons);
  const auto command = [&](const QString& text, const QKeySequence& key, auto run) {
    auto* action = new QAction(text, table_);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, run);
    table_->addAction(action);
    auto* button = new QPushButton(text);
    connect(button, &QPushButton::clicked, action, &QAction::trigger);
    buttons->addWidget(button);
    connect(action, &QAction::changed, button, [action, button] { button->setEnabled(action->isEnabled()); });
    return action;
  };
  command(QStringLiteral("&Copy"), QKeySequence::Copy, [this] { copy(); });
  command(QStringLiteral("&Delete"), QKeySequence::Delete, [this] { Q_EMIT deleteChosen(selectedEntries()); });
  command(QStringLiteral("&Write as CSV..."), {}, [this] { Q_EMIT csvChosen(model_.rows(), chosenRows()); });
  exact_ = command(QStringLiteral("Ta&ke exact states"), {}, [this] { Q_EMIT exactChosen(selectedEntries()); });
  exact_->setToolTip(
      QStringLiteral("Put the exact states in place of those that miss a given value: of the rows selected, or all"));
  buttons->addStretch();
  setWidget(panel);
  connect(&model_, &EntriesModel::renamed, this, &EntriesPanel::renamed, Qt::QueuedConnection);
  connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { Q_EMIT selected(selectedEntries()); });
}

void EntriesPanel::show(const Document& document) {
  model_.setRows(tableRows(document));
  table_->resizeColumnsToContents();
  const auto misses = [](const TableRow& row) { return row.missed.any() && row.note.empty(); };
  exact_->setEnabled(std::any_of(model_.rows().begin(), model_.rows().end(), misses));
  showNotes();
  Q_EMIT selected({});
}

/// Notes come right behind the kind, where they are seen; a long one is in the tool tip as well.
void EntriesPanel::showNotes() {
  constexpr int mostLetters = 46;
  constexpr int column = static_cast<int>(noteColumn);
  if (model_.columnCount() <= column) return;
  QHeaderView& heads = *table_->horizontalHeader();
  heads.moveSection(heads.visualIndex(column), 1);
  const int most = mostLetters * table_->fontMetrics().averageCharWidth();
  table_->setColumnWidth(column, std::min(table_->columnWidth(column), most));
}

int EntriesPanel::fullWidth() const {
  const int beside =
      style()->pixelMetric(QStyle::PM_LayoutLeftMargin) + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  return table_->horizontalHeader()->length() + 2 * beside;
}

/// The rows selected, or all of them if none is.
std::vector<TableRow> EntriesPanel::chosenRows() const {
  std::vector<TableRow> chosen;
  for (int row = 0; row < model_.rowCount(); ++row) {
    if (table_->selectionModel()->isRowSelected(row, {}))
      chosen.push_back(model_.rows()[static_cast<std::size_t>(row)]);
  }
  return chosen.empty() ? model_.rows() : chosen;
}

/// A mixture has three rows and is one entry.
std::vector<std::size_t> EntriesPanel::selectedEntries() const {
  std::vector<std::size_t> entries;
  for (const QModelIndex& row : table_->selectionModel()->selectedRows()) {
    entries.push_back(model_.rows()[static_cast<std::size_t>(row.row())].entry);
  }
  std::sort(entries.begin(), entries.end());
  entries.erase(std::unique(entries.begin(), entries.end()), entries.end());
  return entries;
}

void EntriesPanel::copy() const {
  QGuiApplication::clipboard()->setText(QString::fromStdString(tableText(chosenRows(), '\t')));
}

}  // namespace moistair
