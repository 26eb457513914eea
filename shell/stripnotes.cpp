#include "shell/stripnotes.h"

#include "chart/chartfinders.h"
#include "windows/notes.h"

namespace moistair {

namespace {

PairBoxes pairboxes(const Strip& strip) {
  return {strip.firstkind, strip.firstvalue, strip.secondkind, strip.secondvalue};
}

/// In the order of `LineKind`.
std::array<QLineEdit*, 4> lineboxes(const Strip& strip) {
  return {strip.rhvalue, strip.wbvalue, strip.hvalue, strip.vvalue};
}

}  // namespace

StripNotes::StripNotes(Strip& strip, StatusLine& line, const ChartCommands& chart, const SessionValues& values,
                       SessionLog& log, std::function<PlotArea()> area)
    : QObject(&strip),
      strip_(strip),
      line_(line),
      chart_(chart),
      values_(values),
      log_(log),
      area_(std::move(area)),
      ground_() {
  for (const ListBox* list : {strip.firstkind, strip.secondkind}) {
    connect(list, &QComboBox::editTextChanged, this, &StripNotes::judgeanew);
  }
  for (const ListBox* list : {strip.lowdb, strip.highdb, strip.lowhr, strip.highhr}) {
    connect(list, &QComboBox::editTextChanged, this, &StripNotes::follow);
  }
  for (const QLineEdit* box : lineboxes(strip)) {
    connect(box, &QLineEdit::textChanged, this, &StripNotes::marklines);
  }
}

StripNotes::Ground StripNotes::ground() const {
  return {strip_.pairinput(), values_.pressure.lenient(), area_(), standinglimits(chart_.document()).has_value()};
}

void StripNotes::judge(const Resolution& resolution) {
  ground_ = ground();
  resolution_ = resolution;
  pair_ = pairnotes(ground_.input, ground_.atm, resolution, ground_.chartstands);
  setnotes(pairboxes(strip_), pair_);
}

void StripNotes::showpair(const Resolution& resolution) {
  judge(resolution);
  rowatm_ = ground_.atm;
  rowwords_.clear();
  speak();
}

/// Without a chart nothing has been resolved.
void StripNotes::located(const Location& location) {
  if (location.refusal && location.resolution.resolved()) return;
  judge(location.resolution);
  rowwords_ = rowwords();
  speak();
}

void StripNotes::rowshown() {
  rowatm_ = ground_.atm;
  rowwords_ = rowwords();
  speak();
}

void StripNotes::judgeanew() {
  const Ground now = ground();
  if (now == ground_) return;
  const auto area = [&now] { return now.area; };
  SolverFields fields = values_.solverfields;
  judge(resolveinput(now.input, now.atm, chartrangefinders(area), fields));
  rowwords_ = rowwords();
  speak();
}

/// Nothing where the row shows what the pair now has.
std::string StripNotes::rowwords() const {
  if (!strip_.showsstate()) return resolution_.resolved() ? "row above: empty until the next key" : std::string();
  if (resolution_.resolved() && strip_.shows(resolution_.point)) return {};
  const bool samethen = samepressure(rowatm_, ground_.atm);
  return samethen ? "row above: from before" : "row above: at " + inhgwords(rowatm_);
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
  PairNotes all = pair_;
  std::string& words = all.remark.words;
  if (!rowwords_.empty()) words = rowwords_ + (words.empty() ? "" : "; now: ") + words;
  if (!linewords_.empty()) words += (words.empty() ? "" : "; ") + linewords_;
  line_.remark(all);
}

void StripNotes::follow() {
  const Standing standing = standingof(chart_.document(), values_.pressure.lenient(), strip_.limittexts());
  line_.show(standing, log_.records());
  const std::array<ListBox*, 4> lists = {strip_.lowdb, strip_.highdb, strip_.lowhr, strip_.highhr};
  for (std::size_t i = 0; i < lists.size(); ++i) {
    setnote(*lists[i], standing.changed[i] ? BoxNote{limitschanged} : BoxNote{});
  }
  tellempty();
  judgeanew();
}

void StripNotes::fillmenu(QMenu& menu) {
  QAction* header = menu.addAction(QStringLiteral("Pressure of the &header"), &line_, &StatusLine::headerchosen);
  QAction* exact = menu.addAction(QStringLiteral("E&xact answer"), this, &StripNotes::useexact);
  connect(&menu, &QMenu::aboutToShow, this, [this, header, exact] {
    header->setEnabled(line_.headerdiffers());
    exact->setEnabled(pair_.remark.exact.has_value());
  });
}

/// An empty box of a line counts as 0.
void StripNotes::tellempty() {
  const auto boxes = lineboxes(strip_);
  const auto drawn = emptylines(chart_.document(), values_.pressure.lenient());
  for (std::size_t kind = 0; kind < boxes.size(); ++kind) {
    boxes[kind]->setPlaceholderText(drawn[kind] ? QStringLiteral("line 0") : QStringLiteral("no line"));
  }
}

void StripNotes::useexact() {
  const auto exact = pair_.remark.exact;
  if (exact) putexact(*exact, pairboxes(strip_));
}

}  // namespace moistair
