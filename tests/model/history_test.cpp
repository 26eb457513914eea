#include "model/history.h"

#include <random>

#include "desk.h"
#include "model/airhandler.h"

using namespace moistair;
using namespace moistair::test;

namespace {

/// Edits as a person makes them in any order, a few of each kind.
class Editor {
public:
  explicit Editor(unsigned seed) : random_(seed) {
    Desk desk;
    desk.draw();
    desk.rhLine("40");
    desk.point("75", "62.5", "A");
    desk.mix();
    desk.line(LineKind::wetBulb, "60");
    desk.pin();
    samples_ = {desk.document().entries.begin() + 1, desk.document().entries.end()};
    chart_ = desk.document().entries.front();
  }

  void edit(History& history) {
    static const PressureEntry high{PressureUnit::elevation, "5000"};
    const Document& document = history.document();
    switch (below(20)) {
      case 18:
      case 19: return airHandler(history);
      case 16: return history.carryOut(retitling(document, {"T" + std::to_string(below(100)), "", ""}));
      case 17: return history.carryOut(takingOver(document, "again", {samples_[below(samples_.size())]}, {}));
      case 0: return history.carryOut(drawing(document, chart()));
      case 1: return history.carryOut(below(3) == 0 ? emptying(document) : clearing(document));
      case 2: return history.carryOut(pressureChange(document, {high, lenientNumber(*pressureFor(high).inhg)}));
      case 3: return history.keepPicture();
      case 4: return history.carryOut(deletion(document, places(document)));
      case 5: return below(2) == 0 ? rename(history) : move(history);
      case 6:
      case 7:
      case 8: return history.undo();
      case 9: return history.redo();
      default: return history.carryOut(addition(document, samples_[below(samples_.size())]));
    }
  }

private:
  std::size_t below(std::size_t end) { return random_() % end; }

  Entry chart() {
    Entry chart = chart_;
    if (below(2) == 0) chart.setting.limits = {50, 100, 0, 0.02};
    return chart;
  }

  std::vector<std::size_t> places(const Document& document) {
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < document.entries.size() + document.previous.size(); ++i) {
      if (below(4) == 0) places.push_back(i);
    }
    return places;
  }

  /// Other lines, fewer or none; some begin at a point that is renamed, moved and deleted meanwhile.
  void airHandler(History& history) {
    std::vector<std::string> lines;
    const std::string name = "B" + std::to_string(below(100));
    if (below(5) > 0)
      lines = {"OA: point A,scfm=2000", "OB: point " + name, "CC: coil OA db=55,rh=?", "goal CC w=0.0085"};
    lines.resize(std::min(lines.size(), 1 + below(4)));
    history.carryOut(airHandlerChange(history.document(), lines, "Air handler"));
  }

  void rename(History& history) {
    for (std::size_t i = 0; i < history.document().entries.size(); ++i) {
      const bool isPoint = std::holds_alternative<MarkedPoint>(history.document().entries[i].content);
      if (isPoint) return history.carryOut(renaming(history.document(), i, "B" + std::to_string(below(100))));
    }
  }

  void move(History& history) {
    const std::vector<Mark> marks = marksOf(history.document());
    if (marks.empty()) return;
    const std::size_t place = marks[below(marks.size())].entry;
    const Entry& entry = history.document().entries[place];
    const auto moved =
        isPoint(entry) ? movedTo(entry, {70.0 + static_cast<double>(below(20)), 0.01}, window) : std::nullopt;
    if (moved) history.carryOut(moving(history.document(), place, *moved));
  }

  std::mt19937 random_;
  std::vector<Entry> samples_;
  Entry chart_;
};

}  // namespace

TEST(History, TenThousandEditsUndoneAndRedone) {
  const Document start = newDocument({});
  History history(start);
  Editor editor(1);
  AirHandlerCache cache;
  std::size_t solved = 0;
  for (int i = 0; i < 10000; ++i) {
    editor.edit(history);
    const SolvedAirHandler* airHandler = cache.of(history.document());
    if (airHandler != nullptr && airHandler->system.complete()) ++solved;
    if (i % 50 != 0) continue;
    const std::string text = fileText(history.document());
    EXPECT_EQ(fileText(readDocument(text)->document), text);
  }
  EXPECT_GT(solved, 100U);
  while (!history.redoName().empty()) history.redo();
  const std::string end = fileText(history.document());
  const Drawing drawing = drawingOf(history.document(), window);
  std::size_t steps = 0;
  for (; !history.undoName().empty(); ++steps) history.undo();
  EXPECT_GT(steps, 1000U);
  EXPECT_EQ(history.document().entries, start.entries);
  EXPECT_EQ(drawingOf(history.document(), window).operations, drawingOf(start, window).operations);
  while (steps-- > 0) history.redo();
  EXPECT_EQ(fileText(history.document()), end);
  EXPECT_EQ(drawingOf(history.document(), window), drawing);
}

TEST(History, KnowsWhatIsUnsaved) {
  Desk desk;
  const auto changed = [&] { return desk.commands.history().changed(); };
  EXPECT_FALSE(changed()) << "a program that has just started";
  desk.draw();
  EXPECT_TRUE(changed());
  desk.commands.markSaved();
  desk.rhLine("40");
  desk.commands.undo(window);
  EXPECT_FALSE(changed()) << "back at what was saved";
  desk.commands.undo(window);
  desk.draw();
  EXPECT_TRUE(changed()) << "what was saved can no longer be reached";
  desk.commands.markSaved();
  desk.commands.keepPicture();
  EXPECT_TRUE(changed()) << "the background is in the file";
}
