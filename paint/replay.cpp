#include "paint/replay.h"

#include <QFontMetricsF>

namespace moistair {

namespace {

QPointF pixels(float x, float y) {
  return {static_cast<double>(x) / twipsperpixel, static_cast<double>(y) / twipsperpixel};
}

QColor screencolor(const std::optional<Color>& color) {
  return color ? QColor(color->red, color->green, color->blue) : QColor(Qt::black);
}

/// The characters of a text, with those that no picture shows and no XML file may hold made visible.
QString charactersof(const std::string& text) {
  QString characters = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  for (QChar& character : characters) {
    const bool forbidden = character.unicode() < 0x20 || character.unicode() >= 0xFFFE;
    if (forbidden) character = QChar::ReplacementCharacter;
  }
  return characters;
}

/// Paints one operation and returns the rectangle it touches.
struct OperationPainter {
  QPainter& painter;
  QFontMetricsF metrics;
  QSizeF ground;

  QRectF operator()(const LineOperation& line) {
    const QPointF from = pixels(line.x1, line.y1);
    const QPointF to = pixels(line.x2, line.y2);
    painter.setPen(QPen(screencolor(line.color), 1));
    painter.drawLine(from, to);
    return QRectF(from, to).normalized();
  }

  QRectF operator()(const CircleOperation& circle) {
    const double radius = static_cast<double>(circle.radius) / twipsperpixel;
    const QPointF centre = pixels(circle.x, circle.y);
    painter.setPen(QPen(screencolor(circle.color), 1));
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.drawEllipse(centre, radius, radius);
    painter.setRenderHint(QPainter::Antialiasing, false);
    return {centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius};
  }

  QRectF operator()(const TextOperation& operation) {
    const PaintedText text = paintedtext(operation, metrics, ground);
    painter.setPen(Qt::black);
    painter.drawText(text.baseline, text.characters);
    return {text.baseline - QPointF(0, metrics.ascent()), QSizeF(text.width, metrics.height())};
  }
};

/// How far a text at `x` has to move to the left.
double overhang(double x, double width, QSizeF ground) {
  const bool reachesedge = x < ground.width() && x + width > ground.width();
  return reachesedge && width < ground.width() / 4 ? x + width - ground.width() : 0;
}

}  // namespace

PaintedText paintedtext(const TextOperation& text, const QFontMetricsF& metrics, QSizeF ground) {
  const QString characters = charactersof(text.text);
  const double width = metrics.horizontalAdvance(characters);
  const QPointF corner = pixels(text.x, text.y);
  return {characters, corner + QPointF(-overhang(corner.x(), width, ground), metrics.ascent()), width};
}

QFont canvasfont() {
  QFont font{QLatin1String(canvasfamily)};
  font.setPixelSize(12);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

QRectF replay(const Drawing& drawing, QPainter& painter, QSizeF ground, std::size_t first) {
  constexpr double margin = 2;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setRenderHint(QPainter::TextAntialiasing, true);
  painter.setBrush(Qt::NoBrush);
  painter.setFont(canvasfont());
  OperationPainter paintoperation{painter, QFontMetricsF(canvasfont(), painter.device()), ground};
  QRectF touched;
  for (std::size_t i = first; i < drawing.operations.size(); ++i) {
    const QRectF part = std::visit(paintoperation, drawing.operations[i]);
    touched |= part.adjusted(-margin, -margin, margin, margin);
  }
  painter.restore();
  return touched;
}

}  // namespace moistair
