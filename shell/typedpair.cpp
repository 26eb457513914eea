#include "shell/typedpair.h"

#include <QKeyEvent>
#include <utility>

namespace moistair {

TypedPair::TypedPair(Strip& strip) : QObject(&strip), strip_(strip) {
  for (QLineEdit* box : {strip.firstvalue, strip.secondvalue}) {
    box->installEventFilter(this);
    connect(box, &QLineEdit::textChanged, this, &TypedPair::changed);
  }
  for (ListBox* list : {strip.firstkind, strip.secondkind}) {
    connect(list, &QComboBox::editTextChanged, this, &TypedPair::changed);
  }
}

void TypedPair::take(const QString& drybulb, const QString& ratio) {
  const Sides before = sides();
  const bool typed = !before[0].value.isEmpty() || !before[1].value.isEmpty();
  if (before != taken_) replaced_ = typed ? std::optional(before) : std::nullopt;
  const auto text = [](const ListBox* list, PropertyKind kind) { return list->itemText(static_cast<int>(kind)); };
  taken_ = {Side{text(strip_.firstkind, PropertyKind::db), drybulb},
            Side{text(strip_.secondkind, PropertyKind::w), ratio}};
  if (replaced_ == taken_) replaced_.reset();
  put(*taken_);
}

void TypedPair::putback() {
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
  return tr("The boxes held %1: put it back").arg(values.join(tr(" and ")));
}

bool TypedPair::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo) &&
      !words().isEmpty() && !static_cast<QLineEdit*>(watched)->isUndoAvailable()) {
    putback();
    return true;
  }
  return QObject::eventFilter(watched, event);
}

TypedPair::Sides TypedPair::sides() const {
  return {Side{strip_.firstkind->currentText(), strip_.firstvalue->text()},
          Side{strip_.secondkind->currentText(), strip_.secondvalue->text()}};
}

/// Empty boxes keep still while the kinds change.
void TypedPair::put(const Sides& sides) {
  const std::array<std::pair<ListBox*, QLineEdit*>, 2> controls = {
      {{strip_.firstkind, strip_.firstvalue}, {strip_.secondkind, strip_.secondvalue}}};
  for (const auto& [list, box] : controls) box->clear();
  for (std::size_t i = 0; i < controls.size(); ++i) {
    const int item = controls[i].first->findText(sides[i].kind, Qt::MatchExactly | Qt::MatchCaseSensitive);
    item < 0 ? controls[i].first->setEditText(sides[i].kind) : controls[i].first->select(item);
  }
  for (std::size_t i = 0; i < controls.size(); ++i) controls[i].second->setText(sides[i].value);
  Q_EMIT changed();
}

}  // namespace moistair
