/// \file
/// The table of everything on the chart, as Qt's views take it.
#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "model/table.h"

namespace moistair {

/// Shows rows that are worked out elsewhere and changes none of them: identifications and given values can be typed
/// over, and what was typed is reported. Whoever owns the document changes that and hands in the rows that follow from
/// it.
class EntriesModel final : public QAbstractTableModel {
  Q_OBJECT

public:
  using QAbstractTableModel::QAbstractTableModel;

  void setRows(std::vector<TableRow> rows);
  const std::vector<TableRow>& rows() const { return rows_; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  /// Where the column of a content is; -1 where it is not shown.
  int place(TableColumn::Content content) const;

Q_SIGNALS:
  void renamed(std::size_t entry, std::size_t part, const QString& identification);
  void typed(std::size_t entry, const GivenValue& value);  ///< the value has the new text

private:
  const TableRow& rowOf(const QModelIndex& index) const { return rows_[static_cast<std::size_t>(index.row())]; }

  const TableColumn& columnOf(const QModelIndex& index) const {
    return columns_[static_cast<std::size_t>(index.column())];
  }
  static QVariant wordsOn(const TableRow& row);
  static QVariant missedWords(const TableRow& row);

  std::vector<TableRow> rows_;
  std::vector<TableColumn> columns_;
};

}  // namespace moistair
