#include "shell/mainwindow.h"

#include <QComboBox>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <algorithm>

#include "mixing/mixingwindow.h"
#include "shell/startup.h"
#include "support.h"

namespace moistair {
namespace {

using namespace windowtest;

/// The program as it stands after start-up, the pressure window left by "Return to chart".
class Program {
public:
  Program() : window(folder.filePath(QStringLiteral("temp.txt")).toStdString()) {
    QObject::connect(&window, &MainWindow::ended, &window, [this] { ended = true; });
    started = window.start();
    window.showNormal();
    window.resize(1024, 748);
  }

  /// The dialog that takes the input now.
  QWidget& dialog(const char* name) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == QLatin1String(name) && widget->isVisible()) return *widget;
    }
    throw std::runtime_error(std::string("no window ") + name);
  }

  void returntochart() { click(dialog("Form2"), "Command2"); }

  void drawchart(bool blank = false) {
    click(window, "Command3");
    QWidget& charttype = dialog("Form6");
    if (blank) control<QAbstractButton>(charttype, "Option2").click();
    click(charttype, "Command1");
  }

  const Drawing& drawing() { return control<GraphView>(window, "graph").drawing(); }

  std::string lastprint() {
    const auto& operations = drawing().operations;
    for (auto operation = operations.rbegin(); operation != operations.rend(); ++operation) {
      if (const auto* text = std::get_if<TextOperation>(&*operation)) return text->text;
    }
    return {};
  }

  std::string row() {
    std::string texts;
    for (const ReadoutField& field : readoutfields) texts += text(window, field.name) + "|";
    return texts;
  }

  std::string log() {
    QFile file(folder.filePath(QStringLiteral("temp.txt")));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "none";
  }

  QTemporaryDir folder;
  MainWindow window;
  bool started = false;
  bool ended = false;
};

constexpr const char* referencerow =
    "75.0000000|62.5000000|50.3032182|28.1695563|13.6751968|.0092932|55.2457239|.4404820|";

TEST(StartUp, LeavesThePressureWindowInFrontOfAnEmptyChart) {
  Program program;
  EXPECT_TRUE(program.started);
  EXPECT_TRUE(program.window.isVisible());
  EXPECT_TRUE(program.dialog("Form2").isModal());
  ASSERT_EQ(program.drawing().operations.size(), 1u);
  EXPECT_EQ(program.lastprint(), "Atmos. pr= 29.92126  In Hg");
  EXPECT_EQ(program.log(), "\r\n");
  EXPECT_FALSE(control<QWidget>(program.window, "Command2").isEnabled());
  EXPECT_EQ(program.row(), "||||||||");
  const struct {
    const char* list;
    const char* start;
    int items;
  } lists[] = {{"Combo1", "Dry bulb temp, Deg F", 7},
               {"Combo2", "Wet bulb temp, Deg F", 7},
               {"Combo3", "0", 13},
               {"Combo4", "120", 13},
               {"Combo5", "0", 4},
               {"Combo6", "0.030", 4}};
  for (const auto& list : lists) {
    auto& box = control<QComboBox>(program.window, list.list);
    EXPECT_EQ(box.currentText().toStdString(), list.start);
    EXPECT_EQ(box.count(), list.items);
    EXPECT_TRUE(box.isEditable());
  }
}

TEST(StartUp, AsksAboutASmallScreen) {
  EXPECT_TRUE(checkrez(1024, 728, 1024 * 15, 728 * 15));
  EXPECT_FALSE(checkrez(1024, 728, 1024 * 15, 727 * 15));
  EXPECT_FALSE(checkrez(1024, 728, 1023 * 15, 768 * 15));
}

TEST(StartUp, WorksWithoutALog) {
  BoxAnswers answers;
  MainWindow window("/nonexistent/folder/temp.txt");
  EXPECT_TRUE(window.start());
  ASSERT_EQ(answers.boxes().size(), 1u);
  EXPECT_EQ(answers.boxes()[0].title, "Moistair");
  EXPECT_NE(answers.lasttext().find("cannot be kept"), std::string::npos);
}

TEST(LiveRow, FollowsEveryKey) {
  Program program;
  program.returntochart();
  type(program.window, "Text4", "75");
  EXPECT_EQ(program.row(), "||||||||");
  type(program.window, "Text5", "62.5");
  EXPECT_EQ(program.row(), referencerow);
  type(program.window, "Text5", "62.5x");
  EXPECT_EQ(program.row(), "|||||||.4404820|") << "the vapour pressure keeps its last value";
  control<ListBox>(program.window, "Combo1").select(1);
  control<ListBox>(program.window, "Combo2").select(0);
  type(program.window, "Text4", "62.5");
  type(program.window, "Text5", "75");
  EXPECT_EQ(program.row(), referencerow) << "the other order";
  control<ListBox>(program.window, "Combo1").select(0);
  EXPECT_EQ(program.row(), "|||||||.4404820|") << "twice the same kind";
}

TEST(LiveRow, TakesTypedRubbish) {
  Program program;
  program.returntochart();
  type(program.window, "Text4", "75");
  for (const char* rubbish : {"", "-", ".", "1e999", "nan", "inf", "0x10", "7 5", "1,5", "+-1"}) {
    type(program.window, "Text5", rubbish);
    EXPECT_EQ(program.row().substr(0, 7), "|||||||") << rubbish;
  }
  type(program.window, "Text5", " 6.25E+1 ");
  EXPECT_EQ(program.row(), referencerow);
  control<QLineEdit>(program.window, "Text5").setText(QString(400, QLatin1Char('9')));
  EXPECT_EQ(program.row().substr(0, 7), "|||||||");
}

TEST(LiveRow, IgnoresTextTypedIntoAList) {
  Program program;
  program.returntochart();
  type(program.window, "Text4", "75");
  type(program.window, "Text5", "62.5");
  auto& list = control<ListBox>(program.window, "Combo1");
  list.lineEdit()->selectAll();
  QTest::keyClicks(list.lineEdit(), QStringLiteral("Rel humidity"));
  EXPECT_EQ(program.row(), referencerow) << "typing runs nothing";
  type(program.window, "Text5", "62");
  EXPECT_EQ(program.row().substr(0, 7), "|||||||") << "no kind is selected now";
  list.select(0);
  EXPECT_NE(program.row().substr(0, 7), "|||||||");
}

TEST(Pressure, ByElevationStartsTheChartAfresh) {
  Program program;
  QWidget& pressure = program.dialog("Form2");
  control<ListBox>(pressure, "Combo1").select(3);
  type(pressure, "Text1", "5000");
  BoxAnswers answers(QMessageBox::Yes);
  click(pressure, "Command1");
  EXPECT_EQ(answers.boxes().at(0).title, "DELETE");
  EXPECT_EQ(program.lastprint(), "Site elevation=5000 ft");
  ASSERT_EQ(program.drawing().operations.size(), 1u);
  program.drawchart();
  EXPECT_GT(program.drawing().operations.size(), 1500u);
  type(program.window, "Text4", "75");
  type(program.window, "Text5", "62.5");
  EXPECT_EQ(text(program.window, "Label15"), "52.8341213") << "computed at the pressure of that elevation";

  click(program.window, "Command4");
  program.returntochart();
  type(program.window, "Text5", "62");
  type(program.window, "Text5", "62.5");
  EXPECT_EQ(program.row(), referencerow) << "the dialog's opening put the default back in force";
  click(program.window, "Command14");
  EXPECT_EQ(text(program.dialog("Form3"), "Label20"), "Site elevation (ft)");
  EXPECT_EQ(text(program.dialog("Form3"), "Label21"), "5000");
}

TEST(Chart, IsDrawnOnceForItsLimits) {
  Program program;
  program.returntochart();
  EXPECT_THROW(program.dialog("Form6"), std::runtime_error);
  program.drawchart();
  const std::size_t standard = program.drawing().operations.size();
  EXPECT_GT(standard, 1500u);
  EXPECT_EQ(text(program.window, "Label4"), "");
  {
    BoxAnswers answers;
    click(program.window, "Command3");
    EXPECT_EQ(answers.lasttext(),
              "Do one of the followings to draw new chart - 1) Change chart ranges 2) Reset atmos. pressure 3) Clear "
              "graph ");
  }
  EXPECT_EQ(program.drawing().operations.size(), standard);
  control<ListBox>(program.window, "Combo4").select(8);
  program.drawchart(true);
  EXPECT_LT(program.drawing().operations.size(), standard) << "blank, on 0 to 80";
  click(program.window, "Command12");
  EXPECT_TRUE(program.drawing().operations.empty());
  program.drawchart();
  EXPECT_FALSE(program.drawing().operations.empty()) << "the same limits again after clearing";
}

TEST(Chart, RefusesLimitsBesideTheLists) {
  Program program;
  program.returntochart();
  control<ListBox>(program.window, "Combo3").setEditText(QStringLiteral("15"));
  BoxAnswers answers;
  click(program.window, "Command3");
  EXPECT_EQ(answers.lasttext(), "Choose Lower Dry bulb temperature for chart only from the drop down menu");
  EXPECT_EQ(answers.boxes().at(0).buttons, QMessageBox::Ok | QMessageBox::Cancel);
  EXPECT_EQ(program.drawing().operations.size(), 1u) << "nothing cleared";
}

TEST(Chart, LeavingTheTypeWindowLeavesAnEmptyCanvas) {
  Program program;
  program.returntochart();
  program.drawchart();
  control<ListBox>(program.window, "Combo4").select(8);
  click(program.window, "Command3");
  QWidget& charttype = program.dialog("Form6");
  click(program.window, "Command3");
  EXPECT_EQ(&program.dialog("Form6"), &charttype) << "no second window";
  charttype.close();
  EXPECT_TRUE(program.drawing().operations.empty());
  control<ListBox>(program.window, "Combo4").select(12);
  type(program.window, "Text1", "50");
  click(program.window, "Command5");
  EXPECT_EQ(program.lastprint(), "Rh= 50 ")
      << "the limits are those of the chart before: lines fall on the empty canvas";
}

TEST(Lines, WantAChartAndAValue) {
  Program program;
  program.returntochart();
  const struct {
    const char* box;
    const char* button;
    const char* value;
    const char* answer;
    const char* label;
  } lines[] = {{"Text1", "Command5", "50", "", "Rh= 50 "},
               {"Text1", "Command5", "101", "The line is either out of chart limits or is not feasible", ""},
               {"Text2", "Command6", "65.50", "", "WB= 65.5 "},
               {"Text3", "Command7", "28", "", "h= 28 "},
               {"Text3", "Command7", "-1e9", "The line is either out of chart limits or is not feasible", ""},
               {"Text6", "Command9", "13.75", "", "v= 13.75 "},
               {"Text6", "Command9", "", "The line is either out of chart limits or is not feasible", ""}};
  for (const auto& line : lines) {
    BoxAnswers answers;
    click(program.window, line.button);
    EXPECT_EQ(answers.lasttext(), "First draw axis as per latest chart limits");
  }
  program.drawchart();
  for (const auto& line : lines) {
    SCOPED_TRACE(line.value);
    BoxAnswers answers;
    type(program.window, line.box, line.value);
    const std::size_t before = program.drawing().operations.size();
    click(program.window, line.button);
    EXPECT_EQ(answers.lasttext(), line.answer);
    EXPECT_EQ(program.drawing().operations.size() > before, *line.label != '\0');
    if (*line.label != '\0') {
      EXPECT_EQ(program.lastprint(), line.label);
    }
    EXPECT_EQ(program.window.focusWidget()->objectName().toStdString(), "graph");
  }
}

TEST(Point, TravelsFromKeyToLog) {
  Program program;
  program.returntochart();
  type(program.window, "Text4", "75");
  type(program.window, "Text5", "62.5");
  {
    BoxAnswers answers;
    click(program.window, "Command14");
    EXPECT_EQ(answers.lasttext(), "First draw axis as per latest chart limits");
  }
  program.drawchart();
  const std::size_t chart = program.drawing().operations.size();
  type(program.window, "Text7", "A");
  click(program.window, "Command14");
  QWidget& report = program.dialog("Form3");
  EXPECT_EQ(text(report, "Label19"), ".4404820");
  EXPECT_EQ(program.drawing().operations.size(), chart) << "located, not marked";
  click(report, "Command3");
  EXPECT_TRUE(control<QWidget>(program.window, "Command2").isEnabled());
  click(report, "Command1");
  EXPECT_EQ(program.drawing().operations.size(), chart + 20) << "nineteen circles and the identification";
  EXPECT_EQ(program.lastprint(), "A");
  EXPECT_EQ(program.row(), referencerow);

  click(program.window, "Command1");
  QWidget& view = program.dialog("Form4");
  EXPECT_NE(control<QWidget>(view, "Text1").property("plainText").toString().indexOf(QStringLiteral("50.3032182")), -1);
  click(view, "Command1");

  const QString copy = program.folder.filePath(QStringLiteral("copy.txt"));
  BoxAnswers answers;
  SaveAnswer save(copy);
  click(program.window, "Command2");
  EXPECT_EQ(save.title().toStdString(), "Save Pont data in File");
  EXPECT_EQ(answers.lasttext(), "You saved the files as  " + copy.toStdString());
  QFile copied(copy);
  ASSERT_TRUE(copied.open(QIODevice::ReadOnly));
  EXPECT_EQ(copied.readAll().toStdString(), program.log());
  const std::string log = program.log();
  EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 1 + 12) << "the empty line and one record";
}

TEST(Point, BeyondTheChartIsRefusedWhenMarked) {
  Program program;
  program.returntochart();
  control<ListBox>(program.window, "Combo4").select(6);
  program.drawchart();
  type(program.window, "Text4", "75");
  type(program.window, "Text5", "62.5");
  click(program.window, "Command14");
  BoxAnswers answers;
  click(program.dialog("Form3"), "Command1");
  EXPECT_EQ(answers.lasttext(), "The point as per input parameters is out of chart limits");
  EXPECT_EQ(program.row(), "|||||||.4404820|");
}

TEST(NestedPair, ReportsALineOutsideTheChartAtEachKey) {
  Program program;
  program.returntochart();
  control<ListBox>(program.window, "Combo1").select(2);
  control<ListBox>(program.window, "Combo2").select(4);
  BoxAnswers answers;
  type(program.window, "Text4", "5");
  type(program.window, "Text5", "28");
  EXPECT_EQ(answers.boxes().size(), 2u) << "no chart has been drawn: one for each digit";
  EXPECT_EQ(answers.lasttext(), "The line is either out of chart limits or is not feasible");
}

TEST(Mixing, SavesAndDrawsFromItsWindow) {
  Program program;
  program.returntochart();
  program.drawchart();
  const std::size_t chart = program.drawing().operations.size();
  click(program.window, "Command13");
  QWidget& mixing = program.dialog("Form5");
  const std::pair<const char*, const char*> inputs[] = {{"Text4", "75"}, {"Text5", "62.5"}, {"Text2", "1000"},
                                                        {"Text6", "95"}, {"Text7", "75"},   {"Text3", "500"}};
  for (const auto& [box, value] : inputs) type(mixing, box, value);
  EXPECT_EQ(text(mixing, "Label42"), "81.5312397");
  click(mixing, "Command3");
  EXPECT_NE(program.log().find("Steram 2"), std::string::npos);
  click(mixing, "Command1");
  EXPECT_EQ(program.drawing().operations.size(), chart + 77 + 2 + 3);
  EXPECT_THROW(program.dialog("Form5"), std::runtime_error);
}

TEST(SavedChart, IsABitmapAndBecomesTheBackground) {
  Program program;
  program.returntochart();
  program.drawchart();
  const std::size_t chart = program.drawing().operations.size();
  const QString path = program.folder.filePath(QStringLiteral("chart.png"));
  BoxAnswers answers;
  {
    SaveAnswer save(path);
    click(program.window, "Command11");
    EXPECT_EQ(save.title().toStdString(), "Save File");
    EXPECT_EQ(save.filters().join(QLatin1Char('|')).toStdString(), "BMP File (*.bmp)|AllFiles (*.*)");
  }
  EXPECT_EQ(answers.lasttext(), "You saved the files as  " + path.toStdString());
  const QImage image(path, "BMP");
  EXPECT_EQ(image.size(), control<GraphView>(program.window, "graph").size());
  EXPECT_EQ(image.pixelColor(1, 1), QColor(Qt::white));
  control<ListBox>(program.window, "Combo4").select(8);
  click(program.window, "Command3");
  EXPECT_EQ(program.drawing().operations.size(), chart) << "clearing returns to the saved chart";
  program.dialog("Form6").close();
  click(program.window, "Command12");
  EXPECT_TRUE(program.drawing().operations.empty());

  SaveAnswer cancelled{QString()};
  click(program.window, "Command11");
  EXPECT_EQ(answers.lasttext(), "Dialog Cancelled");
  EXPECT_EQ(cancelled.offered().toStdString(), "chart.png") << "the name of the last use";
}

TEST(Windows, AreLeftByTheirWayBack) {
  Program program;
  for (int way = 0; way < 2; ++way) {
    if (way == 1) click(program.window, "Command4");
    QWidget& pressure = program.dialog("Form2");
    program.window.close();
    EXPECT_FALSE(program.ended) << "closing the main window is ignored meanwhile";
    way == 0 ? void(pressure.close()) : QTest::keyClick(&pressure, Qt::Key_Escape);
    EXPECT_THROW(program.dialog("Form2"), std::runtime_error);
  }
  click(program.window, "Command13");
  program.dialog("Form5").close();
  click(program.window, "Command1");
  program.dialog("Form4").close();
  program.window.close();
  EXPECT_TRUE(program.ended) << "closing does what Exit does";
  EXPECT_EQ(program.log(), "none");
}

TEST(Strip, NamesAndOrdersItsControls) {
  Program program;
  const char* order[] = {"Combo5",    "Combo4",    "Combo3",   "graph",    "Command14", "Command3",  "Command4",
                         "Command5",  "Text1",     "Command6", "Text2",    "Command7",  "Text3",     "Combo1",
                         "Combo2",    "Text4",     "Text5",    "Command9", "Text6",     "Command11", "Text7",
                         "Command12", "Command13", "Combo6",   "Command1", "Command8",  "Command16"};
  control<QWidget>(program.window, "Command2").setEnabled(true);
  std::vector<std::string> met;
  QWidget* widget = &control<QWidget>(program.window, "Combo5");
  const QWidget* first = widget;
  do {
    const std::string name = widget->objectName().toStdString();
    const bool stops = (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisibleTo(&program.window);
    if (stops && name.find("qt_") != 0 && !name.empty() && name != "Command2") met.push_back(name);
    widget = widget->nextInFocusChain();
  } while (widget != first);
  EXPECT_EQ(met, std::vector<std::string>(std::begin(order), std::end(order)));
  EXPECT_EQ(control<QWidget>(program.window, "Command9").toolTip().toStdString(), "Draw specific voloume line");
  for (const char* input : {"Text1", "Text2", "Text3", "Text4", "Text5", "Text6", "Text7"}) {
    EXPECT_FALSE(control<QWidget>(program.window, input).accessibleName().isEmpty()) << input;
  }
}

TEST(Strip, FitsEveryScreen) {
  Program program;
  program.returntochart();
  type(program.window, "Text4", "119.3333333");
  type(program.window, "Text5", "85.7777777");
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
      EXPECT_TRUE(strip.rect().contains(child->geometry())) << child->objectName().toStdString();
      if (const auto* list = qobject_cast<const ListBox*>(child)) {
        const int item = list->fontMetrics().horizontalAdvance(list->currentText());
        EXPECT_GT(list->lineEdit()->width(), item) << list->objectName().toStdString();
      }
      if (const auto* label = qobject_cast<const QLabel*>(child)) {
        EXPECT_GE(label->width(), label->fontMetrics().size(0, label->text()).width()) << label->text().toStdString();
      }
    }
  }
}

}  // namespace
}  // namespace moistair
