/// \file
/// The sheet in the main window: exported, printed, and on the screen in place of the drawing.
#pragma once

#include <QMenu>
#include <QPageLayout>
#include <QWidget>
#include <filesystem>
#include <functional>
#include <optional>

#include "chart/reading.h"
#include "sheet/options.h"
#include "shell/chartcontroller.h"
#include "windows/sheetview.h"

namespace moistair {

class SessionLog;

class Sheets final : public QObject {
  Q_OBJECT

public:
  /// @param window that dialogs are kept above
  /// @param graph shows the drawing
  /// @param visible how much of it can be seen
  Sheets(QWidget& window, QWidget& graph, ChartController& chart, const SessionLog& log,
         std::function<QSize()> visible);

  /// "As a sheet".
  void fillViewMenu(QMenu& view);

  /// The drawing is shown in place of a sheet.
  void reset() { toggle_->setChecked(false); }

  /// Highlights entries of the document on the sheet.
  void highlight(const std::vector<std::size_t>& entries) { view_->highlight(entries); }

  bool isShown() const;

  /// Where the plot lies while the sheet is on the screen.
  std::optional<PlotBox> plot();

  /// Asks how it is to look, and where it is to be written. Returns the path of a file that was.
  std::optional<QString> exportSheet();

  /// Asks whether a sheet or the chart is to be printed, and for a sheet who has drawn it unless the document says so,
  /// and prints it. Returns the page as it then is.
  QPageLayout print(const QPageLayout& page);

Q_SIGNALS:
  void toggled();  ///< the sheet has come on the screen or gone

private:
  enum class Printed { nothing, chart, sheet };

  void follow();
  bool hasChart() const;
  Printed askWhat();
  QPageLayout printSheet(const QPageLayout& page);
  void show();
  TitleBlock titleBlock() const;
  void keep(const TitleBlock& block);
  bool askTitleBlock();
  std::filesystem::path drawnByFile() const;

  QWidget& window_;
  ChartController& chart_;
  const SessionLog& log_;
  std::function<QSize()> visible_;
  SheetView* view_;
  QAction* toggle_ = nullptr;
  SheetOptions options_;  ///< as last chosen, but for the title block, which is the document's
};

}  // namespace moistair
