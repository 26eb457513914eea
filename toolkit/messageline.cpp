#include "toolkit/messageline.h"

#include <QAccessibleWidget>
#include <QEvent>
#include <QPainter>

#include "paint/replay.h"

namespace moistair {

namespace {

constexpr int margin = 3;  // pixels, on both sides

/// How assistive technology sees a line: only one that does something is a button.
class LineInterface final : public QAccessibleWidget {
public:
  explicit LineInterface(MessageLine& line) : QAccessibleWidget(&line), line_(line) {}

  QAccessible::Role role() const override {
    return line_.clickable() ? QAccessible::PushButton : QAccessible::StaticText;
  }
  QStringList actionNames() const override { return line_.clickable() ? QStringList{pressAction()} : QStringList{}; }
  void doAction(const QString& name) override {
    if (line_.clickable() && name == pressAction()) line_.click();
  }

private:
  MessageLine& line_;
};

QAccessibleInterface* lineInterface(const QString&, QObject* object) {
  auto* line = qobject_cast<MessageLine*>(object);
  return line == nullptr ? nullptr : new LineInterface(*line);
}

}  // namespace

MessageLine::MessageLine(QWidget* parent) : QAbstractButton(parent) {
  QAccessible::installFactory(lineInterface);  // does nothing the second time
  QSizePolicy kept(QSizePolicy::Expanding, QSizePolicy::Fixed);
  kept.setRetainSizeWhenHidden(true);
  setSizePolicy(kept);
  hide();
  setFocusPolicy(Qt::NoFocus);
  connect(this, &QAbstractButton::pressed, this, [this] {
    if (!clickable_) setDown(false);
  });
}

void MessageLine::setMessage(const QString& words, BoxMark mark, bool clickable, const QString& tip) {
  if (words == text() && mark == mark_ && clickable == clickable_ && tip == tip_) return;
  mark_ = mark;
  clickable_ = clickable;
  tip_ = tip;
  setText(words);
  setAccessibleName(words);
  setAccessibleDescription(tip);
  const Qt::CursorShape shape = clickable ? Qt::PointingHandCursor : Qt::ArrowCursor;
  if (cursor().shape() != shape) setCursor(shape);
  room_ = -1;
  setVisible(!words.isEmpty());
  update();
}

int MessageLine::textLeft() const { return margin + (mark_ == BoxMark::none ? 0 : fontMetrics().ascent() + margin); }

QSize MessageLine::sizeHint() const {
  if (text().isEmpty()) return {0, fontMetrics().height()};
  return {textLeft() + fontMetrics().horizontalAdvance(text()) + margin + 1, fontMetrics().height()};
}

QSize MessageLine::minimumSizeHint() const { return {0, fontMetrics().height()}; }

void MessageLine::elide(int room) {
  room_ = room;
  const QString whole = printable(text());
  shown_ = fontMetrics().elidedText(whole, Qt::ElideRight, room, Qt::TextSingleLine);
  QString tip = tip_;
  if (shown_ != whole) tip = tip.isEmpty() ? whole : whole + QLatin1Char('\n') + tip;
  if (tip != toolTip()) setToolTip(tip);
}

void MessageLine::changeEvent(QEvent* event) {
  room_ = -1;
  QAbstractButton::changeEvent(event);
}

void MessageLine::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect room = rect().adjusted(textLeft(), 0, -margin, 0);
  if (room.width() != room_) elide(room.width());
  if (mark_ != BoxMark::none) {
    QColor tint = markColor(mark_, palette());
    tint.setAlphaF(0.14F);
    painter.fillRect(rect(), tint);
    const int side = fontMetrics().ascent();
    paintSign(painter, QRectF(margin, (height() - side) / 2.0, side, side), mark_, palette());
  }
  QFont font = this->font();
  font.setUnderline(clickable_);
  painter.setFont(font);
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown_);
}

}  // namespace moistair
