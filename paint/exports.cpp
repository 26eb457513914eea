#include "paint/exports.h"

#include <QBuffer>
#include <QPageSize>
#include <QPdfWriter>
#include <QSaveFile>
#include <QSvgGenerator>
#include <algorithm>

#include "paint/replay.h"

namespace moistair {

namespace {

bool writefile(const QByteArray& content, const QString& path) {
  QSaveFile file(path);
  if (content.isEmpty() || !file.open(QIODevice::WriteOnly)) return false;
  if (file.write(content) != content.size()) {
    file.cancelWriting();
    return false;
  }
  return file.commit();
}

bool writeimage(const QImage& image, const char* format, const QString& path) {
  QBuffer buffer;
  return buffer.open(QIODevice::WriteOnly) && image.save(&buffer, format) && writefile(buffer.data(), path);
}

}  // namespace

QImage drawingimage(const Drawing& drawing, QSize size, double scale) {
  QImage image(size * scale, QImage::Format_RGB32);
  if (image.isNull()) return image;
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.scale(scale, scale);
  replay(drawing, painter, size);
  return image;
}

bool writebmp(const QImage& picture, const QString& path) {
  return writeimage(picture.convertToFormat(QImage::Format_RGB888), "BMP", path);
}

bool writepng(const Drawing& drawing, QSize size, double scale, const QString& path) {
  return writeimage(drawingimage(drawing, size, scale), "PNG", path);
}

bool writesvg(const Drawing& drawing, QSize size, const QString& path) {
  QBuffer buffer;
  QSvgGenerator generator;
  generator.setOutputDevice(&buffer);
  generator.setResolution(96);
  generator.setSize(size);
  generator.setViewBox(QRect(QPoint(0, 0), size));
  generator.setTitle(QStringLiteral("Psychrometric chart"));
  QPainter painter;
  if (!painter.begin(&generator)) return false;
  painter.fillRect(QRect(QPoint(0, 0), size), Qt::white);
  replay(drawing, painter, size);
  return painter.end() && writefile(buffer.data(), path);
}

bool writepdf(const Drawing& drawing, QSize size, const QString& path) {
  QBuffer buffer;
  if (!buffer.open(QIODevice::WriteOnly)) return false;
  QPdfWriter writer(&buffer);
  writer.setTitle(QStringLiteral("Psychrometric chart"));
  writer.setCreator(QStringLiteral("Moistair"));
  writer.setPageSize(QPageSize(QSizeF(size) * 72 / 96, QPageSize::Point, QString(), QPageSize::ExactMatch));
  writer.setPageMargins(QMarginsF());
  QPainter painter;
  if (!painter.begin(&writer)) return false;
  const double scale = writer.resolution() / 96.0;
  painter.scale(scale, scale);
  replay(drawing, painter, size);
  return painter.end() && writefile(buffer.data(), path);
}

void paintfitted(const Drawing& drawing, QSize size, QPainter& painter, const QRectF& page) {
  const double scale = std::min(page.width() / size.width(), page.height() / size.height());
  painter.save();
  painter.translate(page.center() - QPointF(size.width(), size.height()) * scale / 2);
  painter.scale(scale, scale);
  painter.setClipRect(QRect(QPoint(0, 0), size));
  replay(drawing, painter, size);
  painter.restore();
}

}  // namespace moistair
