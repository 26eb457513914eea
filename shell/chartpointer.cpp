#include "shell/chartpointer.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "model/table.h"
#include "text/numberformat.h"

namespace moistair {

namespace {

constexpr double margin = 24;  // pixels about the plot in which the layer says that nothing is to be read there
constexpr int quiet = 150;     // ms without a move before a moving pointer's reading is announced

}  // namespace

ChartPointer::ChartPointer(QWidget& widget, ChartCommands& chart, PlotGeometry geometry)
    : QObject(&widget),
      widget_(widget),
      chart_(chart),
      geometry_(std::move(geometry)),
      layer_(new ReadingLayer(widget)) {
  widget.setMouseTracking(true);
  widget.installEventFilter(this);
  announceTimer_.setObjectName(QStringLiteral("telling"));
  announceTimer_.setSingleShot(true);
  announceTimer_.setInterval(quiet);
  connect(&announceTimer_, &QTimer::timeout, this, &ChartPointer::announce);
}

void ChartPointer::follow() {
  dragging_ = false;
  grabbed_.reset();
  currentChart_ = currentChart(chart_.document());
  marks_ = marksOf(chart_.document());
  // The last of several at one place draws the pointer: a point, which can be moved, before what is put on it.
  std::stable_partition(marks_.begin(), marks_.end(),
                        [this](const Mark& mark) { return !isPoint(chart_.document().entries[mark.entry]); });
  targets_.clear();
  for (const Mark& mark : marks_) targets_.push_back(mark.place);
  if (!currentChart_) hasLast_ = false;
  if (!crossHair_) return;
  if (!currentChart_) return hide();
  if (!byKeys_) return point(pointer_, {});
  showAt(crossHair_->reading.place);
}

bool ChartPointer::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick: return onMouse(*static_cast<QMouseEvent*>(event));
    case QEvent::KeyPress:
    case QEvent::KeyRelease: return onKey(*static_cast<QKeyEvent*>(event));
    case QEvent::ShortcutOverride:  // Alt is the drag's, and not for the letters of the menus
      if (dragging_ && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Alt) event->accept();
      break;
    case QEvent::Leave:
      if (QApplication::activePopupWidget() == nullptr) onLeave();  // a menu is for the place where it was opened
      break;
    case QEvent::FocusIn: onFocus(static_cast<QFocusEvent*>(event)->reason()); break;
    case QEvent::Resize: layer_->resize(widget_.size()); break;
    case QEvent::ChildPolished: layer_->raise(); break;  // whatever else shows the chart
    case QEvent::ContextMenu: openMenu(*static_cast<QContextMenuEvent*>(event)); return true;
    default: break;
  }
  return QObject::eventFilter(watched, event);
}

bool ChartPointer::onMouse(const QMouseEvent& event) {
  pointer_ = event.position();
  switch (event.type()) {
    case QEvent::MouseButtonPress: press(event); break;
    case QEvent::MouseButtonRelease:
      if (event.button() == Qt::LeftButton) release();
      break;
    case QEvent::MouseButtonDblClick:
      if (event.button() == Qt::LeftButton && crossHair_) locate(*crossHair_);
      break;
    default:
      if (isPulled() && grabbed_) dragging_ = true;
      onMove(event.modifiers());
  }
  return false;
}

/// Whether the pointer has gone too far with the button down for a click.
bool ChartPointer::isPulled() const {
  return pressed_ && (pointer_ - *pressed_).manhattanLength() >= QApplication::startDragDistance();
}

void ChartPointer::onMove(Qt::KeyboardModifiers modifiers) {
  dragging_ ? drag(pointer_, modifiers) : point(pointer_, modifiers);
}

void ChartPointer::onLeave() {
  if (!byKeys_ && !dragging_) hide();
}

void ChartPointer::press(const QMouseEvent& event) {
  if (dragging_ || event.button() != Qt::LeftButton) return;
  point(pointer_, event.modifiers());
  pressed_ = pointer_;
  grabbed_ = crossHair_ && crossHair_->mark && movable(*crossHair_->mark) ? crossHair_->mark : std::nullopt;
}

void ChartPointer::release() {
  const bool clicked = pressed_ && !isPulled();
  pressed_.reset();
  if (dragging_) {
    drop();
  } else if (clicked && crossHair_) {
    choose(*crossHair_);
  }
  grabbed_.reset();
}

/// The pointer is at a place of the widget.
void ChartPointer::point(QPointF place, Qt::KeyboardModifiers modifiers) {
  if (!currentChart_) return hide();
  const PlotBox box = geometry_.plot(currentChart_->limits);
  const QRectF plot(QPointF(box.left, box.top), QPointF(box.right, box.bottom));
  if (box.empty() || !plot.adjusted(-margin, -margin, margin, margin).contains(place)) return hide();
  byKeys_ = false;
  const double atm = currentChart_->pressure.atm;
  const Pointing at = pointedAt(box, atm, place.x(), place.y(), targets_, modifiers.testFlag(Qt::ControlModifier));
  show({readingAt(currentChart_->limits, atm, at.place), at.target}, atm);
}

/// A mark follows the pointer. It is read at the pressure of its point, which it keeps.
void ChartPointer::drag(QPointF place, Qt::KeyboardModifiers modifiers) {
  const Setting& setting = entryOf(*grabbed_).setting;
  const double atm = setting.pressure.atm;
  Pointing at =
      pointedAt(geometry_.plot(setting.limits), atm, place.x(), place.y(), {}, modifiers.testFlag(Qt::ControlModifier));
  if (modifiers.testFlag(Qt::ShiftModifier)) at.place.db = targets_[*grabbed_].db;
  if (modifiers.testFlag(Qt::AltModifier)) at.place.w = targets_[*grabbed_].w;
  show({readingAt(setting.limits, atm, at.place), grabbed_}, atm);
}

/// The cross hair at a place, and at the mark if it is on one: next to it the air is another.
void ChartPointer::showAt(const ChartCoordinates& place) {
  const double atm = currentChart_->pressure.atm;
  show({readingAt(currentChart_->limits, atm, place), targetAt(place, targets_)}, atm);
}

void ChartPointer::show(CrossHair crossHair, double atm) {
  crossHair_ = std::move(crossHair);
  if (crossHair_->reading.reason != NoReading::outsideLimits) {
    last_ = crossHair_->reading.place;
    hasLast_ = true;
  }
  const auto from = dragging_ ? std::optional(targets_[*grabbed_]) : std::nullopt;
  title_ = titleOf(*crossHair_, atm);
  layer_->show({geometry_.plot(currentChart_->limits), atm, crossHair_->reading, title_, from});
  setShape();
  announceTimer_.start();
}

void ChartPointer::hide() {
  byKeys_ = false;
  if (!crossHair_) return;
  crossHair_.reset();
  layer_->clear();
  setShape();
  announceTimer_.start();
}

/// Who cannot see the reading gets it as the chart's description. A pointer on its way says nothing.
void ChartPointer::announce() {
  announceTimer_.stop();
  QString words;
  if (crossHair_) words = QString::fromStdString(readingDescription(crossHair_->reading));
  if (crossHair_ && !title_.isEmpty()) words = title_ + QStringLiteral(": ") + words;
  widget_.setAccessibleDescription(words);
}

/// The pointer's shape shows what a press would do.
void ChartPointer::setShape() {
  Qt::CursorShape shape = Qt::ArrowCursor;
  if (dragging_) {
    shape = crossHair_ && crossHair_->reading.state ? Qt::ClosedHandCursor : Qt::ForbiddenCursor;
  } else if (crossHair_ && crossHair_->mark && movable(*crossHair_->mark)) {
    shape = Qt::OpenHandCursor;
  } else if (crossHair_ && crossHair_->reading.state) {
    shape = Qt::CrossCursor;
  }
  if (widget_.cursor().shape() != shape) widget_.setCursor(shape);
}

/// The mark's name, that it misses something, and the pressure where it is not the current one.
QString ChartPointer::titleOf(const CrossHair& crossHair, double atm) const {
  QStringList parts;
  if (crossHair.mark) parts.append(QString::fromStdString(captionOf(entryOf(*crossHair.mark))));
  if (crossHair.mark && !dragging_ && missesAny(entryOf(*crossHair.mark))) parts.append(QStringLiteral("(missed)"));
  if (!samePressure(atm, chart_.document().atm())) {
    parts.append(QStringLiteral("at %1 In Hg").arg(QString::fromStdString(atMostDecimals(atm, 4))));
  }
  return parts.join(QLatin1Char(' '));
}

/// Back from a menu or another program, keys go on where they were.
void ChartPointer::onFocus(Qt::FocusReason reason) {
  const bool back =
      reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason || reason == Qt::ActiveWindowFocusReason;
  if (!back) steered_ = false;
}

bool ChartPointer::movable(std::size_t mark) const { return isPoint(entryOf(mark)); }

bool ChartPointer::onKey(const QKeyEvent& event) {
  const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
  const auto key = static_cast<Qt::Key>(event.key());
  if (key == Qt::Key_Control || key == Qt::Key_Shift || key == Qt::Key_Alt) {
    if (crossHair_ && !byKeys_) onMove(event.modifiers());
    return false;
  }
  if (event.type() == QEvent::KeyRelease) return false;
  // A Return that was meant for the box that a line was drawn from must not open a window.
  if ((key == Qt::Key_Return || key == Qt::Key_Enter) && !(byKeys_ && steered_)) return false;
  if (!dragging_ && !event.isAutoRepeat() && runCommand(modifiers | key)) return true;
  if (modifiers != Qt::NoModifier && modifiers != Qt::ShiftModifier) return false;
  if (key == Qt::Key_Escape && dragging_) {
    dragging_ = false;
    pressed_.reset();
    grabbed_.reset();
    hide();
    return true;
  }
  if (dragging_) return false;
  return step(key, modifiers == Qt::ShiftModifier);
}

/// The cross hair by keys: it begins where it was last, and else in the midst of the plot.
bool ChartPointer::step(Qt::Key key, bool tenths) {
  const int degrees = static_cast<int>(key == Qt::Key_Right) - static_cast<int>(key == Qt::Key_Left);
  const int ratios = static_cast<int>(key == Qt::Key_Up) - static_cast<int>(key == Qt::Key_Down);
  if ((degrees == 0 && ratios == 0) || !currentChart_) return false;
  const ChartLimits& limits = currentChart_->limits;
  const double atm = currentChart_->pressure.atm;
  ChartCoordinates place = crossHair_ ? crossHair_->reading.place : last_;
  if (!crossHair_ && !hasLast_) {
    const double db = std::round((limits.lowDb + limits.highDb) / 2);
    const double most = std::min(limits.highHr, saturatedAt(db, atm).value_or(ChartCoordinates{db, limits.highHr}).w);
    place = readPlace({db, std::max(limits.lowHr, std::round(most / 2 / 0.0005) * 0.0005)});
  } else if (crossHair_) {
    place = caughtBy(targets_, stepped(limits, place, degrees, ratios, tenths), tenths);
  }
  byKeys_ = steered_ = true;
  showAt(place);
  announce();
  return true;
}

}  // namespace moistair
