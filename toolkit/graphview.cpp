#include "toolkit/graphview.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>
#include <QtMath>
#include <cmath>
#include <utility>

#include "paint/replay.h"
#include "toolkit/devicepixels.h"

namespace moistair {

namespace {

/// What a drawing's lines and circles run along [logical pixels]; its texts have no part in it.
struct PathBuilder {
  QPainterPath& path;

  void operator()(const LineOperation& line) const {
    const QPointF from = pixels(line.x1, line.y1);
    if (path.currentPosition() != from) path.moveTo(from);
    path.lineTo(pixels(line.x2, line.y2));
  }
  void operator()(const CircleOperation& circle) const {
    const double radius = double{circle.radius} / twipsPerPixel;
    path.addEllipse(pixels(circle.x, circle.y), radius, radius);
  }
  void operator()(const TextOperation&) const {}
};

void paintHalo(QPainter& painter, const Drawing& drawing) {
  QPainterPath path;
  for (const Operation& operation : drawing.operations) std::visit(PathBuilder{path}, operation);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.strokePath(path, highlightPen());
}

/// The image goes in part by part: through a clip of many rectangles it would take several times as long. Where the two
/// scales differ by a fraction, parts may end within a pixel, and overlap.
void paintParts(QPainter& painter, const QRegion& region, const QImage& image, double ratio) {
  const int overlap = ratio == std::floor(ratio) ? 0 : 1;
  const QTransform fromPainter = painter.worldTransform().inverted();
  for (const QRect& part : region) {
    painter.setClipRect(fromPainter.mapRect(QRectF(part.adjusted(-overlap, -overlap, overlap, overlap))));
    painter.drawImage(0, 0, image);
  }
}

}  // namespace

GraphView::GraphView(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  canvas_.changed = [this] { onChange(); };
  canvas_.refreshed = [this] { onRefresh(); };
  sinceRefresh_.start();
}

void GraphView::onChange() {
  if (drawing().operations.size() < painted_) image_ = QImage();  // something was taken back: start from scratch
  if (asked_ || (!image_.isNull() && drawing().operations.size() == painted_)) return;
  asked_ = true;
  update();
}

/// A repaint of a display takes far longer than a segment takes to compute, so most segments wait for the next one.
void GraphView::onRefresh() {
  constexpr qint64 displayPeriod = 16;  // ms
  if (sinceRefresh_.elapsed() < displayPeriod) return;
  refreshing_ = true;
  const QRect changed = refreshImage();
  if (!changed.isEmpty()) repaint(changed);
  refreshing_ = false;
  sinceRefresh_.restart();
}

/// Paints what the image does not show yet and returns where it did so. During a refresh a curve may come in parts;
/// once it is whole it is painted whole, as every other picture of the drawing shows it.
QRect GraphView::refreshImage() {
  const double ratio = devicePixelRatio();
  const QSize size(qCeil(width() * ratio), qCeil(height() * ratio));
  const QSize visible = parentWidget() != nullptr ? parentWidget()->size() : this->size();
  if (cutsCurve(drawing(), painted_)) inParts_ = true;
  const bool fromScratch = image_.size() != size || visible != visible_ || (inParts_ && !refreshing_);
  if (fromScratch) {
    image_ = QImage(size, QImage::Format_RGB32);
    image_.fill(Qt::white);
    visible_ = visible;
    painted_ = 0;
    inParts_ = false;
  }
  if (image_.isNull() || (!fromScratch && painted_ == drawing().operations.size())) return {};
  QPainter painter(&image_);
  painter.scale(ratio, ratio);
  const QRectF touched = replay(drawing(), painter, visible, painted_);
  painted_ = drawing().operations.size();
  return fromScratch ? rect() : touched.toAlignedRect() & rect();
}

void GraphView::highlight(Drawing part) {
  highlighted_ = std::move(part);
  update();
}

QImage GraphView::picture() {
  refreshImage();
  return image_;
}

void GraphView::paintEvent(QPaintEvent* event) {
  asked_ = false;
  const QRect changed = refreshImage();
  if (!event->region().contains(changed)) update(changed);
  QPainter painter(this);
  if (!QRect(QPoint(), (QSizeF(image_.size()) / devicePixelRatio()).toSize()).contains(event->rect())) {
    painter.fillRect(event->rect(), Qt::white);
  }
  painter.save();
  workInDevicePixels(painter, devicePixelRatio());
  paintParts(painter, event->region(), image_, devicePixelRatio());
  painter.restore();
  if (!highlighted_.operations.empty()) paintHalo(painter, highlighted_);
}

}  // namespace moistair
