/// \file
/// The menu "Edit": the steps of the document, and what is left of the previous chart.
#pragma once

#include <QAction>
#include <QMenu>

#include "shell/chartcontroller.h"
#include "shell/statusline.h"

namespace moistair {

class EditMenu final : public QObject {
public:
  /// @param status offers the entries of the previous chart
  EditMenu(QMenu& menu, ChartController& chart, StatusLine& status);

private:
  void follow();

  ChartController& chart_;
  StatusLine& status_;
  QAction *undo_, *redo_, *carryOver_;
};

}  // namespace moistair
