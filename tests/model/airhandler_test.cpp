#include "model/airhandler.h"

#include "desk.h"
#include "model/carryover.h"

using namespace moistair;
using namespace moistair::test;

namespace {

using Lines = std::vector<std::string>;

const Lines ofPoint = {"OA: point Outside,scfm=2000", "RA: air db=78,rh=50,acfm=8000  # typed so", "MA: mix OA RA"};

/// A chart with two points and an air handler.
struct Plant : Desk {
  explicit Plant(const Lines& lines = ofPoint) {
    draw();
    point("95", "75", "Outside");
    point("75", "62.5", "A");
    set(lines);
  }
  void set(const Lines& lines) { commands.change(airHandlerChange(document(), lines, "Air handler"), window); }
  Lines lines() const { return airHandlerLines(document()); }
  SolvedSystem solved() const { return solvedAirHandler(document())->system; }
  std::string mistake() const {
    const SolvedSystem system = solved();
    return system.errors.empty() ? "" : system.errors.front().text();
  }
  double mixed() const { return solved().solution.streams.at(mainStream(2)).state.db; }
};

struct Reference {
  const char* name;
  const char* line;
  const char* point;  ///< null for a line that refers to none
  const char* after;  ///< renamed to: North, "roof"
};

const Reference references[] = {
    {"bare", "OA: point Outside,scfm=2000", "Outside", R"(OA: point "North, ""roof""",scfm=2000)"},
    {"blanks and a comment", "OA : POINT  Outside air # as drawn", "Outside air",
     R"(OA : POINT  "North, ""roof""" # as drawn)"},
    {"a blank before the flow", "OA: point Outside scfm=2000", "Outside", R"(OA: point "North, ""roof""" scfm=2000)"},
    {"quotes", R"(OA: point "a ""b"", #c",lbh=1)", R"(a "b", #c)", R"(OA: point "North, ""roof""",lbh=1)"},
    {"no name at all", R"(OA: point "")", "", R"(OA: point "North, ""roof""")"},
    {"another kind", "OA: air db=95,wb=75", nullptr, nullptr},
    {"a step named point", "point: mix OA RA", nullptr, nullptr},
    {"a comment", "# OA: point Outside", nullptr, nullptr},
};

}  // namespace

TEST(AirHandler, RefersToPointsByName) {
  for (const auto& [name, line, point, after] : references) {
    const auto reference = pointReference(line);
    ASSERT_TRUE(reference) << name;
    ASSERT_EQ(reference->has_value(), point != nullptr) << name;
    if (point == nullptr) continue;
    EXPECT_EQ((*reference)->point, point) << name;
    Plant plant({line});
    plant.point("90", "70", point);
    const Entry last = plant.document().entries.back();
    if (std::string(point) == "Outside") plant.commands.change(deletion(plant.document(), {1}), window);
    const auto at = std::find(plant.document().entries.begin(), plant.document().entries.end(), last);
    const auto place = static_cast<std::size_t>(at - plant.document().entries.begin());
    EXPECT_EQ(plant.mistake(), "") << name;
    plant.commands.change(renaming(plant.document(), place, "North, \"roof\""), window);
    EXPECT_EQ(plant.lines(), Lines{after}) << name;
    EXPECT_EQ(plant.mistake(), "") << name;
    plant.commands.undo(window);
    EXPECT_EQ(plant.lines(), Lines{line}) << name;
  }
}

TEST(AirHandler, FollowsItsPoint) {
  Plant plant;
  const double before = plant.mixed();
  EXPECT_NEAR(before, 81.51, 0.01);
  EXPECT_EQ(plant.solved().written.steps[0].given[1].value, 75) << "as typed, not as the search has it";
  AirHandlerCache cache;
  EXPECT_EQ(cache.of(plant.document())->system.solution.streams[4].state.db, before);
  const auto moved = movedTo(plant.document().entries[1], {100, 0.0142}, window);
  plant.commands.change(moving(plant.document(), 1, *moved), window);
  EXPECT_GT(plant.mixed(), before + 0.5);
  EXPECT_EQ(cache.of(plant.document())->system.solution.streams[4].state.db, plant.mixed());
  plant.commands.undo(window);
  EXPECT_EQ(plant.mixed(), before);
  plant.commands.change(renaming(plant.document(), 2, "Outside"), window);
  EXPECT_EQ(plant.mistake(),
            "line 1, OA, point: 2 points are named \"Outside\"; give the one that is meant another name");
  plant.commands.change(deletion(plant.document(), {1, 2}), window);
  EXPECT_EQ(plant.mistake(), "line 1, OA, point: there is no point \"Outside\" on the chart");
  plant.commands.undo(window);
  plant.commands.undo(window);
  EXPECT_EQ(plant.mistake(), "");
}

TEST(AirHandler, IsCarriedOverAndSolvedAtTheNewPressure) {
  Plant plant;
  const double flow = plant.solved().solution.streams[mainStream(1)].flow;
  plant.setPressure({PressureUnit::elevation, "5000"});
  EXPECT_FALSE(airHandlerPlace(plant.document()));
  plant.draw();
  const auto again = [&] {
    const Setting setting = *currentChart(plant.document());
    CarriedOver found =
        carryOver(plant.document().previous, setting, window, airHandlerPlace(plant.document()).has_value());
    plant.commands.change(takingOver(plant.document(), carryOverName, found.entries, found.leftOut), window);
    return found.leftOut.size();
  };
  EXPECT_EQ(again(), 0U);
  EXPECT_EQ(plant.lines(), ofPoint);
  EXPECT_NEAR(plant.solved().solution.streams[mainStream(1)].flow / flow, 0.829, 0.003) << "8000 acfm are less air";
  plant.commands.change(emptying(plant.document()), window);
  plant.draw();
  plant.set({"X: air db=70,rh=50"});
  EXPECT_EQ(again(), 1U) << "a chart has one air handler";
}

TEST(AirHandler, SaysWhatIsWrongInItsLines) {
  const struct {
    const char* name;
    Lines lines;
    const char* mistake;
  } cases[] = {
      {"a state of its own", {"OA: point A,db=5"}, "line 1, OA: a point takes one of acfm, scfm or lbh and nothing"},
      {"a quote left open", {"", "OA: point \"A"}, "line 2, OA: the name of the point has a quote at its beginning"},
      {"no name", {"OA: point ,scfm=5"}, "line 1, OA: the name of a point is missing"},
      {"nearly the name",
       {"OA: point outsde"},
       "line 1, OA, point: there is no point \"outsde\" on the chart (did you"},
      {"two flows", {"OA: point A,scfm=5,acfm=5"}, "line 1, OA: give at most one of acfm, scfm or lbh"},
      {"a line break", {"OA: point A\n"}, "line 1: not a line of UTF-8 text"},
      {"a goal too few", {"OA: point A,scfm=?"}, "1 unknown (OA.scfm) an"},
  };
  for (const auto& [name, lines, mistake] : cases) {
    Plant plant(lines);
    EXPECT_EQ(plant.mistake().substr(0, std::string(mistake).size()), mistake) << name;
    const auto again = readDocument(fileText(plant.document()));
    ASSERT_TRUE(again) << name;
    EXPECT_EQ(airHandlerLines(again->document), lines) << name << ": kept as typed";
  }
}
