/// \file
/// The commands that write a chart, a sheet or the saved data to a file or on paper.
#pragma once

#include <QMainWindow>
#include <QMenu>
#include <QPageLayout>
#include <optional>

#include "shell/chartcontroller.h"
#include "shell/logcontroller.h"
#include "toolkit/graphview.h"
#include "toolkit/savedialog.h"

namespace moistair {

class Sheets;

class FileCommands final : public QObject {
  Q_OBJECT

public:
  FileCommands(QMainWindow& window, GraphView& graph, ChartController& chart, Sheets& sheets, LogController& log);

  /// Export chart, Export sheet, Page setup, Print.
  void fillMenu(QMenu& file);

  void saveChart();
  void saveLog();

Q_SIGNALS:
  /// A file was written, or why not. @param what it holds
  void written(const QString& what, const QString& path, const Outcome& outcome);
  void done();  ///< the chart gets the focus

private:
  void exportChart();
  void exportSheet();
  void setupPage();
  void print();
  std::optional<QString> askPath(const SaveRequest& request);
  void showExportKey();
  QPageLayout page() const;

  QMainWindow& window_;
  GraphView& graph_;
  ChartController& chart_;
  Sheets& sheets_;
  LogController& log_;
  SaveDialog saveDialog_;
  std::optional<QPageLayout> page_;  ///< of printing, once it has been asked for
  QAction *exportChart_ = nullptr, *exportSheet_ = nullptr;
};

}  // namespace moistair
