/// \file
/// The window in which the user picks the type of a new chart, "Chart type option".
#pragma once

#include <QRadioButton>

#include "chart/drawchart.h"
#include "toolkit/dialog.h"

namespace moistair {

/// Leaves the main window usable, and any dialog too: it has no parent, since a dialog over its parent would shut it
/// out. Whoever shows it says what it is kept above, lest that bury it.
class ChartTypeWindow final : public Dialog {
  Q_OBJECT

public:
  ChartTypeWindow();

Q_SIGNALS:
  void chosen(ChartType chartType);
  void left();

protected:
  void leave() override;
};

}  // namespace moistair
