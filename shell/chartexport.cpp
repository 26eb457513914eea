#include "shell/chartexport.h"

#include <QFileInfo>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <array>

#include "paint/exports.h"
#include "toolkit/dialog.h"
#include "toolkit/messages.h"
#include "toolkit/savedialog.h"

namespace moistair {

namespace {

struct ExportFormat {
  const char* filter;
  const char* ending;
  bool (*write)(const Drawing& drawing, QSize size, const QString& path);
};

/// Twice the pixels of the screen: sharp when a report enlarges it.
bool writepicture(const Drawing& drawing, QSize size, const QString& path) { return writepng(drawing, size, 2, path); }

constexpr std::array<ExportFormat, 3> formats = {{
    {"SVG drawing (*.svg)", "svg", writesvg},
    {"PDF document (*.pdf)", "pdf", writepdf},
    {"PNG picture (*.png)", "png", writepicture},
}};

const ExportFormat* formatofending(const QString& path) {
  const QString ending = QFileInfo(path).suffix().toLower();
  for (const ExportFormat& format : formats) {
    if (ending == QLatin1String(format.ending)) return &format;
  }
  return nullptr;
}

const ExportFormat& formatoffilter(const QString& filter) {
  for (const ExportFormat& format : formats) {
    if (filter == QLatin1String(format.filter)) return format;
  }
  return formats.front();
}

}  // namespace

void exportchart(QWidget* window, const Drawing& drawing, QSize size) {
  SaveDialog dialog;
  SaveRequest request{QStringLiteral("Export chart"), {}};
  for (const ExportFormat& format : formats) request.filters.append(QLatin1String(format.filter));
  auto path = dialog.ask(window, request);
  if (!path) return;
  const ExportFormat* format = formatofending(*path);
  if (format == nullptr) {
    format = &formatoffilter(dialog.lastfilter());
    *path += QLatin1Char('.') + QLatin1String(format->ending);
    if (QFileInfo::exists(*path) &&
        !question(window, request.title, *path + QStringLiteral(" already exists. Do you want to replace it?"))) {
      return;
    }
  }
  if (!format->write(drawing, size, *path)) {
    message(window, QStringLiteral("The chart could not be written to ") + *path);
  }
}

void printchart(QWidget* window, const Drawing& drawing, QSize size) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(QPageLayout::Landscape);
  printer.setDocName(QStringLiteral("Psychrometric chart"));
  QPrintDialog dialog(&printer, window);
  keepabove(dialog);
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
