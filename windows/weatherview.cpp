#include "windows/weatherview.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

namespace moistair {

namespace {

constexpr int opacity = 170;  // lines of the chart are seen through it
constexpr double dotRadius = 1.6;

QColor shown(Color color, int alpha) { return {color.red, color.green, color.blue, alpha}; }

}  // namespace

WeatherView::WeatherView(QWidget& chart) : QWidget(&chart) {
  setObjectName(QStringLiteral("weather"));
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  lower();
  hide();
}

void WeatherView::show(SheetWeather weather, const PlotBox& box, double atm) {
  weather_ = std::move(weather);
  box_ = box;
  atm_ = atm;
  image_ = {};
  show();
  update();
}

void WeatherView::clear() {
  weather_.reset();
  image_ = {};
  hide();
}

void WeatherView::paint() {
  const double ratio = devicePixelRatio();
  image_ = QPixmap(size() * ratio);
  image_.setDevicePixelRatio(ratio);
  image_.fill(Qt::transparent);
  QPainter painter(&image_);
  painter.setPen(Qt::NoPen);
  const SheetPlot plot{box_.left, box_.top, box_.right, box_.bottom, box_.limits, atm_};
  QPolygonF polygon;
  for (const AreaOperation& area : weatherAreas(plot, themeOf(SheetColors::color), *weather_, dotRadius)) {
    polygon.clear();
    for (const SheetPoint& point : area.outline) polygon.append(QPointF(point.x, point.y));
    painter.setBrush(shown(area.color, opacity));
    painter.drawPolygon(polygon);
  }
  paintLegend(painter, plot);
}

void WeatherView::paintLegend(QPainter& painter, const SheetPlot& plot) const {
  const QFontMetrics metrics(font());
  const int line = metrics.height() + 2;
  const int left = static_cast<int>(plot.left) + 12, width = static_cast<int>((plot.right - plot.left) * 0.42);
  int y = static_cast<int>(plot.top) + 8;
  painter.setFont(font());
  painter.setPen(Qt::black);
  const QString caption = QString::fromStdString(weatherCaption(plot, *weather_));
  const QRect place(left, y, width, 6 * line);
  QRect used;
  painter.drawText(place, Qt::TextWordWrap, caption, &used);
  y = used.bottom() + 4;
  for (const WeatherSwatch& swatch : weatherSwatches(themeOf(SheetColors::color), weather_->layer)) {
    painter.fillRect(QRect(left, y + 2, 14, line - 4), shown(swatch.color, opacity));
    painter.drawText(left + 20, y + metrics.ascent(), QString::fromStdString(swatch.text));
    y += line;
  }
}

void WeatherView::paintEvent(QPaintEvent* event) {
  if (!weather_) return;
  if (image_.size() != size() * devicePixelRatio()) paint();
  QPainter painter(this);
  painter.setClipRegion(event->region());
  painter.drawPixmap(0, 0, image_);
}

}  // namespace moistair
