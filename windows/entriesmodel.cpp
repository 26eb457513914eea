#include "windows/entriesmodel.h"

#include <QApplication>
#include <QGuiApplication>
#include <QPalette>
#include <QStyle>
#include <utility>

#include "advice/remark.h"
#include "paint/replay.h"

namespace moistair {

namespace {

constexpr int identificationColumn = 1;
constexpr int firstNumber = 2;  // column

}  // namespace

void EntriesModel::setRows(std::vector<TableRow> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  endResetModel();
}

int EntriesModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int EntriesModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(tableColumnCount(rows_));
}

QVariant EntriesModel::data(const QModelIndex& index, int role) const {
  if (role == Qt::DisplayRole || role == Qt::EditRole) {
    const QString text = QString::fromStdString(cellText(rowOf(index), static_cast<std::size_t>(index.column())));
    return role == Qt::EditRole ? text : printable(text);
  }
  const QString note = QString::fromStdString(rowOf(index).note);
  if (role == Qt::ToolTipRole && !note.isEmpty()) return note;
  if (role == Qt::ForegroundRole && !note.isEmpty()) {
    return QGuiApplication::palette().brush(QPalette::Active, QPalette::PlaceholderText);
  }
  if (rowOf(index).missed.any()) {
    if (role == Qt::DecorationRole && index.column() == 0) {
      return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
    }
    if (role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole) {
      const TableRow& row = rowOf(index);
      return printable(QString::fromStdString(remarkOn(row.missed, row.pressure, row.mixture).words));
    }
  }
  if (role == Qt::TextAlignmentRole && index.column() >= firstNumber && index.column() < static_cast<int>(missedColumn))
    return int{Qt::AlignRight | Qt::AlignVCenter};
  return {};
}

/// A head has its unit below it, lest a column be wider than its figures.
QVariant EntriesModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
  return QString::fromUtf8(tableHead(static_cast<std::size_t>(section)))
      .replace(QStringLiteral(" ("), QStringLiteral("\n("));
}

Qt::ItemFlags EntriesModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  const bool editable = index.isValid() && index.column() == identificationColumn && rowOf(index).renamable;
  return editable ? flags | Qt::ItemIsEditable : flags;
}

bool EntriesModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || (flags(index) & Qt::ItemIsEditable) == 0) return false;
  const QString identification = value.toString();
  if (identification == data(index, role).toString()) return false;
  Q_EMIT renamed(rowOf(index).entry, identification);
  return true;
}

}  // namespace moistair
