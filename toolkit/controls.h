/// \file
/// Controls from a table.
///
/// Every window has one table that says of each control its layout name, caption, tool tip, place and position in the
/// tab order. The layout name is the control's object name; the C++ member says what it is for. Places are cells of a
/// grid, since fonts differ from screen to screen: the grid keeps the layout's order and gives each control the room it
/// needs.
#pragma once

#include <QGridLayout>
#include <QLabel>
#include <QString>
#include <QWidget>
#include <vector>

class QPushButton;

namespace moistair {

struct Cell {
  int row = 0;
  int column = 0;
  int rows = 1;
  int columns = 1;
};

struct Control {
  const char* name;     ///< layout name, "Command14"
  const char* caption;  ///< text at the start; "\n" where a caption wraps
  const char* toolTip;  ///< empty for none
  Cell cell;
  int tab;  ///< place in the tab order
};

/// The controls of one window as they are made: gives each its row of the table and in the end the tab order.
class ControlMaker {
public:
  explicit ControlMaker(QWidget& window) : window_(window) {}

  /// A control in its cell of the grid.
  template <class Widget>
  Widget* add(QGridLayout& grid, const Control& row) {
    auto* control = new Widget(&window_);
    setup(*control, row);
    grid.addWidget(control, row.cell.row, row.cell.column, row.cell.rows, row.cell.columns);
    return control;
  }

  /// Chains the controls that take the focus in the order of the table's tab column.
  void setTabOrder();

private:
  void setup(QWidget& control, const Control& row);

  struct Placed {
    QWidget* control;
    int tab;
  };

  QWidget& window_;
  std::vector<Placed> placed_;
};

/// Has Return press the button that has the focus, as the space bar does. A dialog's buttons know that by themselves,
/// but only in exchange for one that Return presses from every box.
void pressByReturn(QPushButton& button);

/// Gives a control its name for a screen reader.
void nameInput(QWidget& input, const QString& name);

/// Gives a list without a caption of its own its name: a screen reader takes that from a label, here a hidden one.
void nameList(QWidget& list, const QString& name);

/// Makes a label a read-out: its value can be selected and copied, and a screen reader reads the value itself.
void makeReadout(QLabel& label);

}  // namespace moistair
