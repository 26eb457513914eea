#include "mixing/mixingproblem.h"

#include "support/problems.h"

namespace moistair::test {
namespace {

using enum PropertyKind;
using Column = std::vector<std::string>;

constexpr const char* inhg = "Atmos. pr (in Hg)";

/// The texts of a column from the flow downwards.
Column texts(const AirStream& stream) {
  Column column;
  for (const ReadoutRow& row : readoutrows) column.push_back(stream.*row.text);
  return column;
}

/// A column in which nothing stands but perhaps a flow.
Column blank(const std::string& flow = "") {
  Column column(readoutcount);
  column[0] = flow;
  return column;
}

TEST(MixingProblem, ReferenceCaseDigitForDigit) {
  const MixingProblem problem = problemof(one, two);
  EXPECT_EQ(texts(problem.streams[0]),
            (Column{"1000", "29.92126", "75.0000000", "62.5000000", "50.3032182", "28.1695563", "13.6751968",
                    ".0092932", "55.2457239", ".4404820", ".8756536", "73.1250902", ".6795666", "73.8046568"}));
  EXPECT_EQ(texts(problem.streams[1]),
            (Column{"500", "29.92126", "95.0000000", "75.0000000", "40.3104311", "38.5146205", "14.2978304", ".0142448",
                    "67.1005926", ".6699259", "1.6619170", "34.9703408", ".4981468", "35.4684876"}));
  EXPECT_EQ(texts(problem.mixed),
            (Column{"1500", "29.92126", "81.5312397", "66.9312397", "47.3819943", "31.5274150", "13.8770324",
                    ".0109004", "59.5601671", ".5145064", "1.0858689", "108.0954310", "1.1777134", "109.2731444"}));
  EXPECT_TRUE(problem.savable);
}

TEST(MixingProblem, MixturesOfKnownStreams) {
  using S = AirStream;
  const struct {
    const char* name;
    Typed first, second;
    std::vector<std::pair<std::string AirStream::*, const char*>> mixed;
    double atm = 29.92126;
  } rows[] = {
      {"same state twice: dry bulb from the rounded humidity ratio",
       one,
       drywet("75", "62.5", "500"),
       {{&S::h, "28.1695563"}, {&S::w, ".0092932"}, {&S::db, "75.0000309"}, {&S::wb, "62.5000309"}}},
      {"saturated streams mix to a state above saturation",
       drywet("40", "40", "1000"),
       drywet("85", "85", "1000"),
       {{&S::db, "61.8190878"}, {&S::wb, "62.8190878"}, {&S::rh, "105.4555398"}, {&S::w, ".0152341"}}},
      {"across freezing",
       drywet("20", "15", "800"),
       drywet("70", "60", "1200"),
       {{&S::db, "48.9216143"}, {&S::wb, "44.8216143"}, {&S::h, "17.5428407"}, {&S::w, ".0053584"}}},
      {"the reference streams at a high site",
       one,
       two,
       {{&S::db, "81.5385968"}, {&S::wb, "66.9385968"}, {&S::v, "16.7524820"}, {&S::dp, "60.9501907"}},
       24.9},
      {"a flow too small for a rate leaves the other stream's state",
       drywet("75", "62.5", "0.0000001"),
       two,
       {{&S::h, "38.5146205"}, {&S::w, ".0142448"}, {&S::flow, "500.0000001"}}},
      {"flows are read by the number they begin with",
       drywet("75", "62.5", "12abc"),
       drywet("95", "75", "0.5e1 "),
       {{&S::flow, "17"}}},
      {"a sum of flows that overflows has no value",
       drywet("75", "62.5", "1e308"),
       drywet("95", "75", "1e308"),
       {{&S::flow, ""}}},
      {"too dry for a dew point, otherwise whole", driest, driest, {{&S::dp, ""}, {&S::w, ".0000067"}}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const MixingProblem problem = problemof(row.first, row.second, {row.atm, {}});
    for (const auto& [text, value] : row.mixed) EXPECT_EQ(problem.mixed.*text, value);
    EXPECT_TRUE(problem.savable);
  }
}

TEST(MixingProblem, StreamsAreResolvedWithoutAChart) {
  // The range finders differ from those of the chart, and with them the last digits.
  const MixingProblem problem = problemof({rh, "50.3032182", v, "13.6751968", ""}, {db, "75", dp, "-", ""});
  EXPECT_NEAR(lenientnumber(problem.streams[0].db), 75.00071, 5e-6);
  EXPECT_EQ(problem.streams[1].dp, ".0000000") << "a dew point that is no number counts as zero";
  EXPECT_TRUE(problem.streams[0].complete && problem.streams[1].complete);
  EXPECT_EQ(problem.streams[0].moistrate, ".0000000") << "without a flow the rates are zero";
  EXPECT_EQ(texts(problem.mixed), blank());
}

TEST(MixingProblem, StreamThatCannotBeResolvedIsBlank) {
  const struct {
    const char* name;
    Typed typed;
  } rows[] = {
      {"the same property twice", {db, "75", db, "75", "1000"}},
      {"a value that only begins with a number", {db, "75", wb, "12abc", "1000"}},
      {"wet bulb above dry bulb", {db, "75", wb, "80", "1000"}},
      {"a search without an end", {wb, "50", v, "30", "1000"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    MixingProblem problem = problemof(one, two);
    const Column other = texts(problem.streams[1]);
    type(problem, 0, row.typed);
    EXPECT_FALSE(problem.streams[0].complete || problem.savable);
    EXPECT_EQ(texts(problem.streams[0]), blank("1000"));
    EXPECT_EQ(texts(problem.mixed), blank());
    EXPECT_EQ(texts(problem.streams[1]), other);
    EXPECT_EQ(problem.pressurecaption, inhg) << "the caption outlives the stream";
  }
}

TEST(MixingProblem, FlowsThatDoNotMixBlankOnlyTheMixture) {
  const struct {
    const char *name, *flow1, *flow2;
  } rows[] = {
      {"empty", "1000", ""}, {"zero", "1000", "0"}, {"negative", "1000", "-500"}, {"no rate", "1e-12", "1e-12"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    MixingProblem problem = problemof(drywet("75", "62.5", row.flow1), drywet("95", "75", row.flow2));
    EXPECT_EQ(problem.streams[1].db, "95.0000000");
    EXPECT_EQ(texts(problem.mixed), blank());
    EXPECT_FALSE(problem.savable);
    type(problem, 0, one);
    type(problem, 1, two);
    EXPECT_EQ(problem.mixed.db, "81.5312397") << "a flow typed again mixes again";
  }
}

TEST(MixingProblem, EnteredPressureIsCopiedAsTyped) {
  const struct {
    const char *name, *shown;
  } rows[] = {{"05000.0", "05000.0"}, {"-1", ""}, {"-1.0", ""}, {"-10", "-10"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const MixingProblem problem = problemof(one, two, {29.92126, {PressureUnit::inhg, row.name}});
    EXPECT_EQ(problem.streams[0].pressure, row.shown);
    EXPECT_EQ(problem.mixed.pressure, row.shown);
  }
}

// Whatever can be typed ends, and in an orderly way.
TEST(MixingProblem, AbsurdInputEnds) {
  for (const double atm : {0.0, -5.0, 1e300, 1e-300}) {
    for (const char* flow : {"1e308", "1e-308", "1e999"}) {
      SCOPED_TRACE(testing::Message() << atm << " in Hg, flow " << flow);
      const MixingProblem problem = problemof(drywet("75", "62.5", flow), {h, "28", v, "13.6", flow}, {atm, {}});
      EXPECT_EQ(problem.savable, !problem.mixed.h.empty());
    }
  }
}

}  // namespace
}  // namespace moistair::test
