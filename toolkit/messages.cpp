#include "toolkit/messages.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QPushButton>

namespace moistair {

namespace {

/// The style gives Yes and No their letters, and no other button.
QMessageBox::StandardButton ask(QWidget* parent, const QString& title, const QString& text, QMessageBox::Icon icon,
                                QMessageBox::StandardButtons buttons) {
  QMessageBox box(icon, title, text, buttons, parent);
  if (QAbstractButton* save = box.button(QMessageBox::Save)) save->setText(QStringLiteral("&Save"));
  if (QAbstractButton* discard = box.button(QMessageBox::Discard)) discard->setText(QStringLiteral("&Discard"));
  box.setTextFormat(Qt::PlainText);  // a file name may hold what looks like markup
  return static_cast<QMessageBox::StandardButton>(box.exec());
}

const QString& applicationTitle() {
  static const QString title = QStringLiteral("Moistair");
  return title;
}

}  // namespace

void message(QWidget* parent, const QString& text) {
  ask(parent, applicationTitle(), text, QMessageBox::Information, QMessageBox::Ok);
}

void warning(QWidget* parent, const QString& text) {
  ask(parent, applicationTitle(), text, QMessageBox::Warning, QMessageBox::Ok);
}

void messageOkCancel(QWidget* parent, const QString& text) {
  ask(parent, applicationTitle(), text, QMessageBox::Information, QMessageBox::Ok | QMessageBox::Cancel);
}

bool question(QWidget* parent, const QString& title, const QString& text) {
  return ask(parent, title, text, QMessageBox::Question, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

bool choice(QWidget* parent, const QString& text, const QString& first, const QString& second) {
  QMessageBox box(QMessageBox::Question, applicationTitle(), text, QMessageBox::NoButton, parent);
  box.setTextFormat(Qt::PlainText);
  auto* one = box.addButton(first, QMessageBox::AcceptRole);
  const QAbstractButton* other = box.addButton(second, QMessageBox::AcceptRole);
  box.setDefaultButton(one);
  box.setEscapeButton(one);
  box.exec();
  return box.clickedButton() != other;
}

Unsaved askToSave(QWidget* parent, const QString& text) {
  const auto answer = ask(parent, applicationTitle(), text, QMessageBox::Question,
                          QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
  if (answer == QMessageBox::Save) return Unsaved::save;
  return answer == QMessageBox::Discard ? Unsaved::discard : Unsaved::cancel;
}

}  // namespace moistair
