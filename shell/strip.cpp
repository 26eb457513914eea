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

void captionFor(ControlMaker& make, QGridLayout& grid, const Control& control, QWidget& input) {
  auto* label = make.add<QLabel>(grid, control);
  label->setBuddy(&input);
  nameInput(input, label->text().simplified());
}

/// Width of a text of so many digits.
int roomFor(const QFontMetrics& metrics, int digits) { return metrics.horizontalAdvance(QLatin1Char('0')) * digits; }

/// Gives a button the room of its caption and of the frame around it.
void fitButton(QPushButton& button, int controlHeight) {
  constexpr QSize frame(12, 8);
  const QFontMetrics metrics = button.fontMetrics();
  const QSize caption = metrics.size(Qt::TextShowMnemonic, button.text());
  const bool wrapped = button.text().contains(QLatin1Char('\n'));
  button.setMinimumWidth(caption.width() + frame.width());
  if (wrapped) button.setMaximumWidth(caption.width() + 2 * frame.width());  // the room there is goes to the boxes
  button.setFixedHeight(wrapped ? std::max(2 * controlHeight, 3 * metrics.lineSpacing() + frame.height())
                                : controlHeight);
}

/// Gives a list the room of its longest item and of the arrow next to it.
template <class Items>
void fitList(ListBox& list, const Items& items, int controlHeight) {
  constexpr int arrow = 34;
  int longest = 0;
  for (const char* item : items) {
    longest = std::max(longest, list.fontMetrics().horizontalAdvance(QString::fromUtf8(item)));
  }
  list.setMinimumWidth(longest + arrow);
  list.setFixedHeight(controlHeight);
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
  makeCommands(*inner(0, 0, 1), make);
  makeReadouts(*inner(1, 0, 1), make);
  makeBottomRow(*inner(2, 0, 1), make);
  makeLimits(*inner(0, 1, 3), make);
  outer->setColumnStretch(0, 1);
  make.setTabOrder();
}

void Strip::makeCommands(QGridLayout& grid, ControlMaker& make) {
  const auto button = [&](const Control& control) {
    auto* made = make.add<QPushButton>(grid, control);
    made->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    nameInput(*made, made->text().remove(QLatin1Char('&')).simplified());  // a wrapped caption is read as one line
    return made;
  };
  const auto box = [&](const Control& control) { return make.add<ValueBox>(grid, control); };
  const auto captionedBox = [&](const Control& control, const Control& caption) {
    auto* made = box(control);
    captionFor(make, grid, caption, *made);
    return made;
  };
  drawButton = button(row("Command3"));
  pressureButton = button(row("Command4"));
  locateButton = button(row("Command14"));
  firstKind = make.add<ListBox>(grid, row("Combo1"));
  secondKind = make.add<ListBox>(grid, row("Combo2"));
  nameList(*firstKind, QStringLiteral("First property"));
  nameList(*secondKind, QStringLiteral("Second property"));
  firstValue = box(row("Text4"));
  secondValue = box(row("Text5"));
  nameInput(*firstValue, QStringLiteral("Value of the first property"));
  nameInput(*secondValue, QStringLiteral("Value of the second property"));
  rhLineButton = button(row("Command5"));
  rhValue = captionedBox(row("Text1"), row("Label1"));
  wbLineButton = button(row("Command6"));
  wbValue = captionedBox(row("Text2"), row("Label2"));
  hLineButton = button(row("Command7"));
  hValue = captionedBox(row("Text3"), row("Label3"));
  vLineButton = button(row("Command9"));
  vValue = captionedBox(row("Text6"), row("Label5"));
  grid.setColumnStretch(3, 3);
  grid.setColumnStretch(4, 2);
  for (const int column : {6, 8, 10, 12}) grid.setColumnStretch(column, 1);
}

void Strip::makeLimits(QGridLayout& grid, ControlMaker& make) {
  const auto list = [&](const Control& control, const Control& caption) {
    auto* made = make.add<ListBox>(grid, control);
    captionFor(make, grid, caption, *made);
    return made;
  };
  lowDb = list(row("Combo3"), row("Label19"));
  highDb = list(row("Combo4"), row("Label20"));
  lowHr = list(row("Combo5"), row("Label21"));
  highHr = list(row("Combo6"), row("Label22"));
}

void Strip::makeReadouts(QGridLayout& grid, ControlMaker& make) {
  for (std::size_t i = 0; i < readoutFields.size(); ++i) {
    const ReadoutField& field = readoutFields[i];
    const int column = static_cast<int>(i) * 2;
    const char* caption = propertyOf(shownOrder[i]).rowCaption;
    make.add<QLabel>(grid, {field.captionName, caption, "", {0, column, 1, 1}, field.captionTab});
    readouts[i] = make.add<QLabel>(grid, {field.name, "", "", {0, column + 1, 1, 1}, field.tab});
    makeReadout(*readouts[i]);
    grid.setColumnStretch(column + 1, 1);
  }
}

void Strip::makeBottomRow(QGridLayout& grid, ControlMaker& make) {
  const auto button = [&](const Control& control) { return make.add<QPushButton>(grid, control); };
  pointId = make.add<ValueBox>(grid, row("Text7"));
  captionFor(make, grid, row("Label6"), *pointId);
  exitButton = button(row("Command8"));
  viewLogButton = button(row("Command1"));
  saveLogButton = button(row("Command2"));
  clearButton = button(row("Command12"));
  saveChartButton = button(row("Command11"));
  mixingButton = button(row("Command13"));
  helpButton = button(row("Command16"));
  status = make.add<QLabel>(grid, row("Label4"));
  status->setAlignment(Qt::AlignCenter);
  grid.setColumnStretch(1, 1);
  grid.setColumnStretch(9, 2);
}

LimitTexts Strip::limitTexts() const {
  const auto text = [](const ListBox* list) { return list->currentText().toStdString(); };
  return {text(lowDb), text(highDb), text(lowHr), text(highHr)};
}

PairInput Strip::pairInput() const {
  return {kindAt(firstKind->selected()), kindAt(secondKind->selected()), firstValue->text().toStdString(),
          secondValue->text().toStdString()};
}

void Strip::setLimits(const ChartLimits& limits) {
  const auto set = [](ListBox& list, double limit) {
    int item = 0;
    while (item < list.count() && lenientNumber(list.itemText(item).toStdString()) != limit) ++item;
    list.select(item < list.count() ? item : -1);
    if (item == list.count()) list.setEditText(QString::fromStdString(numberText(limit)));
  };
  set(*lowDb, limits.lowDb);
  set(*highDb, limits.highDb);
  set(*lowHr, limits.lowHr);
  set(*highHr, limits.highHr);
}

void Strip::show(const StatePoint& point) {
  for (std::size_t i = 0; i < readoutFields.size(); ++i) {
    readouts[i]->setText(QString::fromStdString(showValue(point.at(shownOrder[i]))));
  }
}

bool Strip::showsState() const { return !readouts.front()->text().isEmpty(); }

bool Strip::shows(const StatePoint& point) const {
  for (std::size_t i = 0; i < readoutFields.size(); ++i) {
    if (readouts[i]->text().toStdString() != showValue(point.at(shownOrder[i]))) return false;
  }
  return true;
}

void Strip::emptyReadouts(bool dewPointToo) {
  for (std::size_t i = 0; i < dewPointField; ++i) readouts[i]->clear();
  if (dewPointToo) readouts[dewPointField]->clear();
}

void Strip::emptyInputs() {
  for (QLineEdit* box : {rhValue, wbValue, hValue, firstValue, secondValue, vValue, pointId}) box->clear();
}

void Strip::waitCue(bool on) {
  status->setText(on ? QStringLiteral("PLEASE WAIT") : QString());
  status->setStyleSheet(on ? QStringLiteral("background: rgb(255, 255, 0); color: black") : QString());
  status->repaint();
}

int Strip::fit(int width, int height) {
  constexpr int largest = 20;  // half points
  constexpr int smallest = 15;
  for (int halfPoints = largest; halfPoints >= smallest; --halfPoints) {
    useFont(halfPoints / 2.0);
    layout()->activate();
    const QSize needed = layout()->minimumSize();
    if (needed.width() <= width && needed.height() <= height) break;
  }
  return layout()->minimumSize().height();
}

void Strip::useFont(double points) {
  constexpr int frame = 7;  // above and below the text of a box
  constexpr int typedDigits = 7;
  QFont font = this->font();
  font.setPointSizeF(points);
  setFont(font);
  font.setBold(true);
  exitButton->setFont(font);
  const QFontMetrics metrics = fontMetrics();
  const int controlHeight = metrics.height() + frame;
  for (std::size_t i = 0; i < readoutFields.size(); ++i) {
    readouts[i]->setMinimumWidth(roomFor(metrics, readoutFields[i].digits));
  }
  for (QLineEdit* box : {firstValue, secondValue, rhValue, wbValue, hValue, vValue, pointId}) {
    box->setFixedHeight(controlHeight);
    box->setMinimumWidth(roomFor(metrics, typedDigits));
  }
  for (ListBox* list : {firstKind, secondKind}) fitList(*list, kindTexts, controlHeight);
  for (ListBox* list : {lowDb, highDb}) fitList(*list, dryBulbLimits, controlHeight);
  for (ListBox* list : {lowHr, highHr}) fitList(*list, humidityRatioLimits, controlHeight);
  for (ListBox* list : {lowDb, highDb, lowHr, highHr}) list->setFixedWidth(lowHr->minimumWidth());
  for (auto* button : findChildren<QPushButton*>()) fitButton(*button, controlHeight);
}

}  // namespace moistair
