// What the window tests share.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <stdexcept>
#include <string>
#include <vector>

#include "toolkit/listbox.h"

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

/// Answers the message boxes that come up while it lives, and keeps their texts.
class BoxAnswers {
public:
  struct Box {
    std::string title, text;
    QMessageBox::StandardButtons buttons;
  };

  explicit BoxAnswers(QMessageBox::StandardButton answer = QMessageBox::Ok) : answer_(answer) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { look(); });
    timer_.start(10);
  }

  const std::vector<Box>& boxes() const { return boxes_; }
  std::string lasttext() const { return boxes_.empty() ? std::string() : boxes_.back().text; }

private:
  void look() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    boxes_.push_back({box->windowTitle().toStdString(), box->text().toStdString(), box->standardButtons()});
    auto* button = box->button(answer_);
    if (button != nullptr) {
      button->click();
    } else {
      box->reject();
    }
  }

  QMessageBox::StandardButton answer_;
  QTimer timer_;
  std::vector<Box> boxes_;
};

/// Answers the next save dialog with a path, or cancels it for an empty one.
class SaveAnswer {
public:
  explicit SaveAnswer(const QString& path) : path_(path) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { look(); });
    timer_.start(10);
  }

  const QString& title() const { return title_; }
  const QStringList& filters() const { return filters_; }
  const QString& offered() const { return offered_; }  ///< name that the dialog opened with

private:
  void look() {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return;
    timer_.stop();
    title_ = dialog->windowTitle();
    filters_ = dialog->nameFilters();
    auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    offered_ = name->text();
    if (path_.isEmpty()) {
      dialog->reject();
    } else {
      name->setText(path_);
      QTest::keyClick(name, Qt::Key_Return);
    }
  }

  QString path_, title_, offered_;
  QStringList filters_;
  QTimer timer_;
};

}  // namespace moistair::windowtest
