/// \file
/// The window in which the user picks the type of a new chart, "Chart type option".
#pragma once

#include <QRadioButton>

#include "chart/drawchart.h"
#include "toolkit/dialog.h"

namespace moistair {

/// Stands beside the main window, which stays usable, and beside any dialog: it has no parent, since a dialog over its
/// parent would shut it out too, and stays on top, since the main window would bury it.
class ChartTypeWindow final : public Dialog {
  Q_OBJECT

public:
  ChartTypeWindow();

Q_SIGNALS:
  void chosen(ChartType charttype);
  void left();

protected:
  void leave() override;
};

}  // namespace moistair
