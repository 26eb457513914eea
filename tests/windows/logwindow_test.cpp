#include "session/logwindow.h"

#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QSignalSpy>

#include "support.h"

using namespace moistair;
using namespace moistair::windowtest;

TEST(LogWindow, ShowsTheFileWithItsEmptyFirstLine) {
  LogWindow window(nullptr, QStringLiteral("\r\nPoint Id      K\u00FChler\r\n"));
  window.show();
  auto& box = control<QPlainTextEdit>(window, "Text1");
  EXPECT_EQ(window.objectName().toStdString(), "Form4");
  EXPECT_EQ(window.windowTitle().toStdString(), "View saved data");
  EXPECT_EQ(box.toPlainText(), QStringLiteral("\nPoint Id      K\u00FChler\n"));
  QTest::keyClicks(&box, QStringLiteral("typed"));
  EXPECT_EQ(box.toPlainText(), QStringLiteral("\nPoint Id      K\u00FChler\n"));
}

TEST(LogWindow, EveryWayOutIsTheWayBack) {
  LogWindow window(nullptr, QStringLiteral("\r\n"));
  window.show();
  QSignalSpy left(&window, &LogWindow::left);
  EXPECT_EQ(text(window, "Command1"), "Return to chart");
  click(window, "Command1");
  EXPECT_EQ(left.count(), 1);
  QTest::keyClick(&control<QPlainTextEdit>(window, "Text1"), Qt::Key_Escape);
  EXPECT_EQ(left.count(), 2);
  window.close();
  EXPECT_EQ(left.count(), 3);
}

TEST(LogWindow, AHundredThousandLinesOpenAndScrollQuickly) {
  QString text;
  for (int line = 0; line < 100'000; ++line) text += QStringLiteral("Dry bulb temp (Deg F)        75.0000000\r\n");
  QElapsedTimer clock;
  clock.start();
  LogWindow window(nullptr, text);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  auto& box = control<QPlainTextEdit>(window, "Text1");
  QTest::keyClick(&box, Qt::Key_End, Qt::ControlModifier);
  window.grab();
  EXPECT_LT(clock.elapsed(), 3000) << "a layout of all lines would take longer";
  EXPECT_EQ(box.blockCount(), 100'001);
  RecordProperty("milliseconds", static_cast<int>(clock.elapsed()));
}
