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
    {{"Label1", reportrows[0].caption, "", {3, 0}, 0}},
    {{"Label7", "", "", {3, 1}, 6}, reportrows[0].text},
    {{"Label2", reportrows[1].caption, "", {4, 0}, 1}},
    {{"Label8", "", "", {4, 1}, 7}, reportrows[1].text},
    {{"Label3", reportrows[2].caption, "", {5, 0}, 2}},
    {{"Label9", "", "", {5, 1}, 8}, reportrows[2].text},
    {{"Label4", reportrows[3].caption, "", {6, 0}, 3}},
    {{"Label10", "", "", {6, 1}, 9}, reportrows[3].text},
    {{"Label5", reportrows[4].caption, "", {7, 0}, 4}},
    {{"Label11", "", "", {7, 1}, 10}, reportrows[4].text},
    {{"Label6", reportrows[5].caption, "", {8, 0}, 5}},
    {{"Label12", "", "", {8, 1}, 11}, reportrows[5].text},
    {{"Label14", reportrows[6].caption, "", {9, 0}, 13}},
    {{"Label13", "", "", {9, 1}, 12}, reportrows[6].text},
    {{"Label18", reportrows[7].caption, "", {10, 0}, 19}},
    {{"Label19", "", "", {10, 1}, 20}, reportrows[7].text},
};

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
