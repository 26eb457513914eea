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
struct Course {
  QPainterPath& path;

  void operator()(const LineOperation& line) const {
    const QPointF from = pixels(line.x1, line.y1);
    if (path.currentPosition() != from) path.moveTo(from);
    path.lineTo(pixels(line.x2, line.y2));
  }
  void operator()(const CircleOperation& circle) const {
    const double radius = double{circle.radius} / twipsperpixel;
    path.addEllipse(pixels(circle.x, circle.y), radius, radius);
  }
  void operator()(const TextOperation&) const {}
};

void painthalo(QPainter& painter, const Drawing& drawing) {
  QPainterPath path;
  for (const Operation& operation : drawing.operations) std::visit(Course{path}, operation);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.strokePath(path, liftingpen());
}

/// The image goes in part by part: through a clip of many rectangles it would take several times as long. Where the two
/// scales differ by a fraction, parts may end within a pixel, and overlap.
void paintparts(QPainter& painter, const QRegion& region, const QImage& image, double ratio) {
  const int overlap = ratio == std::floor(ratio) ? 0 : 1;
  const QTransform frompainter = painter.worldTransform().inverted();
  for (const QRect& part : region) {
    painter.setClipRect(frompainter.mapRect(QRectF(part.adjusted(-overlap, -overlap, overlap, overlap))));
    painter.drawImage(0, 0, image);
  }
}

}  // namespace

GraphView::GraphView(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  canvas_.changed = [this] { onchange(); };
  canvas_.refreshed = [this] { onrefresh(); };
  sincerefresh_.start();
}

void GraphView::onchange() {
  if (drawing().operations.size() < painted_) image_ = QImage();  // something was taken back: start afresh
  if (asked_ || (!image_.isNull() && drawing().operations.size() == painted_)) return;
  asked_ = true;
  update();
}

/// A repaint of a display takes far longer than a segment takes to compute, so most segments wait for the next one.
void GraphView::onrefresh() {
  constexpr qint64 displayperiod = 16;  // ms
  if (sincerefresh_.elapsed() < displayperiod) return;
  refreshing_ = true;
  const QRect changed = bringuptodate();
  if (!changed.isEmpty()) repaint(changed);
  refreshing_ = false;
  sincerefresh_.restart();
}

/// Paints what the image does not show yet and returns where it did so. During a refresh a curve may come in parts;
/// once it is whole it is painted whole, as every other picture of the drawing shows it.
QRect GraphView::bringuptodate() {
  const double ratio = devicePixelRatio();
  const QSize size(qCeil(width() * ratio), qCeil(height() * ratio));
  const QSize visible = parentWidget() != nullptr ? parentWidget()->size() : this->size();
  if (cutscurve(drawing(), painted_)) inparts_ = true;
  const bool afresh = image_.size() != size || visible != visible_ || (inparts_ && !refreshing_);
  if (afresh) {
    image_ = QImage(size, QImage::Format_RGB32);
    image_.fill(Qt::white);
    visible_ = visible;
    painted_ = 0;
    inparts_ = false;
  }
  if (image_.isNull() || (!afresh && painted_ == drawing().operations.size())) return {};
  QPainter painter(&image_);
  painter.scale(ratio, ratio);
  const QRectF touched = replay(drawing(), painter, visible, painted_);
  painted_ = drawing().operations.size();
  return afresh ? rect() : touched.toAlignedRect() & rect();
}

void GraphView::lift(Drawing part) {
  lifted_ = std::move(part);
  update();
}

QImage GraphView::picture() {
  bringuptodate();
  return image_;
}

void GraphView::paintEvent(QPaintEvent* event) {
  asked_ = false;
  const QRect changed = bringuptodate();
  if (!event->region().contains(changed)) update(changed);
  QPainter painter(this);
  if (!QRect(QPoint(), (QSizeF(image_.size()) / devicePixelRatio()).toSize()).contains(event->rect())) {
    painter.fillRect(event->rect(), Qt::white);
  }
  painter.save();
  workindevicepixels(painter, devicePixelRatio());
  paintparts(painter, event->region(), image_, devicePixelRatio());
  painter.restore();
  if (!lifted_.operations.empty()) painthalo(painter, lifted_);
}

}  // namespace moistair
