/// \file
/// The table "Points and lines" in the window: where it is, what is selected in it, and the file that it is written to.
#pragma once

#include <QMainWindow>
#include <QMenu>
#include <vector>

#include "shell/chartcontroller.h"
#include "toolkit/graphview.h"
#include "windows/entriespanel.h"

namespace moistair {

class SessionLog;
class Sheets;

class EntriesDock final : public QObject {
  Q_OBJECT

public:
  EntriesDock(QMainWindow& window, GraphView& graph, ChartController& chart, Sheets& sheets, const SessionLog& log);

  /// "Points and lines", and the way there and back.
  void fillViewMenu(QMenu& view);

  /// Hidden, with its first place and columns.
  void reset();

Q_SIGNALS:
  /// The table was written, or why not.
  void written(const QString& path, const Outcome& outcome);

private:
  void goThereOrBack();
  void goBack();
  void place();
  void placeFirst();
  void rememberPlace();
  void highlight(const std::vector<std::size_t>& entries);
  void writeCsv(const std::vector<TableRow>& all, const std::vector<TableRow>& chosen);

  QMainWindow& window_;
  GraphView& graph_;
  ChartController& chart_;
  Sheets& sheets_;
  const SessionLog& log_;
  EntriesPanel* panel_;
  std::vector<std::size_t> highlighted_;  ///< entries highlighted on the chart
  bool placed_ = false;
};

}  // namespace moistair
