/// \file
/// The sheet on the screen, in place of the drawing.
#pragma once

#include <QImage>
#include <QWidget>
#include <vector>

#include "chart/reading.h"
#include "paint/sheetpaint.h"

namespace moistair {

/// Shows the chart as a sheet without title block and table, laid out for the widget's size. It lies
/// over the widget that shows the drawing and lets all input through to it, so that the chart is pointed at and marked
/// as ever; `plot` says where.
class SheetView final : public QWidget {
  Q_OBJECT

public:
  explicit SheetView(QWidget& drawing);

  void show(SheetContent content);
  using QWidget::show;

  /// Highlights entries of the document above the sheet.
  void highlight(std::vector<std::size_t> entries);

  /// Where the plot lies on this widget.
  PlotBox plot();

protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

private:
  void refreshImage();

  ExtentFunction extents_ = sheetExtents();
  SheetContent content_;
  SheetDrawing sheet_;
  QImage image_;  ///< in device pixels
  std::vector<std::size_t> highlighted_;
  bool laidOut_ = false;
};

}  // namespace moistair
