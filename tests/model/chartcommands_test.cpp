#include "model/chartcommands.h"

#include <functional>

#include "desk.h"
#include "model/carryover.h"

using namespace moistair;
using namespace moistair::test;

namespace {

/// What was drawn command by command is what the document draws, also as its file has it.
void expectSame(const Desk& desk) {
  const Document& document = desk.document();
  EXPECT_EQ(drawingOf(document, window), desk.canvas.drawing());
  const std::string text = fileText(document);
  const auto read = readDocument(text);
  ASSERT_TRUE(read) << read.error().text() << "\n" << text;
  EXPECT_EQ(drawingOf(read->document, window), desk.canvas.drawing());
  EXPECT_EQ(fileText(read->document), text);
}

using Step = std::function<bool(Desk&)>;

struct Session {
  const char* name;
  std::vector<Step> steps;  ///< each true, or what it tests is not what happens
  std::size_t entries;      ///< that are there at the end
};

Step draws(ChartType type = ChartType::blank) {
  return [=](Desk& desk) { return desk.draw(type); };
}
Step lists(const LimitTexts& texts) {
  return [=](Desk& desk) {
    desk.lists = texts;
    return true;
  };
}
Step line(LineKind kind, const char* value) {
  return [=](Desk& desk) { return desk.line(kind, value); };
}
Step point(const char* db, const char* wb, const char* id) {
  return [=](Desk& desk) { return desk.point(db, wb, id); };
}
Step sets(std::optional<PressureUnit> unit, const char* text) {
  return [=](Desk& desk) {
    desk.setPressure({unit, text});
    return true;
  };
}
bool mixes(Desk& desk) { return desk.mix(); }
bool looks(Desk& desk) {
  desk.lookAtPressure();
  return true;
}
bool saves(Desk& desk) {
  desk.commands.keepPicture();
  return true;
}
bool clears(Desk& desk) {
  desk.commands.clearChart();
  return true;
}
bool leavesTheChoice(Desk& desk) { return bool(desk.commands.startDraw(desk.lists)); }
Step refused(const Step& step) {
  return [=](Desk& desk) { return !step(desk); };
}

const LimitTexts full{"0", "120", "0", "0.030"}, narrow{"50", "100", "0", "0.020"};
constexpr auto rh = LineKind::relativeHumidity;

const Session sessions[] = {
    {"start-up", {}, 1},
    {"a standard chart with everything",
     {draws(ChartType::standard), line(rh, "55"), line(LineKind::wetBulb, "65.50"), line(LineKind::enthalpy, "30"),
      line(LineKind::specificVolume, "14"), point("75", "62.5", "A \"\xc3\xa9\""), point("80", "60", ""), mixes},
     8},
    {"values that are no number",
     {draws(), line(rh, ""), line(LineKind::wetBulb, "abc"), line(LineKind::enthalpy, "1e1")},
     4},
    {"a pressure by elevation, its header line alone", {draws(), sets(PressureUnit::elevation, "5000")}, 1},
    {"a chart at that pressure",
     {sets(PressureUnit::psi, "12.5"), draws(), line(rh, "40"), point("75", "62.5", "A")},
     3},
    {"a pressure without a unit prints no header", {sets(std::nullopt, "12"), draws(), line(rh, "40")}, 2},
    {"lines are traced at the pressure in force",
     {sets(PressureUnit::elevation, "5000"), draws(), looks, line(rh, "40"), point("75", "62.5", "A"), mixes},
     4},
    {"the canvas is cleared before the type is chosen", {draws(), line(rh, "40"), lists(narrow), leavesTheChoice}, 0},
    {"lines on an empty canvas, with the limits that still count",
     {draws(), lists(narrow), leavesTheChoice, lists(full), line(rh, "40"), point("75", "62.5", "A")},
     2},
    {"a mixture goes where the lists put it",
     {draws(), lists({"70", "100", "0", "0.030"}), mixes, lists(full), line(rh, "40")},
     3},
    {"a mixture without a chart, on limits that no chart has", {lists({"-3", "105.5", "", "1e3"}), mixes}, 2},
    {"a saved picture stays under the next chart",
     {draws(), line(rh, "40"), saves, point("75", "62.5", "A"), lists(narrow), draws(), line(rh, "30")},
     4},
    {"a saved picture is dropped by a clearing", {draws(), saves, clears, draws(), line(rh, "40")}, 2},
    {"a saved picture is dropped by a new pressure", {draws(), saves, sets(PressureUnit::inhg, "30abc"), draws()}, 1},
    {"what is refused never enters",
     {refused(line(rh, "40")), draws(), refused(draws()), refused(line(rh, "101")), lists(narrow),
      refused(point("45", "40", "A")), refused(line(rh, "40")), lists({"80", "120", "0", "0.030"}), refused(mixes)},
     1},
};

}  // namespace

TEST(ChartCommands, TheDocumentDrawsWhatTheCommandsDrew) {
  for (const Session& session : sessions) {
    SCOPED_TRACE(session.name);
    Desk desk;
    for (std::size_t i = 0; i < session.steps.size(); ++i) {
      SCOPED_TRACE(i);
      EXPECT_TRUE(session.steps[i](desk));
      expectSame(desk);
    }
    EXPECT_EQ(desk.document().entries.size(), session.entries);
  }
}

TEST(ChartCommands, UndoGoesBackThroughEverySessionAndRedoForthAgain) {
  for (const Session& session : sessions) {
    SCOPED_TRACE(session.name);
    Desk desk;
    const Drawing start = desk.canvas.drawing();
    for (const Step& step : session.steps) step(desk);
    const Drawing end = desk.canvas.drawing();
    const bool stood = hasCurrentChart(desk.document());
    const std::string pressure = desk.pressure();
    std::size_t steps = 0;
    for (; !desk.commands.history().undoName().empty(); ++steps) desk.commands.undo(window);
    EXPECT_EQ(desk.canvas.drawing(), start);
    EXPECT_EQ(desk.document().pressure.entry, PressureEntry{});
    while (steps-- > 0) desk.commands.redo(window);
    EXPECT_EQ(desk.canvas.drawing(), end);
    EXPECT_EQ(hasCurrentChart(desk.document()), stood);
    EXPECT_EQ(desk.commands.history().redoName(), "");
    const bool looked = desk.document().pressure.atm != lenientNumber(pressure);
    EXPECT_TRUE(looked || desk.pressure() == pressure) << desk.pressure();
  }
}

TEST(ChartCommands, UndoOfAClearingBringsBackTheLimitsThatWereDrawn) {
  Desk desk;
  desk.draw();
  desk.commands.clearChart();
  EXPECT_FALSE(desk.rhLine("40"));
  EXPECT_EQ(desk.commands.history().undoName(), "Clear chart");
  desk.commands.undo(window);
  EXPECT_TRUE(desk.rhLine("40"));
  EXPECT_EQ(desk.commands.history().undoName(), "Relative humidity line 40");
  desk.setPressure({PressureUnit::elevation, "5000"});
  desk.commands.undo(window);
  EXPECT_EQ(desk.pressure(), defaultPressureText);
  EXPECT_TRUE(desk.rhLine("30")) << "at the pressure that was in force with that chart";
  desk.commands.redo(window);
  EXPECT_EQ(desk.commands.history().redoName(), "") << "a new line ends what could be redone";
}

TEST(ChartCommands, DrawingAChartIsOneStepWithItsClearing) {
  Desk desk;
  desk.draw();
  desk.rhLine("40");
  desk.lists = narrow;
  desk.draw();
  desk.commands.undo(window);
  EXPECT_EQ(desk.document().entries.size(), 2U);
  desk.lists = full;
  EXPECT_TRUE(desk.rhLine("30"));
}

TEST(ChartCommands, ADeletedChartCanBeDrawnAgain) {
  Desk desk;
  desk.draw();
  desk.rhLine("40");
  EXPECT_FALSE(desk.draw());
  desk.commands.change(deletion(desk.document(), {0}), window);
  expectSame(desk);
  EXPECT_TRUE(desk.draw());
}

TEST(ChartCommands, AnOpenedDocumentTakesThePlaceOfAll) {
  Desk first;
  first.setPressure({PressureUnit::elevation, "5000"});
  first.lists = narrow;
  first.draw();
  first.point("75", "62.5", "A");
  Desk second;
  second.draw();
  second.commands.open(readDocument(fileText(first.document()))->document, window);
  expectSame(second);
  EXPECT_EQ(second.canvas.drawing(), first.canvas.drawing());
  EXPECT_EQ(second.pressure(), first.pressure());
  EXPECT_EQ(currentLimits(second.document()), (ChartLimits{50, 100, 0, 0.02}));
  EXPECT_EQ(second.commands.history().undoName(), "");
  second.lists = narrow;
  EXPECT_TRUE(second.rhLine("40"));
  first.rhLine("40");
  EXPECT_EQ(second.canvas.drawing(), first.canvas.drawing());
}

TEST(CarriedOver, PutsTheChartBeforeOnTheNewOne) {
  Desk desk;
  desk.draw();
  desk.rhLine("40");
  desk.point("75", "62.5", "A");
  desk.point("45", "40", "cold");
  desk.line(LineKind::specificVolume, "12.8");
  desk.mix();
  desk.setPressure({PressureUnit::elevation, "5000"});
  desk.lists = narrow;
  desk.draw();
  desk.rhLine("20");
  const Setting setting{{50, 100, 0, 0.02}, {desk.document().pressure.entry, desk.atm()}};
  const CarriedOver result = carryOver(desk.document().previous, setting, window);
  std::vector<std::string> captions;
  for (const Entry& entry : result.entries) captions.push_back(captionOf(entry));
  EXPECT_EQ(captions, (std::vector<std::string>{"Relative humidity line 40", "Point A", "Mixture"}));
  EXPECT_DOUBLE_EQ(std::get<MarkedPoint>(result.entries[1].content).state.rh, 52.8341213);
  EXPECT_EQ(std::get<MixingLine>(result.entries[2].content).columns[0].rh, "52.8341213");
  ASSERT_EQ(result.leftOut.size(), 2U);
  EXPECT_EQ(captionOf(result.leftOut[0].entry), "Point cold");
  EXPECT_EQ(result.leftOut[0].reason, "The point as per input parameters is out of chart limits");
  EXPECT_EQ(result.leftOut[1].reason, lineNotFeasible);
  desk.commands.change(takingOver(desk.document(), carryOverName, result.entries, result.leftOut), window);
  expectSame(desk);
  EXPECT_EQ(desk.document().entries.size(), 5U);
  EXPECT_EQ(desk.document().previous, result.leftOut);
  desk.commands.undo(window);
  EXPECT_EQ(desk.document().entries.size(), 2U);
  EXPECT_EQ(desk.document().previous.size(), 5U);
}

namespace {

/// Puts what fits of the previous chart on the current one.
bool takesOver(Desk& desk) {
  const Setting setting{*currentLimits(desk.document()), desk.document().pressure};
  CarriedOver found = carryOver(desk.document().previous, setting, window);
  desk.commands.change(takingOver(desk.document(), carryOverName, found.entries, found.leftOut), window);
  return true;
}
Step removes(std::vector<std::size_t> places) {
  return [=](Desk& desk) {
    desk.commands.change(deletion(desk.document(), places), window);
    return true;
  };
}
bool undoes(Desk& desk) {
  desk.commands.undo(window);
  return true;
}

/// What is on the chart, and behind a bar what of the previous chart is not; a star for what nobody has tried to put
/// on it.
std::string contents(const Document& document) {
  std::string text;
  for (const Entry& entry : document.entries) text += captionOf(entry) + " ";
  text += "|";
  for (const LeftOut& left : document.previous) text += " " + captionOf(left.entry) + (left.reason.empty() ? "*" : "");
  return text;
}

const std::vector<Step> four = {draws(), point("55", "50", "1"), point("45", "40", "2"), line(rh, "40")};

struct PreviousCase {
  const char* name;
  std::vector<Step> steps;  ///< after a chart with four entries
  const char* contents;
};

const PreviousCase previousCases[] = {
    {"a new chart", {lists(narrow), draws()}, "Blank chart | Point 1* Point 2* Relative humidity line 40*"},
    {"the canvas cleared and no type chosen",
     {lists(narrow), leavesTheChoice},
     "| Point 1* Point 2* Relative humidity line 40*"},
    {"a clearing", {clears, draws()}, "Blank chart | Point 1* Point 2* Relative humidity line 40*"},
    {"a new pressure",
     {sets(PressureUnit::elevation, "5000")},
     "Pressure | Point 1* Point 2* Relative humidity line 40*"},
    {"taken over, the rest stays",
     {lists(narrow), draws(), takesOver},
     "Blank chart Point 1 Relative humidity line 40 | Point 2"},
    {"narrowed and widened again, all are there",
     {lists(narrow), draws(), takesOver, lists(full), draws(), takesOver},
     "Blank chart Point 2 Point 1 Relative humidity line 40 |"},
    {"two new charts in a row",
     {lists(narrow), draws(), lists(full), draws()},
     "Blank chart | Point 1* Point 2* Relative humidity line 40*"},
    {"replaced by what a later chart held",
     {lists(narrow), draws(), line(rh, "50"), lists(full), draws()},
     "Blank chart | Relative humidity line 50*"},
    {"one deleted", {lists(narrow), draws(), removes({2})}, "Blank chart | Point 1* Relative humidity line 40*"},
    {"one of the chart and one that is not on it deleted",
     {lists(narrow), draws(), line(rh, "50"), removes({1, 3})},
     "Blank chart | Point 1* Relative humidity line 40*"},
    {"undone",
     {lists(narrow), draws(), takesOver, undoes, undoes},
     "Blank chart Point 1 Point 2 Relative humidity line 40 |"},
    {"a picture kept stays on the chart",
     {saves, line(rh, "50"), lists(narrow), draws()},
     "Blank chart Point 1 Point 2 Relative humidity line 40 Blank chart | Relative humidity line 50*"},
};

}  // namespace

TEST(PreviousChart, StaysInTheDocumentUntilItIsTakenOverDeletedOrReplaced) {
  for (const PreviousCase& test : previousCases) {
    SCOPED_TRACE(test.name);
    Desk desk;
    for (const Step& step : four) EXPECT_TRUE(step(desk));
    const std::size_t before = fileText(desk.document()).find("previous");
    EXPECT_EQ(before, std::string::npos) << "files without one stay as they were";
    for (const Step& step : test.steps) EXPECT_TRUE(step(desk));
    EXPECT_EQ(contents(desk.document()), test.contents);
    expectSame(desk);
    const std::string text = fileText(desk.document());
    EXPECT_EQ(text.find("\"format\": 3") == 2, !desk.document().previous.empty());
    EXPECT_EQ(readDocument(text)->document.previous, desk.document().previous);
    while (!desk.commands.history().undoName().empty()) desk.commands.undo(window);
    EXPECT_TRUE(desk.document().previous.empty());
  }
}
