// Documents in the window: their files, and what becomes of unsaved work.
#include <QClipboard>
#include <QDropEvent>
#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QTableView>
#include <algorithm>
#include <filesystem>
#include <fstream>

#include "paint/exports.h"
#include "shell/chartexport.h"
#include "support.h"

namespace moistair {
namespace {

using namespace windowtest;

std::string caption(QWidget& window) { return text(window, "document"); }

/// Drops a file on the window, as a file manager does.
void drop(QWidget& window, const QString& path) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(path)});
  QDragEnterEvent enter(QPoint(300, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &enter);
  ASSERT_TRUE(enter.isAccepted());
  QDropEvent event(QPointF(300, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &event);
  QApplication::processEvents();
}

void keepNow(QWidget& window) {
  auto& timer = *window.findChild<FilesController*>()->findChild<QTimer*>();
  timer.setInterval(0);
  QTest::qWait(20);
}

QStringList kept(const Program& program) {
  return QDir(program.path("sessions")).entryList({QStringLiteral("*.moistair")});
}

TEST(Files, AreSavedAndOpenedAsTheyWere) {
  Program program;
  EXPECT_EQ(caption(program.window), "Untitled");
  select(program.window, "Combo4", 10);
  program.drawChart();
  program.addLineAndPoint();
  EXPECT_EQ(caption(program.window), "Untitled *");
  {
    const SaveAnswer save(program.path("room"));
    action(program.window, "Sa&ve").trigger();
  }
  EXPECT_EQ(caption(program.window), "room.moistair");
  const auto saved = program.operations();
  action(program.window, "&Undo").trigger();
  EXPECT_EQ(caption(program.window), "room.moistair *");
  action(program.window, "&Redo").trigger();
  EXPECT_EQ(caption(program.window), "room.moistair");
  action(program.window, "&New").trigger();
  EXPECT_EQ(program.operations().size(), 1u);
  EXPECT_EQ(caption(program.window), "Untitled");

  select(program.window, "Combo4", 12);
  drop(program.window, program.path("room.moistair"));
  EXPECT_EQ(program.operations(), saved);
  EXPECT_EQ(caption(program.window), "room.moistair");
  EXPECT_EQ(control<ListBox>(program.window, "Combo4").currentText().toStdString(), "100");
  EXPECT_FALSE(action(program.window, "&Undo").isEnabled());
  BoxAnswers answers;
  type(program.window, "Text2", "60");
  click(program.window, "Command6");
  EXPECT_EQ(answers.count(), 0u) << "the opened chart stands";
}

TEST(Files, BringTheirPressureInForce) {
  Program program(Program::atStart);
  program.setElevation("5000");
  program.drawChart();
  const SaveAnswer save(program.path("high"));
  action(program.window, "Save &as").trigger();
  Program other;
  drop(other.window, program.path("high.moistair"));
  other.typePoint("75", "62.5");
  EXPECT_EQ(text(other.window, "Label15"), "52.8341213");
}

TEST(Files, ThatAreNoneAreToldAndChangeNothing) {
  Program program(Program::onChart);
  const auto before = program.operations();
  const struct {
    const char *name, *content, *reason;
  } files[] = {{"empty", "", "line 1"},
               {"later", "{\"format\": 99}", "format"},
               {"truncated", "{\"format\": 1,\n\"pressure\": {", "line 2"},
               {"missing", nullptr, "No such file"}};
  BoxAnswers answers(QMessageBox::Discard);
  for (const auto& file : files) {
    SCOPED_TRACE(file.name);
    if (file.content != nullptr) std::ofstream(program.path(file.name).toStdString()) << file.content;
    drop(program.window, program.path(file.name));
    QTest::qWait(30);
    EXPECT_NE(answers.lastText().find(program.path(file.name).toStdString()), std::string::npos) << answers.lastText();
    EXPECT_NE(answers.lastText().find(file.reason), std::string::npos) << answers.lastText();
    EXPECT_EQ(program.operations(), before);
  }
  EXPECT_EQ(caption(program.window), "Untitled *");
}

TEST(Files, AreNotReplacedUnsavedUnlessTheUserWantsIt) {
  const struct {
    const char* name;
    QMessageBox::StandardButton answer;
    const char* saveAs;
    bool replaced;
  } cases[] = {{"cancelled", QMessageBox::Cancel, "", false},
               {"discarded", QMessageBox::Discard, "", true},
               {"saving cancelled", QMessageBox::Save, "", false},
               {"saved", QMessageBox::Save, "saved", true}};
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    Program program(Program::onChart);
    const BoxAnswers answers(test.answer);
    const SaveAnswer save(*test.saveAs == '\0' ? QString() : program.path(test.saveAs));
    action(program.window, "&New").trigger();
    EXPECT_EQ(program.operations().size() == 1, test.replaced);
    EXPECT_EQ(answers.count(), 1u);
    EXPECT_EQ(QFile::exists(program.path("saved.moistair")), *test.saveAs != '\0');
  }
}

TEST(Files, OpenedLastAreOffered) {
  Program program(Program::onChart);
  const auto listed = [&] {
    Q_EMIT program.window.menuBar()->actions().first()->menu()->aboutToShow();
    QStringList names;
    for (const QAction* entry : action(program.window, "Open &recent").menu()->actions()) names += entry->text();
    return names;
  };
  EXPECT_TRUE(listed().isEmpty());
  for (int number = 0; number < 11; ++number) {
    const SaveAnswer save(program.path(("d&" + std::to_string(number)).c_str()));
    action(program.window, "Save &as").trigger();
  }
  const QStringList names = listed();
  EXPECT_EQ(names.size(), 10);
  EXPECT_TRUE(names.first().endsWith(QStringLiteral("d&&10.moistair")));
  QFile list(program.path("recent.txt"));
  ASSERT_TRUE(list.resize((64 << 10) + 1));
  const SaveAnswer save(program.path("after"));
  action(program.window, "Save &as").trigger();
  ASSERT_EQ(listed().size(), 1);
  EXPECT_TRUE(listed().first().endsWith(QStringLiteral("recent.txt: It is larger than 64 KB, the limit.")));
  EXPECT_EQ(list.size(), (64 << 10) + 1) << "the user decides what becomes of it";
}

TEST(UnsavedWork, IsNotWrittenThroughALink) {
  Program program(Program::onChart);
  QFile other(program.path("other"));
  ASSERT_TRUE(other.open(QFile::WriteOnly) && other.write("other") == 5);
  other.close();
  program.addLineAndPoint();
  ASSERT_TRUE(other.link(program.path(".temp-unsaved.moistair")));
  keepNow(program.window);
  EXPECT_EQ(other.size(), 5);
  const auto work = std::filesystem::symlink_status(program.path(".temp-unsaved.moistair").toStdString());
  EXPECT_EQ(work.type(), std::filesystem::file_type::regular);
  EXPECT_EQ(work.permissions(), std::filesystem::perms(0600));
}

TEST(UnsavedWork, IsOfferedAfterAKill) {
  for (const bool wanted : {true, false}) {
    Program killed(Program::onChart);
    killed.addLineAndPoint();
    EXPECT_FALSE(QFile::exists(killed.path(".temp-unsaved.moistair")));
    keepNow(killed.window);
    QTemporaryDir folder;
    ASSERT_TRUE(
        QFile::copy(killed.path(".temp-unsaved.moistair"), folder.filePath(QStringLiteral(".temp-unsaved.moistair"))));
    const std::string path = folder.path().toStdString();
    MainWindow window(LogPlaces{{path}, path + "/sessions"});
    ASSERT_TRUE(window.start());
    window.showNormal();
    window.resize(1024, 748);
    EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral(".temp-unsaved.moistair"))));
    const BoxAnswers answers(wanted ? QMessageBox::Yes : QMessageBox::No);
    QTest::qWait(30);
    EXPECT_EQ(answers.count(), 0u) << "the pressure window comes first";
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == QLatin1String("Form2") && widget->isVisible()) widget->close();
    }
    QTest::qWait(30);
    EXPECT_EQ(answers.count(), 1u);
    EXPECT_NE(answers.lastText().find("unsaved work on a chart without a file, last kept on 20"), std::string::npos)
        << answers.lastText();
    const auto& drawn = control<GraphView>(window, "graph").drawing().operations;
    EXPECT_EQ(drawn.size(), wanted ? killed.operations().size() : 1u);
    EXPECT_EQ(caption(window), wanted ? "Untitled *" : "Untitled");
    EXPECT_EQ(QDir(folder.filePath(QStringLiteral("sessions"))).entryList(QDir::Files).size(), 1);
  }
}

TEST(UnsavedWork, IsKeptAtTheEndAndNoLongerOnceItIsSaved) {
  Program program(Program::onChart);
  const auto drawn = program.operations();
  keepNow(program.window);
  EXPECT_TRUE(QFile::exists(program.path(".temp-unsaved.moistair")));
  {
    const SaveAnswer save(program.path("saved"));
    action(program.window, "Sa&ve").trigger();
  }
  EXPECT_FALSE(QFile::exists(program.path(".temp-unsaved.moistair")));
  program.window.close();
  EXPECT_TRUE(kept(program).isEmpty());

  Program unsaved(Program::onChart);
  const BoxAnswers answers;
  click(unsaved.window, "Command8");
  EXPECT_TRUE(unsaved.ended);
  EXPECT_EQ(answers.count(), 0u) << "leaving asks nothing";
  ASSERT_EQ(kept(unsaved).size(), 1);
  EXPECT_FALSE(QFile::exists(unsaved.path(".temp-unsaved.moistair")));
  QAction& earlier = action(unsaved.window, "Earlier");
  action(unsaved.window, "&Undo").trigger();
  Q_EMIT unsaved.window.menuBar()->actions().first()->menu()->aboutToShow();
  ASSERT_EQ(earlier.menu()->actions().size(), 1);
  earlier.menu()->actions().first()->trigger();
  EXPECT_EQ(unsaved.operations(), drawn);
}

/// The program with a line and a point, and the table next to the chart.
struct WithTable : Program {
  WithTable() : Program(onChart) {
    addLineAndPoint();
    action(window, "&Points and lines").trigger();
    QApplication::processEvents();
  }
  QTableView& table() { return *window.findChild<QTableView*>(); }
  std::string cell(int row, int column) { return table().model()->index(row, column).data().toString().toStdString(); }
};

TEST(Table, ShowsWhatStandsAndFollowsIt) {
  WithTable program;
  ASSERT_EQ(program.table().model()->rowCount(), 3);
  EXPECT_EQ(program.cell(2, 0) + "|" + program.cell(2, 1) + "|" + program.cell(2, 8), "Point|A|0.00929");
  action(program.window, "&Undo").trigger();
  EXPECT_EQ(program.table().model()->rowCount(), 2);
}

TEST(Table, RenamesAPointInItsPlace) {
  WithTable program;
  QAbstractItemModel& model = *program.table().model();
  EXPECT_FALSE(model.setData(model.index(1, 1), QStringLiteral("x"))) << "a line has no name";
  EXPECT_TRUE(model.setData(model.index(2, 1), QStringLiteral("Office")));
  QApplication::processEvents();
  EXPECT_EQ(program.cell(2, 1), "Office");
  EXPECT_EQ(program.lastPrint(), "Office");
  EXPECT_EQ(action(program.window, "&Undo").text().toStdString(), "&Undo Rename Point A");
}

TEST(Table, TypesOverAGivenValueAndRefusesWhatCannotBe) {
  WithTable program;
  QAbstractItemModel& model = *program.table().model();
  const auto type = [&](int row, int column, const char* text) {
    const bool taken = model.setData(model.index(row, column), QString::fromUtf8(text));
    QApplication::processEvents();
    return taken;
  };
  EXPECT_TRUE(model.index(2, 3).data(Qt::FontRole).value<QFont>().bold()) << "given";
  EXPECT_FALSE(type(2, 5, "40")) << "follows from the two given";
  ASSERT_TRUE(type(2, 3, "80"));
  EXPECT_EQ(program.cell(2, 3) + "|" + program.cell(2, 4), "80.0|62.5");
  EXPECT_EQ(action(program.window, "&Undo").text().toStdString(), "&Undo Change Point A");
  ASSERT_TRUE(type(2, 4, "85"));
  EXPECT_EQ(program.cell(2, 4), "62.5") << "above saturation";
  EXPECT_TRUE(text(program.window, "voice").starts_with("The point as per input parameters"))
      << text(program.window, "voice");
}

TEST(Table, IsGoneToAndLeftByItsKeyAndRemembersItsColumns) {
  WithTable program;
  QAction& there = action(program.window, "To the &table and back");
  const auto isInTable = [&](bool there) {
    return QTest::qWaitFor([&] { return program.table().hasFocus() == there; }, 2000);
  };
  there.trigger();
  EXPECT_TRUE(isInTable(true));
  there.trigger();
  EXPECT_TRUE(isInTable(false));
  EXPECT_TRUE(program.table().isVisible());
  there.trigger();
  EXPECT_TRUE(isInTable(true));
  QTest::keyClick(&program.table(), Qt::Key_Escape);
  EXPECT_TRUE(isInTable(false));
  program.table().horizontalHeader()->moveSection(4, 2);
  Program next(Program::onChart);
  action(next.window, "&Points and lines").trigger();
  EXPECT_EQ(next.window.findChild<QTableView*>()->horizontalHeader()->visualIndex(4), 2);
  action(next.window, "&Reset").trigger();
  action(next.window, "&Points and lines").trigger();
  EXPECT_EQ(next.window.findChild<QTableView*>()->horizontalHeader()->visualIndex(4), 4);
}

TEST(Table, LiftsOutDeletesAndCopiesWhatIsSelected) {
  WithTable program;
  auto& graph = control<GraphView>(program.window, "graph");
  const auto seen = [&] { return graph.grab().toImage(); };
  const QImage before = seen();
  const QImage picture = graph.picture();
  program.table().selectRow(1);
  EXPECT_NE(seen(), before);
  EXPECT_EQ(graph.picture(), picture) << "above the drawing, never in it";
  action(program.window, "&Copy").trigger();
  const QString copied = QGuiApplication::clipboard()->text();
  EXPECT_TRUE(copied.startsWith(QStringLiteral("Kind\tIdentification\t"))) << copied.toStdString();
  EXPECT_EQ(copied.count(QLatin1Char('\n')), 2) << "the heads and one row";
  const auto all = program.operations();
  action(program.window, "&Delete").trigger();
  EXPECT_EQ(program.table().model()->rowCount(), 2);
  EXPECT_LT(program.operations().size(), all.size());
  action(program.window, "&Undo").trigger();
  EXPECT_EQ(program.operations(), all);
  EXPECT_EQ(seen(), before) << "nothing is selected any more";
}

TEST(Table, MarksAStateThatMissesAValueAndTakesTheExactOne) {
  WithTable program;
  EXPECT_FALSE(action(program.window, "Ta&ke exact states").isEnabled());
  select(program.window, "Combo1", 4);
  select(program.window, "Combo2", 5);
  program.typePoint("13.68", "27.65");
  click(program.open("Command14", "Form3"), "Command1");
  const auto missed = [&](int role) { return program.table().model()->index(3, 0).data(role); };
  EXPECT_EQ(program.cell(3, 11), "dp 28.7211 for 27.65");
  EXPECT_FALSE(missed(Qt::DecorationRole).isNull());
  EXPECT_TRUE(missed(Qt::ToolTipRole).toString().startsWith(QStringLiteral("this state has dew point")));
  action(program.window, "Ta&ke exact states").trigger();
  EXPECT_EQ(program.cell(3, 3) + "|" + program.cell(3, 11), "43.1|");
  EXPECT_TRUE(missed(Qt::DecorationRole).isNull());
  EXPECT_EQ(action(program.window, "&Undo").text().toStdString(), "&Undo Exact state of Point A");
  action(program.window, "&Undo").trigger();
  EXPECT_EQ(program.cell(3, 11), "dp 28.7211 for 27.65");
}

TEST(Table, IsWrittenAsCsv) {
  WithTable program;
  const SaveAnswer save(program.path("all"));
  action(program.window, "&Write as CSV").trigger();
  const std::string csv = program.file("all.csv");
  EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 4);
  EXPECT_NE(csv.find("Point,A,29.92126"), std::string::npos) << csv;
}

TEST(Table, WritesTheRowsSelectedOrAll) {
  for (const auto& [kind, lines] : {std::pair{0, 2}, {1, 4}}) {
    WithTable program;
    program.table().selectRow(1);
    std::string kinds;
    const Watch<QFileDialog> watch([&, kind = kind](QFileDialog& dialog) {
      auto& list = control<QComboBox>(dialog, "fileTypeCombo");
      kinds = (dialog.windowTitle() + u'|' + list.itemText(0) + u'|' + list.itemText(1)).toStdString();
      list.setCurrentIndex(kind);
      auto& name = control<QLineEdit>(dialog, "fileNameEdit");
      name.setText(program.path("part"));
      QTest::keyClick(&name, Qt::Key_Return);
    });
    action(program.window, "&Write as CSV").trigger();
    EXPECT_EQ(kinds, "Write as CSV, 1 of 3 rows|1 of 3 rows (*.csv)|All 3 rows (*.csv)");
    const std::string csv = program.file("part.csv");
    EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), lines);
  }
}

TEST(CarriedOver, PutsTheChartBeforeOnTheNewOneAndTellsWhatDoesNotFit) {
  Program program(Program::onChart);
  program.addLineAndPoint();
  EXPECT_FALSE(action(program.window, "&Again").isEnabled());
  select(program.window, "Combo4", 7);
  program.drawChart(true);
  const std::size_t bare = program.operations().size();
  BoxAnswers answers;
  ASSERT_TRUE(action(program.window, "&Again").isEnabled());
  EXPECT_EQ(text(program.window, "offer"), "2 entries of the previous chart: put them on this one");
  {
    const SaveAnswer save(program.path("both"));
    action(program.window, "Sa&ve").trigger();
  }
  action(program.window, "&New").trigger();
  EXPECT_EQ(text(program.window, "offer"), "");
  drop(program.window, program.path("both.moistair"));
  click(program.window, "offer");
  EXPECT_EQ(text(program.window, "offer"), "");
  EXPECT_GT(program.operations().size(), bare);
  EXPECT_NE(answers.lastText().find("Point A: The point"), std::string::npos) << answers.lastText();
  EXPECT_EQ(action(program.window, "&Undo").text().toStdString(), "&Undo Again on this chart");
  EXPECT_FALSE(action(program.window, "&Again").isEnabled()) << "once is enough";
  action(program.window, "&Points and lines").trigger();
  QApplication::processEvents();
  const QAbstractItemModel& table = *program.window.findChild<QTableView*>()->model();
  const std::string note = table.index(2, table.columnCount() - 1).data().toString().toStdString();
  EXPECT_EQ(note.substr(0, 33), "not on this chart: The point as p");
  program.window.findChild<QTableView*>()->selectRow(2);
  action(program.window, "&Delete").trigger();
  EXPECT_EQ(action(program.window, "&Undo").text().toStdString(), "&Undo Delete Point A");
  EXPECT_EQ(table.rowCount(), 2);
}

TEST(Fitted, FillsEveryPictureWithEvenMargins) {
  for (const QSize size : {QSize(1123, 794), QSize(794, 1123), QSize(600, 400)}) {
    Document document = newDocument({});
    document.entries = {{{}, DrawnChart{ChartType::standard}}};
    document.entries.front().setting.limits = {0, 120, 0, 0.030};
    const QImage picture = drawingImage(fittedTo(document, size), size);
    QRect ink;
    for (int y = 0; y < size.height(); ++y) {
      for (int x = 0; x < size.width(); ++x) {
        if (picture.pixel(x, y) != qRgb(255, 255, 255)) ink |= QRect(x, y, 1, 1);
      }
    }
    const QRect wanted = QRect(QPoint(0, 0), size).adjusted(24, 24, -24, -24);
    const int furthest = std::max({std::abs(ink.left() - wanted.left()), std::abs(ink.right() - wanted.right()),
                                   std::abs(ink.top() - wanted.top()), std::abs(ink.bottom() - wanted.bottom())});
    EXPECT_LE(furthest, 8) << size.width() << ": " << ink.left() << " " << ink.top() << " " << ink.right() << " "
                           << ink.bottom();
  }
}

}  // namespace
}  // namespace moistair
