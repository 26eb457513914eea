/// \file
/// The widget that shows a chart, as an instrument.
///
/// Watches the widget, hands its events to the pointer's controller, and shows what comes of them: the reading on a
/// layer above (windows/readinglayer.h), the pointer's shape, the menu of a place, and the reading in words for
/// screen readers.
#pragma once

#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QTimer>

#include "shell/pointercontroller.h"

namespace moistair {

class ChartPointer final : public QObject {
  Q_OBJECT

public:
  /// @param widget shows the chart; takes the focus
  ChartPointer(QWidget& widget, ChartController& chart, PointerController::Plot plot);

  PointerController& controller() { return controller_; }

  /// Commands on the place that the cross hair is at, with their keys.
  void fillMenu(QMenu& menu);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  using CrossHair = PointerController::CrossHair;

  bool onMouse(const QMouseEvent& event);
  bool onKey(const QKeyEvent& event);
  void announce();
  void rename(std::size_t mark);
  void openMenu(const QContextMenuEvent& event);
  void stayWith(QMenu& menu);
  void fillMenu(QMenu& menu, const CrossHair& crossHair);

  QWidget& widget_;
  ChartController& chart_;
  ReadingLayer* layer_;
  PointerController controller_;
  QTimer announceTimer_{this};
};

}  // namespace moistair
