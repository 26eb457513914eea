/// \file
/// The widget that shows the chart.
#pragma once

#include <QElapsedTimer>
#include <QImage>
#include <QPen>
#include <QWidget>

#include "chart/drawing.h"

namespace moistair {

/// How a selection is highlighted: a wide translucent line along it.
inline QPen highlightPen() { return {QColor(255, 170, 0, 130), 9, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin}; }

/// Shows a recorded drawing through a persistent image, so that it need not be painted again at every exposure. White
/// ground and black foreground in every color scheme. A Refresh during a long drawing shows the growing curve, at most
/// at the rate of a display and only where something changed.
class GraphView : public QWidget {
  Q_OBJECT

public:
  explicit GraphView(QWidget* parent = nullptr);

  RecordingCanvas& canvas() { return canvas_; }
  const Drawing& drawing() const { return canvas_.drawing(); }

  /// Highlights a part of what is drawn with a wide translucent line along it: above the drawing and never in it
  /// or in its picture. An empty one ends that.
  void highlight(Drawing part);

  /// The persistent image as it is, in device pixels.
  QImage picture();

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  void onChange();
  void onRefresh();
  QRect refreshImage();

  RecordingCanvas canvas_;
  QImage image_;
  QSize visible_;  ///< room for the chart when the image was painted
  Drawing highlighted_;
  std::size_t painted_ = 0;  ///< operations that the image shows
  bool refreshing_ = false;
  bool asked_ = false;    ///< whether a repaint has been asked for that has not come yet
  bool inParts_ = false;  ///< the image shows a curve that was painted in parts
  QElapsedTimer sinceRefresh_;
};

}  // namespace moistair
