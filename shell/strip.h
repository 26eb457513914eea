/// \file
/// The strip of controls above the chart.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QWidget>
#include <array>

#include "chart/chartframe.h"
#include "engine/resolver.h"
#include "toolkit/listbox.h"

class QGridLayout;

namespace moistair {

class ControlMaker;

/// One read-out of the live row: the property that it shows.
struct ReadoutField {
  const char* caption;
  const char* captionname;  ///< layout names of caption and value
  const char* name;
  double StatePoint::*value;
};

inline constexpr std::array<ReadoutField, 8> readoutfields = {{
    {"DB=", "Label7", "Label13", &StatePoint::db},
    {"WB=", "Label8", "Label14", &StatePoint::wb},
    {"RH(%)=", "Label9", "Label15", &StatePoint::rh},
    {"Enthalpy=", "Label10", "Label16", &StatePoint::h},
    {"Sp vol=", "Label11", "Label17", &StatePoint::v},
    {"H.ratio=", "Label12", "Label18", &StatePoint::w},
    {"DP=", "Label23", "Label24", &StatePoint::dp},
    {"V. pr=", "Label25", "Label26", &StatePoint::pv},
}};

inline constexpr std::size_t dewpointfield = 6;
inline constexpr std::size_t vaporpressurefield = 7;

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

  /// Fills the read-outs of the live row.
  void show(const StatePoint& point);
  using QWidget::show;

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
  void makebottomrow(QGridLayout& grid, ControlMaker& make);
};

}  // namespace moistair
