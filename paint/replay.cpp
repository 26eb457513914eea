#include "paint/replay.h"

#include <QFontMetricsF>
#include <QPaintEngine>
#include <algorithm>
#include <cmath>
#include <span>

namespace moistair {

namespace {

QColor screenColor(const std::optional<Color>& color) {
  return color ? QColor(color->red, color->green, color->blue) : QColor(Qt::black);
}

/// Whether a line is neither level nor upright.
bool slanted(const LineOperation& line) { return line.x1 != line.x2 && line.y1 != line.y2; }

/// The slanted line that an operation draws, if it does.
const LineOperation* slantedLine(const Operation& operation) {
  const auto* line = std::get_if<LineOperation>(&operation);
  return line != nullptr && slanted(*line) ? line : nullptr;
}

/// Whether a slanted line goes on where the operation before it ended, in the same color.
bool goesOn(const Operation& before, const Operation& operation) {
  const LineOperation* last = slantedLine(before);
  const LineOperation* line = slantedLine(operation);
  return last != nullptr && line != nullptr && last->color == line->color && last->x2 == line->x1 &&
         last->y2 == line->y1;
}

/// The pixels of a picture, whatever the scale of its painter. A line is a whole number of them wide, or lines of one
/// kind would differ. Elsewhere a line is a logical pixel wide.
struct PixelGrid {
  /// Smooth edges make a line look thinner than one that covers its pixels fully. (Not 1: QPainter has a quick way for
  /// such lines, which paints twice where two segments meet.)
  static constexpr double leastSmooth = 1.1;

  explicit PixelGrid(const QPainter& painter) : transform(painter.deviceTransform()) {
    pixels = painter.paintEngine()->type() == QPaintEngine::Raster && transform.type() <= QTransform::TxScale;
    if (!pixels) return;
    linePixels = std::max(1.0, std::round(transform.m11()));
    lineWidth = std::max(leastSmooth, linePixels / transform.m11());
  }

  /// The pixels that a level or upright line covers, its last one included [logical pixels].
  QRectF crispLine(QPointF from, QPointF to) const {
    const auto firstPixel = [this](double place) {
      constexpr double far = 1e6;  // beyond every picture, and small enough to be counted in pixels
      return std::floor(std::clamp(place, -far, far) - (linePixels - 1) / 2);
    };
    const QRectF line = transform.mapRect(QRectF(from, to).normalized());
    const QPointF first(firstPixel(line.left()), firstPixel(line.top()));
    const QPointF last(firstPixel(line.right()), firstPixel(line.bottom()));
    return transform.inverted().mapRect(QRectF(first, last + QPointF(linePixels, linePixels)));
  }

  QTransform transform;
  bool pixels = false;
  double linePixels = 1;
  double lineWidth = 1;  ///< of what is not level or upright [logical pixels]
};

/// Paints operations and returns the rectangle that each touches.
struct OperationPainter {
  QPainter& painter;
  QFontMetricsF metrics;
  QSizeF ground;
  PixelGrid grid;

  /// A curve is one line, not many that overlap where they meet: smooth edges would count twice there.
  QRectF curve(std::span<const Operation> segments) {
    QPolygonF places;
    for (const Operation& segment : segments) {
      const auto& line = std::get<LineOperation>(segment);
      if (places.isEmpty()) places.append(pixels(line.x1, line.y1));
      places.append(pixels(line.x2, line.y2));
    }
    usePen(std::get<LineOperation>(segments.front()).color);
    smoothly([&] { painter.drawPolyline(places); });
    return places.boundingRect();
  }

  QRectF operator()(const LineOperation& line) {
    const QPointF from = pixels(line.x1, line.y1);
    const QPointF to = pixels(line.x2, line.y2);
    if (grid.pixels) {
      const QRectF covered = grid.crispLine(from, to);
      painter.fillRect(covered, screenColor(line.color));
      return covered;
    }
    usePen(line.color);
    painter.drawLine(from, to);
    return QRectF(from, to).normalized();
  }

  QRectF operator()(const CircleOperation& circle) {
    const double radius = static_cast<double>(circle.radius) / twipsPerPixel;
    const QPointF center = pixels(circle.x, circle.y);
    usePen(circle.color);
    smoothly([&] { painter.drawEllipse(center, radius, radius); });
    return {center.x() - radius, center.y() - radius, 2 * radius, 2 * radius};
  }

  QRectF operator()(const TextOperation& operation) {
    const PaintedText text = paintedText(operation, metrics, ground);
    painter.setPen(Qt::black);
    painter.drawText(text.baseline, text.characters);
    return {text.baseline - QPointF(0, metrics.ascent()), QSizeF(text.width, metrics.height())};
  }

  void usePen(const std::optional<Color>& color) { painter.setPen(QPen(screenColor(color), grid.lineWidth)); }

  template <class Painting>
  void smoothly(Painting paint) {
    painter.setRenderHint(QPainter::Antialiasing, true);
    paint();
    painter.setRenderHint(QPainter::Antialiasing, false);
  }
};

/// How far a text at `x` has to move to the left.
double overhang(double x, double width, QSizeF ground) {
  const bool reachesEdge = x < ground.width() && x + width > ground.width();
  return reachesEdge && width < ground.width() / 4 ? x + width - ground.width() : 0;
}

}  // namespace

PaintedText paintedText(const TextOperation& text, const QFontMetricsF& metrics, QSizeF ground) {
  const QString characters = printable(QString::fromUtf8(text.text.data(), static_cast<qsizetype>(text.text.size())));
  const double width = metrics.horizontalAdvance(characters);
  const QPointF corner = pixels(text.x, text.y);
  return {characters, corner + QPointF(-overhang(corner.x(), width, ground), metrics.ascent()), width};
}

QPointF pixels(float x, float y) {
  return {static_cast<double>(x) / twipsPerPixel, static_cast<double>(y) / twipsPerPixel};
}

QFont canvasFont() {
  QFont font{QLatin1String(canvasFamily)};
  font.setPixelSize(12);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

QString printable(QString text) {
  for (QChar& character : text) {
    const QChar::Category category = character.category();
    const bool unseen =
        category == QChar::Other_Control || category == QChar::Separator_Line || category == QChar::Separator_Paragraph;
    if (unseen) character = QLatin1Char(' ');
    if (character.unicode() >= 0xFFFE) character = QChar::ReplacementCharacter;
  }
  return text;
}

bool cutsCurve(const Drawing& drawing, std::size_t first) {
  return first > 0 && first < drawing.operations.size() &&
         goesOn(drawing.operations[first - 1], drawing.operations[first]);
}

QRectF replay(const Drawing& drawing, QPainter& painter, QSizeF ground, std::size_t first) {
  constexpr double margin = 2;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setRenderHint(QPainter::TextAntialiasing, true);
  painter.setBrush(Qt::NoBrush);
  painter.setFont(canvasFont());
  OperationPainter paintOperation{painter, QFontMetricsF(canvasFont(), painter.device()), ground, PixelGrid(painter)};
  const std::span operations(drawing.operations);
  QRectF touched;
  std::size_t next = first;
  while (next < operations.size()) {
    const std::size_t begin = next++;
    QRectF part;
    if (slantedLine(operations[begin]) != nullptr) {
      while (cutsCurve(drawing, next)) ++next;
      part = paintOperation.curve(operations.subspan(begin, next - begin));
    } else {
      part = std::visit(paintOperation, operations[begin]);
    }
    touched |= part.adjusted(-margin, -margin, margin, margin);
  }
  painter.restore();
  return touched;
}

}  // namespace moistair
