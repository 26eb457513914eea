#include "toolkit/controls.h"

#include <QPushButton>
#include <QShortcut>
#include <QVariant>
#include <algorithm>

namespace moistair {

void ControlMaker::setup(QWidget& control, const Control& row) {
  control.setObjectName(QString::fromUtf8(row.name));
  const QString toolTip = QString::fromUtf8(row.toolTip);
  if (!toolTip.isEmpty()) control.setToolTip(toolTip);
  const QString caption = QString::fromUtf8(row.caption);
  if (!caption.isEmpty()) control.setProperty("text", caption);
  if (auto* button = qobject_cast<QPushButton*>(&control)) pressByReturn(*button);
  placed_.push_back({&control, row.tab});
}

void ControlMaker::setTabOrder() {
  std::stable_sort(placed_.begin(), placed_.end(), [](const Placed& a, const Placed& b) { return a.tab < b.tab; });
  QWidget* last = nullptr;
  for (const Placed& placed : placed_) {
    if ((placed.control->focusPolicy() & Qt::TabFocus) == 0) continue;
    if (last != nullptr) QWidget::setTabOrder(last, placed.control);
    last = placed.control;
  }
}

void pressByReturn(QPushButton& button) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    auto* shortcut = new QShortcut(key, &button);
    shortcut->setContext(Qt::WidgetShortcut);
    shortcut->setAutoRepeat(false);
    QObject::connect(shortcut, &QShortcut::activated, &button, &QPushButton::click);
  }
}

void nameInput(QWidget& input, const QString& name) { input.setAccessibleName(name); }

void nameList(QWidget& list, const QString& name) {
  auto* label = new QLabel(name, list.parentWidget());
  label->setBuddy(&list);
  label->hide();
  nameInput(list, name);
}

void makeReadout(QLabel& label) {
  label.setTextFormat(Qt::PlainText);
  label.setTextInteractionFlags(Qt::TextSelectableByMouse);
}

}  // namespace moistair
