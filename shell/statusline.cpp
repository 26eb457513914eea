#include "shell/statusline.h"

#include <QFileInfo>

#include "shell/cellrow.h"
#include "windows/notes.h"

namespace moistair {

namespace {

constexpr int answertime = 10000;  // ms

QString shown(const std::string& words) { return QString::fromStdString(words); }

}  // namespace

StatusLine::StatusLine(QWidget* parent)
    : QStatusBar(parent),
      voice_(new TellingLine),
      offer_(new TellingLine),
      unkept_(new TellingLine),
      pressure_(new TellingLine),
      header_(new TellingLine),
      changes_(new TellingLine),
      chart_(new ElidedLabel),
      records_(new ElidedLabel),
      document_(new ElidedLabel),
      row_(new CellRow({{voice_, 0},
                        {offer_, 4},
                        {unkept_, 0},
                        {pressure_, 0},
                        {header_, 0},
                        {changes_, 0},
                        {chart_, 2},
                        {records_, 3},
                        {document_, 1}})) {
  setObjectName(QStringLiteral("statusline"));
  setSizeGripEnabled(false);
  voice_->setObjectName(QStringLiteral("voice"));
  offer_->setObjectName(QStringLiteral("offer"));
  unkept_->setObjectName(QStringLiteral("unkept"));
  pressure_->setObjectName(QStringLiteral("inforce"));
  header_->setObjectName(QStringLiteral("header"));
  changes_->setObjectName(QStringLiteral("changes"));
  chart_->setObjectName(QStringLiteral("standing"));
  records_->setObjectName(QStringLiteral("records"));
  document_->setObjectName(QStringLiteral("document"));
  document_->setelision(Qt::ElideMiddle);  // the star at its end is seen
  addWidget(row_, 1);
  answered_.setSingleShot(true);
  connect(&answered_, &QTimer::timeout, this, [this] { answer({}); });
  connect(voice_, &TellingLine::clicked, this, [this] {
    if (answer_.isEmpty() && notes_.remark.exact) Q_EMIT exactchosen();
  });
  connect(offer_, &TellingLine::clicked, this, [this] {
    const std::size_t shown = shownoffer();
    if (shown < offercount) Q_EMIT offerchosen(static_cast<Offer>(shown));
  });
  for (TellingLine* line : {pressure_, header_}) {
    connect(line, &TellingLine::clicked, this, [this] {
      if (headerdiffers()) Q_EMIT headerchosen();
    });
  }
}

void StatusLine::show(const Standing& standing, std::size_t records) {
  const bool differ = !standing.header.empty();
  const QString tip = tr("All is calculated with the pressure in force. Click to put the header's in force again.");
  const BoxMark mark = differ ? BoxMark::fault : BoxMark::none;
  pressure_->tell(shown(standing.pressure), mark, differ, differ ? tip : tr("Pressure in force"));
  header_->tell(shown(standing.header), mark, differ, tip);
  changes_->tell(shown(standing.changes), BoxMark::note, false,
                 tr("Clear the chart and draw it anew to have it as it says."));
  chart_->setText(shown(standing.chart));
  records_->setText(shown(recordswords(records)));
  row_->place();
}

void StatusLine::showdocument(const QString& caption) {
  document_->setText(caption);
  row_->place();
}

void StatusLine::remark(const PairNotes& notes) {
  notes_ = notes;
  answer({});
}

void StatusLine::answerfile(const QString& what, const QString& path, const std::optional<QString>& failure) {
  const QString name = QFileInfo(path).fileName();
  if (failure) {
    answer(tr("%1 not written to %2: %3").arg(what, name, *failure), BoxMark::fault, path);
  } else {
    answer(tr("%1 written to %2").arg(what, name), BoxMark::none, path);
  }
}

void StatusLine::answer(const QString& words, BoxMark mark, const QString& tip) {
  answer_ = words;
  answertip_ = tip;
  answermark_ = mark;
  answered_.stop();
  if (!words.isEmpty() && mark != BoxMark::fault) answered_.start(answertime);
  speak();
}

void StatusLine::endanswer() {
  if (!answer_.isEmpty()) answer({});
}

void StatusLine::offer(Offer offer, const QString& words, const QString& tip) {
  const auto index = static_cast<std::size_t>(offer);
  offers_[index] = words;
  offertips_[index] = tip;
  const std::size_t shown = shownoffer();
  const bool any = shown < offercount;
  offer_->tell(any ? offers_[shown] : QString(), BoxMark::none, any, any ? offertips_[shown] : QString());
  row_->place();
}

/// The last one that there is; `offercount` for none.
std::size_t StatusLine::shownoffer() const {
  for (std::size_t index = offercount; index-- > 0;) {
    if (!offers_[index].isEmpty()) return index;
  }
  return offercount;
}

void StatusLine::showunkept(const QString& reason) {
  unkept_->tell(reason.isEmpty() ? QString() : tr("Unsaved work is not being kept: %1").arg(reason), BoxMark::fault);
  row_->place();
}

void StatusLine::speak() {
  if (answer_.isEmpty()) {
    tellremark(*voice_, notes_);
  } else {
    voice_->tell(answer_, answermark_, false, answertip_);
  }
  row_->place();
}

}  // namespace moistair
