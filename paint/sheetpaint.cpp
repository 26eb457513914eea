#include "paint/sheetpaint.h"

#include <QFontMetricsF>
#include <QPaintEngine>
#include <QPdfWriter>
#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "paint/exports.h"
#include "paint/replay.h"

namespace moistair {

namespace {

/// Fonts come in whole pixels; letters of all sizes are those of this one in proportion.
constexpr int fontPixels = 64;

QFont sheetFont(bool bold) {
  QFont font = canvasFont();
  font.setPixelSize(fontPixels);
  font.setBold(bold);
  // As little as makes a difference: spaced letters stay single, so that "Office" can be found and copied as such.
  font.setLetterSpacing(QFont::AbsoluteSpacing, 1.0 / 64);
  return font;
}

/// The two fonts of a sheet and what they measure.
struct SheetFonts {
  std::array<QFont, 2> fonts = {sheetFont(false), sheetFont(true)};
  std::array<QFontMetricsF, 2> metrics = {QFontMetricsF(fonts[0]), QFontMetricsF(fonts[1])};

  const QFont& of(const TextStyle& style) const { return fonts[style.bold ? 1 : 0]; }
};

QString charactersOf(const std::string& text) { return printable(QString::fromStdString(text)); }

QColor qColor(Color color) { return {color.red, color.green, color.blue}; }

/// Paints one operation after the other.
class SheetPainter {
public:
  explicit SheetPainter(QPainter& painter)
      : painter_(painter),
        toDevice_(painter.deviceTransform()),
        pixels_(painter.paintEngine()->type() == QPaintEngine::Raster && toDevice_.type() <= QTransform::TxScale) {}

  void operator()(const PolylineOperation& line) {
    QPen pen(qColor(line.color), line.width);
    pen.setJoinStyle(Qt::RoundJoin);
    pen.setCapStyle(line.dash == Dash::solid ? Qt::SquareCap : Qt::FlatCap);
    if (line.dash == Dash::dashed) pen.setDashPattern({7 / line.width, 3.5 / line.width});
    if (line.dash == Dash::dotted) pen.setDashPattern({1.6 / line.width, 2 / line.width});
    painter_.setPen(pen);
    if (line.points.size() == 2) {
      painter_.drawLine(crisp(line.points[0], line.points[1], line.width));
    } else {
      painter_.drawPolyline(polygonOf(line.points));
    }
  }

  void operator()(const AreaOperation& area) {
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(qColor(area.color));
    painter_.drawPolygon(polygonOf(area.outline));
    painter_.setBrush(Qt::NoBrush);
  }

  void operator()(const SheetTextOperation& text) {
    const QString characters = charactersOf(text.text);
    const double scale = text.style.size / fontPixels;
    painter_.setFont(fonts_.of(text.style));
    painter_.setPen(qColor(text.style.color));
    painter_.save();
    painter_.translate(text.at.x, text.at.y);
    if (text.angle != 0) painter_.rotate(text.angle);
    painter_.scale(scale, scale);
    painter_.drawText(QPointF(-shift(text, characters), 0), characters);
    painter_.restore();
  }

private:
  double shift(const SheetTextOperation& text, const QString& characters) const {
    if (text.anchor == Anchor::start) return 0;
    const double width = fonts_.metrics[text.style.bold ? 1 : 0].horizontalAdvance(characters);
    return text.anchor == Anchor::end ? width : width / 2;
  }

  /// Level and upright lines of a picture begin and end between two of its pixels, so that all look alike.
  QLineF crisp(SheetPoint from, SheetPoint to, double width) const {
    const QLineF line(from.x, from.y, to.x, to.y);
    if (!pixels_ || (from.x != to.x && from.y != to.y)) return line;
    const bool odd = std::lround(std::max(1.0, width * toDevice_.m11())) % 2 == 1;
    const auto snapped = [odd](double place) { return odd ? std::floor(place) + 0.5 : std::round(place); };
    QLineF device = toDevice_.map(line);
    if (from.x == to.x) device.setLine(snapped(device.x1()), device.y1(), snapped(device.x2()), device.y2());
    if (from.y == to.y) device.setLine(device.x1(), snapped(device.y1()), device.x2(), snapped(device.y2()));
    return toDevice_.inverted().map(device);
  }

  QPainter& painter_;
  QTransform toDevice_;
  bool pixels_;
  SheetFonts fonts_;
};

QSizeF stackOf(const SheetDrawing& sheet) {
  return {sheet.width, sheet.height * static_cast<double>(sheet.pages.size())};
}

}  // namespace

QPolygonF polygonOf(const std::vector<SheetPoint>& points) {
  QPolygonF places;
  places.reserve(static_cast<qsizetype>(points.size()));
  for (const SheetPoint& point : points) places.append(QPointF(point.x, point.y));
  return places;
}

/// Letters reach from the tail of a "g" to a little above a capital; the font's own height has room for accents.
ExtentFunction sheetExtents() {
  constexpr double ascent = 0.76;
  constexpr double descent = 0.22;
  return [fonts = SheetFonts()](const std::string& text, double size, bool bold) {
    const double width = fonts.metrics[bold ? 1 : 0].horizontalAdvance(charactersOf(text)) * size / fontPixels;
    return TextExtent{width, ascent * size, descent * size};
  };
}

void paintPage(const SheetDrawing& sheet, std::size_t page, QPainter& painter) {
  painter.save();
  painter.fillRect(QRectF(0, 0, sheet.width, sheet.height), qColor(sheet.paper));
  painter.setRenderHint(QPainter::Antialiasing);
  SheetPainter paint(painter);
  for (const SheetOperation& operation : sheet.pages[page].operations) std::visit(paint, operation);
  painter.restore();
}

void paintFitted(const SheetDrawing& sheet, std::size_t page, QPainter& painter, const QRectF& room) {
  const double scale = std::min(room.width() / sheet.width, room.height() / sheet.height);
  painter.save();
  painter.translate(room.center() - QPointF(sheet.width, sheet.height) * scale / 2);
  painter.scale(scale, scale);
  paintPage(sheet, page, painter);
  painter.restore();
}

bool paintPages(const SheetDrawing& sheet, QPainter& painter, const QRectF& room,
                const std::function<bool()>& nextPage) {
  for (std::size_t page = 0; page < sheet.pages.size(); ++page) {
    if (page > 0 && !nextPage()) return false;
    paintFitted(sheet, page, painter, room);
  }
  return true;
}

QImage sheetImage(const SheetDrawing& sheet, double scale) {
  QImage image((stackOf(sheet) * scale).toSize(), QImage::Format_RGB32);
  if (image.isNull()) return image;
  image.fill(qColor(sheet.paper));
  QPainter painter(&image);
  painter.scale(scale, scale);
  for (std::size_t page = 0; page < sheet.pages.size(); ++page) {
    paintPage(sheet, page, painter);
    painter.translate(0, sheet.height);
  }
  return image;
}

QByteArray sheetContent(std::string_view ending, const SheetDrawing& sheet, std::string_view title, double scale) {
  if (ending == ".svg") return sheetSvg(sheet, title);
  if (ending == ".png") return pngContent(sheetImage(sheet, scale));
  if (ending == ".bmp") return bmpContent(sheetImage(sheet, scale));
  const QRectF room(0, 0, sheet.width, sheet.height);
  const auto paint = [&](QPainter& painter, QPdfWriter& writer) {
    paintPages(sheet, painter, room, [&] { return writer.newPage(); });
  };
  const auto name = QString::fromUtf8(title.data(), static_cast<qsizetype>(title.size()));
  return pdfContent(room.size(), name, paint);
}

}  // namespace moistair
