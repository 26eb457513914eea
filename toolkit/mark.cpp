#include "toolkit/mark.h"

#include <QEvent>
#include <QPainterPath>

namespace moistair {

namespace {

/// Lies over a control, lets the pointer through and follows its size.
class MarkFrame final : public QWidget {
public:
  explicit MarkFrame(QWidget& control) : QWidget(&control) {
    setObjectName(QStringLiteral("mark"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    control.installEventFilter(this);
    resize(control.size());
  }

  void show(BoxMark mark) {
    mark_ = mark;
    setVisible(mark != BoxMark::none);
    raise();
    update();
  }

protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Resize) resize(parentWidget()->size());
    return QWidget::eventFilter(watched, event);
  }

  void paintEvent(QPaintEvent*) override {
    constexpr qreal line = 2;
    constexpr qreal corner = 7;
    constexpr float tint = 0.16F;
    QPainter painter(this);
    QColor color = markColor(mark_, palette());
    const QRectF frame = QRectF(rect()).adjusted(line / 2, line / 2, -line / 2, -line / 2);
    painter.setPen(QPen(color, line, mark_ == BoxMark::note ? Qt::DashLine : Qt::SolidLine));
    painter.drawRect(frame);
    QPainterPath triangle(QPointF(width() - corner, 0));
    triangle.lineTo(width(), 0);
    triangle.lineTo(width(), corner);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(triangle, color);
    color.setAlphaF(tint);
    painter.fillRect(frame, color);
  }

private:
  BoxMark mark_ = BoxMark::none;
};

MarkFrame* frameOf(QWidget& control) {
  return static_cast<MarkFrame*>(control.findChild<QWidget*>(QStringLiteral("mark"), Qt::FindDirectChildrenOnly));
}

}  // namespace

QColor markColor(BoxMark mark, const QPalette& palette) {
  const bool dark = palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
  if (mark == BoxMark::fault) return dark ? QColor(255, 120, 110) : QColor(190, 20, 20);
  return dark ? QColor(255, 190, 70) : QColor(160, 90, 0);
}

void setMark(QWidget& control, BoxMark mark, const QString& words) {
  MarkFrame* frame = frameOf(control);
  if (frame == nullptr && mark != BoxMark::none) frame = new MarkFrame(control);
  if (frame != nullptr) frame->show(mark);
  if (control.toolTip() == words) return;
  control.setToolTip(words);
  control.setAccessibleDescription(words);
}

void paintSign(QPainter& painter, const QRectF& square, BoxMark mark, const QPalette& palette) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor color = markColor(mark, palette);
  const qreal unit = square.width() / 8;
  QPainterPath triangle(square.topLeft() + QPointF(4 * unit, 0.4 * unit));
  triangle.lineTo(square.bottomRight() - QPointF(0, 0.6 * unit));
  triangle.lineTo(square.bottomLeft() - QPointF(0, 0.6 * unit));
  triangle.closeSubpath();
  painter.fillPath(triangle, color);
  painter.setPen(QPen(palette.color(QPalette::Window), 1.1 * unit, Qt::SolidLine, Qt::FlatCap));
  const QPointF middle = square.topLeft() + QPointF(4 * unit, 0);
  painter.drawLine(middle + QPointF(0, 2.8 * unit), middle + QPointF(0, 5.3 * unit));
  painter.drawLine(middle + QPointF(0, 5.9 * unit), middle + QPointF(0, 7 * unit));
  painter.restore();
}

}  // namespace moistair
