/// \file
/// A dialog that is left only by its own way back.
#pragma once

#include <QCloseEvent>
#include <QDialog>

namespace moistair {

/// Keeps a window above another one that is up, and above no other program. A dialog that it is kept above does not
/// shut it out; a dialog that the other window is kept above does.
void stayAbove(QWidget& window, QWidget& below);

/// A dialog that does not block the code that shows it, and keeps the user out of the window behind it: that window
/// neither turns gray nor closes meanwhile. Esc and the window manager do what the way back does, so a dialog cannot
/// vanish and leave the main window unreachable. It comes up centered on the screen and is destroyed when it is left.
class Dialog : public QDialog {
public:
  /// @param main the window that takes no input meanwhile; nullptr for a dialog that leaves all windows usable
  Dialog(QWidget* main, const QString& layoutName, const QString& title);

  void reject() final { leave(); }

protected:
  /// The way back: what the button that leaves without doing anything does.
  virtual void leave() = 0;

  void closeEvent(QCloseEvent* event) final;
  void showEvent(QShowEvent* event) final;
};

}  // namespace moistair
