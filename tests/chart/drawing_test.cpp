#include "charts.h"
#include "engine/value.h"

namespace moistair {
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
      {"one line below the text before", [](RecordingCanvas& c) { c.MoveTo(8, 100), c.Print("a"); }, 0,
       100 + lineheight},
      {"at the corner after clearing", [](RecordingCanvas& c) { c.MoveTo(8, 9), c.Cls(); }, 0, 0},
      {"where it was after a step without a value",
       [](RecordingCanvas& c) { c.MoveTo(8, 9), c.Line(0, 0, novalue, 1); }, 8, 9},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    RecordingCanvas canvas;
    test.movepen(canvas);
    canvas.Print("label");
    const auto& label = std::get<TextOperation>(canvas.drawing().operations.back());
    EXPECT_EQ(label.x, test.x);
    EXPECT_EQ(label.y, test.y);
  }
}

TEST(RecordingCanvas, SkipsWhatSinglePrecisionCannotHold) {
  RecordingCanvas canvas;
  canvas.Line(0, 0, 1e300, 0);
  canvas.Line(novalue, 0, 1, 0);
  canvas.Circle(0, -1e39, 1, colors::pointmark);
  EXPECT_TRUE(canvas.drawing().operations.empty());
}

}  // namespace
}  // namespace moistair
