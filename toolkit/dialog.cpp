#include "toolkit/dialog.h"

#include <QScreen>
#include <QStyle>
#include <QWindow>

namespace moistair {

void stayAbove(QWidget& window, QWidget& below) {
  window.winId();  // from here on there is a window to speak of
  window.windowHandle()->setTransientParent(below.windowHandle());
}

Dialog::Dialog(QWidget* main, const QString& layoutName, const QString& title) : QDialog(main) {
  setObjectName(layoutName);
  setWindowTitle(title);
  if (main != nullptr) setWindowModality(Qt::WindowModal);
}

void Dialog::closeEvent(QCloseEvent* event) {
  event->ignore();
  leave();
}

void Dialog::showEvent(QShowEvent* event) {
  if (!event->spontaneous()) {  // not when the user brings it back from an icon
    const QRect free = screen()->availableGeometry();
    setGeometry(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size().boundedTo(free.size()), free));
  }
  QDialog::showEvent(event);
}

}  // namespace moistair
