#include "shell/instrument.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "model/table.h"

namespace moistair {

namespace {

constexpr double margin = 24;  // pixels about the plot in which the layer says that nothing is to be read there
constexpr int quiet = 150;     // ms without a move before a moving pointer's reading is told
constexpr double samepressure = 1e-9;

bool differ(double one, double other) { return !(std::abs(one - other) < samepressure); }

}  // namespace

Instrument::Instrument(QWidget& widget, ChartCommands& chart, const SessionValues& values, Ground ground)
    : QObject(&widget),
      widget_(widget),
      chart_(chart),
      values_(values),
      ground_(std::move(ground)),
      layer_(new ReadingLayer(widget)) {
  widget.setMouseTracking(true);
  widget.installEventFilter(this);
  telling_.setSingleShot(true);
  telling_.setInterval(quiet);
  connect(&telling_, &QTimer::timeout, this, &Instrument::tell);
}

void Instrument::follow() {
  dragging_ = false;
  grabbed_.reset();
  standing_ = standingchart(chart_.document());
  marks_ = marksof(chart_.document());
  // The last of several at one place draws the pointer: a point, which can be moved, before what is put on it.
  std::stable_partition(marks_.begin(), marks_.end(),
                        [this](const Mark& mark) { return !ispoint(chart_.document().entries[mark.entry]); });
  targets_.clear();
  for (const Mark& mark : marks_) targets_.push_back(mark.place);
  if (!standing_) haslast_ = false;
  if (!spot_) return;
  if (!standing_) return hide();
  if (!bykeys_) return point(pointer_, {});
  showat(spot_->reading.place);
}

bool Instrument::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick: return onmouse(*static_cast<QMouseEvent*>(event));
    case QEvent::KeyPress:
    case QEvent::KeyRelease: return onkey(*static_cast<QKeyEvent*>(event));
    case QEvent::ShortcutOverride:  // Alt is the drag's, and not for the letters of the menus
      if (dragging_ && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Alt) event->accept();
      break;
    case QEvent::Leave:
      if (QApplication::activePopupWidget() == nullptr) onleave();  // a menu is for the place where it was opened
      break;
    case QEvent::FocusIn: onfocus(static_cast<QFocusEvent*>(event)->reason()); break;
    case QEvent::Resize: layer_->resize(widget_.size()); break;
    case QEvent::ChildPolished: layer_->raise(); break;  // whatever else shows the chart
    case QEvent::ContextMenu: openmenu(*static_cast<QContextMenuEvent*>(event)); return true;
    default: break;
  }
  return QObject::eventFilter(watched, event);
}

bool Instrument::onmouse(const QMouseEvent& event) {
  pointer_ = event.position();
  switch (event.type()) {
    case QEvent::MouseButtonPress: press(event); break;
    case QEvent::MouseButtonRelease:
      if (event.button() == Qt::LeftButton) release();
      break;
    case QEvent::MouseButtonDblClick:
      if (event.button() == Qt::LeftButton && spot_) locate(*spot_);
      break;
    default:
      if (ispulled() && grabbed_) dragging_ = true;
      onmove(event.modifiers());
  }
  return false;
}

/// Whether the pointer has gone too far with the button down for a click.
bool Instrument::ispulled() const {
  return pressed_ && (pointer_ - *pressed_).manhattanLength() >= QApplication::startDragDistance();
}

void Instrument::onmove(Qt::KeyboardModifiers modifiers) {
  dragging_ ? drag(pointer_, modifiers) : point(pointer_, modifiers);
}

void Instrument::onleave() {
  if (!bykeys_ && !dragging_) hide();
}

void Instrument::press(const QMouseEvent& event) {
  if (dragging_ || event.button() != Qt::LeftButton) return;
  point(pointer_, event.modifiers());
  pressed_ = pointer_;
  grabbed_ = spot_ && spot_->mark && movable(*spot_->mark) ? spot_->mark : std::nullopt;
}

void Instrument::release() {
  const bool clicked = pressed_ && !ispulled();
  pressed_.reset();
  if (dragging_) {
    drop();
  } else if (clicked && spot_) {
    choose(*spot_);
  }
  grabbed_.reset();
}

/// The pointer is at a place of the widget.
void Instrument::point(QPointF place, Qt::KeyboardModifiers modifiers) {
  if (!standing_) return hide();
  const PlotBox box = ground_.plot(standing_->limits);
  const QRectF plot(QPointF(box.left, box.top), QPointF(box.right, box.bottom));
  if (box.empty() || !plot.adjusted(-margin, -margin, margin, margin).contains(place)) return hide();
  bykeys_ = false;
  const double atm = standing_->pressure.atm;
  const Pointing at = pointedat(box, atm, place.x(), place.y(), targets_, modifiers.testFlag(Qt::ControlModifier));
  show({readingat(standing_->limits, atm, at.place), at.target}, atm);
}

/// A mark follows the pointer. It is read at the pressure of its point, which it keeps.
void Instrument::drag(QPointF place, Qt::KeyboardModifiers modifiers) {
  const Setting& setting = entryof(*grabbed_).setting;
  const double atm = setting.pressure.atm;
  Pointing at =
      pointedat(ground_.plot(setting.limits), atm, place.x(), place.y(), {}, modifiers.testFlag(Qt::ControlModifier));
  if (modifiers.testFlag(Qt::ShiftModifier)) at.place.db = targets_[*grabbed_].db;
  if (modifiers.testFlag(Qt::AltModifier)) at.place.w = targets_[*grabbed_].w;
  show({readingat(setting.limits, atm, at.place), grabbed_}, atm);
}

/// The cross hair at a place, and at the mark if it is on one: next to it the air is another.
void Instrument::showat(const Place& place) {
  const double atm = standing_->pressure.atm;
  show({readingat(standing_->limits, atm, place), targetAt(place, targets_)}, atm);
}

void Instrument::show(Spot spot, double atm) {
  spot_ = std::move(spot);
  if (spot_->reading.reason != outsidelimits) {
    last_ = spot_->reading.place;
    haslast_ = true;
  }
  const auto from = dragging_ ? std::optional(targets_[*grabbed_]) : std::nullopt;
  title_ = titleof(*spot_, atm);
  layer_->show({ground_.plot(standing_->limits), atm, spot_->reading, title_, from});
  setshape();
  telling_.start();
}

void Instrument::hide() {
  bykeys_ = false;
  if (!spot_) return;
  spot_.reset();
  layer_->clear();
  setshape();
  telling_.start();
}

/// Who cannot see the reading gets it as the chart's description. A pointer on its way says nothing.
void Instrument::tell() {
  telling_.stop();
  QString words;
  if (spot_) words = QString::fromStdString(spokenreading(spot_->reading));
  if (spot_ && !title_.isEmpty()) words = title_ + QStringLiteral(": ") + words;
  widget_.setAccessibleDescription(words);
}

/// The pointer's shape tells what pressing would do.
void Instrument::setshape() {
  Qt::CursorShape shape = Qt::ArrowCursor;
  if (dragging_) {
    shape = spot_ && spot_->reading.state ? Qt::ClosedHandCursor : Qt::ForbiddenCursor;
  } else if (spot_ && spot_->mark && movable(*spot_->mark)) {
    shape = Qt::OpenHandCursor;
  } else if (spot_ && spot_->reading.state) {
    shape = Qt::CrossCursor;
  }
  if (widget_.cursor().shape() != shape) widget_.setCursor(shape);
}

/// The mark's name, that it misses something, and the pressure where it is another than that in force.
QString Instrument::titleof(const Spot& spot, double atm) const {
  QStringList parts;
  if (spot.mark) parts.append(QString::fromStdString(captionof(entryof(*spot.mark))));
  if (spot.mark && !dragging_ && missesAny(entryof(*spot.mark))) parts.append(tr("(missed)"));
  if (differ(atm, values_.pressure.lenient())) {
    parts.append(tr("at %1 In Hg").arg(QString::fromStdString(numbertext(std::round(atm * 1e4) / 1e4))));
  }
  return parts.join(QLatin1Char(' '));
}

/// Back from a menu or another program, keys go on where they were.
void Instrument::onfocus(Qt::FocusReason reason) {
  const bool back =
      reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason || reason == Qt::ActiveWindowFocusReason;
  if (!back) steered_ = false;
}

bool Instrument::movable(std::size_t mark) const { return ispoint(entryof(mark)); }

bool Instrument::onkey(const QKeyEvent& event) {
  const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
  const auto key = static_cast<Qt::Key>(event.key());
  if (key == Qt::Key_Control || key == Qt::Key_Shift || key == Qt::Key_Alt) {
    if (spot_ && !bykeys_) onmove(event.modifiers());
    return false;
  }
  if (event.type() == QEvent::KeyRelease) return false;
  // A Return that was meant for the box that a line was drawn from must not open a window.
  if ((key == Qt::Key_Return || key == Qt::Key_Enter) && !(bykeys_ && steered_)) return false;
  if (!dragging_ && !event.isAutoRepeat() && runcommand(modifiers | key)) return true;
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
bool Instrument::step(Qt::Key key, bool tenths) {
  const int degrees = static_cast<int>(key == Qt::Key_Right) - static_cast<int>(key == Qt::Key_Left);
  const int ratios = static_cast<int>(key == Qt::Key_Up) - static_cast<int>(key == Qt::Key_Down);
  if ((degrees == 0 && ratios == 0) || !standing_) return false;
  const ChartLimits& limits = standing_->limits;
  const double atm = standing_->pressure.atm;
  Place place = spot_ ? spot_->reading.place : last_;
  if (!spot_ && !haslast_) {
    const double db = std::round((limits.lowdb + limits.highdb) / 2);
    const double most = std::min(limits.highhr, saturatedat(db, atm).value_or(Place{db, limits.highhr}).w);
    place = readplace({db, std::max(limits.lowhr, std::round(most / 2 / 0.0005) * 0.0005)});
  } else if (spot_) {
    place = caughtBy(targets_, stepped(limits, place, degrees, ratios, tenths), tenths);
  }
  bykeys_ = steered_ = true;
  showat(place);
  tell();
  return true;
}

}  // namespace moistair
