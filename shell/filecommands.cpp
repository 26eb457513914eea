#include "shell/filecommands.h"

#include "paint/exports.h"
#include "shell/chartexport.h"
#include "shell/filewriting.h"
#include "shell/sheets.h"
#include "toolkit/messages.h"

namespace moistair {

FileCommands::FileCommands(QMainWindow& window, GraphView& graph, ChartController& chart, Sheets& sheets,
                           LogController& log)
    : QObject(&window), window_(window), graph_(graph), chart_(chart), sheets_(sheets), log_(log) {
  connect(&chart, &ChartController::changed, this, &FileCommands::showExportKey);
  connect(&sheets, &Sheets::toggled, this, &FileCommands::showExportKey);
}

void FileCommands::fillMenu(QMenu& file) {
  exportChart_ = file.addAction(QStringLiteral("&Export chart..."), this, &FileCommands::exportChart);
  exportSheet_ = file.addAction(QStringLiteral("Export s&heet..."), this, &FileCommands::exportSheet);
  file.addAction(QStringLiteral("Page set&up..."), this, &FileCommands::setupPage);
  file.addAction(QStringLiteral("&Print..."), this, &FileCommands::print)
      ->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_P));
  showExportKey();
}

/// Ctrl+E exports what is on the screen.
void FileCommands::showExportKey() {
  const QKeySequence key(Qt::CTRL | Qt::Key_E);
  const bool sheet = sheets_.isShown();
  exportChart_->setShortcut(sheet ? QKeySequence() : key);
  exportSheet_->setShortcut(sheet ? key : QKeySequence());
}

/// Asks for a path; none, and the answer to it, if the user cancels.
std::optional<QString> FileCommands::askPath(const SaveRequest& request) {
  auto path = saveDialog_.ask(&window_, request);
  if (path) {
    message(&window_, QStringLiteral("You saved the files as  ") + *path);
  } else {
    message(&window_, QStringLiteral("Dialog Cancelled"));
  }
  return path;
}

void FileCommands::saveChart() {
  if (const auto path = askPath(
          {QStringLiteral("Save File"), {QStringLiteral("BMP File (*.bmp)"), QStringLiteral("AllFiles (*.*)")}})) {
    chart_.commands().keepPicture();
    Q_EMIT written(QStringLiteral("chart"), *path, writePicture(*path, bmpContent(graph_.picture()), log_.log()));
  }
  Q_EMIT done();
}

void FileCommands::saveLog() {
  if (const auto path = askPath({QStringLiteral("Save Pont data in File"),
                                 {QStringLiteral("Txt File (*.txt)"), QStringLiteral("AllFiles (*.*)")}})) {
    const bool copied = log_.copyTo(*path);
    Q_EMIT written(QStringLiteral("saved data"), *path,
                   copied ? Outcome() : Error{ErrorCode::notWritten, {}, "The file cannot be written."});
  }
  Q_EMIT done();
}

void FileCommands::exportChart() {
  const QSize size = window_.centralWidget()->size();
  const auto path = moistair::exportChart(&window_, log_.log(), chart_.document(), size);
  if (path) Q_EMIT written(QStringLiteral("chart"), *path, {});
  Q_EMIT done();
}

void FileCommands::exportSheet() {
  const auto path = sheets_.exportSheet();
  if (path) Q_EMIT written(QStringLiteral("sheet"), *path, {});
  Q_EMIT done();
}

/// Asked of the system at the first use: to look for a printer takes its time.
QPageLayout FileCommands::page() const { return page_ ? *page_ : firstPage(); }

void FileCommands::setupPage() {
  page_ = askPage(&window_, page());
  Q_EMIT done();
}

void FileCommands::print() {
  page_ = sheets_.print(page());
  Q_EMIT done();
}

}  // namespace moistair
