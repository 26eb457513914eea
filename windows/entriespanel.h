/// \file
/// The table next to the chart, "Points and lines".
#pragma once

#include <QDockWidget>
#include <QStringList>
#include <QTableView>
#include <vector>

#include "windows/entriesmodel.h"

namespace moistair {

/// Lists everything on the chart, in the order in which it was drawn. What the user wants done with it is reported by
/// signals: the main window changes the document and hands it back.
class EntriesPanel final : public QDockWidget {
  Q_OBJECT

public:
  explicit EntriesPanel(QWidget* main);

  void show(const Document& document);
  using QDockWidget::show;

  /// The heads of the columns from left to right, a "-" before that of a hidden one: what `arrangeColumns` takes.
  QStringList columnArrangement() const { return arrangement_; }
  void arrangeColumns(const QStringList& arrangement);

  /// Height in which some rows can be seen [logical pixels].
  int usefulHeight() const;

Q_SIGNALS:
  void renamed(std::size_t entry, std::size_t part, const QString& identification);
  void typed(std::size_t entry, const GivenValue& value);  ///< another text for a given value
  void pointChosen(std::size_t entry, std::size_t part);   ///< a mixture's stream is to be marked as a point
  void deleteChosen(const std::vector<std::size_t>& entries);
  void exactChosen(const std::vector<std::size_t>& entries);  ///< exact states for these, or for all if there is none
  void selected(const std::vector<std::size_t>& entries);     ///< by their places in the document; may be none
  /// Rows are to be written to a file: all that there are, and those selected, or all again if none is.
  void csvChosen(const std::vector<TableRow>& all, const std::vector<TableRow>& chosen);
  void arranged();  ///< the user has moved, hidden or shown a column
  void leaves();    ///< Esc: the focus belongs to the chart

protected:
  void keyPressEvent(QKeyEvent* event) override;

private:
  std::vector<TableRow> chosenRows() const;
  std::vector<std::size_t> selectedEntries() const;
  void copy() const;
  void markStream();
  void offerStream();
  void showArrangement();
  void readArrangement();
  void offerColumns(const QPoint& place);
  void scrollToNew(int rowsBefore);

  EntriesModel model_;
  QTableView* table_;
  QStringList arrangement_;
  QAction* exact_ = nullptr;
  QAction* point_ = nullptr;
  bool arranging_ = false;  ///< the columns are being moved by us
};

}  // namespace moistair
