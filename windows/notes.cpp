#include "windows/notes.h"

namespace moistair {

namespace {

constexpr const char* exactTip = "Click to put the exact dry and wet bulb into the boxes.";

BoxMark markOf(const BoxNote& note) {
  if (note.empty()) return BoxMark::none;
  return note.fault ? BoxMark::fault : BoxMark::note;
}

}  // namespace

void setNote(QWidget& control, const BoxNote& note) {
  setMark(control, markOf(note), QString::fromStdString(note.words));
}

void setNotes(const PairBoxes& boxes, const PairNotes& notes) {
  setNote(*boxes.kind1, notes.kinds[0]);
  setNote(*boxes.kind2, notes.kinds[1]);
  setNote(*boxes.value1, notes.values[0]);
  setNote(*boxes.value2, notes.values[1]);
}

void showNote(MessageLine& line, const BoxNote& note) {
  line.setMessage(QString::fromStdString(note.words), markOf(note));
}

void showRemark(MessageLine& line, const PairNotes& notes, const QKeySequence& keys) {
  const bool exact = notes.remark.exact.has_value();
  QString tip = exact ? QString::fromUtf8(exactTip) : QString();
  if (exact && !keys.isEmpty()) tip += QStringLiteral(" (%1)").arg(keys.toString(QKeySequence::NativeText));
  line.setMessage(QString::fromStdString(notes.remark.words), markOf({notes.remark.words, notes.refused}), exact, tip);
}

void putExact(const Bulbs& bulbs, const PairBoxes& boxes) {
  boxes.kind1->select(static_cast<int>(PropertyKind::db));
  boxes.kind2->select(static_cast<int>(PropertyKind::wb));
  boxes.value1->setText(QString::fromStdString(numberText(bulbs.db)));
  boxes.value2->setText(QString::fromStdString(numberText(bulbs.wb)));
}

}  // namespace moistair
