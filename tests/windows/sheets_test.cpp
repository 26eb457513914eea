// Sheets in the window: options that are taken and given back, and the sheet on the screen.
#include "support.h"
#include "windows/sheetdialog.h"
#include "windows/sheetview.h"

namespace moistair {
namespace {

using namespace windowtest;

/// Exports a sheet of such a size, typed behind one that is none. Returns the size that the dialog began with.
std::string exportSheet(Program& program, const char* size, const char* file) {
  std::string began;
  const SaveAnswer save(program.path(file));
  const Watch<SheetDialog> watch([&](SheetDialog& dialog) {
    began = text(dialog, "size");
    control<QComboBox>(dialog, "page").setCurrentIndex(static_cast<int>(namedPages.size()));
    type(dialog, "title", "Handed in");
    type(dialog, "size", "20x");
    EXPECT_FALSE(control<QWidget>(dialog, "export").isEnabled());
    type(dialog, "size", size);
    click(dialog, "export");
  });
  action(program.window, "Export s&heet").trigger();
  return began;
}

TEST(Sheets, AreExportedAsChosenAndChosenSoTheNextTime) {
  Program program(Program::onChart);
  program.addLineAndPoint();
  EXPECT_EQ(exportSheet(program, "900x600", "s.svg"), "");
  const std::string sheet = program.file("s.svg");
  for (const char* part : {"viewBox=\"0 0 900 600\"", "<title>Handed in</title>", ">A</text>", ">50 % RH</text>"}) {
    EXPECT_NE(sheet.find(part), std::string::npos) << part;
  }
  EXPECT_EQ(exportSheet(program, "11x8.5in", "s"), "900x600");  // without an ending: the format offered first
  EXPECT_EQ(program.file("s.pdf").substr(0, 4), "%PDF");
}

TEST(Sheets, AreNotMadeWithoutAChart) {
  Program program;
  const BoxAnswers answers;
  action(program.window, "Export s&heet").trigger();
  EXPECT_EQ(answers.lastText(), "There is no chart to make a sheet of.");
}

TEST(Sheets, StandInPlaceOfTheDrawingWhileAChartStands) {
  Program program;
  auto& sheet = control<SheetView>(program.window, "sheet");
  action(program.window, "As a &sheet").trigger();
  EXPECT_FALSE(sheet.isVisible());
  program.drawChart();
  ASSERT_TRUE(sheet.isVisible());
  const PlotBox plot = sheet.plot();
  const QImage picture = sheet.grab().toImage();
  const auto dark = [&](double db, double w) {  // the bold curve, somewhere in a square of a few pixels
    const QPoint at(static_cast<int>(plot.x(db)), static_cast<int>(plot.y(w)));
    int darkest = 255;
    for (int x = -3; x <= 3; ++x) {
      for (int y = -3; y <= 3; ++y) darkest = std::min(darkest, qGray(picture.pixel(at + QPoint(x, y))));
    }
    return darkest < 80;
  };
  EXPECT_TRUE(dark(70, psychro_wrh(70, 100, defaultPressure)));
  EXPECT_FALSE(dark(65, psychro_wrh(70, 100, defaultPressure)));
  program.window.resize(1200, 800);
  EXPECT_GT(sheet.plot().right, plot.right + 100);
  click(program.window, "Command12");
  EXPECT_FALSE(sheet.isVisible());
}

}  // namespace
}  // namespace moistair
