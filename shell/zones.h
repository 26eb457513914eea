/// \file
/// Zones of comfort and of equipment in the main window: the layer over the chart, and the dialog that chooses them.
#pragma once

#include <QMenu>
#include <functional>
#include <optional>

#include "shell/chartcontroller.h"
#include "windows/zoneview.h"

namespace moistair {

class Zones final : public QObject {
  Q_OBJECT

public:
  /// Where the plot of limits lies on the drawing; none while a sheet is shown in its place.
  using Plot = std::function<std::optional<PlotBox>(const ChartLimits&)>;

  /// @param window that the dialog is kept above
  /// @param graph shows the drawing
  Zones(QWidget& window, QWidget& graph, ChartController& chart, Plot plot);

  /// "Comfort and envelopes...".
  void fillMenu(QMenu& menu);

  /// To be called when the plot lies elsewhere while the document is the same.
  void follow();

private:
  void choose();

  QWidget& window_;
  ChartController& chart_;
  Plot plot_;
  ZoneView* view_;
};

}  // namespace moistair
