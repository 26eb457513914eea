/// \file
/// The window that shows the session log, "View saved data".
#pragma once

#include "toolkit/dialog.h"

namespace moistair {

/// A picture of the log at the moment of opening, in a type whose columns line up. Quick also with a hundred thousand
/// lines: the text is laid out as it comes into view.
class LogWindow final : public Dialog {
  Q_OBJECT

public:
  LogWindow(QWidget* main, const QString& text);

Q_SIGNALS:
  void left();

protected:
  void leave() override;
};

}  // namespace moistair
