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

QByteArray bmpOfDrawing(const Drawing& drawing, QSize size, double scale) {
  return bmpContent(drawingImage(drawing, size, scale));
}

QByteArray pngOfDrawing(const Drawing& drawing, QSize size, double scale) {
  return pngContent(drawingImage(drawing, size, scale));
}

QByteArray svgOfDrawing(const Drawing& drawing, QSize size, double) { return svgContent(drawing, size); }

QByteArray pdfOfDrawing(const Drawing& drawing, QSize size, double) {
  return pdfContent(size, QStringLiteral("Psychrometric chart"),
                    [&](QPainter& painter, QPdfWriter&) { replay(drawing, painter, size); });
}

}  // namespace

QImage drawingImage(const Drawing& drawing, QSize size, double scale) {
  QImage image(size * scale, QImage::Format_RGB32);
  if (image.isNull()) return image;
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.scale(scale, scale);
  replay(drawing, painter, size);
  return image;
}

QByteArray bmpContent(const QImage& picture) {
  QByteArray content;
  QBuffer buffer(&content);
  const bool made =
      buffer.open(QIODevice::WriteOnly) && picture.convertToFormat(QImage::Format_RGB888).save(&buffer, "BMP");
  return made ? content : QByteArray();
}

/// Qt's own writer tries five filters on every row, which takes longer than all else and gains a quarter of the size.
QByteArray pngContent(const QImage& image) {
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

QByteArray pdfContent(QSizeF size, const QString& title, const std::function<void(QPainter&, QPdfWriter&)>& paint) {
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

const std::array<FileFormat, 4> fileFormats = {{
    {pictureEndings[0], "SVG drawing (*.svg)", false, svgOfDrawing},
    {pictureEndings[1], "PDF document (*.pdf)", false, pdfOfDrawing},
    {pictureEndings[2], "PNG picture (*.png)", true, pngOfDrawing},
    {pictureEndings[3], "BMP picture (*.bmp)", true, bmpOfDrawing},
}};

const FileFormat* formatOfName(std::string_view name) {
  const auto sameCharacter = [](char a, char b) { return a == (b >= 'A' && b <= 'Z' ? b - 'A' + 'a' : b); };
  for (const FileFormat& format : fileFormats) {
    const std::string_view ending = format.ending;
    if (name.size() < ending.size()) continue;
    const std::string_view tail = name.substr(name.size() - ending.size());
    if (std::equal(ending.begin(), ending.end(), tail.begin(), sameCharacter)) return &format;
  }
  return nullptr;
}

void paintFitted(const Drawing& drawing, QSize size, QPainter& painter, const QRectF& page) {
  const double scale = std::min(page.width() / size.width(), page.height() / size.height());
  painter.save();
  painter.translate(page.center() - QPointF(size.width(), size.height()) * scale / 2);
  painter.scale(scale, scale);
  painter.setClipRect(QRect(QPoint(0, 0), size));
  replay(drawing, painter, size);
  painter.restore();
}

}  // namespace moistair
