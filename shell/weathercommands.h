/// \file
/// The layer of weather in the main window: chosen from the menu, shown over the chart, kept in the document.
#pragma once

#include <QMenu>
#include <QWidget>
#include <functional>
#include <optional>

#include "chart/reading.h"
#include "shell/chartcontroller.h"
#include "windows/weatherview.h"

namespace moistair {

class WeatherCommands final : public QObject {
  Q_OBJECT

public:
  /// @param window that the dialog is kept above
  /// @param graph shows the drawing
  /// @param plot where the plot of limits lies on it; none while a sheet is shown, which has the layer itself
  WeatherCommands(QWidget& window, QWidget& graph, ChartController& chart,
                  std::function<std::optional<PlotBox>(const ChartLimits&)> plot);

  /// "Weather..."
  void fillMenu(QMenu& chart);

  /// Shows the layer as the document has it.
  void follow();

Q_SIGNALS:
  void refused(const QString& reason);
  void done();  ///< the chart gets the focus

private:
  void choose();

  QWidget& window_;
  QWidget& graph_;
  ChartController& chart_;
  std::function<std::optional<PlotBox>(const ChartLimits&)> plot_;
  WeatherView* view_;
  std::optional<WeatherLayer> read_;  ///< the document's, with the dots that were read for it
};

}  // namespace moistair
