#include "support/charts.h"
#include "text/value.h"

namespace moistair::test {
namespace {

TEST(RecordingCanvas, ClearingKeepsTheBackgroundPicture) {
  RecordingCanvas canvas;
  canvas.Line(0, 0, 1, 1);
  canvas.KeepPicture();
  canvas.Print("over it");
  canvas.Cls();
  EXPECT_EQ(canvas.drawing().operations.size(), 1u);
  canvas.Circle(1, 2, 3, colors::pointmark);
  canvas.DropPicture();
  ASSERT_EQ(canvas.drawing().operations.size(), 1u) << "the picture goes, what lies over it stays";
  EXPECT_TRUE(std::holds_alternative<CircleOperation>(canvas.drawing().operations[0]));
  canvas.Cls();
  EXPECT_TRUE(canvas.drawing().operations.empty()) << "no background is left";
}

TEST(RecordingCanvas, PrintsAtThePen) {
  const struct {
    const char* name;
    void (*movepen)(RecordingCanvas&);
    float x, y;
  } cases[] = {
      {"at the end of a line", [](RecordingCanvas& c) { c.Line(1, 2, 30, 40); }, 30, 40},
      {"at the centre of a circle", [](RecordingCanvas& c) { c.Circle(5, 6, 7, colors::pointmark); }, 5, 6},
      {"one line below the last text", [](RecordingCanvas& c) { c.MoveTo(8, 9), c.Print("a"); }, 0, 9 + lineheight},
      {"at the corner after clearing", [](RecordingCanvas& c) { c.MoveTo(8, 9), c.Cls(); }, 0, 0},
      {"past a line without a value", [](RecordingCanvas& c) { c.MoveTo(8, 9), c.Line(0, 0, novalue, 1); }, 8, 9},
      {"past a circle beyond single precision",
       [](RecordingCanvas& c) { c.MoveTo(8, 9), c.Circle(0, -1e39, 1, colors::pointmark); }, 8, 9},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    RecordingCanvas canvas;
    test.movepen(canvas);
    canvas.Print("label");
    EXPECT_EQ(canvas.drawing().operations.back(), Operation(TextOperation{test.x, test.y, "label"}));
    EXPECT_EQ(canvas.drawing().operations.size() == 1, test.x == 8 || test.y == 0) << "what is skipped leaves nothing";
  }
}

}  // namespace
}  // namespace moistair::test
