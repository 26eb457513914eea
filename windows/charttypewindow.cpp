#include "windows/charttypewindow.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "toolkit/controls.h"

namespace moistair {

namespace {

constexpr Control frame{"Frame1", "", "", {0, 0, 1, 2}, 0};
constexpr Control standardOption{"Option1", "Draw standard chart", "", {0, 0, 1, 1}, 1};
constexpr Control blankOption{"Option2", "Draw blank chart", "", {1, 0, 1, 1}, 2};
constexpr Control drawCommand{"Command1", "Draw chart", "", {1, 0, 1, 1}, 3};
constexpr Control leaveCommand{"Command2", "Exit and return to main chart", "", {1, 1, 1, 1}, 4};

}  // namespace

ChartTypeWindow::ChartTypeWindow() : Dialog(nullptr, QStringLiteral("Form6"), QStringLiteral("Chart type option")) {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(24, 20, 24, 20);
  grid->setSpacing(16);
  ControlMaker make(*this);
  auto* group = make.add<QGroupBox>(*grid, frame);
  group->setTitle(QStringLiteral("Choose type of initial chart"));
  auto* options = new QGridLayout(group);
  options->setContentsMargins(24, 16, 24, 16);
  options->setSpacing(12);
  auto* standard = make.add<QRadioButton>(*options, standardOption);
  make.add<QRadioButton>(*options, blankOption);
  standard->setChecked(true);
  auto* draw = make.add<QPushButton>(*grid, drawCommand);
  auto* exit = make.add<QPushButton>(*grid, leaveCommand);
  draw->setDefault(true);
  make.setTabOrder();
  connect(draw, &QPushButton::clicked, this,
          [this, standard] { Q_EMIT chosen(standard->isChecked() ? ChartType::standard : ChartType::blank); });
  connect(exit, &QPushButton::clicked, this, &ChartTypeWindow::leave);
}

void ChartTypeWindow::leave() { Q_EMIT left(); }

}  // namespace moistair
