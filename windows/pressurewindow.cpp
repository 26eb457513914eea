#include "windows/pressurewindow.h"

#include <QLineEdit>
#include <QPushButton>
#include <algorithm>
#include <array>

#include "toolkit/controls.h"
#include "toolkit/elidedlabel.h"
#include "toolkit/listbox.h"
#include "toolkit/messages.h"
#include "toolkit/tellingline.h"
#include "toolkit/valuebox.h"
#include "windows/notes.h"

namespace moistair {

namespace {

constexpr Control title{"Label3", "Chart atmoshperic pressure setting", "", {0, 0, 1, 3}, 4};
constexpr Control unitcaption{"Label1", "Choose unit", "", {1, 0}, 2};
constexpr Control entrycaption{"Label2", "Input value", "", {1, 1}, 3};
constexpr Control unitlist{"Combo1", "", "", {2, 0}, 0};
constexpr Control entrybox{"Text1", "", "", {2, 1}, 1};
constexpr Control entryunit{"Label4", "", "", {2, 2}, 5};
constexpr Control rangehint{"Label11", "", "", {3, 1}, 13};
constexpr Control entrynote{"note", "", "", {7, 0, 1, 3}, 15};
constexpr Control waitingnote{"waiting", "", "", {9, 0, 1, 3}, 16};
constexpr Control inhgcaption{"Label5", "Inches of Hg", "", {4, 0}, 7};
constexpr Control inhgreadout{"Label8", "", "", {4, 1, 1, 2}, 10};
constexpr Control psicaption{"Label6", "Pound/sq inch", "", {5, 0}, 8};
constexpr Control psireadout{"Label9", "", "", {5, 1, 1, 2}, 11};
constexpr Control feetcaption{"Label7", "Elevation in feet", "", {6, 0}, 9};
constexpr Control feetreadout{"Label10", "", "", {6, 1, 1, 2}, 12};
constexpr Control returnbutton{"Command2", "Return to chart", "", {8, 0}, 14};
constexpr Control setbutton{"Command1", "Set/Change chart atmos. pressure", "", {8, 1, 1, 2}, 6};

constexpr QSize usualsize{488, 348};
constexpr int gap = 24;

constexpr const char* surequestion =
    "If you change the chart atmos pressure your chart,if any, will be cleared and you need to redraw the chart. Are "
    "You Sure ?";
constexpr const char* outofrange = "Atmospheric pressure input out of range, change value";

/// Keeps the controls from moving when the label changes to this text.
void keeproom(QLabel& label, const char* text) {
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
  makeentry(maker, *grid);
  makereadouts(maker, *grid);
  note_ = maker.add<TellingLine>(*grid, entrynote);
  if (!waiting.isEmpty()) {
    auto* label = maker.add<QLabel>(*grid, waitingnote);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setText(waiting);
  }
  auto* set = maker.add<QPushButton>(*grid, setbutton);
  auto* back = maker.add<QPushButton>(*grid, returnbutton);
  set->setDefault(true);
  maker.settaborder();
  connect(unit_, &ListBox::chosen, this, &PressureWindow::showunit);
  connect(entry_, &QLineEdit::textChanged, this, &PressureWindow::showreadouts);
  connect(entry_, &QLineEdit::textChanged, this, &PressureWindow::shownotes);
  connect(unit_, &QComboBox::editTextChanged, this, &PressureWindow::shownotes);
  connect(set, &QPushButton::clicked, this, &PressureWindow::setpressure);
  connect(back, &QPushButton::clicked, this, &PressureWindow::leave);
  unit_->select(static_cast<int>(PressureUnit::standard));
  resize(sizeHint().expandedTo(usualsize));
}

void PressureWindow::makeentry(ControlMaker& maker, QGridLayout& grid) {
  auto* unitname = maker.add<QLabel>(grid, unitcaption);
  auto* entryname = maker.add<QLabel>(grid, entrycaption);
  for (QLabel* name : {unitname, entryname}) name->setAlignment(Qt::AlignBottom);
  unit_ = maker.add<ListBox>(grid, unitlist);
  for (const PressureUnitRow& unit : pressureunits) unit_->fill(std::array{unit.listtext});
  unitname->setBuddy(unit_);
  entry_ = maker.add<ValueBox>(grid, entrybox);
  nameinput(*entry_, entryname->text());
  entryunit_ = maker.add<QLabel>(grid, entryunit);
  for (const PressureUnitRow& unit : pressureunits) keeproom(*entryunit_, unit.entryunit);
  rangehint_ = maker.add<QLabel>(grid, rangehint);
  rangehint_->setAlignment(Qt::AlignTop);
}

void PressureWindow::makereadouts(ControlMaker& maker, QGridLayout& grid) {
  for (const Control& caption : {inhgcaption, psicaption, feetcaption}) maker.add<QLabel>(grid, caption);
  inhg_ = maker.add<ElidedLabel>(grid, inhgreadout);
  psi_ = maker.add<ElidedLabel>(grid, psireadout);
  feet_ = maker.add<ElidedLabel>(grid, feetreadout);
}

void PressureWindow::showunit() {
  const auto chosen = pressureunitat(unit_->selected());
  if (!chosen) return;
  const PressureUnitRow& unit = rowof(*chosen);
  entryunit_->setText(QString::fromUtf8(unit.entryunit));
  rangehint_->setText(QString::fromUtf8(unit.rangehint));
  entry_->setEnabled(chosen != PressureUnit::standard);
  if (chosen == PressureUnit::standard) {
    entry_->setText(QString::fromUtf8(defaultpressuretext));
    showreadouts();  // the text may be the one that stood there in another unit
  } else {
    entry_->clear();
    for (QLabel* readout : {inhg_, psi_, feet_}) readout->clear();
  }
}

PressureEntry PressureWindow::entry() const {
  return {pressureunitat(unit_->selected()), entry_->text().toStdString()};
}

void PressureWindow::showreadouts() {
  const PressureReadouts earlier{inhg_->text().toStdString(), psi_->text().toStdString(), feet_->text().toStdString()};
  const PressureReadouts now = pressurereadouts(entry(), earlier);
  inhg_->setText(QString::fromStdString(now.inhg));
  psi_->setText(QString::fromStdString(now.psi));
  feet_->setText(QString::fromStdString(now.feet));
}

/// What the entry counts as where that is not what it looks like, and a unit that is none of the list.
void PressureWindow::shownotes() {
  const PressureEntry typed = entry();
  const BoxNote unit = typed.unit ? BoxNote{} : BoxNote{nounitchosen, true};
  const BoxNote note = pressurenote(typed);
  setnote(*unit_, unit);
  setnote(*entry_, note);
  tellnote(*note_, unit.empty() ? note : unit);
}

void PressureWindow::setpressure() {
  if (!question(this, QStringLiteral("DELETE"), QString::fromUtf8(surequestion))) return;
  const PressureSetting setting = pressurefor(entry());
  if (setting.inhg) Q_EMIT pressurewritten(*setting.inhg);
  if (setting.accepted) {
    Q_EMIT pressureset(entry());
  } else {
    message(this, QString::fromUtf8(outofrange));
  }
}

void PressureWindow::leave() { Q_EMIT left(); }

}  // namespace moistair
