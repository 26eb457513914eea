/// \file
/// The window of the point report, "Locate point".
#pragma once

#include "model/pointreport.h"
#include "toolkit/dialog.h"

namespace moistair {

/// Shows one report. It comes new for each located point, holds nothing but the report's texts and changes nothing by
/// itself: what becomes of the point is reported by signals, and the main window does it.
class ReportWindow final : public Dialog {
  Q_OBJECT

public:
  ReportWindow(QWidget* main, PointReport report);

  /// The texts as shown: what is saved and what is marked.
  const PointReport& report() const { return report_; }

Q_SIGNALS:
  void saveChosen();  ///< one record for the log; the window stays
  void markChosen();  ///< the point goes on the chart, and the window away
  void left();        ///< the point is dropped

protected:
  void leave() override;

private:
  const PointReport report_;
};

}  // namespace moistair
