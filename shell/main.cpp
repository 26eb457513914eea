#include <QApplication>
#include <QFile>
#include <QIcon>
#include <csignal>
#include <cstdio>

#include "files/outputfile.h"
#include "shell/mainwindow.h"
#include "shell/signals.h"
#include "shell/startup.h"

int main(int argc, char** argv) {
  if (const auto text = moistair::wantedText(argc, argv)) {
    const bool printed = std::fputs(text->c_str(), stdout) >= 0 && std::fflush(stdout) == 0;
    return printed ? 0 : 1;
  }
  if (!moistair::hasDisplay()) {
    std::fputs("moistair: there is no display. Start it from a desktop session, or set DISPLAY.\n", stderr);
    return 1;
  }
  // A reader that leaves its pipe and a file that may grow no further are failures to write, to be reported as such.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("moistair"));
  QApplication::setWindowIcon(QIcon(QStringLiteral(":/moistair.svg")));
  const auto folder = QFile::encodeName(QApplication::applicationDirPath()).toStdString();
  const moistair::LogPlaces places = moistair::logPlaces(folder);
  for (const auto& own : places.folders) moistair::removeAbandoned(own);
  moistair::removeAbandoned(places.sessions);
  moistair::MainWindow window(places);
  // At once: quit() would first ask each window whether it may close.
  QObject::connect(&window, &moistair::MainWindow::ended, &application, [] { QApplication::exit(0); });
  moistair::endBySignals(&window, [&window] { window.endSession(); });
  return window.start(QApplication::arguments().value(1)) ? QApplication::exec() : 0;
}
