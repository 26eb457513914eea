// Documents in the window: their files, and what becomes of unsaved work.
#include <QDropEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <fstream>

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

void keepnow(QWidget& window) {
  auto& timer = *window.findChild<DocumentFiles*>()->findChild<QTimer*>();
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
  program.drawchart();
  program.addlineandpoint();
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
  Program program(Program::AtStart);
  QWidget& pressure = program.dialog("Form2");
  select(pressure, "Combo1", 3);
  type(pressure, "Text1", "5000");
  const BoxAnswers answers(QMessageBox::Yes);
  click(pressure, "Command1");
  program.drawchart();
  const SaveAnswer save(program.path("high"));
  action(program.window, "Save &as").trigger();
  Program other;
  drop(other.window, program.path("high.moistair"));
  other.typepoint("75", "62.5");
  EXPECT_EQ(text(other.window, "Label15"), "52.8341213");
}

TEST(Files, ThatAreNoneAreToldAndChangeNothing) {
  Program program(Program::OnChart);
  const auto before = program.operations();
  const struct {
    const char *name, *content, *reason;
  } files[] = {{"empty", "", "line 1"},
               {"later", "{\"format\": 2}", "format"},
               {"truncated", "{\"format\": 1,\n\"pressure\": {", "line 2"},
               {"missing", nullptr, "No such file"}};
  BoxAnswers answers(QMessageBox::Discard);
  for (const auto& file : files) {
    SCOPED_TRACE(file.name);
    if (file.content != nullptr) std::ofstream(program.path(file.name).toStdString()) << file.content;
    drop(program.window, program.path(file.name));
    QTest::qWait(30);
    EXPECT_NE(answers.lasttext().find(program.path(file.name).toStdString()), std::string::npos) << answers.lasttext();
    EXPECT_NE(answers.lasttext().find(file.reason), std::string::npos) << answers.lasttext();
    EXPECT_EQ(program.operations(), before);
  }
  EXPECT_EQ(caption(program.window), "Untitled *");
}

TEST(Files, AreNotReplacedUnsavedUnlessTheUserWantsIt) {
  const struct {
    const char* name;
    QMessageBox::StandardButton answer;
    const char* saveas;
    bool replaced;
  } cases[] = {{"cancelled", QMessageBox::Cancel, "", false},
               {"discarded", QMessageBox::Discard, "", true},
               {"saving cancelled", QMessageBox::Save, "", false},
               {"saved", QMessageBox::Save, "saved", true}};
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    Program program(Program::OnChart);
    const BoxAnswers answers(test.answer);
    const SaveAnswer save(*test.saveas == '\0' ? QString() : program.path(test.saveas));
    action(program.window, "&New").trigger();
    EXPECT_EQ(program.operations().size() == 1, test.replaced);
    EXPECT_EQ(answers.count(), 1u);
    EXPECT_EQ(QFile::exists(program.path("saved.moistair")), *test.saveas != '\0');
  }
}

TEST(Files, OpenedLastAreOffered) {
  Program program(Program::OnChart);
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
}

TEST(UnsavedWork, IsOfferedAfterAKill) {
  for (const bool wanted : {true, false}) {
    Program killed(Program::OnChart);
    killed.addlineandpoint();
    EXPECT_FALSE(QFile::exists(killed.path("temp.moistair")));
    keepnow(killed.window);
    QTemporaryDir folder;
    ASSERT_TRUE(QFile::copy(killed.path("temp.moistair"), folder.filePath(QStringLiteral("temp.moistair"))));
    const std::string path = folder.path().toStdString();
    MainWindow window(LogPlaces{{path}, path + "/sessions"});
    ASSERT_TRUE(window.start());
    window.showNormal();
    window.resize(1024, 748);
    EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral("temp.moistair"))));
    const BoxAnswers answers(wanted ? QMessageBox::Yes : QMessageBox::No);
    QTest::qWait(30);
    EXPECT_EQ(answers.count(), 0u) << "the pressure window comes first";
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == QLatin1String("Form2") && widget->isVisible()) widget->close();
    }
    QTest::qWait(30);
    EXPECT_EQ(answers.count(), 1u);
    const auto& drawn = control<GraphView>(window, "graph").drawing().operations;
    EXPECT_EQ(drawn.size(), wanted ? killed.operations().size() : 1u);
    EXPECT_EQ(caption(window), wanted ? "Untitled *" : "Untitled");
    EXPECT_EQ(QDir(folder.filePath(QStringLiteral("sessions"))).entryList(QDir::Files).size(), 1);
  }
}

TEST(UnsavedWork, IsKeptAtTheEndAndNoLongerOnceItIsSaved) {
  Program program(Program::OnChart);
  const auto drawn = program.operations();
  keepnow(program.window);
  EXPECT_TRUE(QFile::exists(program.path("temp.moistair")));
  {
    const SaveAnswer save(program.path("saved"));
    action(program.window, "Sa&ve").trigger();
  }
  EXPECT_FALSE(QFile::exists(program.path("temp.moistair")));
  program.window.close();
  EXPECT_TRUE(kept(program).isEmpty());

  Program unsaved(Program::OnChart);
  const BoxAnswers answers;
  click(unsaved.window, "Command8");
  EXPECT_TRUE(unsaved.ended);
  EXPECT_EQ(answers.count(), 0u) << "leaving asks nothing";
  ASSERT_EQ(kept(unsaved).size(), 1);
  EXPECT_FALSE(QFile::exists(unsaved.path("temp.moistair")));
  QAction& earlier = action(unsaved.window, "Earlier");
  action(unsaved.window, "&Undo").trigger();
  Q_EMIT unsaved.window.menuBar()->actions().first()->menu()->aboutToShow();
  ASSERT_EQ(earlier.menu()->actions().size(), 1);
  earlier.menu()->actions().first()->trigger();
  EXPECT_EQ(unsaved.operations(), drawn);
}

}  // namespace
}  // namespace moistair
