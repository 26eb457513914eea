#include "model/pointreport.h"

#include <gtest/gtest.h>

#include "text/printzones.h"

using namespace moistair;

TEST(PrintZones, StepsAlwaysMoveOn) {
  EXPECT_EQ(zoneLine("abc", 1, "75"), "abc" + std::string(11, ' ') + "75");
  EXPECT_EQ(zoneLine(std::string(13, 'x'), 1, "75"), std::string(13, 'x') + " 75") << "the last column of a zone";
  EXPECT_EQ(zoneLine(std::string(14, 'x'), 1, "75"), std::string(14, 'x') + std::string(14, ' ') + "75");
}

TEST(PointReport, SaysNilForNoIdentification) {
  EXPECT_EQ(fillReport({}, "", {}).identification, "Nil");
  EXPECT_EQ(fillReport({}, " ", {}).identification, " ") << "a blank is an identification";
}

TEST(PointReport, WithoutAPressureUnitItsValueStandsInColumn43) {
  const PressureEntry noUnit{std::nullopt, "30abc"};
  EXPECT_EQ(pointRecord(fillReport({}, "", noUnit))[2], std::string(42, ' ') + "30abc");
}

TEST(PointReport, ReadsBackAsShown) {
  StatePoint point;
  point.w = 0.00929318;
  point.dp = 55.24572391;
  point.h = -1;
  const PointReport report = fillReport(point, "", {});
  EXPECT_EQ(pointRecord(report)[6], "Specific enthalpy (btu/lb)" + std::string(30, ' ')) << "blanks up to no value";
  const StatePoint shown = readReport(report);
  EXPECT_EQ(shown.w, 0.0092932);
  EXPECT_EQ(shown.dp, 55.2457239);
  EXPECT_EQ(shown.h, 0);
}
