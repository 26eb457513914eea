#include "paint/svg.h"

#include "paint/replay.h"
#include "paint/sheetpaint.h"
#include "paint/svgwriter.h"

namespace moistair {

namespace {

/// Writes the operations of a drawing.
struct DrawingWriter {
  SvgWriter& svg;
  QSizeF ground;
  QFontMetricsF metrics{canvasFont()};

  void operator()(const LineOperation& line) const {
    svg.line({line.color.value_or(Color{0, 0, 0})}, pixels(line.x1, line.y1), pixels(line.x2, line.y2));
  }

  void operator()(const CircleOperation& circle) const {
    svg.circle(circle.color, pixels(circle.x, circle.y), static_cast<double>(circle.radius) / twipsPerPixel);
  }

  void operator()(const TextOperation& operation) const {
    const PaintedText text = paintedText(operation, metrics, ground);
    if (!text.characters.isEmpty()) svg.text({text.characters, text.baseline});
  }
};

/// Writes the operations of a sheet.
struct SheetWriter {
  SvgWriter& svg;

  void operator()(const PolylineOperation& line) const {
    svg.polyline({line.color, line.width, line.dash}, line.points);
  }
  void operator()(const AreaOperation& area) const { svg.area(area.color, area.outline); }
  void operator()(const SheetTextOperation& text) const {
    svg.text({printable(QString::fromStdString(text.text)),
              {text.at.x, text.at.y},
              text.style.color,
              text.style.size,
              text.style.bold,
              text.anchor,
              text.angle});
  }
};

}  // namespace

QByteArray svgContent(const Drawing& drawing, QSize size) {
  const QFont font = canvasFont();
  SvgWriter svg(size.width(), size.height(), QStringLiteral("Psychrometric chart"), {255, 255, 255});
  svg.begin({.lineJoin = "bevel", .family = font.family().toStdString(), .size = font.pixelSize()});
  const DrawingWriter writer{svg, size};
  for (const Operation& operation : drawing.operations) std::visit(writer, operation);
  return QByteArray::fromStdString(svg.finished());
}

QByteArray sheetSvg(const SheetDrawing& sheet, std::string_view title) {
  const auto words = QString::fromUtf8(title.data(), static_cast<qsizetype>(title.size()));
  SvgWriter svg(sheet.width, sheet.height * static_cast<double>(sheet.pages.size()), printable(words), sheet.paper);
  double top = 0;
  for (const SheetPage& page : sheet.pages) {
    svg.begin({.lineJoin = "round", .family = canvasFamily, .top = top});
    for (const SheetOperation& operation : page.operations) {
      std::visit([&](const auto& drawn) { svg.part(nameOf(drawn.part)); }, operation);
      std::visit(SheetWriter{svg}, operation);
    }
    top += sheet.height;
  }
  return QByteArray::fromStdString(svg.finished());
}

}  // namespace moistair
