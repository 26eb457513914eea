#include "support/charts.h"
#include "text/value.h"

namespace moistair::test {
namespace {

TEST(RecordingCanvas, ClearingKeepsTheBackgroundPicture) {
  RecordingCanvas canvas;
  canvas.line(0, 0, 1, 1);
  canvas.keepPicture();
  canvas.print("over it");
  canvas.cls();
  EXPECT_EQ(canvas.drawing().operations.size(), 1u);
  canvas.circle(1, 2, 3, colors::pointMark);
  canvas.dropPicture();
  ASSERT_EQ(canvas.drawing().operations.size(), 1u) << "the picture goes, what lies over it stays";
  EXPECT_TRUE(std::holds_alternative<CircleOperation>(canvas.drawing().operations[0]));
  canvas.cls();
  EXPECT_TRUE(canvas.drawing().operations.empty()) << "no background is left";
}

TEST(RecordingCanvas, PrintsAtThePen) {
  const struct {
    const char* name;
    void (*movePen)(RecordingCanvas&);
    float x, y;
  } cases[] = {
      {"at the end of a line", [](RecordingCanvas& c) { c.line(1, 2, 30, 40); }, 30, 40},
      {"at the centre of a circle", [](RecordingCanvas& c) { c.circle(5, 6, 7, colors::pointMark); }, 5, 6},
      {"one line below the last text", [](RecordingCanvas& c) { c.moveTo(8, 9), c.print("a"); }, 0, 9 + lineHeight},
      {"at the corner after clearing", [](RecordingCanvas& c) { c.moveTo(8, 9), c.cls(); }, 0, 0},
      {"past a line without a value", [](RecordingCanvas& c) { c.moveTo(8, 9), c.line(0, 0, noValue, 1); }, 8, 9},
      {"past a circle beyond single precision",
       [](RecordingCanvas& c) { c.moveTo(8, 9), c.circle(0, -1e39, 1, colors::pointMark); }, 8, 9},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    RecordingCanvas canvas;
    test.movePen(canvas);
    canvas.print("label");
    EXPECT_EQ(canvas.drawing().operations.back(), Operation(TextOperation{test.x, test.y, "label"}));
    EXPECT_EQ(canvas.drawing().operations.size() == 1, test.x == 8 || test.y == 0) << "what is skipped leaves nothing";
  }
}

}  // namespace
}  // namespace moistair::test
