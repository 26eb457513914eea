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
    {{"Label17", identificationCaption, "", {0, 0}, 18}},
    {{"Label16", "", "", {0, 1}, 17}, &PointReport::identification},
    {{"Label15", reportTitle, "", {1, 0, 1, 2}, 16}},
    {{"Label20", "", "", {2, 0}, 21}, &PointReport::pressureCaption},
    {{"Label21", "", "", {2, 1}, 22}, &PointReport::pressure},
};

/// Layout names and tab places of a property's caption and of its value.
struct PropertyLabels {
  const char* caption;
  int captionTab;
  const char* value;
  int valueTab;
};

/// In the order in which properties are shown.
constexpr std::array<PropertyLabels, shownOrder.size()> propertyLabels = {{
    {"Label1", 0, "Label7", 6},
    {"Label2", 1, "Label8", 7},
    {"Label3", 2, "Label9", 8},
    {"Label4", 3, "Label10", 9},
    {"Label5", 4, "Label11", 10},
    {"Label6", 5, "Label12", 11},
    {"Label14", 13, "Label13", 12},
    {"Label18", 19, "Label19", 20},
}};
constexpr int firstProperty = 3;  // row of the grid

constexpr QSize usualSize{498, 517};
constexpr int columnGap = 24;

constexpr Control saveButton{"Command3", "Save data", "", {0, 0}, 23};
constexpr Control markButton{"Command1", "Locate point on the chart", "", {0, 1}, 14};
constexpr Control returnButton{"Command2", "Exit and return to chart", "", {0, 2}, 15};

/// Whether a user typed it, so that it can have any length.
bool typed(std::string PointReport::*text) {
  return text == &PointReport::identification || text == &PointReport::pressure;
}

QLabel* makeLabel(ControlMaker& maker, QGridLayout& grid, const ReportLabel& row, const PointReport& report) {
  QLabel* label = typed(row.text) ? maker.add<ElidedLabel>(grid, row.control) : maker.add<QLabel>(grid, row.control);
  if (row.text == nullptr) return label;
  label->setText(QString::fromStdString(report.*row.text));
  if (!typed(row.text)) makeReadout(*label);
  return label;
}

}  // namespace

ReportWindow::ReportWindow(QWidget* main, PointReport report)
    : Dialog(main, QStringLiteral("Form3"), QStringLiteral("Locate point")), report_(std::move(report)) {
  ControlMaker maker(*this);
  auto* rows = new QGridLayout;
  for (const ReportLabel& row : labels) makeLabel(maker, *rows, row, report_);
  for (std::size_t i = 0; i < shownOrder.size(); ++i) {
    const auto& [caption, captionTab, value, valueTab] = propertyLabels[i];
    const Property& property = propertyOf(shownOrder[i]);
    const int row = firstProperty + static_cast<int>(i);
    maker.add<QLabel>(*rows, {caption, property.caption, "", {row, 0}, captionTab});
    auto* label = maker.add<QLabel>(*rows, {value, "", "", {row, 1}, valueTab});
    label->setText(QString::fromStdString(report_.*property.text));
    makeReadout(*label);
  }
  rows->setColumnStretch(1, 1);
  rows->setHorizontalSpacing(columnGap);
  auto* buttons = new QGridLayout;
  auto* save = maker.add<QPushButton>(*buttons, saveButton);
  auto* mark = maker.add<QPushButton>(*buttons, markButton);
  auto* back = maker.add<QPushButton>(*buttons, returnButton);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(columnGap, columnGap / 2, columnGap, columnGap / 2);
  layout->addLayout(rows, 1);
  layout->addSpacing(columnGap / 2);
  layout->addLayout(buttons);
  resize(sizeHint().expandedTo(usualSize));
  maker.setTabOrder();
  connect(save, &QPushButton::clicked, this, &ReportWindow::saveChosen);
  connect(mark, &QPushButton::clicked, this, &ReportWindow::markChosen);
  connect(back, &QPushButton::clicked, this, &ReportWindow::leave);
}

void ReportWindow::leave() { Q_EMIT left(); }

}  // namespace moistair
