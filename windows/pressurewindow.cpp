#include "windows/pressurewindow.h"

#include <QLineEdit>
#include <QPushButton>
#include <algorithm>
#include <array>

#include "toolkit/controls.h"
#include "toolkit/elidedlabel.h"
#include "toolkit/listbox.h"
#include "toolkit/messageline.h"
#include "toolkit/messages.h"
#include "toolkit/remembered.h"
#include "toolkit/valuebox.h"
#include "windows/notes.h"

namespace moistair {

namespace {

constexpr Control title{"Label3", "Chart atmoshperic pressure setting", "", {0, 0, 1, 3}, 4};
constexpr Control unitCaption{"Label1", "Choose unit", "", {1, 0}, 2};
constexpr Control entryCaption{"Label2", "Input value", "", {1, 1}, 3};
constexpr Control unitList{"Combo1", "", "", {2, 0}, 0};
constexpr Control entryBox{"Text1", "", "", {2, 1}, 1};
constexpr Control entryUnit{"Label4", "", "", {2, 2}, 5};
constexpr Control rangeHint{"Label11", "", "", {3, 1}, 13};
constexpr Control entryNote{"note", "", "", {7, 0, 1, 3}, 15};
constexpr Control waitingNote{"waiting", "", "", {9, 0, 1, 3}, 16};
constexpr Control inhgCaption{"Label5", "Inches of Hg", "", {4, 0}, 7};
constexpr Control inhgReadout{"Label8", "", "", {4, 1, 1, 2}, 10};
constexpr Control psiCaption{"Label6", "Pound/sq inch", "", {5, 0}, 8};
constexpr Control psiReadout{"Label9", "", "", {5, 1, 1, 2}, 11};
constexpr Control feetCaption{"Label7", "Elevation in feet", "", {6, 0}, 9};
constexpr Control feetReadout{"Label10", "", "", {6, 1, 1, 2}, 12};
constexpr Control returnButton{"Command2", "Return to chart", "", {8, 0}, 14};
constexpr Control setButton{"Command1", "Set/Change chart atmos. pressure", "", {8, 1, 1, 2}, 6};

constexpr QSize usualSize{488, 348};
constexpr int gap = 24;

constexpr const char* sureQuestion =
    "If you change the chart atmos pressure your chart,if any, will be cleared and you need to redraw the chart. Are "
    "You Sure ?";
constexpr const char* outOfRange = "Atmospheric pressure input out of range, change value";

/// Keeps the controls from moving when the label changes to this text.
void keepRoom(QLabel& label, const char* text) {
  const int width = label.fontMetrics().horizontalAdvance(QString::fromUtf8(text));
  label.setMinimumWidth(std::max(label.minimumWidth(), width));
}

}  // namespace

PressureWindow::PressureWindow(QWidget* main, const QString& waiting)
    : Dialog(main, QStringLiteral("Form2"), QStringLiteral("Change pressure")) {
  ControlMaker maker(*this);
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(gap, 0, gap, gap);
  grid->setSpacing(gap / 2);
  grid->setRowMinimumHeight(0, 3 * gap);
  grid->setRowMinimumHeight(3, 2 * gap);
  grid->setRowMinimumHeight(7, gap);
  grid->setRowStretch(7, 1);
  for (const int column : {0, 1}) grid->setColumnStretch(column, 1);
  maker.add<QLabel>(*grid, title)->setAlignment(Qt::AlignCenter);
  makeEntry(maker, *grid);
  makeReadouts(maker, *grid);
  note_ = maker.add<MessageLine>(*grid, entryNote);
  if (!waiting.isEmpty()) {
    auto* label = maker.add<QLabel>(*grid, waitingNote);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setText(waiting);
  }
  auto* set = maker.add<QPushButton>(*grid, setButton);
  auto* back = maker.add<QPushButton>(*grid, returnButton);
  set->setDefault(true);
  maker.setTabOrder();
  offerElevation(*grid);  // behind all others, as in the tab order
  connect(unit_, &ListBox::chosen, this, &PressureWindow::showUnit);
  connect(entry_, &QLineEdit::textChanged, this, &PressureWindow::showReadouts);
  connect(entry_, &QLineEdit::textChanged, this, &PressureWindow::showNotes);
  connect(unit_, &QComboBox::editTextChanged, this, &PressureWindow::showNotes);
  connect(set, &QPushButton::clicked, this, &PressureWindow::setPressure);
  connect(back, &QPushButton::clicked, this, &PressureWindow::leave);
  unit_->select(static_cast<int>(PressureUnit::standard));
  resize(sizeHint().expandedTo(usualSize));
}

void PressureWindow::makeEntry(ControlMaker& maker, QGridLayout& grid) {
  auto* unitName = maker.add<QLabel>(grid, unitCaption);
  auto* entryName = maker.add<QLabel>(grid, entryCaption);
  for (QLabel* name : {unitName, entryName}) name->setAlignment(Qt::AlignBottom);
  unit_ = maker.add<ListBox>(grid, unitList);
  for (const PressureUnitRow& unit : pressureUnits) unit_->fill(std::array{unit.listText});
  unitName->setBuddy(unit_);
  entry_ = maker.add<ValueBox>(grid, entryBox);
  nameInput(*entry_, entryName->text());
  entryUnit_ = maker.add<QLabel>(grid, entryUnit);
  for (const PressureUnitRow& unit : pressureUnits) keepRoom(*entryUnit_, unit.entryUnit);
  rangeHint_ = maker.add<QLabel>(grid, rangeHint);
  rangeHint_->setAlignment(Qt::AlignTop);
}

void PressureWindow::makeReadouts(ControlMaker& maker, QGridLayout& grid) {
  for (const Control& caption : {inhgCaption, psiCaption, feetCaption}) maker.add<QLabel>(grid, caption);
  inhg_ = maker.add<ElidedLabel>(grid, inhgReadout);
  psi_ = maker.add<ElidedLabel>(grid, psiReadout);
  feet_ = maker.add<ElidedLabel>(grid, feetReadout);
}

/// The elevation of the last session's site, for one click.
void PressureWindow::offerElevation(QGridLayout& grid) {
  const QString last = remembered(memory::elevation).toString();
  if (last.isEmpty()) return;
  auto* button = new QPushButton(QStringLiteral("&Last elevation: %1 ft").arg(last), this);
  button->setObjectName(QStringLiteral("lastelevation"));
  button->setAutoDefault(false);
  pressByReturn(*button);
  grid.addWidget(button, grid.rowCount(), 0, 1, grid.columnCount());
  connect(button, &QPushButton::clicked, this, [this, last] {
    unit_->select(static_cast<int>(PressureUnit::elevation));
    entry_->setText(last);
    entry_->setFocus();
  });
}

void PressureWindow::showUnit() {
  const auto chosen = pressureUnitAt(unit_->selected());
  if (!chosen) return;
  const PressureUnitRow& unit = rowOf(*chosen);
  entryUnit_->setText(QString::fromUtf8(unit.entryUnit));
  rangeHint_->setText(QString::fromUtf8(unit.rangeHint));
  entry_->setEnabled(chosen != PressureUnit::standard);
  if (chosen == PressureUnit::standard) {
    entry_->setText(QString::fromUtf8(defaultPressureText));
    showReadouts();  // the text may be the one that stood there in another unit
  } else {
    entry_->clear();
    for (QLabel* readout : {inhg_, psi_, feet_}) readout->clear();
  }
}

PressureEntry PressureWindow::entry() const {
  return {pressureUnitAt(unit_->selected()), entry_->text().toStdString()};
}

void PressureWindow::showReadouts() {
  const PressureReadouts earlier{inhg_->text().toStdString(), psi_->text().toStdString(), feet_->text().toStdString()};
  const PressureReadouts now = pressureReadouts(entry(), earlier);
  inhg_->setText(QString::fromStdString(now.inhg));
  psi_->setText(QString::fromStdString(now.psi));
  feet_->setText(QString::fromStdString(now.feet));
}

/// What the entry counts as where that is not what it looks like, and a unit that is none of the list.
void PressureWindow::showNotes() {
  const PressureEntry typed = entry();
  const BoxNote unit = typed.unit ? BoxNote{} : BoxNote{noUnitChosen, true};
  const BoxNote note = pressureNote(typed);
  setNote(*unit_, unit);
  setNote(*entry_, note);
  showNote(*note_, unit.empty() ? note : unit);
}

void PressureWindow::setPressure() {
  if (!question(this, QStringLiteral("DELETE"), QString::fromUtf8(sureQuestion))) return;
  const PressureSetting setting = pressureFor(entry());
  if (setting.inhg) Q_EMIT pressureWritten(*setting.inhg);
  if (setting.accepted) {
    if (entry().unit == PressureUnit::elevation) remember(memory::elevation, entry_->text());
    Q_EMIT pressureSet(entry());
  } else {
    message(this, QString::fromUtf8(outOfRange));
  }
}

void PressureWindow::leave() { Q_EMIT left(); }

}  // namespace moistair
