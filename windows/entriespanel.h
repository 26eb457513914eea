/// \file
/// The table beside the chart, "Points and lines".
#pragma once

#include <QDockWidget>
#include <QTableView>
#include <vector>

#include "windows/entriesmodel.h"

namespace moistair {

/// Lists all that stands on the chart, in the order in which it was drawn. What the user wants done with it is told by
/// signals: the main window changes the document and hands it back.
class EntriesPanel final : public QDockWidget {
  Q_OBJECT

public:
  explicit EntriesPanel(QWidget* main);

  void show(const Document& document);
  using QDockWidget::show;

  /// Width in which all columns can be seen [logical pixels].
  int fullwidth() const;

Q_SIGNALS:
  void renamed(std::size_t entry, const QString& identification);
  void deletechosen(const std::vector<std::size_t>& entries);
  void exactchosen(const std::vector<std::size_t>& entries);  ///< exact states for these, or for all if there is none
  void selected(const std::vector<std::size_t>& entries);     ///< by their places in the document; may be none
  /// Rows are to be written to a file: all that there are, and those selected, or all again if none is.
  void csvchosen(const std::vector<TableRow>& all, const std::vector<TableRow>& chosen);

private:
  std::vector<TableRow> chosenrows() const;
  std::vector<std::size_t> selectedentries() const;
  void copy() const;
  void shownotes();

  EntriesModel model_;
  QTableView* table_;
  QAction* exact_ = nullptr;
};

}  // namespace moistair
