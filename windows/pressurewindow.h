/// \file
/// The window in which the user sets the atmospheric pressure, "Change pressure".
#pragma once

#include <string>

#include "engine/pressureunits.h"
#include "toolkit/dialog.h"

class QGridLayout;
class QLabel;
class QLineEdit;

namespace moistair {

class ControlMaker;
class ListBox;
class MessageLine;

/// The first window of the program, and back at each "Set/reset atmos pressure", always with the default chosen. An
/// opening makes the default pressure current again: whoever opens it does so (`defaultPressureText`), since nobody can
/// hear a window that is not made yet. The window asks, tests and reports; the rest of setting a pressure is the main
/// window's.
class PressureWindow final : public Dialog {
  Q_OBJECT

public:
  /// @param waiting what else the user should know, as of a file that is opened afterwards; empty for nothing
  explicit PressureWindow(QWidget* main, const QString& waiting = {});

Q_SIGNALS:
  /// The current pressure is to become this text [in Hg]. Also emitted for an entry that is then refused.
  void pressureWritten(const std::string& inhg);
  /// An accepted entry, behind its pressureWritten: the chart is to be cleared for it, and the window to go away.
  void pressureSet(const PressureEntry& entry);
  void left();  ///< without setting anything

protected:
  void leave() override;

private:
  void makeEntry(ControlMaker& maker, QGridLayout& grid);
  void makeReadouts(ControlMaker& maker, QGridLayout& grid);
  PressureEntry entry() const;
  void offerElevation(QGridLayout& grid);
  void showUnit();
  void showReadouts();
  void showNotes();
  void setPressure();

  ListBox* unit_ = nullptr;
  QLineEdit* entry_ = nullptr;
  QLabel* entryUnit_ = nullptr;
  QLabel* rangeHint_ = nullptr;
  QLabel* inhg_ = nullptr;
  QLabel* psi_ = nullptr;
  QLabel* feet_ = nullptr;
  MessageLine* note_ = nullptr;  ///< what the entry is read as, or why it is refused
};

}  // namespace moistair
