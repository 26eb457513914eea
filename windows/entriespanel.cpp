#include "windows/entriespanel.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace moistair {

namespace {

constexpr int rowSpacing = 6;  // logical pixels
constexpr int usefulRows = 6;
constexpr int mostLetters = 46;  // of a note, whose rest is in the tool tip
const QString hiddenMark = QStringLiteral("-");

}  // namespace

EntriesPanel::EntriesPanel(QWidget* main)
    : QDockWidget(QStringLiteral("Points and lines"), main), table_(new QTableView) {
  setObjectName(QStringLiteral("entries"));
  table_->setModel(&model_);
  table_->setAccessibleName(windowTitle());
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setTabKeyNavigation(false);
  table_->setWordWrap(false);
  table_->setAlternatingRowColors(true);
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
  point_ = command(QStringLiteral("&Mark as point"), {}, [this] { markStream(); });
  point_->setToolTip(QStringLiteral("Mark the selected stream of a mixture as a point of its own"));
  exact_->setToolTip(
      QStringLiteral("Put the exact states in place of those that miss a given value: of the rows selected, or all"));
  buttons->addStretch();
  setWidget(panel);
  connect(&model_, &EntriesModel::renamed, this, &EntriesPanel::renamed, Qt::QueuedConnection);
  connect(&model_, &EntriesModel::typed, this, &EntriesPanel::typed, Qt::QueuedConnection);
  connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
    offerStream();
    Q_EMIT selected(selectedEntries());
  });
  QHeaderView& heads = *table_->horizontalHeader();
  heads.setSectionsMovable(true);
  heads.setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&heads, &QHeaderView::sectionMoved, this, &EntriesPanel::readArrangement);
  connect(&heads, &QHeaderView::customContextMenuRequested, this, &EntriesPanel::offerColumns);
  setFocusProxy(table_);
  offerStream();
}

void EntriesPanel::show(const Document& document) {
  const int rowsBefore = model_.rowCount();
  arranging_ = true;  // a reset puts the columns in their first order
  model_.setRows(tableRows(document));
  arranging_ = false;
  showArrangement();
  const auto misses = [](const TableRow& row) { return row.missed.any() && row.note.empty(); };
  exact_->setEnabled(std::any_of(model_.rows().begin(), model_.rows().end(), misses));
  scrollToNew(rowsBefore);
  Q_EMIT selected({});
}

/// What has just been drawn is seen in the table without looking for it.
void EntriesPanel::scrollToNew(int rowsBefore) {
  if (rowsBefore > 0 && model_.rowCount() > rowsBefore) table_->scrollToBottom();
}

void EntriesPanel::arrangeColumns(const QStringList& arrangement) {
  arrangement_ = arrangement;
  showArrangement();
}

/// Columns that the arrangement does not know keep their order behind those that it does, but for the notes, which come
/// right behind the kind, where they are seen.
void EntriesPanel::showArrangement() {
  arranging_ = true;
  QHeaderView& heads = *table_->horizontalHeader();
  const auto place = [&](const QString& head) {
    for (int column = 0; column < model_.columnCount(); ++column) {
      if (model_.headerData(column, Qt::Horizontal, Qt::EditRole).toString() == head) return column;
    }
    return -1;
  };
  for (int column = 0; column < heads.count(); ++column) {
    heads.moveSection(heads.visualIndex(column), column);
    table_->setColumnHidden(column, false);
  }
  const int note = model_.place(TableColumn::Content::note);
  if (note >= 0) heads.moveSection(heads.visualIndex(note), 1);
  int visual = 0;
  for (const QString& name : arrangement_) {
    const bool hidden = name.startsWith(hiddenMark);
    const int column = place(hidden ? name.mid(hiddenMark.size()) : name);
    if (column < 0) continue;
    heads.moveSection(heads.visualIndex(column), visual++);
    table_->setColumnHidden(column, hidden);
  }
  table_->resizeColumnsToContents();
  const int most = mostLetters * table_->fontMetrics().averageCharWidth();
  if (note >= 0) table_->setColumnWidth(note, std::min(table_->columnWidth(note), most));
  arranging_ = false;
}

/// Takes over what the user has done with the heads.
void EntriesPanel::readArrangement() {
  if (arranging_) return;
  const QHeaderView& heads = *table_->horizontalHeader();
  arrangement_.clear();
  for (int visual = 0; visual < heads.count(); ++visual) {
    const int column = heads.logicalIndex(visual);
    const QString head = model_.headerData(column, Qt::Horizontal, Qt::EditRole).toString();
    arrangement_ << (heads.isSectionHidden(column) ? hiddenMark + head : head);
  }
  Q_EMIT arranged();
}

/// The menu of the heads. The kind stays, so that there is always a head to open it on.
void EntriesPanel::offerColumns(const QPoint& place) {
  QMenu menu;
  for (int column = 1; column < model_.columnCount(); ++column) {
    QAction* action = menu.addAction(model_.headerData(column, Qt::Horizontal, Qt::EditRole).toString());
    action->setCheckable(true);
    action->setChecked(!table_->isColumnHidden(column));
    connect(action, &QAction::toggled, this, [this, column](bool shown) {
      table_->setColumnHidden(column, !shown);
      readArrangement();
    });
  }
  menu.exec(table_->horizontalHeader()->mapToGlobal(place));
}

int EntriesPanel::usefulHeight() const {
  const int rows = table_->horizontalHeader()->sizeHint().height() +
                   usefulRows * table_->verticalHeader()->defaultSectionSize() +
                   style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  return rows + widget()->sizeHint().height() - table_->sizeHint().height();
}

void EntriesPanel::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    Q_EMIT leaves();
  } else {
    QDockWidget::keyPressEvent(event);
  }
}

/// A stream of a mixture can become a point, where it is selected alone.
void EntriesPanel::offerStream() {
  const QModelIndexList chosen = table_->selectionModel()->selectedRows();
  const auto isStream = [&](const QModelIndex& at) {
    const TableRow& row = model_.rows()[static_cast<std::size_t>(at.row())];
    return hasValue(row.flow) && row.note.empty();
  };
  point_->setEnabled(chosen.size() == 1 && isStream(chosen.front()));
}

void EntriesPanel::markStream() {
  const QModelIndexList chosen = table_->selectionModel()->selectedRows();
  if (chosen.size() != 1) return;
  const TableRow& row = model_.rows()[static_cast<std::size_t>(chosen.front().row())];
  Q_EMIT pointChosen(row.entry, row.part);
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
