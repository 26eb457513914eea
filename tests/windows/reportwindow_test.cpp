#include "session/reportwindow.h"

#include <QPushButton>
#include <QSignalSpy>

#include "engine/moistair.h"
#include "engine/openfinders.h"
#include "support.h"

using namespace moistair;
using namespace moistair::windowtest;

namespace {

PointReport report(const char* identification, const char* entered = "5000") {
  SolverFields fields;
  const StatePoint point =
      resolvepair(PropertyKind::db, "75", PropertyKind::wb, "62.5", defaultpressure, openrangefinders(), fields).point;
  return fillreport(point, identification, "3", entered);
}

}  // namespace

TEST(ReportWindow, EveryLabelByItsName) {
  ReportWindow window(nullptr, report("A & <b>B</b>"));
  const struct {
    const char *name, *text;
  } rows[] = {
      {"Label17", "Point Id"},
      {"Label16", "A & <b>B</b>"},
      {"Label15", "Properties of the specified point are as below:"},
      {"Label20", "Site elevation (ft)"},
      {"Label21", "5000"},
      {"Label1", "Dry bulb temp (Deg F)"},
      {"Label7", "75.0000000"},
      {"Label2", "Wet bulb temp (Deg F)"},
      {"Label8", "62.5000000"},
      {"Label3", "Relative humidity (%)"},
      {"Label9", "50.3032182"},
      {"Label4", "Specific enthalpy (btu/lb)"},
      {"Label10", "28.1695563"},
      {"Label5", "Specific volume (cuf/lb)"},
      {"Label11", "13.6751968"},
      {"Label6", "Humidity ratio (lb/lb of air)"},
      {"Label12", ".0092932"},
      {"Label14", "Dew point (Deg F)"},
      {"Label13", "55.2457239"},
      {"Label18", "Vapor pressure (In Hg)"},
      {"Label19", ".4404820"},
      {"Command3", "Save data"},
      {"Command1", "Locate point on the chart"},
      {"Command2", "Exit and return to chart"},
  };
  EXPECT_EQ(window.objectName().toStdString(), "Form3");
  EXPECT_EQ(window.windowTitle().toStdString(), "Locate point");
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(text(window, row.name), row.text);
  }
}

TEST(ReportWindow, EachWayOnTellsOnce) {
  ReportWindow window(nullptr, report("A"));
  window.show();
  QSignalSpy saved(&window, &ReportWindow::savechosen);
  QSignalSpy marked(&window, &ReportWindow::markchosen);
  QSignalSpy left(&window, &ReportWindow::left);
  click(window, "Command3");
  EXPECT_EQ(saved.count(), 1);
  EXPECT_TRUE(window.isVisible());
  click(window, "Command1");
  EXPECT_EQ(marked.count(), 1);
  click(window, "Command2");
  EXPECT_EQ(left.count(), 1);
  QTest::keyClick(&window, Qt::Key_Escape);
  EXPECT_EQ(left.count(), 2);
  window.close();
  EXPECT_EQ(left.count(), 3);
  EXPECT_EQ(saved.count(), 1);
  EXPECT_EQ(marked.count(), 1);
}

TEST(ReportWindow, TypedTextsOfAnyLengthDoNotWidenIt) {
  const std::string endless(10'000, 'W');
  ReportWindow usual(nullptr, report("A"));
  ReportWindow window(nullptr, report(endless.c_str(), endless.c_str()));
  window.show();
  EXPECT_EQ(window.sizeHint(), usual.sizeHint());
  EXPECT_EQ(text(window, "Label16"), endless);
  EXPECT_EQ(window.report().pressure, endless);
}

TEST(ReportWindow, ButtonsFollowEachOtherInTabOrder) {
  ReportWindow window(nullptr, report("A"));
  window.show();
  control<QPushButton>(window, "Command1").setFocus();
  for (const char* next : {"Command2", "Command3", "Command1"}) {
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget()->objectName().toStdString(), next);
  }
}
