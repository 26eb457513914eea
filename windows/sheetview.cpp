#include "windows/sheetview.h"

#include <QPaintEvent>
#include <QPainter>
#include <QtMath>
#include <utility>

#include "sheet/outlines.h"
#include "toolkit/devicepixels.h"
#include "toolkit/graphview.h"

namespace moistair {

SheetView::SheetView(QWidget& drawing) : QWidget(&drawing) {
  setObjectName(QStringLiteral("sheet"));
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::NoFocus);
  lower();  // what is pointed at is shown above it
  hide();
}

void SheetView::show(SheetContent content) {
  content_ = std::move(content);
  laidOut_ = false;
  update();
}

void SheetView::highlight(std::vector<std::size_t> entries) {
  highlighted_ = std::move(entries);
  update();
}

PlotBox SheetView::plot() {
  refreshImage();
  const SheetPlot& plot = sheet_.plot;
  return {plot.limits, plot.left, plot.top, plot.right, plot.bottom};
}

void SheetView::resizeEvent(QResizeEvent*) { laidOut_ = false; }

void SheetView::refreshImage() {
  constexpr double margin = 14;
  if (std::exchange(laidOut_, true)) return;
  SheetOptions options;
  options.page = {std::max(leastSide, double(width())), std::max(leastSide, double(height()))};
  options.margin = margin;
  options.titleBlock = options.table = options.notes = false;
  sheet_ = layoutSheet(content_, options, extents_);
  image_ = QImage();
}

void SheetView::paintEvent(QPaintEvent* event) {
  refreshImage();
  const double ratio = devicePixelRatio();
  const QSize size(qCeil(width() * ratio), qCeil(height() * ratio));
  if (image_.size() != size) {
    image_ = QImage(size, QImage::Format_RGB32);
    QPainter painter(&image_);
    painter.scale(ratio, ratio);
    paintPage(sheet_, 0, painter);
  }
  QPainter painter(this);
  painter.setClipRegion(event->region());
  painter.save();
  workInDevicePixels(painter, ratio);
  painter.drawImage(0, 0, image_);
  painter.restore();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(highlightPen());
  for (const std::size_t entry : highlighted_) {
    for (const auto& outline : outlinesOf(content_, sheet_.plot, entry)) painter.drawPolyline(polygonOf(outline));
  }
}

}  // namespace moistair
