#include "shell/stripnotes.h"

#include "chart/chartfinders.h"
#include "windows/notes.h"

namespace moistair {

namespace {

PairBoxes pairBoxes(const Strip& strip) {
  return {strip.firstKind, strip.firstValue, strip.secondKind, strip.secondValue};
}

/// In the order of `LineKind`.
std::array<QLineEdit*, 4> lineBoxes(const Strip& strip) {
  return {strip.rhValue, strip.wbValue, strip.hValue, strip.vValue};
}

}  // namespace

StripNotes::StripNotes(Strip& strip, StatusLine& line, ChartController& chart, SessionLog& log)
    : QObject(&strip), strip_(strip), line_(line), chart_(chart), log_(log), context_() {
  connect(&chart, &ChartController::changed, this, &StripNotes::follow);
  connect(&chart, &ChartController::previewed, this, &StripNotes::showPair);
  connect(&chart, &ChartController::located, this, &StripNotes::located);
  connect(&chart, &ChartController::rowSettled, this, &StripNotes::rowShown);
  for (const ListBox* list : {strip.firstKind, strip.secondKind}) {
    connect(list, &QComboBox::editTextChanged, this, &StripNotes::judgeAgain);
  }
  for (const ListBox* list : {strip.lowDb, strip.highDb, strip.lowHr, strip.highHr}) {
    connect(list, &QComboBox::editTextChanged, this, &StripNotes::follow);
  }
  for (const QLineEdit* box : lineBoxes(strip)) {
    connect(box, &QLineEdit::textChanged, this, &StripNotes::markLines);
  }
}

StripNotes::PairContext StripNotes::pairContext() const {
  return {strip_.pairInput(), chart_.document().atm(), chart_.listedArea(),
          currentLimits(chart_.document()).has_value()};
}

void StripNotes::judge(const Resolution& resolution) {
  context_ = pairContext();
  resolution_ = resolution;
  pair_ = pairNotes(context_.input, context_.atm, resolution, context_.hasCurrentChart);
  setNotes(pairBoxes(strip_), pair_);
}

void StripNotes::showPair(const Resolution& resolution) {
  judge(resolution);
  rowAtm_ = context_.atm;
  rowWords_.clear();
  announce();
}

/// Without a chart nothing has been resolved.
void StripNotes::located(const Location& location) {
  if (!location.outcome && location.resolution.resolved()) return;
  judge(location.resolution);
  rowWords_ = rowWords();
  announce();
}

void StripNotes::rowShown() {
  rowAtm_ = context_.atm;
  rowWords_ = rowWords();
  announce();
}

void StripNotes::judgeAgain() {
  const PairContext now = pairContext();
  if (now == context_) return;
  const auto area = [&now] { return now.area; };
  SolverFields fields = chart_.solverFields();
  judge(resolveInput(now.input, now.atm, chartRangeFinders(area), fields));
  rowWords_ = rowWords();
  announce();
}

/// Nothing where the row shows what the pair now has.
std::string StripNotes::rowWords() const {
  if (!strip_.showsState()) return resolution_.resolved() ? "row above: empty until the next key" : std::string();
  if (resolution_.resolved() && strip_.shows(resolution_.point)) return {};
  const bool pressureUnchanged = samePressure(rowAtm_, context_.atm);
  return pressureUnchanged ? "row above: from before" : "row above: at " + inhgWords(rowAtm_);
}

void StripNotes::markLines() {
  const auto boxes = lineBoxes(strip_);
  lineWords_.clear();
  for (std::size_t kind = 0; kind < boxes.size(); ++kind) {
    const BoxNote note = zeroNote(boxes[kind]->text().toStdString());
    setNote(*boxes[kind], note);
    if (note.empty()) continue;
    if (!lineWords_.empty()) lineWords_ += "; ";
    lineWords_ += captionOf(static_cast<LineKind>(kind)) + (": " + note.words);
  }
  announce();
}

void StripNotes::announce() {
  PairNotes all = pair_;
  std::string& words = all.remark.words;
  if (!rowWords_.empty()) words = rowWords_ + (words.empty() ? "" : "; now: ") + words;
  if (!lineWords_.empty()) words += (words.empty() ? "" : "; ") + lineWords_;
  line_.remark(all);
}

void StripNotes::follow() {
  const StatusTexts statusTexts = statusTextsOf(chart_.document(), strip_.limitTexts());
  line_.show(statusTexts, log_.records());
  const std::array<ListBox*, 4> lists = {strip_.lowDb, strip_.highDb, strip_.lowHr, strip_.highHr};
  for (std::size_t i = 0; i < lists.size(); ++i) {
    setNote(*lists[i], statusTexts.changed[i] ? BoxNote{limitsChanged} : BoxNote{});
  }
  announceEmpty();
  judgeAgain();
}

void StripNotes::fillMenu(QMenu& menu) {
  QAction* header = menu.addAction(QStringLiteral("Pressure of the &header"), &line_, &StatusLine::headerchosen);
  QAction* exact = menu.addAction(QStringLiteral("E&xact answer"), this, &StripNotes::useExact);
  connect(&menu, &QMenu::aboutToShow, this, [this, header, exact] {
    header->setEnabled(line_.headerDiffers());
    exact->setEnabled(pair_.remark.exact.has_value());
  });
}

/// An empty box of a line counts as 0.
void StripNotes::announceEmpty() {
  const auto boxes = lineBoxes(strip_);
  const auto drawn = emptyLines(chart_.document());
  for (std::size_t kind = 0; kind < boxes.size(); ++kind) {
    boxes[kind]->setPlaceholderText(drawn[kind] ? QStringLiteral("line 0") : QStringLiteral("no line"));
  }
}

void StripNotes::useExact() {
  const auto exact = pair_.remark.exact;
  if (exact) putExact(*exact, pairBoxes(strip_));
}

}  // namespace moistair
