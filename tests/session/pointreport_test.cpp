#include "session/pointreport.h"

#include <gtest/gtest.h>

#include "engine/moistair.h"
#include "engine/openfinders.h"
#include "session/printzones.h"

using namespace moistair;

namespace {

StatePoint stateof(const char* db, const char* wb, double atm) {
  SolverFields fields;
  return resolvepair(PropertyKind::db, db, PropertyKind::wb, wb, atm, openrangefinders(), fields).point;
}

}  // namespace

TEST(PrintZones, StepsAlwaysMoveOn) {
  const struct {
    const char* name;
    std::string caption;
    int steps;
    std::size_t valuecolumn;
  } rows[] = {
      {"no step", "abc", 0, 4},
      {"from within a zone", "abc", 1, 15},
      {"from the start of a zone", std::string(14, 'x'), 1, 29},
      {"from the last column of a zone", std::string(13, 'x'), 1, 15},
      {"shortest caption of three steps", std::string(14, 'x'), 3, 57},
      {"longest caption of three steps", std::string(27, 'x'), 3, 57},
      {"shortest caption of two steps", std::string(28, 'x'), 2, 57},
      {"longest caption of two steps", std::string(41, 'x'), 2, 57},
      {"no caption", "", 3, 43},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const std::string blanks(row.valuecolumn - 1 - row.caption.size(), ' ');
    EXPECT_EQ(zoneline(row.caption, row.steps, "75 "), row.caption + blanks + "75 ");
  }
}

TEST(PointReport, TextsOfAReferenceState) {
  const PointReport report = fillreport(stateof("75", "62.5", defaultpressure), "A", "0", "29.92126");
  const struct {
    const char* name;
    std::string text;
    const char* expected;
  } rows[] = {
      {"dry bulb", report.db, "75.0000000"},
      {"wet bulb", report.wb, "62.5000000"},
      {"relative humidity", report.rh, "50.3032182"},
      {"enthalpy", report.h, "28.1695563"},
      {"volume", report.v, "13.6751968"},
      {"humidity ratio", report.w, ".0092932"},
      {"dew point", report.dp, "55.2457239"},
      {"vapour pressure", report.pv, ".4404820"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(row.text, row.expected);
  }
}

TEST(PointReport, IdentificationAndPressure) {
  const struct {
    const char* name;
    const char *identification, *mode, *entered;
    const char *shownidentification, *caption, *pressure;
  } rows[] = {
      {"no identification", "", "0", "29.92126", "Nil", "Atmos. pr (in Hg)", "29.92126"},
      {"a blank is an identification", " ", "1", "30", " ", "Atmos. pr (in Hg)", "30"},
      {"pounds as typed", "B", "2", "14.70", "B", "Atmos. pr (Pounds/sq inch)", "14.70"},
      {"elevation", "B", "3", "5000", "B", "Site elevation (ft)", "5000"},
      {"no unit selected", "B", "-1", "30abc", "B", "", "30abc"},
      {"minus one is left out", "B", "-1", "-1", "B", "", ""},
      {"minus one by another text", "B", "-1", " -1.0", "B", "", ""},
      {"near minus one", "B", "-1", "-1.01", "B", "", "-1.01"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const PointReport report = fillreport({}, row.identification, row.mode, row.entered);
    EXPECT_EQ(report.identification, row.shownidentification);
    EXPECT_EQ(report.pressurecaption, row.caption);
    EXPECT_EQ(report.pressure, row.pressure);
  }
}

TEST(PointReport, ReadsBackAsShown) {
  StatePoint point = stateof("75", "62.5", defaultpressure);
  point.h = -1;
  const PointReport report = fillreport(point, "", "0", "29.92126");
  EXPECT_EQ(report.h, "");
  const StatePoint shown = readreport(report);
  EXPECT_EQ(shown.w, 0.0092932);
  EXPECT_EQ(shown.pv, 0.440482);
  EXPECT_EQ(shown.dp, 55.2457239);
  EXPECT_EQ(shown.h, 0);
}

TEST(PointRecord, TwelveLinesWithValuesInColumn57) {
  PointReport report = fillreport(stateof("75", "62.5", defaultpressure), "", "2", "14.7");
  report.dp = "";
  const std::vector<std::string> lines = pointrecord(report);
  ASSERT_EQ(lines.size(), 12U);
  EXPECT_EQ(lines[1], "Point Id" + std::string(48, ' ') + "Nil");
  EXPECT_EQ(lines[2], "Atmos. pr (Pounds/sq inch)" + std::string(30, ' ') + "14.7");
  EXPECT_EQ(lines[9], "Dew point (Deg F)" + std::string(39, ' ')) << "a blank value leaves the zone steps";
}

TEST(PointRecord, WithoutAPressureCaptionThePressureStandsInColumn43) {
  EXPECT_EQ(pointrecord(fillreport({}, "A", "-1", "30"))[2], std::string(42, ' ') + "30");
}
