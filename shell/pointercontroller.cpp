#include "shell/pointercontroller.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "advice/comfortwords.h"
#include "model/pointreport.h"
#include "model/table.h"
#include "text/numberformat.h"

namespace moistair {

namespace {

constexpr double margin = 24;  // pixels about the plot in which the layer says that nothing is to be read there

}  // namespace

PointerController::PointerController(ChartController& chart, Plot plot, int drag, QObject* parent)
    : QObject(parent), chart_(chart), plot_(std::move(plot)), dragDistance_(drag) {
  connect(&chart, &ChartController::laidOut, this, &PointerController::follow);
  connect(&chart, &ChartController::changed, this, [this](ChangedPart part) {
    if (part == ChangedPart::content) follow();
  });
}

void PointerController::follow() {
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

void PointerController::move(Qt::KeyboardModifiers modifiers) {
  if (isPulled() && grabbed_) dragging_ = true;
  moveTo(modifiers);
}

void PointerController::modify(Qt::KeyboardModifiers modifiers) {
  if (crossHair_ && !byKeys_) moveTo(modifiers);
}

void PointerController::moveTo(Qt::KeyboardModifiers modifiers) {
  dragging_ ? drag(pointer_, modifiers) : point(pointer_, modifiers);
}

/// Whether the pointer has gone too far with the button down for a click.
bool PointerController::isPulled() const {
  return pressed_ && (pointer_ - *pressed_).manhattanLength() >= dragDistance_;
}

void PointerController::leave() {
  if (!byKeys_ && !dragging_) hide();
}

void PointerController::press(Qt::KeyboardModifiers modifiers) {
  if (dragging_) return;
  point(pointer_, modifiers);
  pressed_ = pointer_;
  grabbed_ = crossHair_ && crossHair_->mark && movable(*crossHair_->mark) ? crossHair_->mark : std::nullopt;
}

void PointerController::release() {
  const bool clicked = pressed_ && !isPulled();
  pressed_.reset();
  if (dragging_) {
    drop();
  } else if (clicked && crossHair_) {
    choose(*crossHair_);
  }
  grabbed_.reset();
}

void PointerController::doubleClick() {
  if (crossHair_) locate(*crossHair_);
}

/// The pointer is at a place of the widget.
void PointerController::point(QPointF place, Qt::KeyboardModifiers modifiers) {
  if (!currentChart_) return hide();
  const PlotBox box = plot_(currentChart_->limits);
  const QRectF plot(QPointF(box.left, box.top), QPointF(box.right, box.bottom));
  if (box.empty() || !plot.adjusted(-margin, -margin, margin, margin).contains(place)) return hide();
  byKeys_ = false;
  const double atm = currentChart_->pressure.atm;
  const Pointing at = pointedAt(box, atm, place.x(), place.y(), targets_, modifiers.testFlag(Qt::ControlModifier));
  show({readingAt(currentChart_->limits, atm, at.place), at.target}, atm);
}

/// A mark follows the pointer. It is read at the pressure of its point, which it keeps.
void PointerController::drag(QPointF place, Qt::KeyboardModifiers modifiers) {
  const Setting& setting = entryOf(*grabbed_).setting;
  const double atm = setting.pressure.atm;
  Pointing at =
      pointedAt(plot_(setting.limits), atm, place.x(), place.y(), {}, modifiers.testFlag(Qt::ControlModifier));
  if (modifiers.testFlag(Qt::ShiftModifier)) at.place.db = targets_[*grabbed_].db;
  if (modifiers.testFlag(Qt::AltModifier)) at.place.w = targets_[*grabbed_].w;
  show({readingAt(setting.limits, atm, at.place), grabbed_}, atm);
}

/// The cross hair at a place, and at the mark if it is on one: next to it the air is another.
void PointerController::showAt(const ChartCoordinates& place) {
  const double atm = currentChart_->pressure.atm;
  show({readingAt(currentChart_->limits, atm, place), targetAt(place, targets_)}, atm);
}

void PointerController::show(CrossHair crossHair, double atm) {
  crossHair_ = std::move(crossHair);
  if (crossHair_->reading.reason != NoReading::outsideLimits) {
    last_ = crossHair_->reading.place;
    hasLast_ = true;
  }
  const auto from = dragging_ ? std::optional(targets_[*grabbed_]) : std::nullopt;
  title_ = titleOf(*crossHair_, atm);
  Q_EMIT shown({plot_(currentChart_->limits), atm, crossHair_->reading, title_, from});
  setShape();
  Q_EMIT described(false);
}

void PointerController::hide() {
  byKeys_ = false;
  if (!crossHair_) return;
  crossHair_.reset();
  Q_EMIT hidden();
  setShape();
  Q_EMIT described(false);
}

QString PointerController::description() const {
  if (!crossHair_) return {};
  const QString words = QString::fromStdString(readingDescription(crossHair_->reading));
  return title_.isEmpty() ? words : title_ + QStringLiteral(": ") + words;
}

QPointF PointerController::cross() const {
  const PlotBox box = plot_(currentChart_->limits);
  const ChartCoordinates& place = crossHair_->reading.place;
  return {box.x(place.db), box.y(place.w)};
}

/// The pointer's shape shows what a press would do.
void PointerController::setShape() {
  Qt::CursorShape shape = Qt::ArrowCursor;
  if (dragging_) {
    shape = crossHair_ && crossHair_->reading.state ? Qt::ClosedHandCursor : Qt::ForbiddenCursor;
  } else if (crossHair_ && crossHair_->mark && movable(*crossHair_->mark)) {
    shape = Qt::OpenHandCursor;
  } else if (crossHair_ && crossHair_->reading.state) {
    shape = Qt::CrossCursor;
  }
  Q_EMIT shaped(shape);
}

/// The mark's name, that it misses something, the pressure where it is not the current one, and how people vote there.
QString PointerController::titleOf(const CrossHair& crossHair, double atm) const {
  QStringList parts;
  if (crossHair.mark) parts.append(QString::fromStdString(captionOf(entryOf(*crossHair.mark))));
  if (crossHair.mark && !dragging_ && missesAny(entryOf(*crossHair.mark))) parts.append(QStringLiteral("(missed)"));
  if (!samePressure(atm, chart_.document().atm())) {
    parts.append(QStringLiteral("at %1 In Hg").arg(QString::fromStdString(atMostDecimals(atm, 4))));
  }
  const ChartCoordinates& place = crossHair.reading.place;
  if (crossHair.reading.state) {
    const std::string comfort = comfortText(chart_.document().zoneLayer, place.db, place.w, atm);
    if (!comfort.empty()) parts.append(QString::fromStdString(comfort));
  }
  return parts.join(QLatin1Char(' '));
}

/// Back from a menu or another program, keys go on where they were.
void PointerController::focus(Qt::FocusReason reason) {
  const bool back =
      reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason || reason == Qt::ActiveWindowFocusReason;
  if (!back) steered_ = false;
}

bool PointerController::key(QKeyCombination keys, bool isRepeat) {
  const Qt::Key key = keys.key();
  const Qt::KeyboardModifiers modifiers = keys.keyboardModifiers();
  // A Return that was meant for the box that a line was drawn from must not open a window.
  if ((key == Qt::Key_Return || key == Qt::Key_Enter) && !(byKeys_ && steered_)) return false;
  const auto pressed = [&](const Command& command) { return command.keys[0] == keys || command.keys[1] == keys; };
  const auto found = std::find_if(commands().begin(), commands().end(), pressed);
  if (!dragging_ && !isRepeat && found != commands().end() && run(*found)) return true;
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
bool PointerController::step(Qt::Key key, bool tenths) {
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
  Q_EMIT described(true);
  return true;
}

const std::vector<PointerController::Command>& PointerController::commands() {
  const auto isAir = [](const CrossHair& crossHair) { return crossHair.reading.state.has_value(); };
  const auto isThere = [](const CrossHair&) { return true; };
  const auto isMark = [](const CrossHair& crossHair) { return crossHair.mark.has_value(); };
  static const std::vector<Command> table = {
      {QT_TR_NOOP("Locate point at the cross &hair..."),
       "Return",
       {Qt::Key_Return, Qt::Key_Enter},
       isAir,
       &PointerController::locate},
      {QT_TR_NOOP("&Pin read-out"), "P", {Qt::Key_P, Qt::Key_P}, isAir, &PointerController::pin},
      {QT_TR_NOOP("Cop&y state"), "Ctrl+C", {Qt::CTRL | Qt::Key_C, Qt::Key_Copy}, isAir, &PointerController::copy},
      {QT_TR_NOOP("Delete mar&k"), "Del", {Qt::Key_Delete, Qt::Key_Delete}, isMark, &PointerController::erase},
      {QT_TR_NOOP("H&ide cross hair"), "Esc", {Qt::Key_Escape, Qt::Key_Cancel}, isThere, &PointerController::dismiss},
  };
  return table;
}

bool PointerController::run(const Command& command) {
  if (!crossHair_ || !command.possible(*crossHair_)) return false;
  const CrossHair crossHair = *crossHair_;
  (this->*command.run)(crossHair);
  return true;
}

void PointerController::choose(const CrossHair& crossHair) {
  if (!crossHair.reading.state) return;
  const ChartCoordinates& place = crossHair.reading.place;
  Q_EMIT chosen(QString::fromStdString(dryBulbText(place)), QString::fromStdString(ratioText(place)));
}

void PointerController::locate(const CrossHair& crossHair) {
  if (!crossHair.reading.state) return;
  pressed_.reset();
  choose(crossHair);
  Q_EMIT located();
}

/// The mark stays where it is dropped if there is air there.
void PointerController::drop() {
  const std::size_t mark = *grabbed_;
  dragging_ = false;
  const auto moved = crossHair_ && crossHair_->reading.state
                         ? movedTo(entryOf(mark), crossHair_->reading.place, chart_.window())
                         : std::nullopt;
  if (moved) {
    chart_.commands().change(moving(chart_.document(), placeOf(mark), *moved), chart_.window());
  } else {
    point(pointer_, {});
  }
}

/// A line of the property that the place has, as it is read there, at the pressure and between the limits of the chart.
void PointerController::draw(LineKind kind, const CrossHair& crossHair) {
  const std::string value = readingText(propertyOf(kind), *crossHair.reading.state);
  const char* reason =
      chart_.commands().add({*currentChart_, PropertyLine{kind, numberText(lenientNumber(value))}}, chart_.window());
  if (reason != nullptr) Q_EMIT refused(QString::fromUtf8(reason));
}

/// Kept on the chart, to be compared and printed.
void PointerController::pin(const CrossHair& crossHair) {
  if (auto pinned = readingToKeep(*currentChart_, crossHair.reading.place)) {
    pinned->corner = freeCorner(chart_.document(), *pinned, chart_.window());
    chart_.commands().add({*currentChart_, *pinned}, chart_.window());
  }
}

void PointerController::erase(const CrossHair& crossHair) {
  if (crossHair.mark)
    chart_.commands().change(deletion(chart_.document(), {placeOf(*crossHair.mark)}), chart_.window());
}

/// The state as lines of caption and value, for a spreadsheet too.
void PointerController::copy(const CrossHair& crossHair) {
  if (!crossHair.reading.state) return;
  QString text;
  for (const PropertyKind kind : shownOrder) {
    text += QString::fromUtf8(propertyOf(kind).caption) + QLatin1Char('\t') +
            QString::fromStdString(fixedDecimals(crossHair.reading.state->at(kind), 7)) + QLatin1Char('\n');
  }
  Q_EMIT copied(text);
}

/// The same place with each mark that is there, one of a kind of entry after the other.
std::vector<PointerController::CrossHair> PointerController::atSameCoordinates(const CrossHair& crossHair) const {
  std::vector<CrossHair> spots;
  std::optional<std::size_t> last;  // a mixture of one air has three marks at a place
  for (std::size_t mark = marks_.size(); mark-- > 0;) {
    if (targets_[mark] != targets_[*crossHair.mark] || marks_[mark].entry == last) continue;
    spots.push_back({crossHair.reading, mark});
    last = marks_[mark].entry;
  }
  return spots;
}

}  // namespace moistair
