#include "windows/reportwindow.h"

#include <QPushButton>
#include <QVBoxLayout>

#include "toolkit/controls.h"
#include "toolkit/elidedlabel.h"

namespace moistair {

namespace {

struct ReportLabel {
  Control control;
  std::string PointReport::*text = nullptr;  ///< what it shows of the report; none for a fixed caption
};

constexpr ReportLabel labels[] = {
    {{"Label17", identificationcaption, "", {0, 0}, 18}},
    {{"Label16", "", "", {0, 1}, 17}, &PointReport::identification},
    {{"Label15", reporttitle, "", {1, 0, 1, 2}, 16}},
    {{"Label20", "", "", {2, 0}, 21}, &PointReport::pressurecaption},
    {{"Label21", "", "", {2, 1}, 22}, &PointReport::pressure},
};

/// Layout names and tab places of a property's caption and of its value.
struct PropertyLabels {
  const char* caption;
  int captiontab;
  const char* value;
  int valuetab;
};

/// In the order in which properties are shown.
constexpr std::array<PropertyLabels, shownOrder.size()> propertylabels = {{
    {"Label1", 0, "Label7", 6},
    {"Label2", 1, "Label8", 7},
    {"Label3", 2, "Label9", 8},
    {"Label4", 3, "Label10", 9},
    {"Label5", 4, "Label11", 10},
    {"Label6", 5, "Label12", 11},
    {"Label14", 13, "Label13", 12},
    {"Label18", 19, "Label19", 20},
}};
constexpr int firstproperty = 3;  // row of the grid

constexpr QSize usualsize{498, 517};
constexpr int columngap = 24;

constexpr Control savebutton{"Command3", "Save data", "", {0, 0}, 23};
constexpr Control markbutton{"Command1", "Locate point on the chart", "", {0, 1}, 14};
constexpr Control returnbutton{"Command2", "Exit and return to chart", "", {0, 2}, 15};

/// Whether a user typed it, so that it can have any length.
bool typed(std::string PointReport::*text) {
  return text == &PointReport::identification || text == &PointReport::pressure;
}

QLabel* makelabel(ControlMaker& maker, QGridLayout& grid, const ReportLabel& row, const PointReport& report) {
  QLabel* label = typed(row.text) ? maker.add<ElidedLabel>(grid, row.control) : maker.add<QLabel>(grid, row.control);
  if (row.text == nullptr) return label;
  label->setText(QString::fromStdString(report.*row.text));
  if (!typed(row.text)) makereadout(*label);
  return label;
}

}  // namespace

ReportWindow::ReportWindow(QWidget* main, PointReport report)
    : Dialog(main, QStringLiteral("Form3"), QStringLiteral("Locate point")), report_(std::move(report)) {
  ControlMaker maker(*this);
  auto* rows = new QGridLayout;
  for (const ReportLabel& row : labels) makelabel(maker, *rows, row, report_);
  for (std::size_t i = 0; i < shownOrder.size(); ++i) {
    const auto& [caption, captiontab, value, valuetab] = propertylabels[i];
    const Property& property = propertyOf(shownOrder[i]);
    const int row = firstproperty + static_cast<int>(i);
    maker.add<QLabel>(*rows, {caption, property.caption, "", {row, 0}, captiontab});
    auto* label = maker.add<QLabel>(*rows, {value, "", "", {row, 1}, valuetab});
    label->setText(QString::fromStdString(report_.*property.text));
    makereadout(*label);
  }
  rows->setColumnStretch(1, 1);
  rows->setHorizontalSpacing(columngap);
  auto* buttons = new QGridLayout;
  auto* save = maker.add<QPushButton>(*buttons, savebutton);
  auto* mark = maker.add<QPushButton>(*buttons, markbutton);
  auto* back = maker.add<QPushButton>(*buttons, returnbutton);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(columngap, columngap / 2, columngap, columngap / 2);
  layout->addLayout(rows, 1);
  layout->addSpacing(columngap / 2);
  layout->addLayout(buttons);
  resize(sizeHint().expandedTo(usualsize));
  maker.settaborder();
  connect(save, &QPushButton::clicked, this, &ReportWindow::savechosen);
  connect(mark, &QPushButton::clicked, this, &ReportWindow::markchosen);
  connect(back, &QPushButton::clicked, this, &ReportWindow::leave);
}

void ReportWindow::leave() { Q_EMIT left(); }

}  // namespace moistair
