#include "shell/chartexport.h"

#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <optional>

#include "paint/exports.h"
#include "shell/filewriting.h"
#include "toolkit/messages.h"
#include "toolkit/savedialog.h"

namespace moistair {

namespace {

constexpr double exportscale = 2;  // sharp when a report enlarges it

const FileFormat& formatoffilter(const QString& filter) {
  for (const FileFormat& format : fileformats) {
    if (filter == QLatin1String(format.filter)) return format;
  }
  return fileformats.front();
}

/// Why the file was not written, nothing if it was.
std::optional<QString> write(const Drawing& drawing, QSize size, const FileFormat& format, const QString& path) {
  const QByteArray content = format.content(drawing, size, exportscale);
  if (content.isEmpty()) return QStringLiteral("There is not enough memory for it.");
  return writebytes(path, {content.data(), static_cast<std::size_t>(content.size())});
}

}  // namespace

void exportchart(QWidget* window, const Drawing& drawing, QSize size) {
  SaveDialog dialog;
  SaveRequest request{QStringLiteral("Export chart"), {}};
  for (const FileFormat& format : fileformats) request.filters.append(QLatin1String(format.filter));
  auto path = dialog.ask(window, request);
  if (!path) return;
  const FileFormat* format = formatofname(path->toStdString());
  if (format == nullptr) {
    format = &formatoffilter(dialog.lastfilter());
    path = completename(window, request.title, *path, {QLatin1String(format->ending)});
    if (!path) return;
  }
  if (const auto reason = write(drawing, size, *format, *path)) {
    message(window, QStringLiteral("The chart could not be written to ") + *path + QStringLiteral("\n") + *reason);
  }
}

void printchart(QWidget* window, const Drawing& drawing, QSize size) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(QPageLayout::Landscape);
  printer.setDocName(QStringLiteral("Psychrometric chart"));
  QPrintDialog dialog(&printer, window);
  if (dialog.exec() != QDialog::Accepted) return;
  QPainter painter;
  if (!painter.begin(&printer)) {
    message(window, QStringLiteral("The chart could not be printed."));
    return;
  }
  paintfitted(drawing, size, painter,
              QRectF(QPointF(0, 0), printer.pageLayout().paintRectPixels(printer.resolution()).size()));
}

}  // namespace moistair
