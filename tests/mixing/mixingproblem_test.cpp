#include "mixing/mixingproblem.h"

#include <gtest/gtest.h>

#include <vector>

#include "engine/openfinders.h"
#include "problems.h"

namespace moistair::test {
namespace {

using enum PropertyKind;
using Column = std::array<const char*, readoutcount>;

void expectcolumn(const AirStream& stream, const Column& expected) {
  for (std::size_t row = 0; row < readoutcount; ++row) {
    SCOPED_TRACE(row == 1 ? "pressure" : readoutrows[row].caption);
    EXPECT_EQ(stream.*readoutrows[row].text, expected[row]);
  }
}

bool isblank(const AirStream& stream, std::size_t fromrow) {
  for (std::size_t row = fromrow; row < readoutcount; ++row) {
    if (!(stream.*readoutrows[row].text).empty()) return false;
  }
  return true;
}

TEST(MixingProblem, ReferenceCaseDigitForDigit) {
  const MixingProblem problem = referenceproblem();
  expectcolumn(problem.streams[0],
               {"1000", "29.92126", "75.0000000", "62.5000000", "50.3032182", "28.1695563", "13.6751968", ".0092932",
                "55.2457239", ".4404820", ".8756536", "73.1250902", ".6795666", "73.8046568"});
  expectcolumn(problem.streams[1],
               {"500", "29.92126", "95.0000000", "75.0000000", "40.3104311", "38.5146205", "14.2978304", ".0142448",
                "67.1005926", ".6699259", "1.6619170", "34.9703408", ".4981468", "35.4684876"});
  expectcolumn(problem.mixed,
               {"1500", "29.92126", "81.5312397", "66.9312397", "47.3819943", "31.5274150", "13.8770324", ".0109004",
                "59.5601671", ".5145064", "1.0858689", "108.0954310", "1.1777134", "109.2731444"});
  EXPECT_TRUE(problem.savable);
}

TEST(MixingProblem, MixturesOfKnownStreams) {
  struct Expected {
    std::string AirStream::*text;
    const char* value;
  };
  struct Row {
    const char* name;
    Typed one, two;
    double atm;
    std::vector<Expected> mixed;
  };
  using S = AirStream;
  const std::vector<Row> rows = {
      {"same state twice: dry bulb from the rounded humidity ratio",
       drywet("75", "62.5", "1000"),
       drywet("75", "62.5", "500"),
       29.92126,
       {{&S::h, "28.1695563"}, {&S::w, ".0092932"}, {&S::db, "75.0000309"}, {&S::wb, "62.5000309"}}},
      {"saturated streams mix to a state above saturation",
       drywet("40", "40", "1000"),
       drywet("85", "85", "1000"),
       29.92126,
       {{&S::db, "61.8190878"},
        {&S::wb, "62.8190878"},
        {&S::rh, "105.4555398"},
        {&S::w, ".0152341"},
        {&S::h, "31.4181018"}}},
      {"across freezing",
       drywet("20", "15", "800"),
       drywet("70", "60", "1200"),
       29.92126,
       {{&S::db, "48.9216143"},
        {&S::wb, "44.8216143"},
        {&S::rh, "73.3396283"},
        {&S::h, "17.5428407"},
        {&S::w, ".0053584"},
        {&S::dp, "40.8352387"},
        {&S::flow, "2000"}}},
      {"the reference streams at a high site",
       drywet("75", "62.5", "1000"),
       drywet("95", "75", "500"),
       24.9,
       {{&S::db, "81.5385968"},
        {&S::wb, "66.9385968"},
        {&S::rh, "49.7675340"},
        {&S::h, "34.7515922"},
        {&S::w, ".0138373"},
        {&S::v, "16.7524820"},
        {&S::dp, "60.9501907"}}},
      {"a flow too small for a rate leaves the other stream's state",
       drywet("75", "62.5", "0.0000001"),
       drywet("95", "75", "500"),
       29.92126,
       {{&S::h, "38.5146205"}, {&S::w, ".0142448"}, {&S::flow, "500.0000001"}}},
      {"flows are read by the number they begin with",
       drywet("75", "62.5", "12abc"),
       drywet("95", "75", "0.5e1 "),
       29.92126,
       {{&S::flow, "17"}}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const MixingProblem problem = problemof(row.one, row.two, row.atm);
    EXPECT_TRUE(problem.savable);
    for (const Expected& expected : row.mixed) EXPECT_EQ(problem.mixed.*expected.text, expected.value);
  }
}

TEST(MixingProblem, StreamWithoutFlowIsCompleteWithRatesOfZero) {
  MixingProblem problem = emptyproblem();
  type(problem, 0, drywet("75", "62.5", ""));
  EXPECT_TRUE(problem.streams[0].complete);
  expectcolumn(problem.streams[0],
               {"", "29.92126", "75.0000000", "62.5000000", "50.3032182", "28.1695563", "13.6751968", ".0092932",
                "55.2457239", ".4404820", ".8756536", ".0000000", ".0000000", ".0000000"});
  EXPECT_EQ(problem.pressurecaption, "Atmos. pr (in Hg)");
  EXPECT_TRUE(isblank(problem.mixed, 0));
}

// The range finders differ from those of the chart, and with them the last digits.
TEST(MixingProblem, NestedPairSearchesTheRangeThatKnowsNoChart) {
  MixingProblem problem = emptyproblem();
  type(problem, 0, {rh, "50.3032182", v, "13.6751968", ""});
  EXPECT_NEAR(lenientnumber(problem.streams[0].db), 75.00071, 5e-6);
  EXPECT_NEAR(lenientnumber(problem.streams[0].wb), 62.49989, 5e-6);
  EXPECT_EQ(problem.streams[0].rh, "50.3032182");
  SolverFields fields;
  EXPECT_EQ(resolvepair({rh, 50.3032182}, {v, 13.6751968}, 29.92126, openrangefinders(), fields).iterations, 12);
}

TEST(MixingProblem, StreamThatCannotBeResolvedIsBlank) {
  struct Row {
    const char* name;
    Typed typed;
  };
  const std::vector<Row> rows = {
      {"the same property twice", {db, "75", db, "75", "1000"}},
      {"humidity ratio with dew point", {w, "0.009", dp, "55", "1000"}},
      {"dew point with humidity ratio", {dp, "55", w, "0.009", "1000"}},
      {"first value empty", {db, "", wb, "62.5", "1000"}},
      {"second value empty", {db, "75", wb, "", "1000"}},
      {"a value that only begins with a number", {db, "75", wb, "12abc", "1000"}},
      {"a value beyond its limits", {db, "120.1", wb, "62.5", "1000"}},
      {"wet bulb above dry bulb", {db, "75", wb, "80", "1000"}},
      {"a search without an end", {wb, "50", v, "30", "1000"}},
      {"a nested pair far from any air", {h, "0.01", dp, "119", "1000"}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    MixingProblem problem = referenceproblem();
    const AirStream other = problem.streams[1];
    type(problem, 0, row.typed);
    EXPECT_FALSE(problem.streams[0].complete);
    EXPECT_TRUE(isblank(problem.streams[0], 1));
    EXPECT_TRUE(isblank(problem.mixed, 0));
    EXPECT_FALSE(problem.savable);
    for (const ReadoutRow& readout : readoutrows) EXPECT_EQ(problem.streams[1].*readout.text, other.*readout.text);
    EXPECT_TRUE(problem.streams[1].complete);
    EXPECT_EQ(problem.pressurecaption, "Atmos. pr (in Hg)") << "the caption outlives the stream";
  }
}

TEST(MixingProblem, ListTextThatIsNoPropertyResolvesNothing) {
  MixingProblem problem = referenceproblem();
  problem.streams[0].kind2 = std::nullopt;
  resolvestream(problem, 0);
  mixstreams(problem);
  EXPECT_FALSE(problem.streams[0].complete);
  EXPECT_FALSE(problem.savable);
}

TEST(MixingProblem, DewPointThatIsNoNumberCountsAsZero) {
  MixingProblem problem = emptyproblem();
  type(problem, 0, {db, "75", dp, "-", ""});
  EXPECT_TRUE(problem.streams[0].complete);
  EXPECT_EQ(problem.streams[0].dp, ".0000000");
}

TEST(MixingProblem, FlowsThatDoNotMixBlankOnlyTheMixture) {
  for (const char* flow : {"", "abc", "0", "-500", "1e-12"}) {
    SCOPED_TRACE(flow);
    MixingProblem problem = referenceproblem();
    if (std::string(flow) == "1e-12") type(problem, 0, drywet("75", "62.5", flow));
    type(problem, 1, drywet("95", "75", flow));
    EXPECT_TRUE(problem.streams[1].complete);
    EXPECT_EQ(problem.streams[0].db, "75.0000000");
    EXPECT_EQ(problem.streams[1].db, "95.0000000");
    EXPECT_TRUE(isblank(problem.mixed, 0));
    EXPECT_FALSE(problem.savable);
    type(problem, 0, drywet("75", "62.5", "1000"));
    type(problem, 1, drywet("95", "75", "500"));
    EXPECT_EQ(problem.mixed.db, "81.5312397") << "a flow typed again mixes again";
  }
}

// The wet bulb's grain of a tenth can put the vapour pressure of very dry air below zero.
TEST(MixingProblem, MixtureTooDryForADewPointIsOtherwiseWhole) {
  const MixingProblem problem = problemof(drywet("120", "63.33", "1000"), drywet("120", "63.33", "1000"));
  EXPECT_EQ(problem.streams[0].w, ".0000067");
  EXPECT_LT(lenientnumber(problem.mixed.pv), 0);
  EXPECT_EQ(problem.mixed.dp, "");
  EXPECT_EQ(problem.mixed.w, ".0000067");
  EXPECT_TRUE(problem.savable);
}

TEST(MixingProblem, EnteredPressureIsCopiedAsTyped) {
  struct Row {
    const char* entered;
    const char* shown;
  };
  const std::array<Row, 4> rows = {{{"05000.0", "05000.0"}, {"-1", ""}, {"-1.0", ""}, {"-10", "-10"}}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.entered);
    MixingProblem problem = emptyproblem(29.92126, row.entered);
    type(problem, 0, drywet("75", "62.5", "1000"));
    type(problem, 1, drywet("95", "75", "500"));
    EXPECT_EQ(problem.streams[0].pressure, row.shown);
    EXPECT_EQ(problem.mixed.pressure, row.shown);
  }
}

// Whatever can be typed ends, and in an orderly way.
TEST(MixingProblem, AbsurdInputEnds) {
  for (const double atm : {0.0, -5.0, 1e300, 1e-300}) {
    for (const char* flow : {"1e308", "1e-308", "1e999"}) {
      SCOPED_TRACE(testing::Message() << atm << " in Hg, flow " << flow);
      const MixingProblem problem = problemof(drywet("75", "62.5", flow), {h, "28", v, "13.6", flow}, atm);
      EXPECT_EQ(problem.savable, !problem.mixed.h.empty());
    }
  }
  const MixingProblem problem = problemof(drywet("75", "62.5", "1e308"), drywet("95", "75", "1e308"));
  EXPECT_EQ(problem.mixed.flow, "") << "a sum that overflows has no value";
}

}  // namespace
}  // namespace moistair::test
