/// \file
/// A dialog that is left only by its own way back.
#pragma once

#include <QCloseEvent>
#include <QDialog>

namespace moistair {

/// Has a window stand above another one that is up, and above no other program. It is not shut out by a dialog above
/// which it stands, but by one above which the other stands.
void standover(QWidget& window, QWidget& below);

/// A dialog that does not block the code that shows it, and keeps the user out of the window behind it: that window
/// neither greys nor closes meanwhile. Esc and the window manager do what the way back does, so a dialog cannot vanish
/// and leave the main window unreachable. It comes up centred on the screen and is destroyed when it is left.
class Dialog : public QDialog {
public:
  /// @param main the window that takes no input meanwhile; nullptr for a dialog that leaves all windows usable
  Dialog(QWidget* main, const QString& layoutname, const QString& title);

  void reject() final { leave(); }

protected:
  /// The way back: what the button that leaves without doing anything does.
  virtual void leave() = 0;

  void closeEvent(QCloseEvent* event) final;
  void showEvent(QShowEvent* event) final;
};

}  // namespace moistair
