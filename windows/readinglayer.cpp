#include "windows/readinglayer.h"

#include <QEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace moistair {

namespace {

constexpr int padding = 6;    // of the panel, about its text
constexpr int distance = 18;  // of the panel from the place that it is about
constexpr int columnGap = 8;

/// How a curve looks: the two differ by more than their color.
struct CurveStyle {
  QRgb color;
  double dash, gap;  // pixels
};
constexpr std::array<CurveStyle, 2> curveStyles = {{{qRgba(128, 0, 0, 190), 4, 4}, {qRgba(0, 110, 0, 190), 14, 5}}};

constexpr QRgb crossColor = qRgba(40, 40, 40, 150);

QPolygonF polygonOf(const std::vector<ChartCoordinates>& places, const PlotBox& box) {
  QPolygonF polygon;
  polygon.reserve(static_cast<qsizetype>(places.size()));
  for (const ChartCoordinates& place : places) polygon.append(QPointF(box.x(place.db), box.y(place.w)));
  return polygon;
}

/// Cuts a curve into dashes within a rectangle.
QVector<QLineF> dashesOf(const QPolygonF& curve, const CurveStyle& style, const QRectF& within) {
  QVector<QLineF> dashes;
  bool on = true;
  double left = style.dash;
  for (qsizetype i = 1; i < curve.size(); ++i) {
    QLineF rest(curve[i - 1], curve[i]);
    while (rest.length() > left) {
      const QLineF part(rest.p1(), rest.pointAt(left / rest.length()));
      if (on && within.contains(part.p2()) && within.contains(part.p1())) dashes.append(part);
      rest.setP1(part.p2());
      on = !on;
      left = on ? style.dash : style.gap;
    }
    if (on && within.contains(rest.p1()) && within.contains(rest.p2())) dashes.append(rest);
    left -= rest.length();
  }
  return dashes;
}

/// The rectangles that a curve runs through, a few along its way.
QRegion regionOf(const QVector<QLineF>& dashes) {
  constexpr qsizetype parts = 6;
  QRegion region;
  const qsizetype step = dashes.size() / parts + 1;
  for (qsizetype first = 0; first < dashes.size(); first += step) {
    const QLineF& last = dashes[std::min(first + step, dashes.size()) - 1];
    region += QRectF(dashes[first].p1(), last.p2()).normalized().adjusted(-2, -2, 2, 2).toAlignedRect();
  }
  return region;
}

}  // namespace

ReadingLayer::ReadingLayer(QWidget& chart) : QWidget(&chart) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setAttribute(Qt::WA_NoSystemBackground);
  setFocusPolicy(Qt::NoFocus);
  setObjectName(QStringLiteral("reading"));
  resize(chart.size());
  measure();
}

void ReadingLayer::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange) {
    measure();
    if (shown_) show(*shown_);
  }
  QWidget::changeEvent(event);
}

/// Widths of the columns: the panel keeps its size while the pointer moves.
void ReadingLayer::measure() {
  const QFontMetrics metrics = fontMetrics();
  captionWidth_ = unitWidth_ = 0;
  for (const Property& property : heldProperties) {
    captionWidth_ = std::max(captionWidth_, metrics.horizontalAdvance(QString::fromUtf8(property.shortCaption)));
    unitWidth_ = std::max(unitWidth_, metrics.horizontalAdvance(QString::fromUtf8(property.unit)));
  }
  valueWidth_ = metrics.horizontalAdvance(QStringLiteral("0.0000000"));
  rowHeight_ = metrics.height();
  plate_ = QPixmap();
}

void ReadingLayer::show(ShownReading shown) {
  const QRegion before = painted_;
  shown_ = std::move(shown);
  layout();
  painted_ = touched();
  update(before + painted_);
}

void ReadingLayer::clear() {
  if (!shown_) return;
  shown_.reset();
  update(painted_);
  painted_ = QRegion();
}

void ReadingLayer::layout() {
  const auto& [box, atm, reading, title, moved] = *shown_;
  pointedAt_ = QPointF(box.x(reading.place.db), box.y(reading.place.w)).toPoint();
  plot_ = QRectF(QPointF(box.left, box.top), QPointF(box.right, box.bottom)).toAlignedRect();
  plot_.adjust(0, 0, 1, 1);  // the frame is of the plot on all its sides
  curves_ = {};
  values_.clear();
  if (reading.state) {
    curves_ = {polygonOf(wetBulbCurve(box.limits, atm, *reading.state), box),
               polygonOf(humidityCurve(box.limits, atm, *reading.state), box)};
    for (const PropertyKind kind : shownOrder) {
      values_.push_back(QString::fromStdString(readingText(kind, *reading.state)));
    }
  }
  for (std::size_t i = 0; i < curves_.size(); ++i) dashes_[i] = dashesOf(curves_[i], curveStyles[i], plot_);
  makeTags();
  layoutPanel(pointedAt_);
}

/// What the cross hair says on the axes.
void ReadingLayer::makeTags() {
  tags_.clear();
  if (!plot_.contains(pointedAt_)) return;
  const QFontMetrics metrics = fontMetrics();
  const ChartCoordinates& place = shown_->reading.place;
  const auto tag = [&](const std::string& text, QPoint corner, bool centered) {
    const QString shown = QString::fromStdString(text);
    const QSize size(metrics.horizontalAdvance(shown) + padding, rowHeight_ + 2);
    const QPoint offset = centered ? QPoint(size.width() / 2, 0) : QPoint(0, size.height() / 2);
    tags_.push_back({QRect(corner - offset, size), shown});
  };
  tag(dryBulbText(place), QPoint(pointedAt_.x(), plot_.bottom() + 3), true);
  tag(ratioText(place), QPoint(plot_.right() + 3, pointedAt_.y()), false);
}

/// Beside the place, above it to the left unless there is no room: there the chart has least to show.
void ReadingLayer::layoutPanel(QPoint pointedAt) {
  const QFontMetrics metrics = fontMetrics();
  const QString reason = QString::fromUtf8(wordsOf(shown_->reading.reason));
  int width = captionWidth_ + valueWidth_ + unitWidth_ + 2 * columnGap;
  int rows = static_cast<int>(values_.size());
  if (values_.empty()) {
    width = metrics.horizontalAdvance(reason);
    rows = 1;
  }
  if (!shown_->title.isEmpty()) {
    width = std::max(width, metrics.horizontalAdvance(shown_->title));
    ++rows;
  }
  const QSize size(width + 2 * padding, rows * rowHeight_ + 2 * padding);
  const QRect room = visibleRegion().boundingRect();
  const std::array<QPoint, 4> corners = {{{-distance - size.width(), -distance - size.height()},
                                          {distance, -distance - size.height()},
                                          {-distance - size.width(), distance},
                                          {distance, distance}}};
  const auto fits = [&](const QPoint& corner) { return room.contains(QRect(pointedAt + corner, size)); };
  const auto* found = std::find_if(corners.begin(), corners.end(), fits);
  panel_ = QRect(pointedAt + (found == corners.end() ? corners.back() : *found), size);
}

QRegion ReadingLayer::touched() const {
  QRegion region = panel_;
  for (const Tag& tag : tags_) region += tag.place;
  if (plot_.contains(pointedAt_)) {
    region += QRect(plot_.left(), pointedAt_.y() - 1, plot_.width() + 1, 3);
    region += QRect(pointedAt_.x() - 1, plot_.top(), 3, plot_.height() + 1);
  }
  for (const auto& dashes : dashes_) region += regionOf(dashes);
  if (shown_->moved) {
    const PlotBox& box = shown_->box;
    const QPointF from(box.x(shown_->moved->db), box.y(shown_->moved->w));
    region += QRectF(from, QPointF(pointedAt_)).normalized().adjusted(-8, -8, 8, 8).toAlignedRect();
  }
  return region;
}

void ReadingLayer::paintEvent(QPaintEvent*) {
  if (!shown_) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  for (std::size_t i = 0; i < dashes_.size(); ++i) {
    painter.setPen(QPen(QColor::fromRgba(curveStyles[i].color), 1));
    painter.drawLines(dashes_[i]);
  }
  if (shown_->moved) {
    const PlotBox& box = shown_->box;
    painter.setPen(QPen(Qt::red, 1.5));
    painter.drawLine(QPointF(box.x(shown_->moved->db), box.y(shown_->moved->w)), QPointF(pointedAt_));
    painter.setBrush(QColor(255, 0, 0, 150));
    painter.drawEllipse(QPointF(pointedAt_), 5, 5);
    painter.setBrush(Qt::NoBrush);
  }
  painter.setRenderHint(QPainter::Antialiasing, false);
  if (plot_.contains(pointedAt_)) {
    const QColor color = QColor::fromRgba(crossColor);
    const QRect level(plot_.left(), pointedAt_.y(), plot_.width(), 1);
    const QRect upright(pointedAt_.x(), plot_.top(), 1, plot_.height());
    for (const QRect& line : {level, upright}) {
      painter.setClipRect(line);
      painter.fillRect(line, color);
    }
  }
  for (const Tag& tag : tags_) {
    painter.setClipRect(tag.place);
    drawFrame(painter, tag.place);
    painter.drawText(tag.place, Qt::AlignCenter, tag.text);
  }
  drawPanel(painter);
}

void ReadingLayer::drawFrame(QPainter& painter, const QRect& place) const {
  painter.fillRect(place.adjusted(1, 1, -1, -1), palette().color(QPalette::Base));
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawRect(place.adjusted(0, 0, -1, -1));
  painter.setPen(palette().color(QPalette::Text));
}

QPixmap ReadingLayer::plate() const {
  const double ratio = devicePixelRatio();
  QPixmap plate((QSizeF(panel_.size()) * ratio).toSize());
  plate.setDevicePixelRatio(ratio);
  plate.fill(palette().color(QPalette::Base));
  QPainter painter(&plate);
  painter.setFont(font());
  drawFrame(painter, QRect(QPoint(), panel_.size()));
  int line = padding + fontMetrics().ascent();
  const auto write = [&](int x, const QString& text) { painter.drawText(x, line, text); };
  if (!shown_->title.isEmpty()) {
    write(padding, shown_->title);
    line += rowHeight_;
  }
  if (values_.empty()) write(padding, QString::fromUtf8(wordsOf(shown_->reading.reason)));
  for (std::size_t i = 0; i < values_.size(); ++i, line += rowHeight_) {
    const Property& property = propertyOf(shownOrder[i]);
    write(padding, QString::fromUtf8(property.shortCaption));
    write(padding + captionWidth_ + valueWidth_ + 2 * columnGap, QString::fromUtf8(property.unit));
  }
  return plate;
}

void ReadingLayer::drawPanel(QPainter& painter) {
  const QString heading = shown_->title + QLatin1Char('\n') + QString::fromUtf8(wordsOf(shown_->reading.reason));
  const double ratio = devicePixelRatio();
  if (plate_.isNull() || plateOf_ != heading || plate_.devicePixelRatio() != ratio) {
    plate_ = plate();
    plateOf_ = heading;
  }
  painter.setClipRect(panel_);
  painter.drawPixmap(panel_.topLeft(), plate_);
  painter.setPen(palette().color(QPalette::Text));
  const QFontMetrics metrics = fontMetrics();
  const int right = panel_.left() + padding + captionWidth_ + columnGap + valueWidth_;
  int line = panel_.top() + padding + metrics.ascent() + (shown_->title.isEmpty() ? 0 : rowHeight_);
  for (const QString& value : values_) {
    painter.drawText(right - metrics.horizontalAdvance(value), line, value);
    line += rowHeight_;
  }
}

}  // namespace moistair
