#include "toolkit/elidedlabel.h"

#include <QPainter>
#include <algorithm>

#include "paint/replay.h"

namespace moistair {

namespace {

constexpr int usualCharacters = 16;  ///< room that is asked for; what is longer uses the room that there is

}  // namespace

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

void ElidedLabel::setElision(Qt::TextElideMode place) {
  place_ = place;
  update();
}

QSize ElidedLabel::sizeHint() const {
  const QFontMetrics metrics = fontMetrics();
  return {usualCharacters * metrics.averageCharWidth(), metrics.height()};
}

QSize ElidedLabel::minimumSizeHint() const { return sizeHint(); }

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect room = contentsRect();
  const QString whole = printable(text());
  const QString shown = fontMetrics().elidedText(whole, place_, room.width(), Qt::TextSingleLine);
  const QString tip = shown == whole ? QString() : whole;
  if (tip != toolTip()) setToolTip(tip);
  painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}

}  // namespace moistair
