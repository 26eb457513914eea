#include "windows/logwindow.h"

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
