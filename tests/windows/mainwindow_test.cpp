#include "shell/mainwindow.h"

#include <QImage>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <algorithm>
#include <fstream>

#include "shell/startup.h"
#include "support.h"

namespace moistair {
namespace {

using namespace windowtest;

constexpr const char* referenceRow =
    "75.0000000|62.5000000|50.3032182|28.1695563|13.6751968|.0092932|55.2457239|.4404820|";
constexpr const char* drawFirst = "First draw axis as per latest chart limits";
constexpr const char* noLine = "The line is either out of chart limits or is not feasible";

TEST(StartUp, LeavesThePressureWindowInFrontOfAnEmptyChart) {
  Program program(Program::atStart);
  EXPECT_TRUE(program.started);
  EXPECT_TRUE(program.window.isVisible());
  EXPECT_TRUE(program.dialog("Form2").isModal());
  EXPECT_EQ(program.operations().size(), 1u);
  EXPECT_EQ(program.lastPrint(), "Atmos. pr= 29.92126  In Hg");
  EXPECT_EQ(program.file("temp.txt"), "\r\n");
  EXPECT_FALSE(control<QWidget>(program.window, "Command2").isEnabled());
  EXPECT_EQ(program.row(), "||||||||");
  std::string lists;
  for (const char* name : {"Combo1", "Combo2", "Combo3", "Combo4", "Combo5", "Combo6"}) {
    auto& list = control<ListBox>(program.window, name);
    EXPECT_TRUE(list.isEditable());
    lists += list.currentText().toStdString() + " of " + std::to_string(list.count()) + "|";
  }
  EXPECT_EQ(lists, "Dry bulb temp, Deg F of 7|Wet bulb temp, Deg F of 7|0 of 13|120 of 13|0 of 4|0.030 of 4|");
}

TEST(StartUp, AsksAboutASmallScreen) {
  EXPECT_TRUE(checkRez(1024, 728, 1024 * 15, 728 * 15));
  EXPECT_FALSE(checkRez(1024, 728, 1024 * 15, 727 * 15));
  EXPECT_FALSE(checkRez(1024, 728, 1023 * 15, 768 * 15));
}

TEST(StartUp, WorksWithoutALog) {
  BoxAnswers answers;
  MainWindow window(LogPlaces{{"/nonexistent/folder"}, "/nonexistent/sessions"});
  EXPECT_TRUE(window.start());
  EXPECT_EQ(answers.count(), 1u);
  EXPECT_NE(answers.lastText().find("cannot be kept"), std::string::npos);
}

TEST(LiveRow, FollowsEveryKey) {
  Program program;
  type(program.window, "Text4", "75");
  EXPECT_EQ(program.row(), "||||||||");
  type(program.window, "Text5", "62.5");
  EXPECT_EQ(program.row(), referenceRow);
  type(program.window, "Text5", "62.5x");
  EXPECT_EQ(program.row(), "|||||||.4404820|") << "the vapour pressure keeps its last value";
  type(program.window, "Text5", " 6.25E+1 ");
  EXPECT_EQ(program.row(), referenceRow);
}

TEST(LiveRow, FollowsTheListsButNotTextTypedIntoThem) {
  Program program;
  select(program.window, "Combo1", 1);
  select(program.window, "Combo2", 0);
  program.typePoint("62.5", "75");
  EXPECT_EQ(program.row(), referenceRow) << "the other order";
  select(program.window, "Combo1", 0);
  EXPECT_EQ(program.row(), "|||||||.4404820|") << "twice the same kind";
  select(program.window, "Combo1", 1);
  auto& list = *control<ListBox>(program.window, "Combo1").lineEdit();
  list.selectAll();
  QTest::keyClicks(&list, QStringLiteral("Rel humidity"));
  EXPECT_EQ(program.row(), referenceRow) << "typing runs nothing";
  type(program.window, "Text5", "76");
  EXPECT_EQ(program.row().substr(0, 7), "|||||||") << "no kind is selected now";
  select(program.window, "Combo1", 1);
  EXPECT_NE(program.row().substr(0, 7), "|||||||");
}

TEST(LiveRow, TellsAtEachKeyThatALineDoesNotCrossTheChart) {
  Program program;
  select(program.window, "Combo1", 2);
  select(program.window, "Combo2", 4);
  BoxAnswers answers;
  program.typePoint("5", "28");
  EXPECT_EQ(answers.count(), 2u) << "no chart has been drawn: one for each digit";
  EXPECT_EQ(answers.lastText(), noLine);
}

TEST(Pressure, ByElevationStartsTheChartAfresh) {
  Program program(Program::atStart);
  program.setElevation("5000");
  EXPECT_EQ(program.lastPrint(), "Site elevation=5000 ft");
  EXPECT_EQ(program.operations().size(), 1u);
  program.drawChart();
  program.typePoint("75", "62.5");
  EXPECT_EQ(text(program.window, "Label15"), "52.8341213") << "computed at the pressure of that elevation";

  click(program.window, "Command4");
  program.returnToChart();
  type(program.window, "Text5", "62");
  type(program.window, "Text5", "62.5");
  EXPECT_EQ(program.row(), referenceRow) << "the dialog's opening put the default back in force";
  QWidget& report = program.open("Command14", "Form3");
  EXPECT_EQ(labels(report, 20, 21), "Site elevation (ft)|5000|");
  report.close();
  const BoxAnswers answers(QMessageBox::Yes);
  click(program.open("Command4", "Form2"), "Command1");
  EXPECT_EQ(program.operations().size(), 1u) << "a new pressure clears the chart that stands";
}

TEST(Chart, IsDrawnOfTheTypeChosenAndClearedFromThePicture) {
  Program program(Program::onChart);
  const auto picture = [&] { return control<GraphView>(program.window, "graph").picture(); };
  const std::size_t standard = program.operations().size();
  EXPECT_GT(standard, 1500u);
  const BoxAnswers answers;
  click(program.window, "Command3");
  EXPECT_EQ(answers.count(), 1u) << "the chart stands";
  EXPECT_FALSE(program.isOpen("Form6"));
  QImage empty = picture();
  empty.fill(Qt::white);
  EXPECT_NE(picture(), empty);
  type(program.window, "Text4", "75");
  click(program.window, "Command12");
  EXPECT_TRUE(program.operations().empty());
  EXPECT_EQ(picture(), empty) << "the old picture stays";
  EXPECT_EQ(text(program.window, "Text4"), "");
  program.drawChart(true);
  EXPECT_LT(program.operations().size(), standard / 2) << "blank";
  EXPECT_NE(picture(), empty);
}

TEST(Lines, AreDrawnByTheirButtonFromTheirBox) {
  Program program;
  const struct {
    const char *box, *button, *value, *label;
  } lines[] = {{"Text1", "Command5", "50", "Rh= 50 "},
               {"Text2", "Command6", "65.50", "WB= 65.5 "},
               {"Text3", "Command7", "28", "h= 28 "},
               {"Text6", "Command9", "13.75", "v= 13.75 "}};
  BoxAnswers answers(QMessageBox::Cancel);
  for (const auto& line : lines) click(program.window, line.button);
  EXPECT_EQ(answers.count(), 4u);
  EXPECT_EQ(answers.lastText(), drawFirst);
  program.drawChart(true);
  for (const auto& line : lines) {
    type(program.window, line.box, line.value);
    click(program.window, line.button);
    EXPECT_EQ(program.lastPrint(), line.label);
    EXPECT_EQ(program.window.focusWidget()->objectName().toStdString(), "graph");
  }
  type(program.window, "Text1", "101");
  click(program.window, "Command5");
  EXPECT_EQ(answers.lastText(), noLine);
}

TEST(Point, TravelsFromKeyToLog) {
  Program program;
  program.typePoint("75", "62.5");
  BoxAnswers answers;
  click(program.window, "Command14");
  EXPECT_EQ(answers.lastText(), drawFirst);
  program.drawChart();
  const std::size_t chart = program.operations().size();
  type(program.window, "Text7", "A");
  QWidget& report = program.open("Command14", "Form3");
  EXPECT_EQ(program.operations().size(), chart) << "located, not marked";
  click(report, "Command3");
  EXPECT_TRUE(control<QWidget>(program.window, "Command2").isEnabled());
  click(report, "Command1");
  EXPECT_EQ(program.operations().size(), chart + 20) << "nineteen circles and the identification";
  EXPECT_EQ(program.lastPrint(), "A");
  EXPECT_EQ(program.row(), referenceRow);

  const std::string log = program.file("temp.txt");
  EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 1 + 12) << "the empty line and one record";
}

TEST(Point, IsMarkedWithWhatWasTypedOrNotAtAll) {
  Program program(Program::onChart);
  program.typePoint("75", "62.5");
  click(program.open("Command14", "Form3"), "Command1");
  EXPECT_EQ(program.lastPrint(), "") << "no identification: the report says Nil, the chart nothing";
  QWidget& report = program.open("Command14", "Form3");
  const std::size_t before = program.operations().size();
  control<ListBox>(program.window, "Combo3").setEditText(QStringLiteral("80"));
  BoxAnswers answers;
  click(report, "Command1");
  EXPECT_EQ(answers.lastText(), "The point as per input parameters is out of chart limits");
  EXPECT_EQ(program.operations().size(), before);
  EXPECT_EQ(program.row(), "|||||||.4404820|");
}

TEST(EarlierSessions, AreListedAndRead) {
  Program program;
  auto& menu = *program.window.menuBar()->actions().first()->menu();
  const auto sessions = [&] {
    Q_EMIT menu.aboutToShow();
    return menu.findChildren<QMenu*>().last()->actions();
  };
  EXPECT_TRUE(sessions().isEmpty());
  const auto folder = std::filesystem::path(program.path("sessions").toStdString());
  std::filesystem::create_directory(folder);
  const std::filesystem::path file = folder / "2026-01-02T03-04-05Z.txt";
  std::ofstream(file) << "\r\nsaved\r\n";
  ASSERT_EQ(sessions().size(), 1);
  sessions().first()->trigger();
  EXPECT_EQ(control<QPlainTextEdit>(program.dialog("Form4"), "Text1").toPlainText().toStdString(), "\nsaved\n");
  click(program.dialog("Form4"), "Command1");

  BoxAnswers answers;
  const std::string refused =
      "The data of this session cannot be shown: its file cannot be read.\n" + file.string() + ": ";
  const auto listed = sessions();
  std::filesystem::resize_file(file, (8 << 20) + 1);
  listed.first()->trigger();
  EXPECT_EQ(answers.lastText(), refused + "It is larger than 8 MB, the limit.");
  std::filesystem::remove(file);
  listed.first()->trigger();
  EXPECT_EQ(answers.lastText(), refused + "No such file or directory");
}

TEST(Windows, AreLeftByTheirWayBack) {
  Program program(Program::atStart);
  program.dialog("Form2").close();
  program.drawChart();
  program.typePoint("75", "62.5");
  const struct {
    const char *opener, *name, *wayBack;
  } dialogs[] = {{"Command4", "Form2", "Command2"},
                 {"Command14", "Form3", "Command2"},
                 {"Command1", "Form4", "Command1"},
                 {"Command13", "Form5", "Command4"}};
  for (const auto& dialog : dialogs) {
    SCOPED_TRACE(dialog.name);
    program.open(dialog.opener, dialog.name).close();
    EXPECT_FALSE(program.isOpen(dialog.name));
    QTest::keyClick(&program.open(dialog.opener, dialog.name), Qt::Key_Escape);
    EXPECT_FALSE(program.isOpen(dialog.name));
    QWidget& window = program.open(dialog.opener, dialog.name);
    program.window.close();
    EXPECT_FALSE(program.ended) << "closing the main window is ignored meanwhile";
    if (dialog.name == std::string("Form5")) pressReturn(window, "Text7");
    EXPECT_TRUE(program.isOpen(dialog.name)) << "Return in a value box presses nothing";
    pressReturn(window, dialog.wayBack);
    EXPECT_FALSE(program.isOpen(dialog.name)) << "Return presses the button";
  }
  select(program.window, "Combo4", 8);
  program.open("Command3", "Form6").showMinimized();
  pressReturn(program.window, "Command3");
  EXPECT_FALSE(program.dialog("Form6").isMinimized()) << "Draw chart brings it back";
  program.window.close();
  EXPECT_TRUE(program.ended) << "closing does what Exit does";
  EXPECT_EQ(program.file("temp.txt"), "none");
}

TEST(Chart, FollowsTheWindowAndEachStepCanBeUndone) {
  Program program(Program::onChart);
  type(program.window, "Text1", "50");
  click(program.window, "Command5");
  program.typePoint("75", "62.5");
  click(program.open("Command14", "Form3"), "Command1");
  const std::vector<Operation> before = program.operations();
  program.window.resize(1280, 900);
  QApplication::processEvents();
  EXPECT_EQ(program.operations().size(), before.size());
  EXPECT_NE(program.operations(), before) << "laid out for another window";
  program.window.resize(1024, 748);
  QApplication::processEvents();
  EXPECT_EQ(program.operations(), before);

  click(program.window, "Command12");
  const char* names[] = {"Clear chart", "Point", "Relative humidity line 50", "Draw chart"};
  for (const char* name : names) {
    QAction& undo = action(program.window, "&Undo");
    EXPECT_EQ(undo.text().toStdString(), std::string("&Undo ") + name);
    undo.trigger();
    if (undo.text().contains(QLatin1String("Point"))) {
      EXPECT_EQ(program.operations(), before) << "the clearing undone";
    }
  }
  EXPECT_EQ(program.lastPrint(), "Atmos. pr= 29.92126  In Hg");
  EXPECT_FALSE(action(program.window, "&Undo").isEnabled());
  for (int step = 0; step < 3; ++step) action(program.window, "&Redo").trigger();
  EXPECT_EQ(program.operations(), before);
}

TEST(Strip, NamesAndOrdersItsControls) {
  Program program;
  control<QWidget>(program.window, "Combo6").setFocus();
  EXPECT_EQ(tabOrder(program.window),
            "Command1|Command8|Command16|Combo5|Combo4|Combo3|graph|Command14|Command3|Command4|Command5|Text1|"
            "Command6|Text2|Command7|Text3|Combo1|Combo2|Text4|Text5|Command9|Text6|Command11|Text7|Command12|"
            "Command13|Combo6|");
  EXPECT_EQ(control<QWidget>(program.window, "Command9").toolTip().toStdString(), "Draw specific voloume line");
  for (const char* input : {"Text1", "Text2", "Text3", "Text4", "Text5", "Text6", "Text7"}) {
    EXPECT_FALSE(control<QWidget>(program.window, input).accessibleName().isEmpty()) << input;
  }
}

TEST(Strip, FitsEveryScreen) {
  Program program;
  program.typePoint("119.3333333", "85.7777777");
  for (const QSize size : {QSize(1024, 728), QSize(1366, 768), QSize(1920, 1080)}) {
    program.window.resize(size);
    QApplication::processEvents();
    const QSize inner = program.window.centralWidget()->size();
    ASSERT_EQ(inner.width(), size.width());
    const auto& strip = *program.window.findChild<Strip*>();
    EXPECT_LE(strip.height(), inner.height() / 6 - 13) << size.width();
    EXPECT_LE(strip.minimumSizeHint().width(), size.width());
    for (const QWidget* child : strip.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
      if (!child->isVisible()) continue;
      SCOPED_TRACE(child->objectName().toStdString());
      EXPECT_TRUE(strip.rect().contains(child->geometry()));
      if (const auto* list = qobject_cast<const ListBox*>(child)) {
        EXPECT_GT(list->lineEdit()->width(), list->fontMetrics().horizontalAdvance(list->currentText()));
      }
      if (const auto* label = qobject_cast<const QLabel*>(child)) {
        EXPECT_GE(label->width(), label->fontMetrics().size(0, label->text()).width()) << label->text().toStdString();
      }
    }
  }
}

}  // namespace
}  // namespace moistair
