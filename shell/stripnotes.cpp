#include "shell/stripnotes.h"

#include <utility>

namespace moistair {

namespace {

void setnote(QWidget& control, const BoxNote& note) {
  const Mark mark = note.empty() ? Mark::none : note.fault ? Mark::fault : Mark::note;
  setmark(control, mark, QString::fromStdString(note.words));
}

/// In the order of `LineKind`.
std::array<QLineEdit*, 4> lineboxes(const Strip& strip) {
  return {strip.rhvalue, strip.wbvalue, strip.hvalue, strip.vvalue};
}

}  // namespace

StripNotes::StripNotes(Strip& strip, StatusLine& line, const ChartCommands& chart, const SessionValues& values,
                       SessionLog& log)
    : QObject(&strip), strip_(strip), line_(line), chart_(chart), values_(values), log_(log) {
  for (const ListBox* list : {strip.firstkind, strip.secondkind}) {
    connect(list, &QComboBox::editTextChanged, this, &StripNotes::markkinds);
  }
  for (const ListBox* list : {strip.lowdb, strip.highdb, strip.lowhr, strip.highhr}) {
    connect(list, &QComboBox::editTextChanged, this, &StripNotes::follow);
  }
  for (const QLineEdit* box : lineboxes(strip)) {
    connect(box, &QLineEdit::textChanged, this, &StripNotes::marklines);
  }
}

void StripNotes::showpair(const PairNotes& notes) {
  pair_ = notes;
  setnote(*strip_.firstvalue, notes.values[0]);
  setnote(*strip_.secondvalue, notes.values[1]);
  markkinds();
  speak();
}

/// A text that is typed into a list runs nothing, so that the row may still show another property.
void StripNotes::markkinds() {
  const std::array<ListBox*, 2> lists = {strip_.firstkind, strip_.secondkind};
  for (std::size_t i = 0; i < lists.size(); ++i) {
    setnote(*lists[i], lists[i]->selected() < 0 ? BoxNote{nopropertychosen, true} : pair_.kinds[i]);
  }
}

void StripNotes::marklines() {
  const auto boxes = lineboxes(strip_);
  linewords_.clear();
  for (std::size_t kind = 0; kind < boxes.size(); ++kind) {
    const BoxNote note = zeronote(boxes[kind]->text().toStdString());
    setnote(*boxes[kind], note);
    if (note.empty()) continue;
    if (!linewords_.empty()) linewords_ += "; ";
    linewords_ += captionof(static_cast<LineKind>(kind)) + (": " + note.words);
  }
  speak();
}

void StripNotes::speak() {
  Remark remark = pair_.remark;
  if (!linewords_.empty()) remark.words = linewords_ + (remark.words.empty() ? "" : "; ") + remark.words;
  line_.remark(remark, pair_.refused ? Mark::fault : Mark::note);
}

void StripNotes::follow() {
  const Standing standing = standingof(chart_.document(), values_.pressure.lenient(), strip_.limittexts());
  line_.show(standing, log_.records());
  const std::array<ListBox*, 4> lists = {strip_.lowdb, strip_.highdb, strip_.lowhr, strip_.highhr};
  for (std::size_t i = 0; i < lists.size(); ++i) {
    setnote(*lists[i], standing.changed[i] ? BoxNote{limitschanged} : BoxNote{});
  }
  tellempty();
}

/// An empty box of a line counts as 0.
void StripNotes::tellempty() {
  const auto boxes = lineboxes(strip_);
  const auto drawn = emptylines(chart_.document(), values_.pressure.lenient());
  for (std::size_t kind = 0; kind < boxes.size(); ++kind) {
    boxes[kind]->setPlaceholderText(drawn[kind] ? tr("draws 0") : tr("no line"));
  }
}

void StripNotes::useexact() {
  const auto exact = pair_.remark.exact;
  if (!exact) return;
  strip_.firstkind->select(static_cast<int>(PropertyKind::db));
  strip_.secondkind->select(static_cast<int>(PropertyKind::wb));
  strip_.firstvalue->setText(QString::fromStdString(numbertext(exact->db)));
  strip_.secondvalue->setText(QString::fromStdString(numbertext(exact->wb)));
}

}  // namespace moistair
