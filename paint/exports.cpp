#include "paint/exports.h"

#include <QBuffer>
#include <QPageSize>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>

#include "paint/replay.h"

namespace moistair {

namespace {

QByteArray imagecontent(const QImage& image, const char* format) {
  QByteArray content;
  QBuffer buffer(&content);
  const bool made = buffer.open(QIODevice::WriteOnly) && image.save(&buffer, format);
  return made ? content : QByteArray();
}

QByteArray bmpofdrawing(const Drawing& drawing, QSize size, double scale) {
  return bmpcontent(drawingimage(drawing, size, scale));
}

QByteArray pngofdrawing(const Drawing& drawing, QSize size, double scale) {
  return imagecontent(drawingimage(drawing, size, scale), "PNG");
}

QByteArray svgofdrawing(const Drawing& drawing, QSize size, double) {
  QByteArray content;
  QBuffer buffer(&content);
  QSvgGenerator generator;
  generator.setOutputDevice(&buffer);
  generator.setResolution(96);
  generator.setSize(size);
  generator.setViewBox(QRect(QPoint(0, 0), size));
  generator.setTitle(QStringLiteral("Psychrometric chart"));
  QPainter painter;
  if (!painter.begin(&generator)) return {};
  painter.fillRect(QRect(QPoint(0, 0), size), Qt::white);
  replay(drawing, painter, size);
  return painter.end() ? content : QByteArray();
}

QByteArray pdfofdrawing(const Drawing& drawing, QSize size, double) {
  QByteArray content;
  QBuffer buffer(&content);
  if (!buffer.open(QIODevice::WriteOnly)) return {};
  QPdfWriter writer(&buffer);
  writer.setTitle(QStringLiteral("Psychrometric chart"));
  writer.setCreator(QStringLiteral("Moistair"));
  writer.setPageSize(QPageSize(QSizeF(size) * 72 / 96, QPageSize::Point, QString(), QPageSize::ExactMatch));
  writer.setPageMargins(QMarginsF());
  QPainter painter;
  if (!painter.begin(&writer)) return {};
  const double scale = writer.resolution() / 96.0;
  painter.scale(scale, scale);
  replay(drawing, painter, size);
  return painter.end() ? content : QByteArray();
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

QByteArray bmpcontent(const QImage& picture) {
  return imagecontent(picture.convertToFormat(QImage::Format_RGB888), "BMP");
}

const std::array<FileFormat, 4> fileformats = {{
    {".svg", "SVG drawing (*.svg)", false, svgofdrawing},
    {".pdf", "PDF document (*.pdf)", false, pdfofdrawing},
    {".png", "PNG picture (*.png)", true, pngofdrawing},
    {".bmp", "BMP picture (*.bmp)", true, bmpofdrawing},
}};

const FileFormat* formatofname(std::string_view name) {
  const auto samecharacter = [](char a, char b) { return a == (b >= 'A' && b <= 'Z' ? b - 'A' + 'a' : b); };
  for (const FileFormat& format : fileformats) {
    const std::string_view ending = format.ending;
    if (name.size() < ending.size()) continue;
    const std::string_view tail = name.substr(name.size() - ending.size());
    if (std::equal(ending.begin(), ending.end(), tail.begin(), samecharacter)) return &format;
  }
  return nullptr;
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
