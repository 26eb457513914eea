/// \file
/// The strip of controls above the chart.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QWidget>
#include <array>

#include "chart/chartframe.h"
#include "engine/state.h"
#include "model/locate.h"
#include "toolkit/listbox.h"

class QGridLayout;

namespace moistair {

class ControlMaker;

/// One read-out of the live row: layout names and tab places of caption and value, and how many characters its longest
/// usual value has.
struct ReadoutField {
  const char* captionName;
  int captionTab;
  const char* name;
  int tab;
  int digits;
};

/// In the order in which properties are shown.
inline constexpr std::array<ReadoutField, shownOrder.size()> readoutFields = {{
    {"Label7", 34, "Label13", 40, 11},
    {"Label8", 35, "Label14", 41, 11},
    {"Label9", 36, "Label15", 42, 11},
    {"Label10", 37, "Label16", 43, 10},
    {"Label11", 38, "Label17", 44, 10},
    {"Label12", 39, "Label18", 45, 8},
    {"Label23", 48, "Label24", 49, 11},
    {"Label25", 65, "Label26", 66, 9},
}};

inline constexpr std::size_t dewPointField = 6;

/// All inputs, buttons and read-outs of the main window, laid out and named. It holds what is typed and shown and does
/// nothing; the main window connects it. The font adapts to the room there is, so that nothing is clipped on a small
/// screen and the titles of the chart below still have their place.
class Strip : public QWidget {
  Q_OBJECT

public:
  explicit Strip(QWidget* parent = nullptr);

  QPushButton *drawButton, *pressureButton, *locateButton;
  QPushButton *rhLineButton, *wbLineButton, *hLineButton, *vLineButton;
  QPushButton *exitButton, *viewLogButton, *saveLogButton, *clearButton, *saveChartButton, *mixingButton, *helpButton;
  ListBox *firstKind, *secondKind;
  QLineEdit *firstValue, *secondValue, *pointId;
  QLineEdit *rhValue, *wbValue, *hValue, *vValue;
  ListBox *lowDb, *highDb, *lowHr, *highHr;
  QLabel* status;
  std::array<QLabel*, readoutFields.size()> readouts;

  LimitTexts limitTexts() const;
  PairInput pairInput() const;
  void setLimits(const ChartLimits& limits);

  /// Fills the read-outs of the live row.
  void show(const StatePoint& point);
  using QWidget::show;

  /// Whether there is a state in the live row, and whether it is this one.
  bool showsState() const;
  bool shows(const StatePoint& point) const;

  /// Empties the read-outs but the vapor pressure, which keeps its last value; the dew point only if asked to.
  void emptyReadouts(bool dewPointToo);

  /// Empties all boxes.
  void emptyInputs();

  /// The cue "PLEASE WAIT", shown at once.
  void waitCue(bool on);

  /// Chooses the largest font for which the strip fits into this size [pixels], and returns the height that it takes.
  int fit(int width, int height);

private:
  void makeCommands(QGridLayout& grid, ControlMaker& make);
  void makeLimits(QGridLayout& grid, ControlMaker& make);
  void makeReadouts(QGridLayout& grid, ControlMaker& make);
  void useFont(double points);
  void makeBottomRow(QGridLayout& grid, ControlMaker& make);
};

}  // namespace moistair
