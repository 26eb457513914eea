/// \file
/// The layer above a chart that shows zones of comfort and of equipment.
#pragma once

#include <QPolygonF>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "chart/reading.h"
#include "model/document.h"

namespace moistair {

/// Light areas with their outlines and labels. A widget of its own over the chart, never in its picture, that takes no
/// input. Outlines are solved when the zones, the pressure or the plot are others, not when something is painted.
class ZoneView final : public QWidget {
  Q_OBJECT

public:
  explicit ZoneView(QWidget& chart);

  /// @param box where the plot lies on the chart; none without a chart
  void show(const ZoneLayer& layer, const std::optional<PlotBox>& box, double atm);
  using QWidget::show;

  struct Piece {
    QPolygonF outline;
    QString label;
    std::size_t zone;
  };
  const std::vector<Piece>& pieces() const { return pieces_; }

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  struct Shown {
    std::vector<Zone> zones;
    PlotBox box;
    double atm = 0;

    bool operator==(const Shown& other) const;
  };
  Shown shown_;
  std::vector<Piece> pieces_;
};

}  // namespace moistair
