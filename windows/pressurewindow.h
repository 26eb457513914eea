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
class TellingLine;

/// The first window of the program, and back at each "Set/reset atmos pressure", always with the default chosen. An
/// opening puts the default pressure back in force: whoever opens it does so (`defaultpressuretext`), since nobody can
/// hear a window that is not made yet. The window asks, tests and tells; the rest of setting a pressure is the main
/// window's.
class PressureWindow final : public Dialog {
  Q_OBJECT

public:
  /// @param waiting what else the user should know, as of a file that is opened afterwards; empty for nothing
  explicit PressureWindow(QWidget* main, const QString& waiting = {});

Q_SIGNALS:
  /// The pressure in force is to become this text [in Hg]. Told also of an entry that is then refused.
  void pressurewritten(const std::string& inhg);
  /// An accepted entry, behind its pressurewritten: the chart is to be cleared for it, and the window to go away.
  void pressureset(const PressureEntry& entry);
  void left();  ///< without setting anything

protected:
  void leave() override;

private:
  void makeentry(ControlMaker& maker, QGridLayout& grid);
  void makereadouts(ControlMaker& maker, QGridLayout& grid);
  PressureEntry entry() const;
  void showunit();
  void showreadouts();
  void shownotes();
  void setpressure();

  ListBox* unit_ = nullptr;
  QLineEdit* entry_ = nullptr;
  QLabel* entryunit_ = nullptr;
  QLabel* rangehint_ = nullptr;
  QLabel* inhg_ = nullptr;
  QLabel* psi_ = nullptr;
  QLabel* feet_ = nullptr;
  TellingLine* note_ = nullptr;  ///< what the entry is read as, or why it is refused
};

}  // namespace moistair
