#include "windows/reportwindow.h"

#include <QPushButton>

#include "engine/moistair.h"
#include "engine/openfinders.h"
#include "engine/resolver.h"
#include "support.h"

using namespace moistair;
using namespace moistair::windowtest;

namespace {

PointReport report(const char* identification, const char* entered = "5000") {
  SolverFields fields;
  const StatePoint point =
      resolvePair(PropertyKind::db, "75", PropertyKind::wb, "62.5", defaultPressure, openRangeFinders(), fields).point;
  return fillReport(point, identification, {PressureUnit::elevation, entered});
}

}  // namespace

TEST(ReportWindow, LabelsCarryTheirNumbersAndTypedTextIsNoMarkup) {
  ReportWindow window(nullptr, report("A & <b>B</b>"));
  EXPECT_EQ(labels(window, 1, 21),
            "Dry bulb temp (Deg F)|Wet bulb temp (Deg F)|Relative humidity (%)|Specific enthalpy (btu/lb)|"
            "Specific volume (cuf/lb)|Humidity ratio (lb/lb of air)|75.0000000|62.5000000|50.3032182|28.1695563|"
            "13.6751968|.0092932|55.2457239|Dew point (Deg F)|Properties of the specified point are as below:|"
            "A & <b>B</b>|Point Id|Vapor pressure (In Hg)|.4404820|Site elevation (ft)|5000|");
  EXPECT_EQ(control<QLabel>(window, "Label16").textFormat(), Qt::PlainText);
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
  EXPECT_EQ(tabOrder(window), "Command2|Command3|Command1|");
}
