#include "shell/statusline.h"

#include <QFileInfo>

#include "shell/cellrow.h"
#include "windows/notes.h"

namespace moistair {

namespace {

constexpr int answerTime = 10000;  // ms

QString shown(const std::string& words) { return QString::fromStdString(words); }

}  // namespace

StatusLine::StatusLine(QWidget* parent)
    : QStatusBar(parent),
      message_(new MessageLine),
      offer_(new MessageLine),
      unkept_(new MessageLine),
      pressure_(new MessageLine),
      header_(new MessageLine),
      changes_(new MessageLine),
      chart_(new ElidedLabel),
      records_(new ElidedLabel),
      document_(new ElidedLabel),
      row_(new CellRow({{message_, 0},
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
  message_->setObjectName(QStringLiteral("voice"));
  offer_->setObjectName(QStringLiteral("offer"));
  unkept_->setObjectName(QStringLiteral("unkept"));
  pressure_->setObjectName(QStringLiteral("inforce"));
  header_->setObjectName(QStringLiteral("header"));
  changes_->setObjectName(QStringLiteral("changes"));
  chart_->setObjectName(QStringLiteral("standing"));
  records_->setObjectName(QStringLiteral("records"));
  document_->setObjectName(QStringLiteral("document"));
  document_->setElision(Qt::ElideMiddle);  // the star at its end is seen
  addWidget(row_, 1);
  answered_.setSingleShot(true);
  connect(&answered_, &QTimer::timeout, this, [this] { answer({}); });
  connect(message_, &MessageLine::clicked, this, [this] {
    if (answer_.isEmpty() && notes_.remark.exact) Q_EMIT exactChosen();
  });
  connect(offer_, &MessageLine::clicked, this, [this] {
    const std::size_t shown = shownOffer();
    if (shown < offerCount) Q_EMIT offerChosen(static_cast<Offer>(shown));
  });
  for (MessageLine* line : {pressure_, header_}) {
    connect(line, &MessageLine::clicked, this, [this] {
      if (headerDiffers()) Q_EMIT headerchosen();
    });
  }
}

void StatusLine::show(const StatusTexts& statusTexts, std::size_t records) {
  const bool differ = !statusTexts.header.empty();
  const QString tip =
      QStringLiteral("All is calculated with the pressure in force. Click to put the header's in force again.");
  const BoxMark mark = differ ? BoxMark::fault : BoxMark::none;
  pressure_->setMessage(shown(statusTexts.pressure), mark, differ, differ ? tip : QStringLiteral("Pressure in force"));
  header_->setMessage(shown(statusTexts.header), mark, differ, tip);
  changes_->setMessage(shown(statusTexts.changes), BoxMark::note, false,
                       QStringLiteral("Clear the chart and draw it anew to have it as it says."));
  chart_->setText(shown(statusTexts.chart));
  records_->setText(shown(recordsWords(records)));
  row_->place();
}

void StatusLine::showDocument(const QString& caption) {
  document_->setText(caption);
  row_->place();
}

void StatusLine::remark(const PairNotes& notes) {
  notes_ = notes;
  answer({});
}

void StatusLine::answerFile(const QString& what, const QString& path, const Outcome& outcome) {
  const QString name = QFileInfo(path).fileName();
  if (!outcome) {
    answer(QStringLiteral("%1 not written to %2: %3").arg(what, name, QString::fromStdString(outcome.error().words)),
           BoxMark::fault, path);
  } else {
    answer(QStringLiteral("%1 written to %2").arg(what, name), BoxMark::none, path);
  }
}

void StatusLine::answer(const QString& words, BoxMark mark, const QString& tip) {
  answer_ = words;
  answerTip_ = tip;
  answerMark_ = mark;
  answered_.stop();
  if (!words.isEmpty() && mark != BoxMark::fault) answered_.start(answerTime);
  announce();
}

void StatusLine::endAnswer() {
  if (!answer_.isEmpty()) answer({});
}

void StatusLine::offer(Offer offer, const QString& words, const QString& tip) {
  const auto index = static_cast<std::size_t>(offer);
  offers_[index] = words;
  offerTips_[index] = tip;
  const std::size_t shown = shownOffer();
  const bool any = shown < offerCount;
  offer_->setMessage(any ? offers_[shown] : QString(), BoxMark::none, any, any ? offerTips_[shown] : QString());
  row_->place();
}

/// The last one that there is; `offerCount` for none.
std::size_t StatusLine::shownOffer() const {
  for (std::size_t index = offerCount; index-- > 0;) {
    if (!offers_[index].isEmpty()) return index;
  }
  return offerCount;
}

void StatusLine::showUnkept(const QString& reason) {
  unkept_->setMessage(reason.isEmpty() ? QString() : QStringLiteral("Unsaved work is not being kept: %1").arg(reason),
                      BoxMark::fault);
  row_->place();
}

void StatusLine::announce() {
  if (answer_.isEmpty()) {
    showRemark(*message_, notes_);
  } else {
    message_->setMessage(answer_, answerMark_, false, answerTip_);
  }
  row_->place();
}

}  // namespace moistair
