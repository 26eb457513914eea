/// \file
/// The layer of weather over the chart in the window.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <optional>

#include "chart/reading.h"
#include "sheet/weather.h"

namespace moistair {

/// Cells or dots with a legend above saturation, over the drawing and below what is pointed at. It takes no input and
/// is in no picture of the chart; a sheet has it too. Painted once into a pixmap of its own.
class WeatherView final : public QWidget {
  Q_OBJECT

public:
  explicit WeatherView(QWidget& chart);

  void show(SheetWeather weather, const PlotBox& box, double atm);
  using QWidget::show;
  void clear();

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  void paint();
  void paintLegend(QPainter& painter, const SheetPlot& plot) const;

  std::optional<SheetWeather> weather_;
  PlotBox box_;
  double atm_ = 0;
  QPixmap image_;
};

}  // namespace moistair
