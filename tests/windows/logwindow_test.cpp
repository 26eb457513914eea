#include "windows/logwindow.h"

#include <QElapsedTimer>
#include <QPlainTextEdit>

#include "support.h"

using namespace moistair;
using namespace moistair::windowtest;

TEST(LogWindow, ShowsTheFileWithItsEmptyFirstLineAndTakesNoKeys) {
  LogWindow window(nullptr, QStringLiteral("\r\nPoint Id      K\u00FChler\r\n"));
  window.show();
  auto& box = control<QPlainTextEdit>(window, "Text1");
  QTest::keyClicks(&box, QStringLiteral("typed"));
  EXPECT_EQ(box.toPlainText(), QStringLiteral("\nPoint Id      K\u00FChler\n"));
}

TEST(LogWindow, AHundredThousandLinesOpenAndScrollQuickly) {
  const QString line = QStringLiteral("Dry bulb temp (Deg F)        75.0000000\r\n");
  QElapsedTimer clock;
  clock.start();
  LogWindow window(nullptr, line.repeated(100'000));
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  auto& box = control<QPlainTextEdit>(window, "Text1");
  QTest::keyClick(&box, Qt::Key_End, Qt::ControlModifier);
  window.grab();
  EXPECT_LT(clock.elapsed(), 3000) << "a layout of all lines would take longer";
  EXPECT_EQ(box.blockCount(), 100'001);
}
