#include "windows/notes.h"

namespace moistair {

namespace {

constexpr const char* exacttip = "Click to put the exact dry and wet bulb into the boxes.";

BoxMark markof(const BoxNote& note) {
  if (note.empty()) return BoxMark::none;
  return note.fault ? BoxMark::fault : BoxMark::note;
}

}  // namespace

void setnote(QWidget& control, const BoxNote& note) {
  setmark(control, markof(note), QString::fromStdString(note.words));
}

void setnotes(const PairBoxes& boxes, const PairNotes& notes) {
  setnote(*boxes.kind1, notes.kinds[0]);
  setnote(*boxes.kind2, notes.kinds[1]);
  setnote(*boxes.value1, notes.values[0]);
  setnote(*boxes.value2, notes.values[1]);
}

void tellnote(TellingLine& line, const BoxNote& note) { line.tell(QString::fromStdString(note.words), markof(note)); }

void tellremark(TellingLine& line, const PairNotes& notes, const QKeySequence& keys) {
  const bool exact = notes.remark.exact.has_value();
  QString tip = exact ? QString::fromUtf8(exacttip) : QString();
  if (exact && !keys.isEmpty()) tip += QStringLiteral(" (%1)").arg(keys.toString(QKeySequence::NativeText));
  line.tell(QString::fromStdString(notes.remark.words), markof({notes.remark.words, notes.refused}), exact, tip);
}

void putexact(const Bulbs& bulbs, const PairBoxes& boxes) {
  boxes.kind1->select(static_cast<int>(PropertyKind::db));
  boxes.kind2->select(static_cast<int>(PropertyKind::wb));
  boxes.value1->setText(QString::fromStdString(numbertext(bulbs.db)));
  boxes.value2->setText(QString::fromStdString(numbertext(bulbs.wb)));
}

}  // namespace moistair
