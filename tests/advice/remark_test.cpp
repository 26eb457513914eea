#include "advice/remark.h"

#include <gtest/gtest.h>

#include "engine/moistair.h"
#include "engine/openfinders.h"

using namespace moistair;
using enum PropertyKind;

namespace {

TEST(Remarks, SayWhatTheSearchDoesNot) {
  const struct {
    const char* name;
    PairInput input;
    const char* words;
    const char* exact;
  } rows[] = {
      {"a value missed",
       {h, dp, "13.68", "27.65"},
       "this state has dew point 28.72 for the 27.65 given; exact: dry bulb 43.13, wet bulb 36.56",
       "43.1289323 36.5554906"},
      {"in the other order",
       {dp, h, "27.65", "13.68"},
       "this state has dew point 28.72 for the 27.65 given; exact: dry bulb 43.13, wet bulb 36.56",
       "43.1289323 36.5554906"},
      {"both values missed",
       {w, h, "0.002", "11.6"},
       "this state has humidity ratio 0.00212 for the 0.002 given and enthalpy 11.78 for the 11.6 given; exact: dry "
       "bulb "
       "39.35, wet bulb 31.15",
       "39.3460861 31.1520509"},
      {"a dew point in the gap, missed by less than can be seen", {db, dp, "100", "32.1"}, "", ""},
      {"a guard that let a wet bulb of 60 pass",
       {db, rh, "2", "30"},
       "this state has relative humidity 2695.56 for the 30 given; no state has both values: "
       "wet bulb would not be above 0",
       ""},
      {"nothing to say", {db, rh, "75", "50"}, "", ""},
      {"missed by what cannot be seen", {db, h, "75", "28"}, "", ""},
      {"another wet bulb",
       {db, w, "40", "0.00205"},
       "another state has both values: dry bulb 40.00, wet bulb 32.10",
       "40 32.1027739"},
      {"not found by the search",
       {w, v, "0.003", "12.5"},
       "no state found by the search; exact: dry bulb 33.96, wet bulb 30.96",
       "33.9643675 30.9622758"},
      {"beyond the limits of the row",
       {db, h, "119.5", "61.99"},
       "enthalpy: above 0 and up to 61.9; exact: dry bulb 119.50, wet bulb 94.29",
       "119.5 94.2876784"},
      {"saturated air that can be put into the boxes",
       {rh, h, "100", "8"},
       "this state has relative humidity 98.71 for the 100 given; exact: dry bulb 22.53, wet bulb 22.53",
       "22.5292519 22.5292519"},
      {"none", {db, wb, "75", "80"}, "no state found: above saturation", ""},
      {"refused input", {db, db, "75", "75"}, "", ""},
      {"no number", {db, dp, "75", "x"}, "", ""},
      {"no kind", {std::nullopt, dp, "75", "50"}, "", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    SolverFields fields;
    const PairInput& input = row.input;
    const Resolution resolution =
        resolvePair(input.kind1, input.value1, input.kind2, input.value2, defaultPressure, openRangeFinders(), fields);
    const Remark remark = remarkOn(input, defaultPressure, resolution);
    EXPECT_EQ(remark.words, row.words);
    EXPECT_EQ(remark.exact ? numberText(remark.exact->db) + " " + numberText(remark.exact->wb) : "", row.exact);
    if (!remark.exact) continue;
    const Resolution exact =
        resolvePair({db, remark.exact->db}, {wb, remark.exact->wb}, defaultPressure, openRangeFinders(), fields);
    EXPECT_TRUE(exact.resolved());
  }
}

}  // namespace
