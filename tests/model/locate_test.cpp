#include "model/locate.h"

#include <gtest/gtest.h>

#include "engine/moistair.h"
#include "engine/openfinders.h"

using namespace moistair;

TEST(LocatePoint, RefusalsInTheirOrder) {
  using enum PropertyKind;
  constexpr auto nokind = std::nullopt;
  constexpr std::string_view samekind = "Two parameters must be diffrent";
  constexpr std::string_view wwithdp = "combination of Humidity ration and dew point not feasible";
  constexpr std::string_view blank = "None of the two data input boxes can not be blank for locating point";
  constexpr std::string_view nochart = "First draw axis as per latest chart limits";
  constexpr std::string_view nopoint =
      "The point as per input parameters are either out of chart limits or the such point is not feasible";
  const struct {
    const char* name;
    PairInput input;
    bool chartstands;
    std::string_view message;
  } rows[] = {
      {"one kind twice, boxes empty, no chart", {db, db, "", ""}, false, samekind},
      {"no kind twice", {nokind, nokind, "75", "62.5"}, true, samekind},
      {"refused pair before the boxes", {w, dp, "", ""}, false, wwithdp},
      {"first box empty, no chart", {db, wb, "", "62.5"}, false, blank},
      {"no chart, hopeless input", {wb, h, "62.5", "28"}, false, nochart},
      {"wet bulb with enthalpy", {wb, h, "62.5", "28"}, true, nopoint},
      {"blanks are not empty", {db, wb, " ", "62.5"}, true, nopoint},
      {"located", {wb, db, "62.5", "75"}, true, ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    SolverFields fields;
    bool asked = false;
    const auto chartstands = [&] { return asked = true, row.chartstands; };
    const Location location = locatepoint(row.input, chartstands, 24.8961078, openrangefinders(), fields);
    EXPECT_EQ(location.refusal ? location.refusal->text : "", row.message);
    EXPECT_EQ(location.refusal && location.refusal->withcancel, row.message == nochart);
    const bool inputrule = row.message == samekind || row.message == wwithdp || row.message == blank;
    EXPECT_EQ(asked, !inputrule) << "the chart is asked for behind the input rules";
    EXPECT_NEAR(location.resolution.point.h, row.message.empty() ? 30.8876764 : location.resolution.point.h, 5e-8);
  }
}
