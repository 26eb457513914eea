// What a move of the pointer over a standard chart costs, paint included, and what a resize of the window costs with
// the reading on. Prints the median and the worst, in milliseconds of processor time. On the screen, or with
// QT_QPA_PLATFORM=offscreen.
#include <QApplication>
#include <QMouseEvent>
#include <QPushButton>
#include <QTemporaryDir>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <functional>

#include "shell/mainwindow.h"

namespace {

using namespace moistair;

/// Of the processor: others at work on the machine do not count.
double milliseconds(const std::function<void()>& work) {
  timespec start{}, end{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &start);
  work();
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &end);
  return 1e3 * static_cast<double>(end.tv_sec - start.tv_sec) + 1e-6 * static_cast<double>(end.tv_nsec - start.tv_nsec);
}

void print(const char* what, std::vector<double> times) {
  std::sort(times.begin(), times.end());
  std::printf("%-28s median %6.3f ms, 99 of 100 %6.3f ms, worst %6.3f ms\n", what, times[times.size() / 2],
              times[times.size() * 99 / 100], times.back());
}

void settle() {
  for (int i = 0; i < 20; ++i) QApplication::processEvents(QEventLoop::AllEvents, 10);
}

QWidget& topLevel(const char* name) {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->objectName() == QLatin1String(name) && widget->isVisible()) return *widget;
  }
  std::fprintf(stderr, "no window %s\n", name);
  std::exit(1);
}

void click(QWidget& window, const char* name) { window.findChild<QPushButton*>(QLatin1String(name))->click(); }

void move(QWidget& graph, QPointF place) {
  QMouseEvent event(QEvent::MouseMove, place, graph.mapToGlobal(place), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(&graph, &event);
  QApplication::sendPostedEvents();
  QApplication::processEvents();
}

/// A place of the plot's air, from one to the next as far as a quick hand goes.
QPointF placeAt(const QSize& area, int number) {
  const double mode = number / 1000.0;
  return {area.width() * (0.55 + 0.3 * std::cos(40 * mode) * (1 - 0.5 * mode)),
          area.height() * (0.62 + 0.12 * std::sin(57 * mode))};
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const QTemporaryDir folder;
  MainWindow window(LogPlaces{{folder.path().toStdString()}, folder.filePath(QStringLiteral("s")).toStdString()});
  window.start();
  click(topLevel("Form2"), "Command2");
  click(window, "Command3");
  click(topLevel("Form6"), "Command1");
  auto& graph = *window.findChild<GraphView*>();
  settle();
  std::vector<double> moves;
  for (int i = 0; i < 1000; ++i) {
    moves.push_back(milliseconds([&] { move(graph, placeAt(window.centralWidget()->size(), i)); }));
  }
  std::printf("window %d x %d, scale %g\n", window.width(), window.height(), window.devicePixelRatio());
  print("a move of the pointer", moves);
  const auto resizes = [&](const char* what) {
    std::vector<double> times;
    for (int i = 0; i < 60; ++i) {
      const QSize size = window.size() - QSize(i % 2 == 0 ? 7 : -7, 0);
      times.push_back(milliseconds([&] {
        window.resize(size);
        QApplication::sendPostedEvents();
        QApplication::processEvents();
      }));
    }
    print(what, times);
  };
  window.showNormal();
  settle();
  move(graph, placeAt(window.centralWidget()->size(), 3));
  resizes("a resize, reading on");
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&graph, &leave);
  resizes("a resize, reading off");
}
