#include "paint/exports.h"

#include <png.h>

#include <QBuffer>
#include <QPageSize>
#include <QPdfWriter>
#include <algorithm>

#include "paint/replay.h"
#include "paint/svg.h"

namespace moistair {

namespace {

QByteArray bmpofdrawing(const Drawing& drawing, QSize size, double scale) {
  return bmpcontent(drawingimage(drawing, size, scale));
}

QByteArray pngofdrawing(const Drawing& drawing, QSize size, double scale) {
  return pngcontent(drawingimage(drawing, size, scale));
}

QByteArray svgofdrawing(const Drawing& drawing, QSize size, double) { return svgcontent(drawing, size); }

QByteArray pdfofdrawing(const Drawing& drawing, QSize size, double) {
  return pdfcontent(size, QStringLiteral("Psychrometric chart"),
                    [&](QPainter& painter, QPdfWriter&) { replay(drawing, painter, size); });
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
  QByteArray content;
  QBuffer buffer(&content);
  const bool made =
      buffer.open(QIODevice::WriteOnly) && picture.convertToFormat(QImage::Format_RGB888).save(&buffer, "BMP");
  return made ? content : QByteArray();
}

/// Qt's own writer tries five filters on every row, which takes longer than all else and gains a quarter of the size.
QByteArray pngcontent(const QImage& image) {
  const QImage picture = image.convertToFormat(QImage::Format_RGB888);
  if (picture.isNull()) return {};
  png_image png{};
  png.version = PNG_IMAGE_VERSION;
  png.format = PNG_FORMAT_RGB;
  png.flags = PNG_IMAGE_FLAG_FAST;
  png.width = static_cast<png_uint_32>(picture.width());
  png.height = static_cast<png_uint_32>(picture.height());
  png_alloc_size_t bytes = PNG_IMAGE_PNG_SIZE_MAX(png);
  QByteArray content(static_cast<qsizetype>(bytes), Qt::Uninitialized);
  const auto row = static_cast<png_int_32>(picture.bytesPerLine());
  if (png_image_write_to_memory(&png, content.data(), &bytes, 0, picture.constBits(), row, nullptr) == 0) return {};
  content.truncate(static_cast<qsizetype>(bytes));
  return content;
}

QByteArray pdfcontent(QSizeF size, const QString& title, const std::function<void(QPainter&, QPdfWriter&)>& paint) {
  QByteArray content;
  QBuffer buffer(&content);
  if (!buffer.open(QIODevice::WriteOnly)) return {};
  QPdfWriter writer(&buffer);
  writer.setTitle(title);
  writer.setCreator(QStringLiteral("Moistair"));
  writer.setPageSize(QPageSize(size * 72 / 96, QPageSize::Point, QString(), QPageSize::ExactMatch));
  writer.setPageMargins(QMarginsF());
  QPainter painter;
  if (!painter.begin(&writer)) return {};
  const double scale = writer.resolution() / 96.0;
  painter.scale(scale, scale);
  paint(painter, writer);
  return painter.end() ? content : QByteArray();
}

const std::array<FileFormat, 4> fileformats = {{
    {pictureendings[0], "SVG drawing (*.svg)", false, svgofdrawing},
    {pictureendings[1], "PDF document (*.pdf)", false, pdfofdrawing},
    {pictureendings[2], "PNG picture (*.png)", true, pngofdrawing},
    {pictureendings[3], "BMP picture (*.bmp)", true, bmpofdrawing},
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
