// What the windows show in addition to texts, row and messages: status line, marks of boxes, remarks that can be
// clicked.
#include <QAccessible>

#include "support.h"
#include "toolkit/mark.h"

namespace moistair::windowtest {
namespace {

/// The texts of the status line from the pressure on, and what it says.
std::string facts(QWidget& window) {
  std::string texts;
  for (const char* name : {"inforce", "header", "changes", "standing", "records"}) texts += text(window, name) + "|";
  return texts;
}
std::string said(QWidget& window) { return text(window, "voice"); }

QAccessible::Role role(QWidget& window, const char* line) {
  return QAccessible::queryAccessibleInterface(&control<QWidget>(window, line))->role();
}

/// Why a control is marked, as its tool tip and assistive technology have it; empty for one that is not.
std::string marked(QWidget& window, const char* name) {
  auto& found = control<QWidget>(window, name);
  EXPECT_EQ(found.toolTip(), found.accessibleDescription());
  const auto* mark = found.findChild<QWidget*>(QStringLiteral("mark"));
  EXPECT_EQ(mark != nullptr && mark->isVisibleTo(&found), !found.toolTip().isEmpty()) << name;
  EXPECT_TRUE(mark == nullptr || mark->size() == found.size());
  return found.toolTip().toStdString();
}

TEST(StatusLine, PutsThePressureOfTheHeaderBackInForce) {
  Program program;
  EXPECT_EQ(facts(program.window), "29.92126 in Hg|||No chart|no records|");
  program.setElevation("5000");
  program.drawChart();
  program.typePoint("75", "62.5");
  const std::string row = program.row();
  click(program.window, "Command4");
  program.returnToChart();
  const char* chart = "|Standard chart, 5000 ft, 0 to 120 Deg F, 0 to 0.030|no records|";
  EXPECT_EQ(facts(program.window), std::string("29.92126 in Hg in force|header says 5000 ft|") + chart);
  type(program.window, "Text5", "62.5");
  EXPECT_NE(program.row(), row);
  click(control<QWidget>(program.window, "statusline"), "header");
  EXPECT_EQ(facts(program.window), std::string("24.896 in Hg, 5000 ft|") + "|" + chart);
  EXPECT_EQ(program.row(), row) << "the live row follows";
}

TEST(StatusLine, NamesLimitsThatAreNotDrawn) {
  Program program(Program::onChart);
  select(program.window, "Combo4", 10);
  EXPECT_EQ(text(program.window, "changes"), "limits changed, not drawn");
  EXPECT_EQ(marked(program.window, "Combo4"), "limits changed, not drawn");
  EXPECT_EQ(marked(program.window, "Combo3"), "");
  select(program.window, "Combo4", 12);
  EXPECT_EQ(marked(program.window, "Combo4") + text(program.window, "changes"), "");
}

TEST(StatusLine, AnswersCommands) {
  Program program(Program::onChart);
  program.typePoint("75", "62.5");
  QWidget& report = program.open("Command14", "Form3");
  click(report, "Command3");
  click(report, "Command3");
  EXPECT_EQ(said(program.window), "record 2 saved");
  EXPECT_EQ(text(program.window, "records"), "2 records");
  report.close();
  const BoxAnswers answers(QMessageBox::Yes);
  {
    const SaveAnswer save(QStringLiteral("/dev/full"));
    click(program.window, "Command11");
  }
  EXPECT_EQ(said(program.window), "chart not written to full: No space left on device");
  type(program.window, "Text5", "80");
  EXPECT_EQ(said(program.window), "wet bulb above dry bulb") << "the next key ends an answer";
  QFile::remove(program.path("temp.txt"));
  select(program.window, "Combo4", 10);
  EXPECT_EQ(text(program.window, "records"), "no records") << "the log is gone";
}

TEST(Boxes, SayWhatTheyAreReadAs) {
  Program program(Program::onChart);
  type(program.window, "Text1", "5o");
  EXPECT_EQ(marked(program.window, "Text1"), "read as 0");
  EXPECT_EQ(said(program.window), "Relative humidity line: read as 0");
  type(program.window, "Text1", "50");
  EXPECT_EQ(marked(program.window, "Text1") + said(program.window), "");
  std::string empty;
  for (const char* box : {"Text1", "Text2", "Text3", "Text6"}) {
    empty += control<QLineEdit>(program.window, box).placeholderText().toStdString() + "|";
  }
  EXPECT_EQ(empty, "line 0|line 0|line 0|no line|");
  auto& kind = *control<ListBox>(program.window, "Combo1").lineEdit();
  kind.selectAll();
  QTest::keyClicks(&kind, QStringLiteral("Rel"));
  EXPECT_EQ(marked(program.window, "Combo1"), "no property is chosen") << "before the row follows";
  EXPECT_EQ(said(program.window), "no property is chosen");
}

TEST(Remarks, PutTheExactStateIntoTheBoxes) {
  Program program(Program::onChart);
  select(program.window, "Combo1", 4);
  select(program.window, "Combo2", 5);
  program.typePoint("13.68", "27.65");
  EXPECT_EQ(said(program.window),
            "this state has dew point 28.72 for the 27.65 given; exact: dry bulb 43.13, wet bulb 36.56");
  EXPECT_EQ(text(program.window, "Label13"), "42.4687500") << "the row stays as it is";
  const auto& message = control<QWidget>(program.window, "voice");
  EXPECT_GE(message.width(), message.sizeHint().width()) << "what stands is cut before a remark";
  click(program.window, "voice");
  EXPECT_EQ(text(program.window, "Text4") + "|" + text(program.window, "Text5"), "43.1289323|36.5554906");
  EXPECT_EQ(text(program.window, "Label16").substr(0, 7) + text(program.window, "Label24").substr(0, 7),
            "13.680027.6500");
  EXPECT_EQ(said(program.window), "");
}

TEST(Remarks, FollowThePressureTheChartAndTheListsBetweenKeys) {
  Program program;
  select(program.window, "Combo1", 4);
  select(program.window, "Combo2", 5);
  program.typePoint("13.68", "27.65");
  const char* exact = "exact: dry bulb 43.13, wet bulb 36.56";
  EXPECT_EQ(said(program.window), std::string("no state found by the search: draw a chart to search on; ") + exact);
  program.drawChart();
  const std::string missed = std::string("this state has dew point 28.72 for the 27.65 given; ") + exact;
  EXPECT_EQ(said(program.window), "row above: empty until the next key; now: " + missed);
  program.typePoint("13.68", "27.65");
  EXPECT_EQ(said(program.window), missed);
  select(program.window, "Combo3", 5);
  EXPECT_EQ(said(program.window), std::string("row above: from before; now: no state found by the search; ") + exact);
  select(program.window, "Combo3", 0);
  EXPECT_EQ(said(program.window), missed);
  program.setElevation("5000");
  program.drawChart();
  program.typePoint("13.68", "27.65");
  EXPECT_EQ(said(program.window), "");
  const std::string row = program.row();
  click(program.window, "Command4");
  program.returnToChart();
  EXPECT_EQ(said(program.window), "row above: at 24.896 in Hg; now: " + missed);
  EXPECT_EQ(program.row(), row);
  click(program.open("Command14", "Form3"), "Command1");
  EXPECT_EQ(said(program.window), missed) << "the row is the point's";
}

TEST(Remarks, OfStreamsStandBelowTheMixingTable) {
  Program program;
  program.setElevation("5000");
  click(program.window, "Command4");
  program.returnToChart();
  QWidget& window = program.open("Command13", "Form5");
  EXPECT_EQ(text(window, "pressurenote"), "calculated at 29.92126 in Hg, not at 5000 ft");
  select(window, "Combo1", 4);
  select(window, "Combo2", 5);
  const std::pair<const char*, const char*> inputs[] = {{"Text4", "13.68"}, {"Text5", "27.65"}, {"Text2", "12,000"},
                                                        {"Text6", "95"},    {"Text7", "101"},   {"Text3", "-5"}};
  for (const auto& [box, value] : inputs) type(window, box, value);
  EXPECT_EQ(text(window, "note2"), "Stream 2: air flow: must be above 0; wet bulb above dry bulb");
  EXPECT_EQ(marked(window, "Text2") + "|" + marked(window, "Text3") + "|" + marked(window, "Text6") + "|" +
                marked(window, "Text7"),
            "read as 12|must be above 0||wet bulb above dry bulb");
  EXPECT_EQ(role(window, "note1"), QAccessible::PushButton);
  EXPECT_EQ(role(window, "note2"), QAccessible::StaticText) << "a click does nothing";
  QApplication::setActiveWindow(&window);
  QTest::keyClick(&window, Qt::Key_1, Qt::ControlModifier);
  EXPECT_EQ(text(window, "Text4"), "43.1289323");
  EXPECT_EQ(text(window, "note1"), "Stream 1: air flow: read as 12");
  control<ListBox>(window, "Combo3").setEditText(QStringLiteral("foo"));
  EXPECT_EQ(text(window, "note2"), "Stream 2: air flow: must be above 0; no property is chosen");
}

}  // namespace
}  // namespace moistair::windowtest
