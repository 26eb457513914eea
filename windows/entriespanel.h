/// \file
/// The table next to the chart, "Points and lines".
#pragma once

#include <QDockWidget>
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

  /// Width in which all columns can be seen [logical pixels].
  int fullWidth() const;

Q_SIGNALS:
  void renamed(std::size_t entry, const QString& identification);
  void deleteChosen(const std::vector<std::size_t>& entries);
  void exactChosen(const std::vector<std::size_t>& entries);  ///< exact states for these, or for all if there is none
  void selected(const std::vector<std::size_t>& entries);     ///< by their places in the document; may be none
  /// Rows are to be written to a file: all that there are, and those selected, or all again if none is.
  void csvChosen(const std::vector<TableRow>& all, const std::vector<TableRow>& chosen);

private:
  std::vector<TableRow> chosenRows() const;
  std::vector<std::size_t> selectedEntries() const;
  void copy() const;
  void showNotes();

  EntriesModel model_;
  QTableView* table_;
  QAction* exact_ = nullptr;
};

}  // namespace moistair
