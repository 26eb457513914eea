#include "shell/instrument.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QInputDialog>
#include <QKeyEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "session/pointreport.h"

namespace moistair {

namespace {

constexpr double margin = 24;  // pixels about the plot in which the layer says that nothing is to be read there
constexpr int quiet = 150;     // ms without a move before a moving pointer's reading is told
constexpr double samepressure = 1e-9;

/// What of a state a line keeps.
double StatePoint::*keptby(LineKind kind) {
  switch (kind) {
    case LineKind::relativehumidity: return &StatePoint::rh;
    case LineKind::wetbulb: return &StatePoint::wb;
    case LineKind::enthalpy: return &StatePoint::h;
    case LineKind::specificvolume: break;
  }
  return &StatePoint::v;
}

const ReadingRow& rowof(double StatePoint::*value) {
  return *std::find_if(readingrows.begin(), readingrows.end(),
                       [&](const ReadingRow& row) { return row.value == value; });
}

bool differ(double one, double other) { return !(std::abs(one - other) < samepressure); }

QString menutext(const std::string& text) {
  return QString::fromStdString(text).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

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
    case QEvent::KeyPress: return onkey(*static_cast<QKeyEvent*>(event));
    case QEvent::Leave:
      if (!bykeys_ && !dragging_) hide();
      break;
    case QEvent::Resize: layer_->resize(widget_.size()); break;
    case QEvent::ChildPolished: layer_->raise(); break;  // whatever else shows the chart
    case QEvent::ContextMenu: openmenu(static_cast<QContextMenuEvent*>(event)->globalPos()); return true;
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
    default: {
      const bool far = pressed_ && (pointer_ - *pressed_).manhattanLength() >= QApplication::startDragDistance();
      if (far && grabbed_) dragging_ = true;
      dragging_ ? drag(pointer_, event.modifiers()) : point(pointer_, event.modifiers());
    }
  }
  return false;
}

void Instrument::press(const QMouseEvent& event) {
  if (dragging_ || event.button() != Qt::LeftButton) return;
  point(pointer_, event.modifiers());
  pressed_ = pointer_;
  grabbed_ = spot_ && spot_->mark && movable(*spot_->mark) ? spot_->mark : std::nullopt;
}

void Instrument::release() {
  const bool clicked = std::exchange(pressed_, std::nullopt).has_value() && !dragging_;
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

/// The cross hair at a place, and at the mark that is there.
void Instrument::showat(const Place& place) {
  const PlotBox box = ground_.plot(standing_->limits);
  const double atm = standing_->pressure.atm;
  show({readingat(standing_->limits, atm, place), nearesttarget(box, box.x(place.db), box.y(place.w), targets_)}, atm);
}

void Instrument::show(Spot spot, double atm) {
  spot_ = std::move(spot);
  if (spot_->reading.reason != outsidelimits) {
    last_ = spot_->reading.place;
    haslast_ = true;
  }
  const auto from = dragging_ ? std::optional(targets_[*grabbed_]) : std::nullopt;
  layer_->show({ground_.plot(standing_->limits), atm, spot_->reading, titleof(*spot_, atm), from});
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
  widget_.setAccessibleDescription(spot_ ? QString::fromStdString(spokenreading(spot_->reading)) : QString());
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

/// The mark's name, and the pressure where it is another than that in force.
QString Instrument::titleof(const Spot& spot, double atm) const {
  QStringList parts;
  if (spot.mark) parts.append(QString::fromStdString(captionof(entryof(*spot.mark))));
  if (differ(atm, values_.pressure.lenient())) {
    parts.append(tr("at %1 In Hg").arg(QString::fromStdString(numbertext(std::round(atm * 1e4) / 1e4))));
  }
  return parts.join(QLatin1Char(' '));
}

bool Instrument::movable(std::size_t mark) const { return ispoint(entryof(mark)); }

bool Instrument::onkey(const QKeyEvent& event) {
  const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
  const auto key = static_cast<Qt::Key>(event.key());
  if (modifiers != Qt::NoModifier && modifiers != Qt::ShiftModifier) return false;
  if (key == Qt::Key_Escape) {
    const bool shown = spot_.has_value();
    dragging_ = false;
    pressed_.reset();
    grabbed_.reset();
    hide();
    return shown;
  }
  if (dragging_) return false;
  const bool enter = (key == Qt::Key_Return || key == Qt::Key_Enter) && !event.isAutoRepeat();
  if (enter && spot_ && modifiers == Qt::NoModifier) {
    locate(*spot_);
    return true;
  }
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
    place = stepped(limits, place, degrees, ratios, tenths);
  }
  bykeys_ = true;
  showat(place);
  tell();
  return true;
}

void Instrument::choose(const Spot& spot) {
  if (!spot.reading.state) return;
  const Place& place = spot.reading.place;
  Q_EMIT chosen(QString::fromStdString(drybulbtext(place)), QString::fromStdString(ratiotext(place)));
}

void Instrument::locate(const Spot& spot) {
  if (!spot.reading.state) return;
  pressed_.reset();
  choose(spot);
  Q_EMIT located();
}

/// The mark stays where it is dropped if there is air there.
void Instrument::drop() {
  const std::size_t mark = *grabbed_;
  dragging_ = false;
  const auto moved =
      spot_ && spot_->reading.state ? movedto(entryof(mark), spot_->reading.place, ground_.window()) : std::nullopt;
  if (moved) {
    chart_.change(moving(chart_.document(), marks_[mark].entry, *moved), ground_.window());
  } else {
    point(pointer_, {});
  }
}

/// A line of the property that the place has, at the pressure and between the limits of the chart.
void Instrument::draw(LineKind kind, const Spot& spot) {
  const double value = *spot.reading.state.*keptby(kind);
  const char* reason =
      chart_.add({*standing_, PropertyLine{kind, numbertext(lenientnumber(showvalue(value)))}}, ground_.window());
  if (reason != nullptr) Q_EMIT refused(QString::fromUtf8(reason));
}

/// Kept on the chart, to be compared and printed.
void Instrument::pin(const Spot& spot) {
  if (const auto pinned = readingtokeep(*standing_, spot.reading.place)) {
    chart_.add({*standing_, *pinned}, ground_.window());
  }
}

void Instrument::erase(const Spot& spot) {
  if (spot.mark) chart_.change(deletion(chart_.document(), {marks_[*spot.mark].entry}), ground_.window());
}

void Instrument::rename(const Spot& spot) {
  const std::size_t entry = marks_[*spot.mark].entry;
  const QString old = QString::fromStdString(std::get<MarkedPoint>(entryof(*spot.mark).content).identification);
  bool accepted = false;
  const QString name = QInputDialog::getText(widget_.window(), tr("Rename"), tr("Point identification:"),
                                             QLineEdit::Normal, old, &accepted);
  if (accepted && name != old) {
    chart_.change(renaming(chart_.document(), entry, name.toStdString()), ground_.window());
  }
}

/// The state as lines of caption and value, for a spreadsheet too.
void Instrument::copy(const Spot& spot) const {
  if (!spot.reading.state) return;
  QString text;
  for (const ReportRow& row : reportrows) {
    text += QString::fromUtf8(row.caption) + QLatin1Char('\t') +
            QString::fromStdString(fixeddecimals(*spot.reading.state.*row.value, 7)) + QLatin1Char('\n');
  }
  QGuiApplication::clipboard()->setText(text);
}

/// What can be done at the place that the pointer is at. The menu stays with it wherever the pointer goes then.
void Instrument::openmenu(QPoint global) {
  if (!spot_ || dragging_) return;
  auto* menu = new QMenu(&widget_);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  fillmenu(*menu, *spot_);
  if (menu->isEmpty()) return menu->deleteLater();
  menu->popup(global);
}

void Instrument::fillmenu(QMenu& menu, const Spot& spot) {
  const auto add = [&](const QString& text, auto run) { menu.addAction(text, this, run); };
  if (spot.reading.state) {
    add(tr("&Locate point here"), [this, spot] { locate(spot); });
    add(tr("&Pin read-out"), [this, spot] { pin(spot); });
    menu.addSeparator();
    for (const LineKind kind :
         {LineKind::relativehumidity, LineKind::wetbulb, LineKind::enthalpy, LineKind::specificvolume}) {
      const ReadingRow& row = rowof(keptby(kind));
      const QString value = QString::fromStdString(readingtext(row, *spot.reading.state));
      add(tr("%1 %2 %3 through here").arg(QLatin1String(captionof(kind)), value, QLatin1String(row.unit)),
          [this, kind, spot] { draw(kind, spot); });
    }
    menu.addSeparator();
  }
  if (spot.mark) {
    add(tr("&Delete ") + menutext(captionof(entryof(*spot.mark))), [this, spot] { erase(spot); });
    if (movable(*spot.mark)) add(tr("&Rename..."), [this, spot] { rename(spot); });
  }
  if (spot.reading.state) add(tr("&Copy state"), [this, spot] { copy(spot); });
}

/// The same by keys, while the chart has the focus.
void Instrument::fillmenu(QMenu& menu) {
  struct Command {
    QAction* action;
    bool (*possible)(const Spot& spot);
  };
  std::vector<Command> commands;
  const auto add = [&](const QString& text, const QKeySequence& key, auto possible, auto run) {
    auto* action = menu.addAction(text, this, [this, run] {
      if (spot_) (this->*run)(*spot_);
    });
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setAutoRepeat(false);
    widget_.addAction(action);
    commands.push_back({action, possible});
  };
  const auto isair = [](const Spot& spot) { return spot.reading.state.has_value(); };
  const auto ismark = [](const Spot& spot) { return spot.mark.has_value(); };
  add(tr("Locate point at the cross &hair"), Qt::Key_Return, isair, &Instrument::locate);
  add(tr("Pin &read-out"), Qt::Key_P, isair, &Instrument::pin);
  add(tr("Cop&y state"), QKeySequence::Copy, isair, &Instrument::copy);
  add(tr("&Erase mark"), Qt::Key_Delete, ismark, &Instrument::erase);
  // What is not possible now is greyed in the menu; the keys ask when they are pressed.
  connect(&menu, &QMenu::aboutToShow, this, [this, commands] {
    for (const Command& command : commands) command.action->setEnabled(spot_ && command.possible(*spot_));
  });
  connect(&menu, &QMenu::aboutToHide, this, [commands] {
    for (const Command& command : commands) command.action->setEnabled(true);
  });
}

}  // namespace moistair
