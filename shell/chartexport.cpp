#include "shell/chartexport.h"

#include <QBuffer>
#include <QImage>
#include <QPageSetupDialog>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <algorithm>
#include <optional>
#include <variant>

#include "chart/scales.h"
#include "paint/exports.h"
#include "paint/replay.h"
#include "shell/filewriting.h"
#include "shell/paper.h"
#include "toolkit/messages.h"
#include "toolkit/savedialog.h"

namespace moistair {

namespace {

constexpr int picturedPi = 96;  // logical pixels to the inch of paper

/// The rectangle that a document laid out for a window touches there [logical pixels], from the line that states the
/// pressure downward: lines of a chart are also recorded above the window, where nobody sees them.
QRectF touchedBy(const Drawing& drawing, QSizeF window) {
  constexpr double boundless = 4;  // no text is to be moved away from an edge
  QImage pixel(1, 1, QImage::Format_RGB32);
  QPainter painter(&pixel);
  const QRectF touched = replay(drawing, painter, window * boundless);
  const double top = window.height() * 50 / 6000;
  return touched & QRectF(touched.left(), top, touched.width(), window.height() - top);
}

WindowSize twips(QSizeF size) { return {size.width() * twipsPerPixel, size.height() * twipsPerPixel}; }

struct Mover {
  float dx, dy;  // twips

  void operator()(LineOperation& line) const {
    line.x1 += dx, line.x2 += dx;
    line.y1 += dy, line.y2 += dy;
  }
  template <class Placed>
  void operator()(Placed& placed) const {
    placed.x += dx, placed.y += dy;
  }
};

/// The kinds of files, one of them before all others.
auto formatsFrom(const char* first) {
  auto formats = fileFormats;
  std::stable_partition(formats.begin(), formats.end(),
                        [&](const FileFormat& format) { return QLatin1String(format.ending) == QLatin1String(first); });
  return formats;
}

/// What is printed to a file is written as every other file is.
Outcome printToFile(const QPrinter& printer, const SessionLog& log, const PaintPages& paint) {
  QByteArray content;
  QBuffer buffer(&content);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setTitle(printer.docName());
  writer.setCreator(QStringLiteral("Moistair"));
  writer.setResolution(printer.resolution());
  writer.setPageLayout(printer.pageLayout());
  QPainter painter;
  if (painter.begin(&writer)) paint(writer, painter);
  return writePicture(printer.outputFileName(), painter.end() ? content : QByteArray(), log);
}

}  // namespace

/// The scales grow in proportion to the window and their labels do not, so the window for which all of it has the size
/// wanted is found in a few steps.
Drawing fittedTo(const Document& document, QSize size) {
  constexpr double margin = 24;  // logical pixels
  constexpr int steps = 6;
  const QRectF wanted = QRectF(QPointF(0, 0), size).adjusted(margin, margin, -margin, -margin);
  QSizeF window = size;
  Drawing drawing = drawingOf(document, twips(window));
  if (lastChart(document) == nullptr || wanted.isEmpty()) return drawing;
  QRectF touched = touchedBy(drawing, window);
  for (int step = 0; step < steps; ++step) {
    window = {
        std::clamp(window.width() * wanted.width() / touched.width(), wanted.width() / 2, size.width() * 2.0),
        std::clamp(window.height() * wanted.height() / touched.height(), wanted.height() / 2, size.height() * 3.0)};
    drawing = drawingOf(document, twips(window));
    touched = touchedBy(drawing, window);
  }
  const QPointF move = (wanted.center() - touched.center()) * twipsPerPixel;
  for (Operation& operation : drawing.operations) {
    std::visit(Mover{static_cast<float>(move.x()), static_cast<float>(move.y())}, operation);
  }
  return drawing;
}

std::optional<QString> exportPicture(QWidget* window, const SessionLog& log, const QString& what, const char* first,
                                     const std::function<QByteArray(const FileFormat& format)>& content) {
  const auto formats = formatsFrom(first);
  SaveDialog dialog;
  SaveRequest request{QStringLiteral("Export ") + what, {}};
  for (const FileFormat& format : formats) request.filters.append(QLatin1String(format.filter));
  auto path = dialog.ask(window, request);
  if (!path) return path;
  const FileFormat* format = formatOfName(path->toStdString());
  if (format == nullptr) {
    const auto chosen = std::find_if(formats.begin(), formats.end(), [&](const FileFormat& offered) {
      return dialog.lastFilter() == QLatin1String(offered.filter);
    });
    format = chosen == formats.end() ? &formats.front() : &*chosen;
    path = completeName(window, request.title, *path, {QLatin1String(format->ending)});
    if (!path) return path;
  }
  if (const Outcome written = writePicture(*path, content(*format), log); !written) {
    warning(window, notWrittenText(QStringLiteral("The ") + what, *path, written.error()));
    return std::nullopt;
  }
  return path;
}

std::optional<QString> exportChart(QWidget* window, const SessionLog& log, const Document& document, QSize size) {
  return exportPicture(window, log, QStringLiteral("chart"), ".svg", [&](const FileFormat& format) {
    return format.content(fittedTo(document, size), size, exportScale);
  });
}

QPageLayout firstPage() {
  const auto size = QPageSize(usesLetter(paperLocale()) ? QPageSize::Letter : QPageSize::A4);
  const QMarginsF margins(paperMargin, paperMargin, paperMargin, paperMargin);
  return {size, QPageLayout::Landscape, margins, QPageLayout::Inch};
}

QPageLayout askPage(QWidget* window, const QPageLayout& page) {
  QPrinter printer;
  printer.setPageLayout(page);
  QPageSetupDialog dialog(&printer, window);
  return dialog.exec() == QDialog::Accepted ? printer.pageLayout() : page;
}

QPageLayout printPages(QWidget* window, const SessionLog& log, const QPageLayout& page, const PaintPages& paint) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageLayout(page);
  printer.setDocName(QStringLiteral("Psychrometric chart"));
  QPrintDialog dialog(&printer, window);
  if (dialog.exec() != QDialog::Accepted) return page;
  if (printer.outputFormat() == QPrinter::PdfFormat) {
    const QString path = printer.outputFileName();
    const Outcome written = printToFile(printer, log, paint);
    if (!written) warning(window, notWrittenText(QStringLiteral("The print"), path, written.error()));
    return printer.pageLayout();
  }
  QPainter painter;
  if (!painter.begin(&printer)) {
    warning(window, QStringLiteral("The chart could not be printed."));
    return page;
  }
  paint(printer, painter);
  return printer.pageLayout();
}

QPageLayout printChart(QWidget* window, const SessionLog& log, const Document& document, const QPageLayout& page) {
  return printPages(window, log, page, [&](QPagedPaintDevice& device, QPainter& painter) {
    const int resolution = device.logicalDpiX();
    const QSize paper = device.pageLayout().paintRectPixels(resolution).size();
    const QSize size = paper * (static_cast<double>(picturedPi) / resolution);
    paintFitted(fittedTo(document, size), size, painter, QRectF(QPointF(0, 0), paper));
  });
}

}  // namespace moistair
