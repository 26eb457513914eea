#include "shell/strip.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QStyle>
#include <cstring>

#include "engine/numbertext.h"
#include "toolkit/controls.h"

namespace moistair {

namespace {

/// All controls but the live row, each in its cell of one of four grids: commands and lines, limits, and the bottom
/// row.
constexpr std::array<Control, 38> table = {{
    {"Command3", "Draw\nchart", "Draw chart", {0, 0, 2, 1}, 6},
    {"Command4", "Set/reset\natmos\npressure", "Set/reset atmos. pressure", {0, 1, 2, 1}, 7},
    {"Command14", "Locate\npoint", "Locate point with two input parameters", {0, 2, 2, 1}, 5},
    {"Combo1", "", "", {0, 3, 1, 1}, 14},
    {"Combo2", "", "", {1, 3, 1, 1}, 15},
    {"Text4", "", "", {0, 4, 1, 1}, 16},
    {"Text5", "", "", {1, 4, 1, 1}, 17},
    {"Command5", "Rel.\nHumidity\nline", "Draw relative humidity line", {0, 5, 2, 1}, 8},
    {"Label1", "Rel Hum,\n%", "", {0, 6, 1, 1}, 28},
    {"Text1", "", "", {1, 6, 1, 1}, 9},
    {"Command6", "Const\nWB line", "Draw wet bulb line", {0, 7, 2, 1}, 10},
    {"Label2", "WBT,\nDeg F", "", {0, 8, 1, 1}, 29},
    {"Text2", "", "", {1, 8, 1, 1}, 11},
    {"Command7", "Const\nEnthal\nline", "Draw enthalpy line", {0, 9, 2, 1}, 12},
    {"Label3", "Enthal,\nBtu/lb", "", {0, 10, 1, 1}, 30},
    {"Text3", "", "", {1, 10, 1, 1}, 13},
    {"Command9", "Const\nsp vol\nline", "Draw specific voloume line", {0, 11, 2, 1}, 18},
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
    {"Command8", "Exit", "Exit the program", {0, 2, 1, 1}, 69},
    {"Command1", "View saved data", "View saved data of this session", {0, 3, 1, 1}, 67},
    {"Command2", "Save data in file", "Save the already saved data in a file", {0, 4, 1, 1}, 68},
    {"Command12", "Clear chart", "Clear chart", {0, 5, 1, 1}, 22},
    {"Command11", "Save chart", "Save present chart in a file", {0, 6, 1, 1}, 20},
    {"Command13", "Mixing problem", "Start MIxing problem", {0, 7, 1, 1}, 23},
    {"Command16", "Help", "", {0, 8, 1, 1}, 70},
    {"Label4", "", "", {0, 9, 1, 1}, 31},
}};

constexpr const Control& row(const char* name) {
  for (const Control& control : table) {
    if (std::strcmp(control.name, name) == 0) return control;
  }
  return table.back();
}

QLabel* captionfor(ControlMaker& make, QGridLayout& grid, const char* name, QWidget& input) {
  auto* label = make.add<QLabel>(grid, row(name));
  label->setBuddy(&input);
  nameinput(input, label->text().simplified());
  return label;
}

void setroom(QLineEdit& box, int characters) {
  box.setMinimumWidth(box.fontMetrics().horizontalAdvance(QLatin1Char('0')) * characters);
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
  const auto button = [&](const char* name) {
    auto* made = make.add<QPushButton>(grid, row(name));
    made->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    return made;
  };
  const auto box = [&](const char* name) { return make.add<QLineEdit>(grid, row(name)); };
  drawbutton = button("Command3");
  pressurebutton = button("Command4");
  locatebutton = button("Command14");
  firstkind = make.add<ListBox>(grid, row("Combo1"));
  secondkind = make.add<ListBox>(grid, row("Combo2"));
  namelist(*firstkind, tr("First property"));
  namelist(*secondkind, tr("Second property"));
  firstvalue = box("Text4");
  secondvalue = box("Text5");
  nameinput(*firstvalue, tr("Value of the first property"));
  nameinput(*secondvalue, tr("Value of the second property"));
  rhlinebutton = button("Command5");
  rhvalue = box("Text1");
  captionfor(make, grid, "Label1", *rhvalue);
  wblinebutton = button("Command6");
  wbvalue = box("Text2");
  captionfor(make, grid, "Label2", *wbvalue);
  hlinebutton = button("Command7");
  hvalue = box("Text3");
  captionfor(make, grid, "Label3", *hvalue);
  vlinebutton = button("Command9");
  vvalue = box("Text6");
  captionfor(make, grid, "Label5", *vvalue);
  grid.setColumnStretch(3, 3);
  grid.setColumnStretch(4, 2);
  for (const int column : {6, 8, 10, 12}) grid.setColumnStretch(column, 1);
}

void Strip::makelimits(QGridLayout& grid, ControlMaker& make) {
  const auto list = [&](const char* name, const char* caption) {
    auto* made = make.add<ListBox>(grid, row(name));
    captionfor(make, grid, caption, *made);
    return made;
  };
  lowdb = list("Combo3", "Label19");
  highdb = list("Combo4", "Label20");
  lowhr = list("Combo5", "Label21");
  highhr = list("Combo6", "Label22");
}

void Strip::makereadouts(QGridLayout& grid, ControlMaker& make) {
  constexpr std::array<std::array<int, 2>, readoutfields.size()> tabs = {
      {{34, 40}, {35, 41}, {36, 42}, {37, 43}, {38, 44}, {39, 45}, {48, 49}, {65, 66}}};
  for (std::size_t i = 0; i < readoutfields.size(); ++i) {
    const ReadoutField& field = readoutfields[i];
    const int column = static_cast<int>(i) * 2;
    make.add<QLabel>(grid, {field.captionname, field.caption, "", {0, column, 1, 1}, tabs[i][0]});
    readouts[i] = make.add<QLabel>(grid, {field.name, "", "", {0, column + 1, 1, 1}, tabs[i][1]});
    makereadout(*readouts[i]);
    grid.setColumnStretch(column + 1, 1);
  }
}

void Strip::makebottomrow(QGridLayout& grid, ControlMaker& make) {
  const auto button = [&](const char* name) { return make.add<QPushButton>(grid, row(name)); };
  pointid = make.add<QLineEdit>(grid, row("Text7"));
  captionfor(make, grid, "Label6", *pointid);
  exitbutton = button("Command8");
  QFont bold = exitbutton->font();
  bold.setBold(true);
  exitbutton->setFont(bold);
  viewlogbutton = button("Command1");
  savelogbutton = button("Command2");
  clearbutton = button("Command12");
  savechartbutton = button("Command11");
  mixingbutton = button("Command13");
  helpbutton = button("Command16");
  status = make.add<QLabel>(grid, row("Label4"));
  status->setAlignment(Qt::AlignCenter);
  grid.setColumnStretch(1, 1);
  grid.setColumnStretch(9, 2);
}

LimitTexts Strip::limittexts() const {
  const auto text = [](const ListBox* list) { return list->currentText().toStdString(); };
  return {text(lowdb), text(highdb), text(lowhr), text(highhr)};
}

void Strip::show(const StatePoint& point) {
  for (std::size_t i = 0; i < readoutfields.size(); ++i) {
    readouts[i]->setText(QString::fromStdString(showvalue(point.*readoutfields[i].value)));
  }
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
  constexpr double largest = 10;  // points
  constexpr double smallest = 7.5;
  for (double points = largest; points >= smallest; points -= 0.5) {
    QFont font = this->font();
    font.setPointSizeF(points);
    setFont(font);
    QFont bold = font;
    bold.setBold(true);
    exitbutton->setFont(bold);
    const QFontMetrics metrics(font);
    const int digit = metrics.horizontalAdvance(QLatin1Char('0'));
    const int controlheight = metrics.height() + 7;
    for (QLabel* readout : readouts) readout->setMinimumWidth(digit * 11);
    readouts[5]->setMinimumWidth(digit * 8);
    readouts[vaporpressurefield]->setMinimumWidth(digit * 9);
    for (QLineEdit* box : {firstvalue, secondvalue, rhvalue, wbvalue, hvalue, vvalue, pointid}) {
      box->setFixedHeight(controlheight);
      setroom(*box, 7);
    }
    for (ListBox* list : {firstkind, secondkind, lowdb, highdb, lowhr, highhr}) list->setFixedHeight(controlheight);
    for (auto* button : findChildren<QPushButton*>()) {
      int room = 0;
      for (const QString& line : button->text().split(QLatin1Char('\n'))) {
        room = std::max(room, button->fontMetrics().horizontalAdvance(line));
      }
      button->setMinimumWidth(room + 12);
      const bool wrapped = button->text().contains(QLatin1Char('\n'));
      button->setFixedHeight(wrapped ? std::max(2 * controlheight + 1, 3 * metrics.lineSpacing() + 8) : controlheight);
    }
    layout()->activate();
    if (minimumSizeHint().width() <= width && minimumSizeHint().height() <= height) break;
  }
  return layout()->minimumSize().height();
}

}  // namespace moistair
