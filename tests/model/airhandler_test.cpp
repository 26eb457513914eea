#include "model/airhandlerdrag.h"

#include <functional>

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

namespace {

struct Edit {
  const char* name;
  Lines before;
  std::function<Lines(Lines)> edit;
  Lines after;
};

TypedLine typedOf(const Lines& lines, std::size_t line) { return *typedLine(lines.at(line)); }

Lines valued(const Lines& lines, std::size_t line, Parameter parameter, const char* text) {
  const auto typed = withValue(typedOf(lines, line), parameter, text);
  if (typed) return withLine(lines, line, *typed);
  const std::string words = typed.error().text();
  return {words.substr(0, words.find(';'))};
}

const Lines plant = {"OA: point Outside,scfm=2000",
                     "RA: air db=78,rh=50,acfm=8000 # room",
                     "",
                     "MA: mix OA RA",
                     "CC: coil MA db=55,rh=92",
                     "goal CC total=34tons"};

const Edit edits[] = {
    {"a value as typed, the comment stays",
     plant,
     [](Lines l) { return valued(l, 1, Parameter::db, "25C"); },
     {"OA: point Outside,scfm=2000", "RA: air db=25C,rh=50,acfm=8000  # room", "", "MA: mix OA RA",
      "CC: coil MA db=55,rh=92", "goal CC total=34tons"}},
    {"an unknown",
     {"CC: coil MA db=55"},
     [](Lines l) { return valued(l, 0, Parameter::bf, " ? "); },
     {"CC: coil MA db=55,bf=?"}},
    {"a value removed",
     {"CC: coil MA db=55,rh=92"},
     [](Lines l) { return valued(l, 0, Parameter::db, ""); },
     {"CC: coil MA rh=92"}},
    {"a goal out of range",
     {"goal CC db=55"},
     [](Lines l) { return valued(l, 0, Parameter::rh, "120"); },
     {"rh: 120 is not within 0 to 100 percent"}},
    {"an unknown goal",
     {"goal CC db=55"},
     [](Lines l) { return valued(l, 0, Parameter::db, "?"); },
     {"db: a goal is a number that must come out"}},
    {"a unit of something else",
     {"CC: coil MA db=55"},
     [](Lines l) { return valued(l, 0, Parameter::total, "15gpm"); },
     {"total: unknown unit \"gpm\" in \"15gpm\""}},
    {"a fan after the coil takes its air",
     {"CC: coil MA db=55"},
     [](Lines l) { return addedStep(l, 0, StepKind::fan); },
     {"CC: coil MA db=55", "SF: fan CC"}},
    {"a mixing box takes what is free",
     {"OA: air db=95", "RA: air db=78"},
     [](Lines l) { return addedStep(l, std::string::npos, StepKind::mix); },
     {"OA: air db=95", "RA: air db=78", "MA: mix RA OA"}},
    {"a copy has a name of its own and no stream twice",
     {"HC2: heat MA db=90"},
     [](Lines l) { return copiedLine(l, 0); },
     {"HC2: heat MA db=90", "HC3: heat db=90"}},
    {"moved up past the first", {"a", "b", "c"}, [](Lines l) { return movedLine(l, 1, -5); }, {"b", "a", "c"}},
    {"deleted",
     {"a", "b", "c"},
     [](Lines l) {
       return deletedLines(l, {2, 0, 2});
     },
     {"b"}},
    {"renamed, and followed where it is taken",
     {"EX: part RM share=0.2", "RT: fan EX.rest dt=1", "EV: evaporate OA eff=0.7,indirect=EX", "goal EX.rest db=75",
      "EXT: fan EX dt=1", "X: point EX"},
     [](Lines l) { return *renamedStep(l, 0, "E"); },
     {"E: part RM share=0.2", "RT: fan E.rest dt=1", "EV: evaporate OA eff=0.7,indirect=E", "goal E.rest db=75",
      "EXT: fan E dt=1", "X: point EX"}},
    {"renamed to a name that is taken",
     plant,
     [](Lines l) { return Lines{renamedStep(l, 3, "CC").error().words}; },
     {"another step has this name"}},
};

}  // namespace

TEST(AirHandlerRows, AreEdited) {
  for (const Edit& edit : edits) EXPECT_EQ(edit.edit(edit.before), edit.after) << edit.name;
}

TEST(AirHandlerRows, ShowResultsAndMistakes) {
  Plant shown(plant);
  const auto rows = [&] { return airHandlerRows(shown.lines(), *solvedAirHandler(shown.document())); };
  ASSERT_EQ(rows().size(), 5U);
  const auto whole = mistakesOf(shown.lines(), *solvedAirHandler(shown.document()));
  ASSERT_EQ(whole.size(), 1U);
  EXPECT_FALSE(whole[0].line) << "one goal too many is no mistake of a row";
  shown.set({plant[0], plant[1], plant[2], plant[3], "CC: coil MA db=55,rh=?", plant[5]});
  EXPECT_NEAR(rows()[3].tons, -34, 1e-6);
  EXPECT_NEAR(rows()[2].leaving.db, 81.51, 0.01);
  const auto form = formOf(rows()[3].typed, shown.lines(), *solvedAirHandler(shown.document()));
  EXPECT_NEAR(form[2].solved, 92, 1) << form[2].caption;
  EXPECT_EQ(availableStreams(shown.lines(), 3), Lines({"OA", "RA", "CC"}));
  shown.set({"OA: point Outside", "HC: heat OA db=40"});
  const auto mistakes = mistakesOf(shown.lines(), *solvedAirHandler(shown.document()));
  ASSERT_EQ(mistakes.size(), 1U);
  EXPECT_EQ(mistakes[0].line, std::optional<std::size_t>(1));
  EXPECT_EQ(mistakes[0].parameter, "db");
}

TEST(AirHandlerRows, TakeOverAMixture) {
  Plant shown;
  ASSERT_TRUE(shown.mix());
  const auto lines = airHandlerOf(std::get<MixingLine>(shown.document().entries.back().content));
  ASSERT_TRUE(lines);
  shown.set(*lines);
  EXPECT_EQ(lines->back(), "Mix: mix St1 St2");
  EXPECT_NEAR(shown.solved().solution.streams[4].state.db, 81.5, 0.3);
}

TEST(AirHandlerDrag, WritesWhatWasGiven) {
  const struct {
    const char* name;
    Lines lines;
    std::size_t step;  ///< that is moved
    AirState place;
    AirState after;     ///< within 0.05 deg F and 0.00002
    const char* wrote;  ///< the line that has changed
  } cases[] = {
      {"air keeps its two properties", {"OA: air db=95,wb=75"}, 0, {90, 0.012}, {90, 0.012}, "OA: air db=90,wb=7"},
      {"an unknown stays one",
       {"OA: air db=95,rh=?", "goal OA w=0.012"},
       0,
       {90, 0.015},
       {90, 0.012},
       "OA: air db=90,rh=?"},
      {"a mixture along its line",
       {"OA: air db=95,w=0.014,scfm=2000", "RA: air db=75,w=0.010,scfm=2000", "MA: mix OA RA"},
       2,
       {90, 0.013},
       {90, 0.013},
       "OA: air db=95,w=0.014,scfm=6000"},
      {"a coil by its bypass factor",
       {"A: air db=80,rh=50", "C: coil A adp=50,bf=0.1"},
       1,
       {60, 0.0088},
       {60, 0.0088},
       "C: coil A adp=5"},
      {"a heater along its humidity ratio",
       {"A: air db=60,w=0.008", "H: heat A dt=10"},
       1,
       {85, 0.012},
       {85, 0.008},
       "H: heat A dt=25"},
  };
  for (const auto& [name, lines, step, place, after, wrote] : cases) {
    Plant plant(lines);
    const SolvedAirHandler solved = *solvedAirHandler(plant.document());
    const auto moved = movedState(solved, lines, mainStream(step), place);
    ASSERT_TRUE(moved) << name << moved.error().text();
    const SolvedAirHandler tried = triedAirHandler(plant.document(), *moved, nullptr, solved);
    ASSERT_TRUE(tried.system.complete()) << name;
    EXPECT_NEAR(tried.system.solution.streams[mainStream(step)].state.db, after.db, 0.05) << name;
    EXPECT_NEAR(tried.system.solution.streams[mainStream(step)].state.w, after.w, 2e-5) << name;
    const auto changed = [&](const std::string& line) { return line.starts_with(wrote); };
    EXPECT_TRUE(std::any_of(moved->begin(), moved->end(), changed)) << name << ": " << moved->front();
  }
}

TEST(AirHandlerDrag, SaysWhyAStateStaysWhereItIs) {
  Plant plant({"OA: point Outside,scfm=2000", "RA: air db=78,rh=50,scfm=8000", "MA: mix OA RA",
               "CC: coil MA db=55,rh=92", "SA: fan CC dt=2"});
  const SolvedAirHandler solved = *solvedAirHandler(plant.document());
  EXPECT_FALSE(isMovable(solved, plant.lines(), mainStream(0))) << "the point itself is moved";
  EXPECT_FALSE(isMovable(solved, plant.lines(), mainStream(4)));
  EXPECT_TRUE(isMovable(solved, plant.lines(), mainStream(2)));
  EXPECT_EQ(movedState(solved, plant.lines(), mainStream(2), {120, 0.02}).error().words,
            "a mixture is between its two streams");
  EXPECT_NE(movedState(solved, plant.lines(), mainStream(3), {90, 0.009}).error().words, "") << "a coil does not heat";
  auto point = std::get<MarkedPoint>(plant.document().entries[1].content);
  point.given[0].value = "100";
  const std::pair<std::size_t, MarkedPoint> moved{1, point};
  EXPECT_GT(triedAirHandler(plant.document(), plant.lines(), &moved, solved).system.solution.streams[4].state.db, 82);
  EXPECT_NEAR(plant.mixed(), 81.4, 0.1) << "nothing is changed";
}
