#include "windows/entriesmodel.h"

#include <QApplication>
#include <QGuiApplication>
#include <QPalette>
#include <QStyle>
#include <algorithm>
#include <utility>

#include "advice/remark.h"
#include "paint/replay.h"

namespace moistair {

namespace {

/// What a row was given is set off from what follows from it.
QFont boldFont() {
  QFont font = QApplication::font();
  font.setBold(true);
  return font;
}

}  // namespace

void EntriesModel::setRows(std::vector<TableRow> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  columns_ = tableColumns(rows_);
  endResetModel();
}

int EntriesModel::place(TableColumn::Content content) const {
  const auto has = [&](const TableColumn& column) { return column.content == content; };
  const auto found = std::find_if(columns_.begin(), columns_.end(), has);
  return found == columns_.end() ? -1 : static_cast<int>(found - columns_.begin());
}

int EntriesModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int EntriesModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant EntriesModel::data(const QModelIndex& index, int role) const {
  const TableRow& row = rowOf(index);
  const TableColumn& column = columnOf(index);
  const GivenValue* given = givenIn(row, column);
  switch (role) {
    case Qt::DisplayRole: return printable(QString::fromStdString(shownText(row, column)));
    case Qt::EditRole: return QString::fromStdString(given != nullptr ? given->text : cellText(row, column));
    case Qt::TextAlignmentRole:
      return column.isNumber() ? QVariant(int{Qt::AlignRight | Qt::AlignVCenter}) : QVariant();
    case Qt::FontRole: return given != nullptr ? QVariant(boldFont()) : QVariant();
    case Qt::ForegroundRole:
      return row.note.empty() ? QVariant()
                              : QGuiApplication::palette().brush(QPalette::Active, QPalette::PlaceholderText);
    case Qt::DecorationRole:
      return row.missed.any() && index.column() == 0 ? QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning)
                                                     : QVariant();
    case Qt::ToolTipRole: return wordsOn(row);
    case Qt::AccessibleDescriptionRole: return missedWords(row);
    default: return {};
  }
}

/// Why it is not on the chart, or what it misses.
QVariant EntriesModel::wordsOn(const TableRow& row) {
  return row.note.empty() ? missedWords(row) : QString::fromStdString(row.note);
}

QVariant EntriesModel::missedWords(const TableRow& row) {
  if (!row.missed.any()) return {};
  return printable(QString::fromStdString(remarkOn(row.missed, row.pressure, row.mixture).words));
}

/// A head has its unit below it, lest a column be wider than its figures.
QVariant EntriesModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || (role != Qt::DisplayRole && role != Qt::EditRole)) return {};
  const QString head = QString::fromUtf8(headOf(columns_[static_cast<std::size_t>(section)]));
  return role == Qt::EditRole ? head : QString(head).replace(QStringLiteral(" ("), QStringLiteral("\n("));
}

Qt::ItemFlags EntriesModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  if (!index.isValid()) return flags;
  const bool named = columnOf(index).content == TableColumn::Content::identification && rowOf(index).renamable;
  return named || givenIn(rowOf(index), columnOf(index)) != nullptr ? flags | Qt::ItemIsEditable : flags;
}

bool EntriesModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || (flags(index) & Qt::ItemIsEditable) == 0) return false;
  const QString text = value.toString();
  if (text == data(index, role).toString()) return false;
  if (const GivenValue* given = givenIn(rowOf(index), columnOf(index))) {
    Q_EMIT typed(rowOf(index).entry, {given->part, given->kind, text.toStdString()});
  } else {
    Q_EMIT renamed(rowOf(index).entry, rowOf(index).part, text);
  }
  return true;
}

}  // namespace moistair
