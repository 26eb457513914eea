/// \file
/// The widget that shows the chart.
#pragma once

#include <QElapsedTimer>
#include <QImage>
#include <QPen>
#include <QWidget>

#include "chart/drawing.h"

namespace moistair {

/// How what is selected is lifted out: a wide translucent line along it.
inline QPen liftingpen() { return {QColor(255, 170, 0, 130), 9, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin}; }

/// Shows a recorded drawing through a persistent image, so that it need not be painted anew at every exposure. White
/// ground and black foreground in every colour scheme. A Refresh during a long drawing shows the growing curve, at most
/// at the rate of a display and only where something changed.
class GraphView : public QWidget {
  Q_OBJECT

public:
  explicit GraphView(QWidget* parent = nullptr);

  RecordingCanvas& canvas() { return canvas_; }
  const Drawing& drawing() const { return canvas_.drawing(); }

  /// Shows a part of what is drawn lifted out, by a wide translucent line along it: above the drawing and never in it
  /// or in its picture. An empty one ends that.
  void lift(Drawing part);

  /// The persistent image as it stands, in device pixels.
  QImage picture();

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  void onchange();
  void onrefresh();
  QRect bringuptodate();

  RecordingCanvas canvas_;
  QImage image_;
  QSize visible_;  ///< room for the chart when the image was painted
  Drawing lifted_;
  std::size_t painted_ = 0;  ///< operations that the image shows
  bool refreshing_ = false;
  bool asked_ = false;    ///< whether a repaint has been asked for that has not come yet
  bool inparts_ = false;  ///< the image shows a curve that was painted in parts
  QElapsedTimer sincerefresh_;
};

}  // namespace moistair
