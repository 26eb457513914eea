// What the window tests share.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <stdexcept>
#include <string>
#include <vector>

#include "shell/mainwindow.h"
#include "toolkit/listbox.h"
#include "toolkit/remembered.h"

namespace moistair::windowtest {

/// A control by its layout name; the test stops where the window has none.
template <class Widget>
Widget& control(QWidget& window, const char* name) {
  auto* found = window.findChild<Widget*>(QLatin1String(name));
  if (found == nullptr) throw std::runtime_error(std::string("no control ") + name);
  return *found;
}

inline std::string text(QWidget& window, const char* name) {
  return control<QWidget>(window, name).property("text").toString().toStdString();
}

/// Texts of numbered labels, the number of each following on the last, one behind the other.
inline std::string labels(QWidget& window, int first, int last) {
  std::string texts;
  for (int number = first; number <= last; ++number) {
    texts += text(window, ("Label" + std::to_string(number)).c_str()) + "|";
  }
  return texts;
}

inline void select(QWidget& window, const char* list, int item) { control<ListBox>(window, list).select(item); }

/// Types into a box key by key, replacing what it holds.
inline void type(QWidget& window, const char* name, const char* keys) {
  auto& box = control<QLineEdit>(window, name);
  box.selectAll();
  if (*keys == '\0') {
    QTest::keyClick(&box, Qt::Key_Delete);
  } else {
    QTest::keyClicks(&box, QString::fromUtf8(keys));
  }
}

inline void click(QWidget& window, const char* name) {
  QTest::mouseClick(&control<QAbstractButton>(window, name), Qt::LeftButton);
}

/// Names of the controls that Tab walks through from the one that has the focus, until it is back there.
inline std::string tabOrder(QWidget& window) {
  std::string order;
  const QWidget* const first = window.focusWidget();
  do {
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    order += window.focusWidget()->objectName().toStdString() + "|";
  } while (window.focusWidget() != first && order.size() < 1000);
  return order;
}

/// Presses Return on the control that has the focus.
inline void pressReturn(QWidget& window, const char* name) {
  QApplication::setActiveWindow(&window);
  control<QWidget>(window, name).setFocus();
  QTest::keyClick(&control<QWidget>(window, name), Qt::Key_Return);
}

/// A command of the menus by the beginning of its text.
inline QAction& action(QWidget& window, const char* text) {
  for (QAction* action : window.findChildren<QAction*>()) {
    if (action->text().startsWith(QLatin1String(text))) return *action;
  }
  throw std::runtime_error(std::string("no command ") + text);
}

/// Calls something with the window of a kind that takes the input, as soon as there is one and until this goes.
template <class Window>
class Watch {
public:
  template <class Answer>
  explicit Watch(Answer answer) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [answer] {
      if (auto* window = qobject_cast<Window*>(QApplication::activeModalWidget())) answer(*window);
    });
    timer_.start(10);
  }

private:
  QTimer timer_;
};

/// Answers the message boxes that come up while it lives, and keeps their texts.
class BoxAnswers {
public:
  explicit BoxAnswers(QMessageBox::StandardButton answer = QMessageBox::Ok)
      : watch_([this, answer](QMessageBox& box) {
          texts_.push_back(box.text().toStdString());
          box.button(answer) == nullptr ? box.reject() : box.button(answer)->click();
        }) {}

  std::size_t count() const { return texts_.size(); }
  std::string lastText() const { return texts_.empty() ? std::string() : texts_.back(); }

private:
  std::vector<std::string> texts_;
  Watch<QMessageBox> watch_;
};

/// Answers the save dialog with a path, or cancels it for an empty one.
class SaveAnswer {
public:
  explicit SaveAnswer(const QString& path)
      : watch_([this, path](QFileDialog& dialog) {
          auto& kinds = control<QComboBox>(dialog, "fileTypeCombo");
          filters = (kinds.itemText(0) + QLatin1Char('|') + kinds.itemText(1)).toStdString();
          auto& name = control<QLineEdit>(dialog, "fileNameEdit");
          if (path.isEmpty()) return dialog.reject();
          name.setText(path);
          QTest::keyClick(&name, Qt::Key_Return);
        }) {}

  std::string filters;  ///< kinds of file

private:
  Watch<QFileDialog> watch_;
};

/// The program after start-up: in its pressure window, back on the empty chart, or with a standard chart drawn.
class Program {
public:
  enum StartState { atStart, onEmptyChart, onChart };

  explicit Program(StartState startState = onEmptyChart)
      : window(LogPlaces{{folder.path().toStdString()}, path("sessions").toStdString()}) {
    QObject::connect(&window, &MainWindow::ended, &window, [this] { ended = true; });
    started = window.start();
    window.showNormal();
    window.resize(1024, 748);
    if (startState != atStart) returnToChart();
    if (startState == onChart) drawChart();
  }

  ~Program() { forgetAll(); }  // the next one begins like the first
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  QString path(const char* name) const { return folder.filePath(QLatin1String(name)); }

  bool isOpen(const char* name) const { return find(name) != nullptr; }

  /// A window that is open, by its layout name.
  QWidget& dialog(const char* name) const {
    QWidget* found = find(name);
    if (found == nullptr) throw std::runtime_error(std::string("no window ") + name);
    return *found;
  }

  QWidget& open(const char* button, const char* name) {
    click(window, button);
    return dialog(name);
  }

  void returnToChart() { click(dialog("Form2"), "Command2"); }

  /// Sets the elevation of the site in the pressure window, which is open at the start and else opened.
  void setElevation(const char* feet) {
    QWidget& pressure = isOpen("Form2") ? dialog("Form2") : open("Command4", "Form2");
    select(pressure, "Combo1", 3);
    type(pressure, "Text1", feet);
    const BoxAnswers answers(QMessageBox::Yes);
    click(pressure, "Command1");
  }

  void drawChart(bool blank = false) {
    QWidget& chartType = open("Command3", "Form6");
    if (blank) control<QAbstractButton>(chartType, "Option2").click();
    click(chartType, "Command1");
  }

  void typePoint(const char* value1, const char* value2) {
    type(window, "Text4", value1);
    type(window, "Text5", value2);
  }

  const std::vector<Operation>& operations() { return control<GraphView>(window, "graph").drawing().operations; }

  std::string lastPrint() {
    const auto& all = operations();
    for (auto operation = all.rbegin(); operation != all.rend(); ++operation) {
      if (const auto* print = std::get_if<TextOperation>(&*operation)) return print->text;
    }
    return {};
  }

  /// The eight read-outs of the live row.
  std::string row() {
    std::string texts;
    for (const ReadoutField& field : readoutFields) texts += text(window, field.name) + "|";
    return texts;
  }

  std::string file(const char* name) const {
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "none";
  }

  /// A line, a point with a name, the pressure as it is.
  void addLineAndPoint() {
    type(window, "Text1", "50");
    click(window, "Command5");
    typePoint("75", "62.5");
    type(window, "Text7", "A");
    click(open("Command14", "Form3"), "Command1");
  }

  QTemporaryDir folder;
  MainWindow window;
  bool started = false;
  bool ended = false;

private:
  static QWidget* find(const char* name) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == QLatin1String(name) && widget->isVisible()) return widget;
    }
    return nullptr;
  }
};

/// A standard chart, with a point where it says so, and the pointer over it.
struct Pointed : Program {
  explicit Pointed(bool withPoint = false, StartState startState = onChart) : Program(startState) {
    if (withPoint) addLineAndPoint();
  }

  QPoint at(double db, double w) {
    const QSize size = window.centralWidget()->size();
    const PlotBox box =
        plotBox(plotArea({0, 120, 0, 0.03}, {size.width() * twipsPerPixel, size.height() * twipsPerPixel}));
    return QPointF(box.x(db), box.y(w)).toPoint();
  }

  void send(QEvent::Type type, QPoint place, Qt::MouseButton button = Qt::NoButton, Qt::MouseButtons buttons = {},
            Qt::KeyboardModifiers modifiers = {}) {
    QMouseEvent event(type, place, graph.mapToGlobal(place), button, buttons, modifiers);
    QApplication::sendEvent(&graph, &event);
  }
  void point(double db, double w, Qt::KeyboardModifiers modifiers = {}) {
    send(QEvent::MouseMove, at(db, w), Qt::NoButton, {}, modifiers);
  }
  void press(double db, double w) { send(QEvent::MouseButtonPress, at(db, w), Qt::LeftButton, Qt::LeftButton); }
  void release(double db, double w) { send(QEvent::MouseButtonRelease, at(db, w), Qt::LeftButton); }
  void drag(double db, double w, Qt::KeyboardModifiers modifiers = {}) {
    send(QEvent::MouseMove, at(db, w), Qt::NoButton, Qt::LeftButton, modifiers);
  }
  void keys(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QApplication::setActiveWindow(&window);
    graph.setFocus();
    QTest::keyClick(&graph, key, modifiers);
  }

  /// What screen readers announce of the chart.
  std::string told() {
    const auto* isMessageLine = graph.findChild<QTimer*>(QStringLiteral("telling"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isMessageLine->isActive(); }));
    return graph.accessibleDescription().toStdString();
  }
  std::string boxes() { return text(window, "Text4") + "|" + text(window, "Text5"); }

  GraphView& graph = control<GraphView>(window, "graph");
};

}  // namespace moistair::windowtest
