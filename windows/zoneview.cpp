#include "windows/zoneview.h"

#include <QPainter>
#include <algorithm>
#include <array>

namespace moistair {

namespace {

/// By the place of a zone in the list, from the first again after the last.
constexpr std::array<QRgb, 4> colors = {qRgb(47, 143, 91), qRgb(185, 119, 47), qRgb(75, 131, 196), qRgb(164, 85, 154)};

QColor colorOf(std::size_t zone, int opacity) {
  QColor color = QColor::fromRgb(colors[zone % colors.size()]);
  color.setAlpha(opacity);
  return color;
}

}  // namespace

bool ZoneView::Shown::operator==(const Shown& other) const {
  const auto edges = [](const PlotBox& box) { return std::array{box.left, box.top, box.right, box.bottom}; };
  return zones == other.zones && atm == other.atm && box.limits == other.box.limits && edges(box) == edges(other.box);
}

ZoneView::ZoneView(QWidget& chart) : QWidget(&chart) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setAttribute(Qt::WA_NoSystemBackground);
  setFocusPolicy(Qt::NoFocus);
  setObjectName(QStringLiteral("zones"));
  resize(chart.size());
}

void ZoneView::show(const ZoneLayer& layer, const std::optional<PlotBox>& box, double atm) {
  resize(parentWidget()->size());
  Shown shown;
  if (layer.shown && box && !box->empty()) shown = {layer.zones, *box, atm};
  if (shown == shown_) return;
  shown_ = std::move(shown);
  pieces_.clear();
  const ChartLimits& limits = shown_.box.limits;
  for (std::size_t zone = 0; zone < shown_.zones.size(); ++zone) {
    const ZoneWindow window{limits.lowDb, limits.highDb, limits.lowHr, limits.highHr};
    for (const Outline& outline : outlinesOf(shown_.zones[zone], window, shown_.atm)) {
      Piece piece{{}, QString::fromStdString(labelOf(shown_.zones[zone])), zone};
      for (const OutlinePoint& at : outline) piece.outline.append(QPointF(shown_.box.x(at.db), shown_.box.y(at.w)));
      pieces_.push_back(std::move(piece));
    }
  }
  update();
}

void ZoneView::paintEvent(QPaintEvent*) {
  constexpr int fill = 36;
  constexpr int line = 200;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  for (const Piece& piece : pieces_) {
    painter.setPen(QPen(colorOf(piece.zone, line), 1.2));
    painter.setBrush(colorOf(piece.zone, fill));
    painter.drawPolygon(piece.outline);
  }
  QFont bold = font();
  bold.setBold(true);
  painter.setFont(bold);
  for (const Piece& piece : pieces_) {
    const QRectF around = piece.outline.boundingRect();
    // On a light ground, so that it can be read over the lines of the chart; one label a line lower than the one
    // before.
    const QRectF text = QRectF(painter.fontMetrics().boundingRect(piece.label)).adjusted(-3, -1, 3, 1);
    const double lower = static_cast<double>(piece.zone) * text.height();
    const QRectF place(around.center() - QPointF(text.width() / 2, text.height() / 2 - lower), text.size());
    painter.fillRect(place, QColor(255, 255, 255, 190));
    painter.setPen(colorOf(piece.zone, 255).darker(140));
    painter.drawText(place, Qt::AlignCenter, piece.label);
  }
}

}  // namespace moistair
