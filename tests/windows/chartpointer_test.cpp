// The chart read and worked on by pointer and keys.
#include <QClipboard>
#include <QInputDialog>
#include <QMenu>

#include "support.h"
#include "windows/readinglayer.h"

namespace moistair::windowtest {
namespace {

TEST(ChartPointer, IsAboveTheDrawingAndNeverInIt) {
  Pointed program;
  const auto seen = [&] { return program.graph.grab().toImage(); };
  const QImage before = seen(), picture = program.graph.picture();
  program.point(75, 0.0095, Qt::ControlModifier);
  EXPECT_NE(seen(), before);
  EXPECT_EQ(program.graph.picture(), picture);
  EXPECT_EQ(program.told().substr(0, 31), "DB 75.00 Deg F, WB 62.82 Deg F,");
  program.point(50, 0.02);
  EXPECT_EQ(program.told().substr(0, 20), "Above saturation: DB");
  program.point(121, 0.02);
  EXPECT_EQ(program.told().substr(0, 22), "Outside the limits: DB");
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&program.graph, &leave);
  EXPECT_EQ(seen(), before) << "nothing of it stays";
  EXPECT_EQ(program.told(), "");
  program.point(75, 0.0095);
  click(program.window, "Command12");
  EXPECT_TRUE(control<ReadingLayer>(program.window, "reading").isClear()) << "there is no chart to read";
}

TEST(ChartPointer, TakesAPlaceIntoTheBoxesAndLocatesIt) {
  Pointed program;
  select(program.window, "Combo1", 2);
  select(program.window, "Combo2", 4);
  program.point(75, 0.0095, Qt::ControlModifier);
  program.press(75, 0.0095);
  program.release(75, 0.0095);
  EXPECT_EQ(control<ListBox>(program.window, "Combo1").selected(), 0);
  EXPECT_EQ(control<ListBox>(program.window, "Combo2").selected(), 3);
  const std::string boxes = program.boxes();
  EXPECT_EQ(boxes.substr(0, 2), "75");
  EXPECT_EQ(text(program.window, "Label18").substr(0, 4), ".009") << "the live row follows";
  program.press(50, 0.02);
  program.release(50, 0.02);
  EXPECT_EQ(program.boxes(), boxes) << "no air, nothing taken";
  program.point(75, 0.0095);
  program.send(QEvent::MouseButtonDblClick, program.at(75, 0.0095), Qt::LeftButton, Qt::LeftButton);
  click(program.dialog("Form3"), "Command1");
  EXPECT_EQ(action(program.window, "&Undo").text().toStdString(), "&Undo Point");
}

TEST(ChartPointer, DragsAPointInOneStep) {
  const struct {
    const char* name;
    Qt::KeyboardModifiers modifiers;
    double db, w;
  } rows[] = {{"freely", {}, 80, 0.011},
              {"keeping the dry bulb", Qt::ShiftModifier, 75, 0.011},
              {"keeping the humidity ratio", Qt::AltModifier, 80, 0.0092932}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Pointed program(true);
    const auto before = program.operations();
    program.point(75, 0.0092932);
    EXPECT_EQ(program.graph.cursor().shape(), Qt::OpenHandCursor);
    program.press(75, 0.0092932);
    program.drag(78, 0.0105, row.modifiers);
    EXPECT_EQ(program.graph.cursor().shape(), Qt::ClosedHandCursor);
    EXPECT_EQ(program.operations(), before) << "nothing moves on the way";
    program.drag(80, 0.011, row.modifiers);
    program.release(80, 0.011);
    program.point(row.db, row.w);
    const std::string told = program.told();
    EXPECT_NEAR(std::stod(told.substr(std::string("Point A: DB ").size())), row.db, 0.1) << told;
    EXPECT_NEAR(std::stod(told.substr(told.find("ratio") + 6)), row.w, 1e-4) << told;
    EXPECT_EQ(program.lastPrint(), "A");
    EXPECT_EQ(action(program.window, "&Undo").text().toStdString(), "&Undo Move Point A");
    action(program.window, "&Undo").trigger();
    EXPECT_EQ(program.operations(), before);
  }
}

TEST(ChartPointer, LeavesAPointWhereThereIsNoAirForItAndOnEsc) {
  Pointed program(true);
  const auto before = program.operations();
  program.press(75, 0.0092932);
  program.drag(50, 0.02);
  EXPECT_EQ(program.graph.cursor().shape(), Qt::ForbiddenCursor);
  program.release(50, 0.02);
  EXPECT_EQ(program.operations(), before);
  program.press(75, 0.0092932);
  program.drag(80, 0.011);
  program.keys(Qt::Key_Escape);
  program.release(80, 0.011);
  EXPECT_EQ(program.operations(), before);
}

TEST(ChartPointer, IsWorkedByKeysAlone) {
  Pointed program;
  program.keys(Qt::Key_Right);
  EXPECT_EQ(program.told().substr(0, 15), "DB 60.00 Deg F,") << "it begins in the midst";
  for (int i = 0; i < 15; ++i) program.keys(Qt::Key_Right);
  program.keys(Qt::Key_Up);
  program.keys(Qt::Key_Left, Qt::ShiftModifier);
  const std::string told = program.told();
  EXPECT_EQ(told.substr(0, 15), "DB 74.90 Deg F,");
  EXPECT_NE(told.find("H.ratio 0.00600 lb/lb"), std::string::npos) << told;
  program.keys(Qt::Key_P);
  EXPECT_EQ(action(program.window, "&Undo").text().toStdString(), "&Undo Read-out 74.90, 0.00600");
  program.keys(Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith(QStringLiteral("Dry bulb temp (Deg F)\t74.9000000\n")));
  program.keys(Qt::Key_Delete);
  EXPECT_EQ(action(program.window, "&Undo").text().toStdString(), "&Undo Delete Read-out 74.90, 0.00600");
  program.keys(Qt::Key_Return);
  click(program.dialog("Form3"), "Command2");
  EXPECT_EQ(program.boxes(), "74.90|0.00600");
  program.keys(Qt::Key_Escape);
  EXPECT_EQ(program.told(), "");
  type(program.window, "Text1", "50");
  pressReturn(program.window, "Text1");
  EXPECT_EQ(action(program.window, "&Undo").text().toStdString(), "&Undo Relative humidity line 50");
}

TEST(ChartPointer, NamesAMarkOnlyWhereTheCrossHairIsOnIt) {
  Pointed program(true);
  program.point(75, 0.0092932);
  EXPECT_TRUE(program.told().starts_with("Point A: DB 75.00 Deg F,")) << program.told();
  program.keys(Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_TRUE(program.told().starts_with("DB 75.10 Deg F,")) << program.told();
  program.keys(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_TRUE(program.told().starts_with("Point A: DB 75.00 Deg F,")) << "and back on it";
  for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Left}) program.keys(key);
  EXPECT_EQ(program.told().find("Point A"), std::string::npos);
  program.keys(Qt::Key_Down);
  program.keys(Qt::Key_Right);
  EXPECT_TRUE(program.told().starts_with("Point A: DB 75.00 Deg F,")) << "keys come onto it: " << program.told();
  program.keys(Qt::Key_Delete);
  EXPECT_EQ(action(program.window, "&Undo").text().toStdString(), "&Undo Delete Point A");
}

TEST(ChartPointer, OffersWhatCanBeDoneAtAPlace) {
  const auto offered = [](Pointed& program) {
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(), QPoint(10, 10));
    QApplication::sendEvent(&program.graph, &event);
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
  };
  const auto choose = [](QMenu* menu, const char* text) {
    for (QAction* action : menu->actions()) {
      if (action->text().contains(QLatin1String(text))) action->trigger();
    }
    menu->close();
  };
  Pointed program(true);
  program.point(75, 0.0092932);
  choose(offered(program), "Wet bulb line 62.50");
  EXPECT_EQ(program.lastPrint().substr(0, 8), "WB= 62.5");
  const Watch<QInputDialog> name([](QInputDialog& dialog) {
    dialog.setTextValue(QStringLiteral("Office"));
    dialog.accept();
  });
  program.point(75, 0.0092932);
  choose(offered(program), "Rename");
  EXPECT_EQ(action(program.window, "&Undo").text().toStdString(), "&Undo Rename Point A");
  program.point(75, 0.0092932);
  choose(offered(program), "Delete Point Office");
  EXPECT_EQ(action(program.window, "&Undo").text().toStdString(), "&Undo Delete Point Office");
  program.point(50, 0.02);
  EXPECT_EQ(offered(program), nullptr) << "nothing can be done where no air is";
}

}  // namespace
}  // namespace moistair::windowtest
