#include "model/chartcommands.h"

#include <functional>

#include "desk.h"
#include "model/again.h"

using namespace moistair;
using namespace moistair::test;

namespace {

/// What was drawn command by command is what the document draws, also as its file has it.
void expectsame(const Desk& desk) {
  const Document& document = desk.document();
  EXPECT_EQ(drawingof(document, window), desk.canvas.drawing());
  const std::string text = filetext(document);
  const ReadDocument read = readdocument(text);
  ASSERT_TRUE(read.document) << read.fault << "\n" << text;
  EXPECT_EQ(drawingof(*read.document, window), desk.canvas.drawing());
  EXPECT_EQ(filetext(*read.document), text);
}

using Step = std::function<bool(Desk&)>;

struct Session {
  const char* name;
  std::vector<Step> steps;  ///< each true, or what it tests is not what happens
  std::size_t entries;      ///< that stand at the end
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
    desk.setpressure({unit, text});
    return true;
  };
}
bool mixes(Desk& desk) { return desk.mix(); }
bool looks(Desk& desk) {
  desk.lookatpressure();
  return true;
}
bool saves(Desk& desk) {
  desk.commands.keeppicture();
  return true;
}
bool clears(Desk& desk) {
  desk.commands.clearchart();
  return true;
}
bool leavesthechoice(Desk& desk) { return !desk.commands.startdraw(desk.lists); }
Step refused(const Step& step) {
  return [=](Desk& desk) { return !step(desk); };
}

const LimitTexts full{"0", "120", "0", "0.030"}, narrow{"50", "100", "0", "0.020"};
constexpr auto rh = LineKind::relativehumidity;

const Session sessions[] = {
    {"start-up", {}, 1},
    {"a standard chart with everything",
     {draws(ChartType::standard), line(rh, "55"), line(LineKind::wetbulb, "65.50"), line(LineKind::enthalpy, "30"),
      line(LineKind::specificvolume, "14"), point("75", "62.5", "A \"\xc3\xa9\""), point("80", "60", ""), mixes},
     8},
    {"values that are no number",
     {draws(), line(rh, ""), line(LineKind::wetbulb, "abc"), line(LineKind::enthalpy, "1e1")},
     4},
    {"a pressure by elevation, its header line alone", {draws(), sets(PressureUnit::elevation, "5000")}, 1},
    {"a chart at that pressure",
     {sets(PressureUnit::psi, "12.5"), draws(), line(rh, "40"), point("75", "62.5", "A")},
     3},
    {"a pressure without a unit prints no header", {sets(std::nullopt, "12"), draws(), line(rh, "40")}, 2},
    {"lines are traced at the pressure in force",
     {sets(PressureUnit::elevation, "5000"), draws(), looks, line(rh, "40"), point("75", "62.5", "A"), mixes},
     4},
    {"the canvas is cleared before the type is chosen", {draws(), line(rh, "40"), lists(narrow), leavesthechoice}, 0},
    {"lines on an empty canvas, with the limits that still count",
     {draws(), lists(narrow), leavesthechoice, lists(full), line(rh, "40"), point("75", "62.5", "A")},
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
      expectsame(desk);
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
    const bool stood = desk.lifecycle.chartstands();
    const std::string pressure = desk.values.pressure.text();
    std::size_t steps = 0;
    for (; !desk.commands.history().undoname().empty(); ++steps) desk.commands.undo(window);
    EXPECT_EQ(desk.canvas.drawing(), start);
    EXPECT_EQ(desk.values.pressureentry, PressureEntry{});
    while (steps-- > 0) desk.commands.redo(window);
    EXPECT_EQ(desk.canvas.drawing(), end);
    EXPECT_EQ(desk.lifecycle.chartstands(), stood);
    EXPECT_EQ(desk.commands.history().redoname(), "");
    const bool looked = desk.document().pressure.atm != lenientnumber(pressure);
    EXPECT_TRUE(looked || desk.values.pressure.text() == pressure) << desk.values.pressure.text();
  }
}

TEST(ChartCommands, UndoOfAClearingBringsBackTheLimitsThatWereDrawn) {
  Desk desk;
  desk.draw();
  desk.commands.clearchart();
  EXPECT_FALSE(desk.rhline("40"));
  EXPECT_EQ(desk.commands.history().undoname(), "Clear chart");
  desk.commands.undo(window);
  EXPECT_TRUE(desk.rhline("40"));
  EXPECT_EQ(desk.commands.history().undoname(), "Relative humidity line 40");
  desk.setpressure({PressureUnit::elevation, "5000"});
  desk.commands.undo(window);
  EXPECT_EQ(desk.values.pressure.text(), defaultpressuretext);
  EXPECT_TRUE(desk.rhline("30")) << "at the pressure that was in force with that chart";
  desk.commands.redo(window);
  EXPECT_EQ(desk.commands.history().redoname(), "") << "a new line ends what could be redone";
}

TEST(ChartCommands, DrawingAChartIsOneStepWithItsClearing) {
  Desk desk;
  desk.draw();
  desk.rhline("40");
  desk.lists = narrow;
  desk.draw();
  desk.commands.undo(window);
  EXPECT_EQ(desk.document().entries.size(), 2U);
  desk.lists = full;
  EXPECT_TRUE(desk.rhline("30"));
}

TEST(ChartCommands, ADeletedChartCanBeDrawnAgain) {
  Desk desk;
  desk.draw();
  desk.rhline("40");
  EXPECT_FALSE(desk.draw());
  desk.commands.change(deletion(desk.document(), {0}), window);
  expectsame(desk);
  EXPECT_TRUE(desk.draw());
}

TEST(ChartCommands, AnOpenedDocumentTakesThePlaceOfAll) {
  Desk first;
  first.setpressure({PressureUnit::elevation, "5000"});
  first.lists = narrow;
  first.draw();
  first.point("75", "62.5", "A");
  Desk second;
  second.draw();
  second.commands.open(*readdocument(filetext(first.document())).document, window);
  expectsame(second);
  EXPECT_EQ(second.canvas.drawing(), first.canvas.drawing());
  EXPECT_EQ(second.values.pressure.text(), first.values.pressure.text());
  EXPECT_EQ(standinglimits(second.document()), (ChartLimits{50, 100, 0, 0.02}));
  EXPECT_EQ(second.commands.history().undoname(), "");
  second.lists = narrow;
  EXPECT_TRUE(second.rhline("40"));
  first.rhline("40");
  EXPECT_EQ(second.canvas.drawing(), first.canvas.drawing());
}

TEST(Again, PutsTheChartBeforeOnTheNewOne) {
  Desk desk;
  desk.draw();
  desk.rhline("40");
  desk.point("75", "62.5", "A");
  desk.point("45", "40", "cold");
  desk.line(LineKind::specificvolume, "12.8");
  desk.mix();
  desk.setpressure({PressureUnit::elevation, "5000"});
  desk.lists = narrow;
  desk.draw();
  desk.rhline("20");
  const Setting setting{{50, 100, 0, 0.02}, {desk.values.pressureentry, desk.lifecycle.atmpressure()}};
  const Again result = again(desk.document().previous, setting, window);
  std::vector<std::string> captions;
  for (const Entry& entry : result.entries) captions.push_back(captionof(entry));
  EXPECT_EQ(captions, (std::vector<std::string>{"Relative humidity line 40", "Point A", "Mixture"}));
  EXPECT_DOUBLE_EQ(std::get<MarkedPoint>(result.entries[1].content).state.rh, 52.8341213);
  EXPECT_EQ(std::get<MixingLine>(result.entries[2].content).columns[0].rh, "52.8341213");
  ASSERT_EQ(result.leftout.size(), 2U);
  EXPECT_EQ(captionof(result.leftout[0].entry), "Point cold");
  EXPECT_EQ(result.leftout[0].reason, "The point as per input parameters is out of chart limits");
  EXPECT_EQ(result.leftout[1].reason, linenotfeasible);
  desk.commands.change(takingover(desk.document(), againname, result.entries, result.leftout), window);
  expectsame(desk);
  EXPECT_EQ(desk.document().entries.size(), 5U);
  EXPECT_EQ(desk.document().previous, result.leftout);
  desk.commands.undo(window);
  EXPECT_EQ(desk.document().entries.size(), 2U);
  EXPECT_EQ(desk.document().previous.size(), 5U);
}

namespace {

/// Puts what fits of the previous chart on the current one.
bool takesover(Desk& desk) {
  const Setting setting{*standinglimits(desk.document()), desk.document().pressure};
  Again found = again(desk.document().previous, setting, window);
  desk.commands.change(takingover(desk.document(), againname, found.entries, found.leftout), window);
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
  for (const Entry& entry : document.entries) text += captionof(entry) + " ";
  text += "|";
  for (const LeftOut& left : document.previous) text += " " + captionof(left.entry) + (left.reason.empty() ? "*" : "");
  return text;
}

const std::vector<Step> four = {draws(), point("55", "50", "1"), point("45", "40", "2"), line(rh, "40")};

struct PreviousCase {
  const char* name;
  std::vector<Step> steps;  ///< after a chart with four entries
  const char* contents;
};

const PreviousCase previouscases[] = {
    {"a new chart", {lists(narrow), draws()}, "Blank chart | Point 1* Point 2* Relative humidity line 40*"},
    {"the canvas cleared and no type chosen",
     {lists(narrow), leavesthechoice},
     "| Point 1* Point 2* Relative humidity line 40*"},
    {"a clearing", {clears, draws()}, "Blank chart | Point 1* Point 2* Relative humidity line 40*"},
    {"a new pressure",
     {sets(PressureUnit::elevation, "5000")},
     "Pressure | Point 1* Point 2* Relative humidity line 40*"},
    {"taken over, the rest stays",
     {lists(narrow), draws(), takesover},
     "Blank chart Point 1 Relative humidity line 40 | Point 2"},
    {"narrowed and widened again, all are there",
     {lists(narrow), draws(), takesover, lists(full), draws(), takesover},
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
     {lists(narrow), draws(), takesover, undoes, undoes},
     "Blank chart Point 1 Point 2 Relative humidity line 40 |"},
    {"a picture kept stays on the chart",
     {saves, line(rh, "50"), lists(narrow), draws()},
     "Blank chart Point 1 Point 2 Relative humidity line 40 Blank chart | Relative humidity line 50*"},
};

}  // namespace

TEST(PreviousChart, StaysInTheDocumentUntilItIsTakenOverDeletedOrReplaced) {
  for (const PreviousCase& test : previouscases) {
    SCOPED_TRACE(test.name);
    Desk desk;
    for (const Step& step : four) EXPECT_TRUE(step(desk));
    const std::size_t before = filetext(desk.document()).find("previous");
    EXPECT_EQ(before, std::string::npos) << "files without one stay as they were";
    for (const Step& step : test.steps) EXPECT_TRUE(step(desk));
    EXPECT_EQ(contents(desk.document()), test.contents);
    expectsame(desk);
    const std::string text = filetext(desk.document());
    EXPECT_EQ(text.find("\"format\": 3") == 2, !desk.document().previous.empty());
    EXPECT_EQ(readdocument(text).document->previous, desk.document().previous);
    while (!desk.commands.history().undoname().empty()) desk.commands.undo(window);
    EXPECT_TRUE(desk.document().previous.empty());
  }
}
