#include "toolkit/graphview.h"

#include <QPaintEvent>
#include <QPainter>

#include "paint/replay.h"

namespace moistair {

GraphView::GraphView(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  canvas_.changed = [this] { onchange(); };
  canvas_.refreshed = [this] { onrefresh(); };
  sincerefresh_.start();
}

void GraphView::onchange() {
  if (drawing().operations.size() < painted_) image_ = QImage();  // something was taken back: start afresh
  if (image_.isNull() || drawing().operations.size() == painted_ + 1) update();
}

/// A repaint of a display takes far longer than a segment takes to compute, so most segments wait for the next one.
void GraphView::onrefresh() {
  constexpr qint64 displayperiod = 16;  // ms
  if (sincerefresh_.elapsed() < displayperiod) return;
  const QRect changed = bringuptodate();
  if (!changed.isEmpty()) repaint(changed);
  sincerefresh_.restart();
}

/// Paints what the image does not show yet and returns where it did so.
QRect GraphView::bringuptodate() {
  const double ratio = devicePixelRatio();
  const QSize size = this->size() * ratio;
  const bool afresh = image_.size() != size;
  if (afresh) {
    image_ = QImage(size, QImage::Format_RGB32);
    image_.fill(Qt::white);
    painted_ = 0;
  }
  if (image_.isNull() || (!afresh && painted_ == drawing().operations.size())) return {};
  const QSize visible = parentWidget() != nullptr ? parentWidget()->size() : this->size();
  QPainter painter(&image_);
  painter.scale(ratio, ratio);
  const QRectF touched = replay(drawing(), painter, visible, painted_);
  painted_ = drawing().operations.size();
  return afresh ? rect() : touched.toAlignedRect() & rect();
}

QImage GraphView::picture() {
  bringuptodate();
  return image_;
}

void GraphView::paintEvent(QPaintEvent* event) {
  const QRect changed = bringuptodate();
  if (!event->region().contains(changed)) update(changed);
  QPainter painter(this);
  const double ratio = devicePixelRatio();
  for (const QRect& part : event->region()) {
    painter.drawImage(QRectF(part), image_, QRectF(part.topLeft() * ratio, QSizeF(part.size()) * ratio));
  }
}

}  // namespace moistair
