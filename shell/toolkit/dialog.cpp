#include "toolkit/dialog.h"

namespace moistair {

Dialog::Dialog(QWidget* main, const QString& layoutname, const QString& title) : QDialog(main) {
  setObjectName(layoutname);
  setWindowTitle(title);
  setAttribute(Qt::WA_DeleteOnClose, false);
  if (main != nullptr) setWindowModality(Qt::WindowModal);
}

void Dialog::closeEvent(QCloseEvent* event) {
  event->ignore();
  leave();
}

}  // namespace moistair
