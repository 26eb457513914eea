/// \file
/// Images that have the pixels of the screen.
#pragma once

#include <QPainter>

namespace moistair {

/// Has a widget's painter work in pixels of the screen, so that one of an image covers one of these. Where the two
/// scales differ, the widget may begin between two.
/// @param ratio pixels of the screen to the logical pixel
inline void workInDevicePixels(QPainter& painter, double ratio) {
  const QTransform toDevice = painter.deviceTransform();
  const QPointF corner = toDevice.map(QPointF());
  painter.translate(toDevice.inverted().map(QPointF(corner.toPoint())));
  painter.scale(1 / ratio, 1 / ratio);
}

}  // namespace moistair
