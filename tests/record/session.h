/// \file
/// The program as the recorder uses it: pointer and keys, answers to what it asks, and all of it that can be seen.
#pragma once

#include <QDialog>
#include <QFileDialog>
#include <QPointer>
#include <QTimer>
#include <functional>

#include "record/shown.h"
#include "windows/support.h"

namespace moistair::record {

/// Answers message boxes and dialogs that wait for an answer, and keeps what they asked.
class Attendant {
public:
  Attendant();

  Lines asked;
  bool agrees = true;                               ///< Yes, OK, Save; or else whatever Esc does
  std::function<QString(const QFileDialog&)> path;  ///< empty for Cancel
  QString name;                                     ///< to type where one line is asked for
  std::function<void(QDialog&)> other;              ///< whatever else comes up; Cancel without it

private:
  void answer(QDialog& dialog);

  QTimer timer_;
  QPointer<QDialog> last_;
};

/// No clock of the program runs while one of these lives, but for what is due at once.
class StoppedClocks : public QObject {
public:
  StoppedClocks();
  ~StoppedClocks() override;

  bool running = false;  ///< they all run meanwhile

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

struct Session : windowtest::Pointed {
  explicit Session(StartState startState = onChart, bool withPoint = false);
  ~Session();

  /// Everything that is due has happened.
  static void settle();

  /// Every window in brief, menus, drawing, document, log, files, clipboard, focus: one thing to the line.
  Lines seen();
  Lines drawn();

  /// What changed since, and what was asked meanwhile; `before` is then what is seen now.
  /// @param fold whether a window that came or went is one line
  Lines changes(Lines& before, bool fold);

  /// Without folder, date, time and version.
  std::string plain(std::string text) const;

  /// Folder and name of a file for the dialog that asks for one: of a document that is there, or of a new file.
  QString fileFor(const QFileDialog& dialog) const;

  StoppedClocks stopped;
  Attendant attendant;
};

}  // namespace moistair::record
