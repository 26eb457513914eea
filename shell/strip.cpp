#include "shell/strip.h"

#include <QGridLayout>
#include <algorithm>
#include <string_view>

#include "text/numbertext.h"
#include "toolkit/controls.h"
#include "toolkit/valuebox.h"

namespace moistair {

namespace {

/// All controls but the live row, each in its cell of one of four grids: commands and lines, limits, and the bottom
/// row. The letter that presses a button together with Alt is none of the menus and the table.
constexpr std::array<Control, 38> table = {{
    {"Command3", "Dr&aw\nchart", "Draw chart", {0, 0, 2, 1}, 6},
    {"Command4", "&Set/reset\natmos\npressure", "Set/reset atmos. pressure", {0, 1, 2, 1}, 7},
    {"Command14", "&Locate\npoint", "Locate point with two input parameters", {0, 2, 2, 1}, 5},
    {"Combo1", "", "", {0, 3, 1, 1}, 14},
    {"Combo2", "", "", {1, 3, 1, 1}, 15},
    {"Text4", "", "", {0, 4, 1, 1}, 16},
    {"Text5", "", "", {1, 4, 1, 1}, 17},
    {"Command5", "Rel.\nH&umidity\nline", "Draw relative humidity line", {0, 5, 2, 1}, 8},
    {"Label1", "Rel Hum,\n%", "", {0, 6, 1, 1}, 28},
    {"Text1", "", "", {1, 6, 1, 1}, 9},
    {"Command6", "Const\nW&B line", "Draw wet bulb line", {0, 7, 2, 1}, 10},
    {"Label2", "WBT,\nDeg F", "", {0, 8, 1, 1}, 29},
    {"Text2", "", "", {1, 8, 1, 1}, 11},
    {"Command7", "Const\nE&nthal\nline", "Draw enthalpy line", {0, 9, 2, 1}, 12},
    {"Label3", "Enthal,\nBtu/lb", "", {0, 10, 1, 1}, 30},
    {"Text3", "", "", {1, 10, 1, 1}, 13},
    {"Command9", "Const\ns&p vol\nline", "Draw specific voloume line", {0, 11, 2, 1}, 18},
    {"Label5", "Sp vol,\ncuf/lb", "", {0, 12, 1, 1}, 32},
    {"Text6", "", "", {1, 12, 1, 1}, 19},
    {"Label19", "L. DBT(F)", "", {0, 0, 1, 1}, 27},
    {"Combo3", "", "", {0, 1, 1, 1}, 3},
    {"Label20", "H. DBT(F)", "", {1, 0, 1, 1}, 26},
    {"Combo4", "", "", {1, 1, 1, 1}, 2},
    {"Label21", "L. H ratio", "", {2, 0, 1, 1}, 25},
    {"Combo5", "", "", {2, 1, 1, 1}, 1},
    {"Label22", "H. H ratio", "", {3, 0, 1, 1}, 24},
    {"Combo6", "", "", {3, 1, 1, 1}, 51},
    {"Label6", "Point", "", {0, 0, 1, 1}, 33},
    {"Text7", "", "Enter point identification", {0, 1, 1, 1}, 21},
    {"Command8", "E&xit", "Exit the program", {0, 2, 1, 1}, 69},
    {"Command1", "V&iew saved data", "View saved data of this session", {0, 3, 1, 1}, 67},
    {"Command2", "Save data in file", "Save the already saved data in a file", {0, 4, 1, 1}, 68},
    {"Command12", "Clear char&t", "Clear chart", {0, 5, 1, 1}, 22},
    {"Command11", "Save chart", "Save present chart in a file", {0, 6, 1, 1}, 20},
    {"Command13", "&Mixing problem", "Start MIxing problem", {0, 7, 1, 1}, 23},
    {"Command16", "Help", "", {0, 8, 1, 1}, 70},
    {"Label4", "", "", {0, 9, 1, 1}, 31},
}};

/// The row of a control. A name that is not in the table does not compile.
consteval const Control& row(std::string_view name) {
  for (const Control& control : table) {
    if (control.name == name) return control;
  }
  throw "no such control";
}

void captionfor(ControlMaker& make, QGridLayout& grid, const Control& control, QWidget& input) {
  auto* label = make.add<QLabel>(grid, control);
  label->setBuddy(&input);
  nameinput(input, label->text().simplified());
}

/// Width of a text of so many digits.
int roomfor(const QFontMetrics& metrics, int digits) { return metrics.horizontalAdvance(QLatin1Char('0')) * digits; }

/// Gives a button the room of its caption and of the frame around it.
void fitbutton(QPushButton& button, int controlheight) {
  constexpr QSize frame(12, 8);
  const QFontMetrics metrics = button.fontMetrics();
  const QSize caption = metrics.size(Qt::TextShowMnemonic, button.text());
  const bool wrapped = button.text().contains(QLatin1Char('\n'));
  button.setMinimumWidth(caption.width() + frame.width());
  if (wrapped) button.setMaximumWidth(caption.width() + 2 * frame.width());  // the room there is goes to the boxes
  button.setFixedHeight(wrapped ? std::max(2 * controlheight, 3 * metrics.lineSpacing() + frame.height())
                                : controlheight);
}

/// Gives a list the room of its longest item and of the arrow beside it.
template <class Items>
void fitlist(ListBox& list, const Items& items, int controlheight) {
  constexpr int arrow = 34;
  int longest = 0;
  for (const char* item : items) {
    longest = std::max(longest, list.fontMetrics().horizontalAdvance(QString::fromUtf8(item)));
  }
  list.setMinimumWidth(longest + arrow);
  list.setFixedHeight(controlheight);
}

}  // namespace

Strip::Strip(QWidget* parent) : QWidget(parent) {
  auto* outer = new QGridLayout(this);
  outer->setContentsMargins(4, 3, 4, 2);
  outer->setHorizontalSpacing(8);
  outer->setVerticalSpacing(2);
  const auto inner = [&](int line, int column, int lines) {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(3);
    grid->setVerticalSpacing(1);
    outer->addLayout(grid, line, column, lines, 1);
    return grid;
  };
  ControlMaker make(*this);
  makecommands(*inner(0, 0, 1), make);
  makereadouts(*inner(1, 0, 1), make);
  makebottomrow(*inner(2, 0, 1), make);
  makelimits(*inner(0, 1, 3), make);
  outer->setColumnStretch(0, 1);
  make.settaborder();
}

void Strip::makecommands(QGridLayout& grid, ControlMaker& make) {
  const auto button = [&](const Control& control) {
    auto* made = make.add<QPushButton>(grid, control);
    made->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    nameinput(*made, made->text().remove(QLatin1Char('&')).simplified());  // a wrapped caption is read as one line
    return made;
  };
  const auto box = [&](const Control& control) { return make.add<ValueBox>(grid, control); };
  const auto captionedbox = [&](const Control& control, const Control& caption) {
    auto* made = box(control);
    captionfor(make, grid, caption, *made);
    return made;
  };
  drawbutton = button(row("Command3"));
  pressurebutton = button(row("Command4"));
  locatebutton = button(row("Command14"));
  firstkind = make.add<ListBox>(grid, row("Combo1"));
  secondkind = make.add<ListBox>(grid, row("Combo2"));
  namelist(*firstkind, QStringLiteral("First property"));
  namelist(*secondkind, QStringLiteral("Second property"));
  firstvalue = box(row("Text4"));
  secondvalue = box(row("Text5"));
  nameinput(*firstvalue, QStringLiteral("Value of the first property"));
  nameinput(*secondvalue, QStringLiteral("Value of the second property"));
  rhlinebutton = button(row("Command5"));
  rhvalue = captionedbox(row("Text1"), row("Label1"));
  wblinebutton = button(row("Command6"));
  wbvalue = captionedbox(row("Text2"), row("Label2"));
  hlinebutton = button(row("Command7"));
  hvalue = captionedbox(row("Text3"), row("Label3"));
  vlinebutton = button(row("Command9"));
  vvalue = captionedbox(row("Text6"), row("Label5"));
  grid.setColumnStretch(3, 3);
  grid.setColumnStretch(4, 2);
  for (const int column : {6, 8, 10, 12}) grid.setColumnStretch(column, 1);
}

void Strip::makelimits(QGridLayout& grid, ControlMaker& make) {
  const auto list = [&](const Control& control, const Control& caption) {
    auto* made = make.add<ListBox>(grid, control);
    captionfor(make, grid, caption, *made);
    return made;
  };
  lowdb = list(row("Combo3"), row("Label19"));
  highdb = list(row("Combo4"), row("Label20"));
  lowhr = list(row("Combo5"), row("Label21"));
  highhr = list(row("Combo6"), row("Label22"));
}

void Strip::makereadouts(QGridLayout& grid, ControlMaker& make) {
  for (std::size_t i = 0; i < readoutfields.size(); ++i) {
    const ReadoutField& field = readoutfields[i];
    const int column = static_cast<int>(i) * 2;
    const char* caption = propertyOf(shownOrder[i]).rowCaption;
    make.add<QLabel>(grid, {field.captionname, caption, "", {0, column, 1, 1}, field.captiontab});
    readouts[i] = make.add<QLabel>(grid, {field.name, "", "", {0, column + 1, 1, 1}, field.tab});
    makereadout(*readouts[i]);
    grid.setColumnStretch(column + 1, 1);
  }
}

void Strip::makebottomrow(QGridLayout& grid, ControlMaker& make) {
  const auto button = [&](const Control& control) { return make.add<QPushButton>(grid, control); };
  pointid = make.add<ValueBox>(grid, row("Text7"));
  captionfor(make, grid, row("Label6"), *pointid);
  exitbutton = button(row("Command8"));
  viewlogbutton = button(row("Command1"));
  savelogbutton = button(row("Command2"));
  clearbutton = button(row("Command12"));
  savechartbutton = button(row("Command11"));
  mixingbutton = button(row("Command13"));
  helpbutton = button(row("Command16"));
  status = make.add<QLabel>(grid, row("Label4"));
  status->setAlignment(Qt::AlignCenter);
  grid.setColumnStretch(1, 1);
  grid.setColumnStretch(9, 2);
}

LimitTexts Strip::limittexts() const {
  const auto text = [](const ListBox* list) { return list->currentText().toStdString(); };
  return {text(lowdb), text(highdb), text(lowhr), text(highhr)};
}

PairInput Strip::pairinput() const {
  return {kindat(firstkind->selected()), kindat(secondkind->selected()), firstvalue->text().toStdString(),
          secondvalue->text().toStdString()};
}

void Strip::setlimits(const ChartLimits& limits) {
  const auto set = [](ListBox& list, double limit) {
    int item = 0;
    while (item < list.count() && lenientnumber(list.itemText(item).toStdString()) != limit) ++item;
    list.select(item < list.count() ? item : -1);
    if (item == list.count()) list.setEditText(QString::fromStdString(numbertext(limit)));
  };
  set(*lowdb, limits.lowdb);
  set(*highdb, limits.highdb);
  set(*lowhr, limits.lowhr);
  set(*highhr, limits.highhr);
}

void Strip::show(const StatePoint& point) {
  for (std::size_t i = 0; i < readoutfields.size(); ++i) {
    readouts[i]->setText(QString::fromStdString(showvalue(point.at(shownOrder[i]))));
  }
}

bool Strip::showsstate() const { return !readouts.front()->text().isEmpty(); }

bool Strip::shows(const StatePoint& point) const {
  for (std::size_t i = 0; i < readoutfields.size(); ++i) {
    if (readouts[i]->text().toStdString() != showvalue(point.at(shownOrder[i]))) return false;
  }
  return true;
}

void Strip::emptyreadouts(bool dewpointtoo) {
  for (std::size_t i = 0; i < dewpointfield; ++i) readouts[i]->clear();
  if (dewpointtoo) readouts[dewpointfield]->clear();
}

void Strip::emptyinputs() {
  for (QLineEdit* box : {rhvalue, wbvalue, hvalue, firstvalue, secondvalue, vvalue, pointid}) box->clear();
}

void Strip::waitcue(bool on) {
  status->setText(on ? QStringLiteral("PLEASE WAIT") : QString());
  status->setStyleSheet(on ? QStringLiteral("background: rgb(255, 255, 0); color: black") : QString());
  status->repaint();
}

int Strip::fit(int width, int height) {
  constexpr int largest = 20;  // half points
  constexpr int smallest = 15;
  for (int halfpoints = largest; halfpoints >= smallest; --halfpoints) {
    usefont(halfpoints / 2.0);
    layout()->activate();
    const QSize needed = layout()->minimumSize();
    if (needed.width() <= width && needed.height() <= height) break;
  }
  return layout()->minimumSize().height();
}

void Strip::usefont(double points) {
  constexpr int frame = 7;  // above and below the text of a box
  constexpr int typeddigits = 7;
  QFont font = this->font();
  font.setPointSizeF(points);
  setFont(font);
  font.setBold(true);
  exitbutton->setFont(font);
  const QFontMetrics metrics = fontMetrics();
  const int controlheight = metrics.height() + frame;
  for (std::size_t i = 0; i < readoutfields.size(); ++i) {
    readouts[i]->setMinimumWidth(roomfor(metrics, readoutfields[i].digits));
  }
  for (QLineEdit* box : {firstvalue, secondvalue, rhvalue, wbvalue, hvalue, vvalue, pointid}) {
    box->setFixedHeight(controlheight);
    box->setMinimumWidth(roomfor(metrics, typeddigits));
  }
  for (ListBox* list : {firstkind, secondkind}) fitlist(*list, kindtexts, controlheight);
  for (ListBox* list : {lowdb, highdb}) fitlist(*list, drybulblimits, controlheight);
  for (ListBox* list : {lowhr, highhr}) fitlist(*list, humidityratiolimits, controlheight);
  for (ListBox* list : {lowdb, highdb, lowhr, highhr}) list->setFixedWidth(lowhr->minimumWidth());
  for (auto* button : findChildren<QPushButton*>()) fitbutton(*button, controlheight);
}

}  // namespace moistair
