#include "session/locate.h"

#include <gtest/gtest.h>

#include <string_view>

#include "engine/moistair.h"
#include "engine/openfinders.h"

using namespace moistair;

TEST(LocatePoint, RefusalsInTheirOrder) {
  using enum PropertyKind;
  const struct {
    const char* name;
    PairInput input;
    bool chartstands;
    const char* message;
  } rows[] = {
      {"one kind twice, boxes empty, no chart", {db, db, "", ""}, false, "Two parameters must be diffrent"},
      {"no kind twice", {std::nullopt, std::nullopt, "75", "62.5"}, true, "Two parameters must be diffrent"},
      {"refused pair before the boxes",
       {w, dp, "", ""},
       false,
       "combination of Humidity ration and dew point not feasible"},
      {"refused pair in the other order",
       {dp, w, "50", ".01"},
       true,
       "combination of Humidity ration and dew point not feasible"},
      {"first box empty, no chart",
       {db, wb, "", "62.5"},
       false,
       "None of the two data input boxes can not be blank for locating point"},
      {"second box empty",
       {db, wb, "75", ""},
       true,
       "None of the two data input boxes can not be blank for locating point"},
      {"no chart, valid input", {db, wb, "75", "62.5"}, false, "First draw axis as per latest chart limits"},
      {"no chart, hopeless input", {wb, h, "62.5", "28"}, false, "First draw axis as per latest chart limits"},
      {"wet bulb with enthalpy",
       {wb, h, "62.5", "28"},
       true,
       "The point as per input parameters are either out of chart limits or the such point is not feasible"},
      {"relative humidity with humidity ratio",
       {rh, w, "50", "30"},
       true,
       "The point as per input parameters are either out of chart limits or the such point is not feasible"},
      {"texts that are no numbers",
       {db, wb, "abc", "-"},
       true,
       "The point as per input parameters are either out of chart limits or the such point is not feasible"},
      {"one kind missing",
       {db, std::nullopt, "75", "62.5"},
       true,
       "The point as per input parameters are either out of chart limits or the such point is not feasible"},
      {"blanks are not empty",
       {db, wb, " ", "62.5"},
       true,
       "The point as per input parameters are either out of chart limits or the such point is not feasible"},
      {"located", {db, wb, "75", "62.5"}, true, ""},
      {"located in the other order", {wb, db, "62.5", "75"}, true, ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    SolverFields fields;
    const Location location = locatepoint(
        row.input, [&] { return row.chartstands; }, defaultpressure, openrangefinders(), fields);
    EXPECT_EQ(std::string_view(locatemessage(location.fault)), row.message);
  }
}

TEST(LocatePoint, TheChartIsAskedForOnlyBehindTheInputRules) {
  SolverFields fields;
  int asked = 0;
  const auto chartstands = [&] { return ++asked > 0; };
  locatepoint({PropertyKind::db, PropertyKind::wb, "", ""}, chartstands, defaultpressure, openrangefinders(), fields);
  EXPECT_EQ(asked, 0);
  locatepoint({PropertyKind::db, PropertyKind::wb, "75", "60"}, chartstands, defaultpressure, openrangefinders(),
              fields);
  EXPECT_EQ(asked, 1);
}

TEST(LocatePoint, SameStateAsTheLiveRow) {
  SolverFields fields, livefields;
  const Location location = locatepoint(
      {PropertyKind::db, PropertyKind::rh, "75", "50"}, [] { return true; }, 24.9, openrangefinders(), fields);
  const Resolution live =
      resolvepair({PropertyKind::db, 75}, {PropertyKind::rh, 50}, 24.9, openrangefinders(), livefields);
  EXPECT_EQ(location.point.wb, live.point.wb);
  EXPECT_EQ(location.point.h, live.point.h);
  EXPECT_EQ(location.point.pv, live.point.pv);
}
