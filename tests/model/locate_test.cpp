#include "model/locate.h"

#include <gtest/gtest.h>

#include "engine/moistair.h"
#include "engine/openfinders.h"

using namespace moistair;

TEST(LocatePoint, RefusalsInTheirOrder) {
  using enum PropertyKind;
  constexpr auto noKind = std::nullopt;
  constexpr std::string_view sameKind = "Two parameters must be diffrent";
  constexpr std::string_view wWithDp = "combination of Humidity ration and dew point not feasible";
  constexpr std::string_view blank = "None of the two data input boxes can not be blank for locating point";
  constexpr std::string_view noChart = "First draw axis as per latest chart limits";
  constexpr std::string_view noPoint =
      "The point as per input parameters are either out of chart limits or the such point is not feasible";
  const struct {
    const char* name;
    PairInput input;
    bool hasCurrentChart;
    std::string_view message;
  } rows[] = {
      {"one kind twice, boxes empty, no chart", {db, db, "", ""}, false, sameKind},
      {"no kind twice", {noKind, noKind, "75", "62.5"}, true, sameKind},
      {"refused pair before the boxes", {w, dp, "", ""}, false, wWithDp},
      {"first box empty, no chart", {db, wb, "", "62.5"}, false, blank},
      {"no chart, hopeless input", {wb, h, "62.5", "28"}, false, noChart},
      {"wet bulb with enthalpy", {wb, h, "62.5", "28"}, true, noPoint},
      {"blanks are not empty", {db, wb, " ", "62.5"}, true, noPoint},
      {"located", {wb, db, "62.5", "75"}, true, ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    SolverFields fields;
    bool asked = false;
    const auto hasCurrentChart = [&] { return asked = true, row.hasCurrentChart; };
    const Location location = locatePoint(row.input, hasCurrentChart, 24.8961078, openRangeFinders(), fields);
    const Error error = location.outcome ? Error{} : location.outcome.error();
    EXPECT_EQ(error.words, row.message);
    EXPECT_EQ(error.code == ErrorCode::waiting, row.message == noChart);
    const bool inputRule = row.message == sameKind || row.message == wWithDp || row.message == blank;
    EXPECT_EQ(asked, !inputRule) << "the chart is asked for behind the input rules";
    EXPECT_NEAR(location.resolution.point.h, row.message.empty() ? 30.8876764 : location.resolution.point.h, 5e-8);
  }
}
