#include <QApplication>
#include <cstdio>

#include "shell/mainwindow.h"
#include "shell/startup.h"

int main(int argc, char** argv) {
  if (!moistair::hasdisplay()) {
    std::fputs("moistair: there is no display. Start it from a desktop session, or set DISPLAY.\n", stderr);
    return 1;
  }
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("moistair"));
  moistair::MainWindow window(moistair::logpath());
  QObject::connect(&window, &moistair::MainWindow::ended, &application, &QApplication::quit);
  return window.start() ? QApplication::exec() : 0;
}
