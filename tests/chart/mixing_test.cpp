// What surrounds the digits of a mixture, which are recorded: what a stream keeps, what is refused, what is saved.
#include "chart/drawing.h"
#include "chart/mixingline.h"
#include "data/rows.h"
#include "log/mixingblock.h"
#include "support/charts.h"

namespace moistair::test {
namespace {

/// 1000 acfm at 75 and 62.5 deg F, 500 acfm at 95 and 75 deg F.
const std::string one = "db,75,wb,62.5,1000", two = "db,95,wb,75,500";

/// A problem of two streams as they are typed: two kinds with their values, and the flow.
MixingProblem problemOf(const std::string& first, const std::string& second, const PressureEntry& entry = {}) {
  MixingProblem problem = data::mixtureOf(data::fieldsOf("29.92126," + first + "," + second));
  problem.pressure.entry = entry;
  for (const std::size_t stream : {0U, 1U}) resolveStream(problem, stream);
  mixStreams(problem);
  return problem;
}

TEST(MixingProblem, AStreamThatIsNoneAnyMoreLeavesTheOtherAlone) {
  MixingProblem problem = problemOf(one, two);
  problem.streams[0].value2 = "80";
  resolveStream(problem, 0);
  mixStreams(problem);
  EXPECT_FALSE(problem.streams[0].complete || problem.savable);
  for (const ReadoutRow& row : readoutRows) {
    EXPECT_EQ(problem.mixed.*row.text, "") << captionOf(row, problem);
    EXPECT_EQ(problem.streams[0].*row.text, row.text == &AirStream::flow ? "1000" : "") << captionOf(row, problem);
  }
  EXPECT_EQ(problem.streams[1].dp, "67.1005926");
  EXPECT_EQ(problem.pressureCaption, "Atmos. pr (in Hg)") << "the caption outlives the stream";
}

/// The window's two streams search with one set of fields: where nothing of a line is seen, the range that the other
/// stream has left is searched.
TEST(MixingProblem, TheStreamsShareTheirSearchedRange) {
  const char* unseen = "w,0.0299,v,15.306753,500";
  EXPECT_FALSE(problemOf(one, unseen).streams[1].complete);
  EXPECT_TRUE(problemOf("w,0.025,v,15.08,1000", unseen).streams[1].complete);
}

TEST(MixingProblem, AbsurdInputEnds) {
  for (const char* atm : {"0", "-5", "1e300", "1e-300"}) {
    for (const char* flow : {"1e308", "1e-308", "1e999"}) {
      SCOPED_TRACE(std::string(atm) + " in Hg, flow " + flow);
      const MixingProblem problem =
          data::mixtureOf({atm, "db", "75", "wb", "62.5", flow, "h", "28", "v", "13.6", flow});
      EXPECT_EQ(problem.savable, !problem.mixed.h.empty());
    }
  }
}

TEST(MixingLine, FirstPointBeyondTheLimitsIsNamed) {
  constexpr const char* stream1 = "The stream1 point as per input parameters is out of chart limits";
  constexpr const char* mixed = "The mixed stream point as per input parameters is out of chart limits";
  constexpr const char* stream2 = "The stream2 point as per input parameters is out of chart limits";
  const std::string unfinished = "db,75,wb,,1000";
  const struct {
    const char* name;
    std::string first, second;
    ChartLimits limits;
    const char* message;  ///< null when the line is drawn
  } rows[] = {
      {"stream 2 beyond the highest dry bulb, the mixture within", one, two, {0, 90, 0, 0.03}, stream2},
      {"both streams beyond", one, two, {0, 70, 0, 0.03}, stream1},
      {"mixture beyond the highest dry bulb", one, two, {0, 80, 0, 0.03}, mixed},
      {"stream 1 below the lowest dry bulb", one, two, {80, 120, 0, 0.03}, stream1},
      {"stream 1 below the lowest humidity ratio", one, two, {0, 120, 0.010, 0.03}, stream1},
      {"mixture above the highest humidity ratio", one, two, {0, 120, 0, 0.010}, mixed},
      {"nothing typed in stream 1", unfinished, two, fullLimits, stream1},
      {"nothing typed in stream 2: the mixture comes before it", one, unfinished, fullLimits, mixed},
      {"mixture above saturation", "db,40,wb,40,1000", "db,85,wb,85,1000", fullLimits, mixed},
      {"a saturated stream is accepted", "db,40,wb,40,500", "db,95,wb,60,500", fullLimits, nullptr},
      {"points on the limits are accepted", one, two, {75, 95, 0.0092932, 0.0142448}, nullptr},
      {"limits turned round hold nothing", one, two, {120, 0, 0, 0.03}, stream1},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    RecordingCanvas canvas;
    EXPECT_STREQ(drawMixingLine(canvas, problemOf(row.first, row.second), areaOf(row.limits)), row.message);
    EXPECT_EQ(canvas.drawing().operations.empty(), row.message != nullptr) << "it is all or nothing";
  }
}

TEST(MixingBlock, HoldsAllThatIsShownInColumn57) {
  const MixingProblem problem = problemOf("db,75,wb,62.5,1000.0", "db,95,wb,75, 500acfm", {PressureUnit::psi, "14.70"});
  EXPECT_EQ(problem.streams[1].flow, " 500acfm") << "saved as typed";
  EXPECT_EQ(problem.mixed.pressure, "14.70");
  EXPECT_EQ(problem.mixed.dp, "59.5601671");
  const char* captions[] = {"Air flow rate (acfm)",     "Atmos. pr (Pounds/sq inch)",    "Dry bulb temp (Deg F)",
                            "Wet bulb temp (Deg F)",    "Relative humidity (%)",         "Specific enthalpy (btu/lb)",
                            "Specific volume (cuf/lb)", "Humidity ratio (lb/lb of air)", "Dew point (Deg F)",
                            "Vapor pressure (In Hg)"};
  using S = AirStream;
  constexpr std::string S::*texts[] = {&S::flow, &S::pressure, &S::db, &S::wb, &S::rh,
                                       &S::h,    &S::v,        &S::w,  &S::dp, &S::pv};
  std::vector<std::string> expected = {std::string(34, '-')};
  const auto column = [&](const char* head, const AirStream& stream, const std::string& behind) {
    expected.emplace_back(head);
    for (std::size_t row = 0; row < std::size(texts); ++row) {
      const std::string caption = captions[row];
      expected.push_back(caption + std::string(56 - caption.size(), ' ') + stream.*texts[row]);
    }
    expected.push_back(behind);
  };
  column("Stream 1", problem.streams[0], "");
  column("Steram 2", problem.streams[1], "");
  column("Mixed stream", problem.mixed, std::string(29, '-'));
  EXPECT_EQ(mixingBlock(problem), expected);
}

}  // namespace
}  // namespace moistair::test
