#include "shell/typedpair.h"

#include <QKeyEvent>
#include <utility>

namespace moistair {

TypedPair::TypedPair(Strip& strip) : QObject(&strip), strip_(strip) {
  for (QLineEdit* box : {strip.firstValue, strip.secondValue}) {
    box->installEventFilter(this);
    connect(box, &QLineEdit::textChanged, this, &TypedPair::changed);
  }
  for (ListBox* list : {strip.firstKind, strip.secondKind}) {
    connect(list, &QComboBox::editTextChanged, this, &TypedPair::changed);
  }
}

void TypedPair::take(const QString& dryBulb, const QString& ratio) {
  const Sides before = sides();
  const bool typed = !before[0].value.isEmpty() || !before[1].value.isEmpty();
  if (before != taken_) replaced_ = typed ? std::optional(before) : std::nullopt;
  const auto text = [](const ListBox* list, PropertyKind kind) { return list->itemText(static_cast<int>(kind)); };
  taken_ = {Side{text(strip_.firstKind, PropertyKind::db), dryBulb},
            Side{text(strip_.secondKind, PropertyKind::w), ratio}};
  if (replaced_ == taken_) replaced_.reset();
  put(*taken_);
}

void TypedPair::putBack() {
  if (words().isEmpty()) return;
  taken_.reset();
  put(*std::exchange(replaced_, std::nullopt));
}

QString TypedPair::words() const {
  if (!replaced_ || sides() != taken_) return {};
  QStringList values;
  for (const Side& side : *replaced_) {
    if (!side.value.isEmpty()) values.append(side.value);
  }
  return QStringLiteral("The boxes held %1: put it back").arg(values.join(QStringLiteral(" and ")));
}

bool TypedPair::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo) &&
      !words().isEmpty() && !static_cast<QLineEdit*>(watched)->isUndoAvailable()) {
    putBack();
    return true;
  }
  return QObject::eventFilter(watched, event);
}

TypedPair::Sides TypedPair::sides() const {
  return {Side{strip_.firstKind->currentText(), strip_.firstValue->text()},
          Side{strip_.secondKind->currentText(), strip_.secondValue->text()}};
}

/// Empty boxes keep still while the kinds change.
void TypedPair::put(const Sides& sides) {
  const std::array<std::pair<ListBox*, QLineEdit*>, 2> controls = {
      {{strip_.firstKind, strip_.firstValue}, {strip_.secondKind, strip_.secondValue}}};
  for (const auto& [list, box] : controls) box->clear();
  for (std::size_t i = 0; i < controls.size(); ++i) {
    const int item = controls[i].first->findText(sides[i].kind, Qt::MatchExactly | Qt::MatchCaseSensitive);
    item < 0 ? controls[i].first->setEditText(sides[i].kind) : controls[i].first->select(item);
  }
  for (std::size_t i = 0; i < controls.size(); ++i) controls[i].second->setText(sides[i].value);
  Q_EMIT changed();
}

}  // namespace moistair
