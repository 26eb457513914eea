/// \file
/// The layer above a chart that shows what is pointed at.
#pragma once

#include <QFontMetrics>
#include <QPixmap>
#include <QWidget>
#include <optional>
#include <vector>

#include "chart/reading.h"

namespace moistair {

/// What the layer is to show.
struct ShownReading {
  PlotBox box;     ///< where the plot lies on the widget below
  double atm = 0;  ///< pressure of the reading [in Hg]
  Reading reading;
  QString title;  ///< above the values: what the place is, or what is to be known of it; may be empty
  std::optional<ChartCoordinates> moved;  ///< a mark on its way, and where it comes from
};

/// Cross hair on both axes, the lines of constant wet bulb (short dashes) and relative humidity (long ones) through the
/// place, and a panel with the state, or with the reason why there is none. It lies over a chart as a widget of its own
/// and never is in its picture, takes no input, and repaints what changes and no more. The panel keeps off the place
/// that it is about. It reads nothing itself: what it shows is handed in.
class ReadingLayer final : public QWidget {
  Q_OBJECT

public:
  explicit ReadingLayer(QWidget& chart);

  void show(ShownReading shown);
  using QWidget::show;
  void clear();
  bool isClear() const { return !shown_; }

protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

private:
  struct Tag {
    QRect place;
    QString text;
  };

  void measure();
  void layout();
  void layoutPanel(QPoint pointedAt);
  void makeTags();
  QRegion touched() const;
  void drawPanel(QPainter& painter);
  void drawFrame(QPainter& painter, const QRect& place) const;
  QPixmap plate() const;

  std::optional<ShownReading> shown_;
  QPoint pointedAt_;                 ///< what is pointed at
  QRect plot_;                       ///< the widget's part that the plot takes
  std::array<QPolygonF, 2> curves_;  ///< wet bulb and relative humidity
  std::array<QVector<QLineF>, 2> dashes_;
  std::vector<Tag> tags_;        ///< on the axes
  std::vector<QString> values_;  ///< of the panel, row by row
  QRect panel_;
  QRegion painted_;  ///< all that is shown
  QPixmap plate_;    ///< the panel without its values, which alone change from move to move
  QString plateOf_;  ///< title or reason that is on it

  int captionWidth_ = 0, valueWidth_ = 0, unitWidth_ = 0, rowHeight_ = 0;
};

}  // namespace moistair
