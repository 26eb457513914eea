#include "session/pointreport.h"

#include <gtest/gtest.h>

#include "session/printzones.h"

using namespace moistair;

TEST(PrintZones, StepsAlwaysMoveOn) {
  EXPECT_EQ(zoneline("abc", 1, "75"), "abc" + std::string(11, ' ') + "75");
  EXPECT_EQ(zoneline(std::string(13, 'x'), 1, "75"), std::string(13, 'x') + " 75") << "the last column of a zone";
  EXPECT_EQ(zoneline(std::string(14, 'x'), 1, "75"), std::string(14, 'x') + std::string(14, ' ') + "75");
}

TEST(PointReport, IdentificationAndPressure) {
  const std::string to43(42, ' '), to57(56, ' ');
  const struct {
    const char* name;
    const char* identification;
    PressureEntry entry;
    const char *shownidentification, *caption, *pressure;
  } rows[] = {
      {"no identification", "", {}, "Nil", "Atmos. pr (in Hg)", "29.92126"},
      {"a blank is an identification", " ", {PressureUnit::inhg, "30"}, " ", "Atmos. pr (in Hg)", "30"},
      {"pounds as typed", "B", {PressureUnit::psi, "14.70"}, "B", "Atmos. pr (Pounds/sq inch)", "14.70"},
      {"elevation", "B", {PressureUnit::elevation, "5000"}, "B", "Site elevation (ft)", "5000"},
      {"no unit selected", "B", {std::nullopt, "30abc"}, "B", "", "30abc"},
      {"minus one is left out", "B", {std::nullopt, " -1.0"}, "B", "", ""},
      {"near minus one", "B", {std::nullopt, "-1.01"}, "B", "", "-1.01"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const PointReport report = fillreport({}, row.identification, row.entry);
    EXPECT_EQ(report.identification, row.shownidentification);
    EXPECT_EQ(report.pressurecaption, row.caption);
    EXPECT_EQ(report.pressure, row.pressure);
    const std::string caption = row.caption;
    EXPECT_EQ(pointrecord(report)[2], caption + (caption.empty() ? to43 : to57.substr(caption.size())) + row.pressure);
  }
}

TEST(PointReport, ReadsBackAsShown) {
  StatePoint point;
  point.w = 0.00929318;
  point.dp = 55.24572391;
  point.h = -1;
  const PointReport report = fillreport(point, "", {});
  EXPECT_EQ(pointrecord(report)[6], "Specific enthalpy (btu/lb)" + std::string(30, ' ')) << "blanks up to no value";
  const StatePoint shown = readreport(report);
  EXPECT_EQ(shown.w, 0.0092932);
  EXPECT_EQ(shown.dp, 55.2457239);
  EXPECT_EQ(shown.h, 0);
}
