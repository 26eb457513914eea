#include "shell/chartpointer.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QInputDialog>
#include <QKeyEvent>

#include "model/table.h"

namespace moistair {

namespace {

constexpr int quiet = 150;  // ms without a move before a moving pointer's reading is announced

QString menuText(const std::string& text) {
  return QString::fromStdString(text).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

}  // namespace

ChartPointer::ChartPointer(QWidget& widget, ChartController& chart, PointerController::Plot plot)
    : QObject(&widget),
      widget_(widget),
      chart_(chart),
      layer_(new ReadingLayer(widget)),
      controller_(chart, std::move(plot), QApplication::startDragDistance()) {
  widget.setMouseTracking(true);
  widget.installEventFilter(this);
  announceTimer_.setObjectName(QStringLiteral("telling"));
  announceTimer_.setSingleShot(true);
  announceTimer_.setInterval(quiet);
  connect(&announceTimer_, &QTimer::timeout, this, &ChartPointer::announce);
  connect(&controller_, &PointerController::shown, layer_,
          [this](const ShownReading& reading) { layer_->show(reading); });
  connect(&controller_, &PointerController::hidden, layer_, &ReadingLayer::clear);
  connect(&controller_, &PointerController::shaped, this, [this](Qt::CursorShape shape) {
    if (widget_.cursor().shape() != shape) widget_.setCursor(shape);
  });
  connect(&controller_, &PointerController::described, this,
          [this](bool atOnce) { atOnce ? announce() : announceTimer_.start(); });
  connect(&controller_, &PointerController::copied, this,
          [](const QString& text) { QGuiApplication::clipboard()->setText(text); });
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
      if (controller_.isDragging() && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Alt) event->accept();
      break;
    case QEvent::Leave:
      // A menu is for the place where it was opened.
      if (QApplication::activePopupWidget() == nullptr) controller_.leave();
      break;
    case QEvent::FocusIn: controller_.focus(static_cast<QFocusEvent*>(event)->reason()); break;
    case QEvent::Resize: layer_->resize(widget_.size()); break;
    case QEvent::ChildPolished: layer_->raise(); break;  // whatever else shows the chart
    case QEvent::ContextMenu: openMenu(*static_cast<QContextMenuEvent*>(event)); return true;
    default: break;
  }
  return QObject::eventFilter(watched, event);
}

bool ChartPointer::onMouse(const QMouseEvent& event) {
  controller_.setPointer(event.position());
  const bool left = event.button() == Qt::LeftButton;
  switch (event.type()) {
    case QEvent::MouseButtonPress:
      if (left) controller_.press(event.modifiers());
      break;
    case QEvent::MouseButtonRelease:
      if (left) controller_.release();
      break;
    case QEvent::MouseButtonDblClick:
      if (left) controller_.doubleClick();
      break;
    default: controller_.move(event.modifiers());
  }
  return false;
}

bool ChartPointer::onKey(const QKeyEvent& event) {
  const auto key = static_cast<Qt::Key>(event.key());
  if (key == Qt::Key_Control || key == Qt::Key_Shift || key == Qt::Key_Alt) {
    controller_.modify(event.modifiers());
    return false;
  }
  if (event.type() == QEvent::KeyRelease) return false;
  return controller_.key((event.modifiers() & ~Qt::KeypadModifier) | key, event.isAutoRepeat());
}

/// Who cannot see the reading gets it as the chart's description. A pointer on its way says nothing.
void ChartPointer::announce() {
  announceTimer_.stop();
  widget_.setAccessibleDescription(controller_.description());
}

void ChartPointer::fillMenu(QMenu& menu) {
  std::vector<std::pair<QAction*, const PointerController::Command*>> entries;
  for (const PointerController::Command& command : PointerController::commands()) {
    QAction* action =
        menu.addAction(QString::fromUtf8(command.text) + QLatin1Char('\t') + QLatin1String(command.keyName), this,
                       [this, &command] { controller_.run(command); });
    entries.emplace_back(action, &command);
  }
  stayWith(menu);
  connect(&menu, &QMenu::aboutToShow, this, [this, entries] {
    const auto& crossHair = controller_.crossHair();
    for (const auto& [action, command] : entries) action->setEnabled(crossHair && command->possible(*crossHair));
  });
}

void ChartPointer::rename(std::size_t mark) {
  const std::size_t place = controller_.placeOf(mark);
  const auto& point = std::get<MarkedPoint>(controller_.entryOf(mark).content);
  const QString old = QString::fromStdString(point.identification);
  bool accepted = false;
  const QString name =
      QInputDialog::getText(widget_.window(), QStringLiteral("Rename"), QStringLiteral("Point identification:"),
                            QLineEdit::Normal, old, &accepted);
  if (accepted && name != old) chart_.rename(place, name.toStdString());
}

/// What can be done at the place that the pointer is at. The menu stays with it wherever the pointer goes then.
void ChartPointer::openMenu(const QContextMenuEvent& event) {
  if (!controller_.crossHair() || controller_.isDragging()) return;
  auto* menu = new QMenu(&widget_);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  fillMenu(*menu, *controller_.crossHair());
  if (menu->isEmpty()) return menu->deleteLater();
  stayWith(*menu);
  const QPoint cross = widget_.mapToGlobal(controller_.cross().toPoint());
  menu->popup(event.reason() == QContextMenuEvent::Keyboard ? cross : event.globalPos());
}

/// The cross hair stays while a menu is open, and goes with it if the pointer has gone.
void ChartPointer::stayWith(QMenu& menu) {
  const auto ask = [this] {
    if (!widget_.underMouse()) controller_.leave();
  };
  connect(&menu, &QMenu::aboutToHide, this, [this, ask] { QTimer::singleShot(0, this, ask); });
}

void ChartPointer::fillMenu(QMenu& menu, const CrossHair& crossHair) {
  const auto add = [&](const QString& text, auto run) { menu.addAction(text, this, run); };
  if (crossHair.reading.state) {
    add(QStringLiteral("&Locate point here"), [this, crossHair] { controller_.locate(crossHair); });
    add(QStringLiteral("&Pin read-out"), [this, crossHair] { controller_.pin(crossHair); });
    menu.addSeparator();
    for (const LineKind kind :
         {LineKind::relativeHumidity, LineKind::wetBulb, LineKind::enthalpy, LineKind::specificVolume}) {
      const PropertyKind kept = propertyOf(kind);
      const QString value = QString::fromStdString(readingText(kept, *crossHair.reading.state));
      add(QStringLiteral("%1 %2 %3 through here")
              .arg(QLatin1String(captionOf(kind)), value, QLatin1String(propertyOf(kept).unit)),
          [this, kind, crossHair] { controller_.draw(kind, crossHair); });
    }
    menu.addSeparator();
  }
  if (crossHair.mark) {
    for (const CrossHair& other : controller_.atSameCoordinates(crossHair)) {
      add(QStringLiteral("&Delete ") + menuText(captionOf(controller_.entryOf(*other.mark))),
          [this, other] { controller_.erase(other); });
    }
    if (controller_.movable(*crossHair.mark)) {
      add(QStringLiteral("&Rename..."), [this, crossHair] { rename(*crossHair.mark); });
    }
    if (missesAny(controller_.entryOf(*crossHair.mark))) {
      add(QStringLiteral("Take e&xact state"),
          [this, crossHair] { chart_.takeExact({controller_.placeOf(*crossHair.mark)}); });
    }
  }
  if (crossHair.reading.state) add(QStringLiteral("&Copy state"), [this, crossHair] { controller_.copy(crossHair); });
}

}  // namespace moistair
