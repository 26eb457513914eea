#include "windows/sheetview.h"

#include <QPaintEvent>
#include <QPainter>
#include <QtMath>
#include <utility>

#include "sheet/courses.h"
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
  laidout_ = false;
  update();
}

void SheetView::lift(std::vector<std::size_t> entries) {
  lifted_ = std::move(entries);
  update();
}

PlotBox SheetView::plot() {
  bringuptodate();
  const SheetPlot& plot = sheet_.plot;
  return {plot.limits, plot.left, plot.top, plot.right, plot.bottom};
}

void SheetView::resizeEvent(QResizeEvent*) { laidout_ = false; }

void SheetView::bringuptodate() {
  constexpr double margin = 14;
  if (std::exchange(laidout_, true)) return;
  SheetOptions options;
  options.page = {std::max(leastside, double(width())), std::max(leastside, double(height()))};
  options.margin = margin;
  options.titleblock = options.table = options.notes = false;
  sheet_ = layoutsheet(content_, options, extents_);
  image_ = QImage();
}

void SheetView::paintEvent(QPaintEvent* event) {
  bringuptodate();
  const double ratio = devicePixelRatio();
  const QSize size(qCeil(width() * ratio), qCeil(height() * ratio));
  if (image_.size() != size) {
    image_ = QImage(size, QImage::Format_RGB32);
    QPainter painter(&image_);
    painter.scale(ratio, ratio);
    paintpage(sheet_, 0, painter);
  }
  QPainter painter(this);
  painter.setClipRegion(event->region());
  painter.save();
  workindevicepixels(painter, ratio);
  painter.drawImage(0, 0, image_);
  painter.restore();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(liftingpen());
  for (const std::size_t entry : lifted_) {
    for (const auto& course : coursesof(content_, sheet_.plot, entry)) painter.drawPolyline(polygonof(course));
  }
}

}  // namespace moistair
