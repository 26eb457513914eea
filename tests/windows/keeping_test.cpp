// Nothing that a person has typed, drawn or chosen goes without a word.
#include <QDialogButtonBox>
#include <QPrintDialog>
#include <fstream>

#include "shell/chartexport.h"
#include "shell/paper.h"
#include "support.h"
#include "windows/readinglayer.h"
#include "windows/sheetdialog.h"
#include "windows/sheetview.h"
#include "windows/titleblockdialog.h"

namespace moistair {
namespace {

using namespace windowtest;

/// A click of the pointer on the chart.
void clickChart(Program& program, double db, double w) {
  auto& graph = control<GraphView>(program.window, "graph");
  const QSize size = program.window.centralWidget()->size();
  const PlotBox box =
      plotBox(plotArea({0, 120, 0, 0.03}, {size.width() * twipsPerPixel, size.height() * twipsPerPixel}));
  const QPoint place = QPointF(box.x(db), box.y(w)).toPoint();
  for (const auto type : {QEvent::MouseMove, QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent event(type, place, graph.mapToGlobal(place), Qt::LeftButton,
                      type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&graph, &event);
  }
}

std::string pair(Program& program) {
  std::string texts;
  for (const char* list : {"Combo1", "Combo2"}) {
    texts += control<ListBox>(program.window, list).currentText().left(8).toStdString() + "|";
  }
  return texts + text(program.window, "Text4") + "|" + text(program.window, "Text5");
}

TEST(UnsavedWork, IsNotTouchedBeforeTheStartQuestionsAreAnswered) {
  QTemporaryDir folder;
  const QString work = folder.filePath(QStringLiteral(".temp-unsaved.moistair"));
  std::ofstream(work.toStdString()) << "left";
  const std::string path = folder.path().toStdString();
  MainWindow window(LogPlaces{{path}, path + "/sessions"});
  window.findChild<FilesController*>()->findChild<QTimer*>()->setInterval(0);
  QTest::qWait(50);
  EXPECT_TRUE(QFile::exists(work)) << "the question about the screen is open";
  window.endSession();
  EXPECT_TRUE(QFile::exists(work)) << "and is answered by a signal";
}

TEST(UnsavedWork, ThatCannotBeKeptIsReportedUntilItIs) {
  Program program(Program::onChart);
  program.window.findChild<FilesController*>()->findChild<QTimer*>()->setInterval(0);
  const QString inWay = program.path(".temp-unsaved.moistair");
  QTest::qWait(20);
  QFile::remove(inWay);
  QDir().mkpath(inWay + QStringLiteral("/x"));
  program.addLineAndPoint();
  QTest::qWait(50);
  EXPECT_EQ(text(program.window, "unkept").substr(0, 32), "Unsaved work is not being kept: ");
  QDir(inWay).removeRecursively();
  QTest::qWait(50);
  EXPECT_EQ(text(program.window, "unkept"), "");
  EXPECT_TRUE(QFile::exists(inWay));
}

TEST(Boxes, HoldWhatWasTypedUntilAClickOnTheChartAndAfterIt) {
  Program program(Program::onChart);
  clickChart(program, 60, 0.008);
  EXPECT_EQ(text(program.window, "offer"), "") << "nothing was typed";
  select(program.window, "Combo2", 2);
  program.typePoint("75", "50");
  const std::string typed = pair(program);
  const std::string row = program.row();
  for (const bool bykey : {false, true}) {
    clickChart(program, 70, 0.01);
    const std::string taken = pair(program);
    clickChart(program, 80, 0.012);
    EXPECT_EQ(text(program.window, "offer"), "The boxes held 75 and 50: put it back");
    auto& box = control<QLineEdit>(program.window, "Text5");
    QTest::keyClicks(&box, QStringLiteral("1"));
    EXPECT_EQ(text(program.window, "offer"), "") << "something else was typed";
    QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(pair(program), taken);
    ASSERT_NE(text(program.window, "offer"), "");
    bykey ? QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier) : click(program.window, "offer");
    EXPECT_EQ(pair(program), typed);
    EXPECT_EQ(program.row(), row);
    EXPECT_EQ(text(program.window, "offer"), "");
  }
}

TEST(Return, OnTheChartLocatesOnlyWhereKeysHaveGone) {
  Program program(Program::onChart);
  clickChart(program, 75, 0.0095);
  type(program.window, "Text1", "50");
  QApplication::setActiveWindow(&program.window);
  auto& graph = control<QWidget>(program.window, "graph");
  control<QWidget>(program.window, "Text1").setFocus();
  QTest::keyClick(&control<QWidget>(program.window, "Text1"), Qt::Key_Return);
  ASSERT_TRUE(graph.hasFocus());
  QTest::keyClick(&graph, Qt::Key_Return);
  EXPECT_FALSE(program.isOpen("Form3")) << "the pointer is over the chart";
  QTest::keyClick(&graph, Qt::Key_Left);
  control<QWidget>(program.window, "Text1").setFocus();
  QTest::keyClick(&control<QWidget>(program.window, "Text1"), Qt::Key_Return);
  QTest::keyClick(&graph, Qt::Key_Return);
  EXPECT_FALSE(program.isOpen("Form3")) << "the cross hair was moved before the line was drawn";
  QTest::keyClick(&graph, Qt::Key_Left);
  QTest::keyClick(&graph, Qt::Key_Return);
  EXPECT_TRUE(program.isOpen("Form3"));
}

TEST(FirstFile, NamesItselfAndAsksWhichPressureHolds) {
  Program high(Program::atStart);
  high.setElevation("5000");
  high.drawChart();
  high.addLineAndPoint();
  {
    const SaveAnswer save(high.path("high"));
    action(high.window, "Save &as").trigger();
  }
  const struct {
    const char *name, *feet, *button, *pressure;
    std::size_t questions;
  } cases[] = {{"nothing set", nullptr, "", "24.89611 in Hg, 5000 ft", 0},
               {"the same set", "5000", "", "24.89611 in Hg, 5000 ft", 1},
               {"the file's", "4000", "The &file's", "24.89611 in Hg, 5000 ft", 2},
               {"the one set", "4000", "The one I have &set", "25.84171 in Hg, 4000 ft", 2}};
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    Program program(Program::atStart);
    program.returnToChart();
    QTemporaryDir folder;
    const std::string path = folder.path().toStdString();
    MainWindow window(LogPlaces{{path}, path + "/sessions"});
    std::vector<std::string> questions;
    const Watch<QMessageBox> watch([&](QMessageBox& box) {
      questions.push_back(box.text().toStdString());
      for (QAbstractButton* button : box.buttons()) {
        if (button->text() == QLatin1String(test.button)) return button->click();
      }
      box.button(QMessageBox::Yes)->click();
    });
    ASSERT_TRUE(window.start(high.path("high.moistair")));
    QWidget& pressure = program.dialog("Form2");
    EXPECT_EQ(text(pressure, "waiting").substr(0, 75),
              "high.moistair is opened after this window. It was made at 24.896 in Hg, 500");
    if (test.feet == nullptr) {
      click(pressure, "Command2");
    } else {
      select(pressure, "Combo1", 3);
      type(pressure, "Text1", test.feet);
      click(pressure, "Command1");
    }
    QTest::qWait(80);
    EXPECT_EQ(questions.size(), test.questions);
    const auto& drawn = control<GraphView>(window, "graph").drawing().operations;
    EXPECT_EQ(drawn.size() == 1, test.button == std::string("The one I have &set"));
    EXPECT_EQ(text(window, "inforce").substr(0, 5), std::string(test.pressure).substr(0, 5));
    EXPECT_EQ(text(window, "document").substr(0, 13), "high.moistair");
  }
}

/// Fills in a title block, or cancels it.
template <class Answer>
std::string printSheet(Program& program, Answer answer) {
  std::string began = "not asked";
  const Watch<QMessageBox> what([](QMessageBox& box) {
    for (QAbstractButton* button : box.buttons()) {
      if (button->text() == QStringLiteral("A &sheet")) button->click();
    }
  });
  const Watch<TitleBlockDialog> watch([&](TitleBlockDialog& dialog) {
    began = text(dialog, "title") + "|" + text(dialog, "project") + "|" + text(dialog, "drawnby");
    answer(dialog);
  });
  const Watch<QPrintDialog> print([](QPrintDialog& dialog) { dialog.reject(); });
  action(program.window, "&Print").trigger();
  return began;
}

TEST(TitleBlock, IsTheDocumentsAndWhoDrewItTheNextOnesToo) {
  Program program(Program::onChart);
  const auto fill = [](TitleBlockDialog& dialog) {
    type(dialog, "project", "Job 7");
    type(dialog, "drawnby", "A. B.");
    QTest::keyClick(&control<QWidget>(dialog, "drawnby"), Qt::Key_Return);
  };
  EXPECT_EQ(printSheet(program, [](TitleBlockDialog& dialog) { dialog.reject(); }), "Psychrometric chart||");
  EXPECT_EQ(printSheet(program, fill), "Psychrometric chart||");
  EXPECT_EQ(printSheet(program, fill), "not asked");
  EXPECT_EQ(action(program.window, "&Undo").text().toStdString(), "&Undo Title block");
  {
    const SaveAnswer save(program.path("titled"));
    action(program.window, "Sa&ve").trigger();
  }
  EXPECT_NE(program.file("titled.moistair").find(R"("project":"Job 7","drawnby":"A. B.")"), std::string::npos);
  action(program.window, "&New").trigger();
  program.drawChart();
  EXPECT_EQ(printSheet(program, [](TitleBlockDialog& dialog) { dialog.reject(); }), "Psychrometric chart||A. B.");
}

TEST(Sheets, StayInTheirDialogWhenNoFileIsChosen) {
  Program program(Program::onChart);
  const SaveAnswer cancel(QString{});
  int exports = 0;
  const Watch<SheetDialog> watch([&](SheetDialog& dialog) {
    if (++exports == 3) return dialog.reject();
    type(dialog, "title", "Typed once");
    click(dialog, "export");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(text(dialog, "title"), "Typed once");
  });
  action(program.window, "Export s&heet").trigger();
  EXPECT_EQ(exports, 3);
}

TEST(Export, ByItsKeyIsOfWhatIsOnTheScreen) {
  Program program(Program::onChart);
  const auto key = [&](const char* name) { return action(program.window, name).shortcut().toString().toStdString(); };
  EXPECT_EQ(key("&Export chart") + "|" + key("Export s&heet"), "Ctrl+E|");
  action(program.window, "As a &sheet").trigger();
  EXPECT_EQ(key("&Export chart") + "|" + key("Export s&heet"), "|Ctrl+E");
  click(program.window, "Command12");
  EXPECT_EQ(key("&Export chart") + "|" + key("Export s&heet"), "Ctrl+E|") << "without a chart there is no sheet";
}

TEST(Paper, IsTheLocales) {
  for (const char* locale : {"C", "C.UTF-8", "POSIX", "en_US.UTF-8", "es_MX", "fr_CA@euro", "en"}) {
    EXPECT_TRUE(usesLetter(locale)) << locale;
  }
  for (const char* locale : {"de_DE.UTF-8", "en_GB", "C_DE", "de", "sv_SE"}) EXPECT_FALSE(usesLetter(locale)) << locale;
  setenv("LC_ALL", "de_AT.UTF-8", 1);
  EXPECT_EQ(firstPage().pageSize().id(), QPageSize::A4);
  setenv("LC_ALL", "C", 1);
  EXPECT_EQ(firstPage().pageSize().id(), QPageSize::Letter);
  EXPECT_EQ(firstPage().margins(QPageLayout::Inch), QMarginsF(0.5, 0.5, 0.5, 0.5));
}

TEST(SaveChart, OntoTheLogIsRefusedInTheStatusLine) {
  Program program(Program::onChart);
  std::vector<std::string> texts;
  const Watch<QMessageBox> watch([&](QMessageBox& box) {
    const bool replacing = box.standardButtons().testFlag(QMessageBox::Yes);
    if (!replacing) texts.push_back(box.text().toStdString());
    box.button(replacing ? QMessageBox::Yes : QMessageBox::Ok)->click();
  });
  const SaveAnswer save(program.path("temp.txt"));
  click(program.window, "Command11");
  ASSERT_EQ(texts.size(), 1u);
  EXPECT_EQ(texts.front().substr(0, 22), "You saved the files as");
  EXPECT_EQ(text(program.window, "voice"),
            "chart not written to temp.txt: This file holds the saved data of this session.");
  EXPECT_EQ(program.file("temp.txt"), "\r\n");
}

TEST(Failures, CarryAWarning) {
  Program program;
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  const Watch<QMessageBox> watch([&](QMessageBox& box) {
    icon = box.icon();
    box.accept();
  });
  program.window.findChild<FilesController*>()->open(program.path("missing"));
  EXPECT_EQ(icon, QMessageBox::Warning);
  click(program.window, "Command14");
  EXPECT_EQ(icon, QMessageBox::Information) << "a refusal of the chart";
}

TEST(Chart, ShowsItsScalesInTheSmallestWindow) {
  Program program(Program::onChart);
  program.window.resize(1, 1);
  QApplication::processEvents();
  const QWidget& graph = control<QWidget>(program.window, "graph");
  const int visible = program.window.centralWidget()->height() - graph.y();
  ASSERT_LT(program.window.height(), 728) << "it fits the smallest screen";
  for (const Operation& operation : program.operations()) {
    const auto* print = std::get_if<TextOperation>(&operation);
    if (print == nullptr) continue;
    EXPECT_LE(double{print->y + lineHeight} / twipsPerPixel, visible) << print->text;
  }
}

TEST(ReadingLayer, DrawsItsCurvesAsWideOnEveryScreen) {
  Program program(Program::onChart);
  clickChart(program, 75, 0.0095);
  auto& layer = control<ReadingLayer>(program.window, "reading");
  const auto ink = [&](int scale) {
    QImage image(layer.size() * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    layer.render(&image, {}, {}, QWidget::DrawChildren);
    double sum = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) sum += std::max(0, qRed(image.pixel(x, y)) - qGreen(image.pixel(x, y)));
    }
    return sum;
  };
  const double once = ink(1);
  ASSERT_GT(once, 1000) << "the maroon curve";
  EXPECT_GT(ink(2), 3.2 * once) << "twice as long and twice as wide";
}

}  // namespace
}  // namespace moistair
