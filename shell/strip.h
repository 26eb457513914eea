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
  const char* captionname;
  int captiontab;
  const char* name;
  int tab;
  int digits;
};

/// In the order in which properties are shown.
inline constexpr std::array<ReadoutField, shownOrder.size()> readoutfields = {{
    {"Label7", 34, "Label13", 40, 11},
    {"Label8", 35, "Label14", 41, 11},
    {"Label9", 36, "Label15", 42, 11},
    {"Label10", 37, "Label16", 43, 10},
    {"Label11", 38, "Label17", 44, 10},
    {"Label12", 39, "Label18", 45, 8},
    {"Label23", 48, "Label24", 49, 11},
    {"Label25", 65, "Label26", 66, 9},
}};

inline constexpr std::size_t dewpointfield = 6;

/// All inputs, buttons and read-outs of the main window, laid out and named. It holds what is typed and shown and does
/// nothing; the main window connects it. The font adapts to the room there is, so that nothing is clipped on a small
/// screen and the titles of the chart below still have their place.
class Strip : public QWidget {
  Q_OBJECT

public:
  explicit Strip(QWidget* parent = nullptr);

  QPushButton *drawbutton, *pressurebutton, *locatebutton;
  QPushButton *rhlinebutton, *wblinebutton, *hlinebutton, *vlinebutton;
  QPushButton *exitbutton, *viewlogbutton, *savelogbutton, *clearbutton, *savechartbutton, *mixingbutton, *helpbutton;
  ListBox *firstkind, *secondkind;
  QLineEdit *firstvalue, *secondvalue, *pointid;
  QLineEdit *rhvalue, *wbvalue, *hvalue, *vvalue;
  ListBox *lowdb, *highdb, *lowhr, *highhr;
  QLabel* status;
  std::array<QLabel*, readoutfields.size()> readouts;

  LimitTexts limittexts() const;
  PairInput pairinput() const;
  void setlimits(const ChartLimits& limits);

  /// Fills the read-outs of the live row.
  void show(const StatePoint& point);
  using QWidget::show;

  /// Whether there is a state in the live row, and whether it is this one.
  bool showsstate() const;
  bool shows(const StatePoint& point) const;

  /// Empties the read-outs but the vapour pressure, which keeps its last value; the dew point only if asked to.
  void emptyreadouts(bool dewpointtoo);

  /// Empties all boxes.
  void emptyinputs();

  /// The cue "PLEASE WAIT", shown at once.
  void waitcue(bool on);

  /// Chooses the largest font for which the strip fits into this size [pixels], and returns the height that it takes.
  int fit(int width, int height);

private:
  void makecommands(QGridLayout& grid, ControlMaker& make);
  void makelimits(QGridLayout& grid, ControlMaker& make);
  void makereadouts(QGridLayout& grid, ControlMaker& make);
  void usefont(double points);
  void makebottomrow(QGridLayout& grid, ControlMaker& make);
};

}  // namespace moistair
