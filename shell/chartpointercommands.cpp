// What can be done at the place that is pointed at: by a click, a menu, a key.
#include <QClipboard>
#include <QGuiApplication>
#include <QInputDialog>
#include <algorithm>
#include <array>

#include "model/pointreport.h"
#include "model/table.h"
#include "shell/chartpointer.h"

namespace moistair {

namespace {

QString menuText(const std::string& text) {
  return QString::fromStdString(text).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

}  // namespace

/// A command on the place of the cross hair, with its key. The keys are no shortcuts of the menu's: those would be
/// taken from a menu that is open, where the same letter chooses.
struct ChartPointer::Command {
  const char* text;
  const char* keyName;
  std::array<QKeyCombination, 2> keys;
  bool (*possible)(const CrossHair& crossHair);
  void (ChartPointer::*run)(const CrossHair& crossHair);
};

const std::vector<ChartPointer::Command>& ChartPointer::commands() {
  const auto isAir = [](const CrossHair& crossHair) { return crossHair.reading.state.has_value(); };
  const auto isThere = [](const CrossHair&) { return true; };
  const auto isMark = [](const CrossHair& crossHair) { return crossHair.mark.has_value(); };
  static const std::vector<Command> table = {
      {QT_TR_NOOP("Locate point at the cross &hair..."),
       "Return",
       {Qt::Key_Return, Qt::Key_Enter},
       isAir,
       &ChartPointer::locate},
      {QT_TR_NOOP("&Pin read-out"), "P", {Qt::Key_P, Qt::Key_P}, isAir, &ChartPointer::pin},
      {QT_TR_NOOP("Cop&y state"), "Ctrl+C", {Qt::CTRL | Qt::Key_C, Qt::Key_Copy}, isAir, &ChartPointer::copy},
      {QT_TR_NOOP("Delete mar&k"), "Del", {Qt::Key_Delete, Qt::Key_Delete}, isMark, &ChartPointer::erase},
      {QT_TR_NOOP("H&ide cross hair"), "Esc", {Qt::Key_Escape, Qt::Key_Cancel}, isThere, &ChartPointer::dismiss},
  };
  return table;
}

bool ChartPointer::runCommand(QKeyCombination keys) {
  const auto& table = commands();
  const auto pressed = [&](const Command& command) { return command.keys[0] == keys || command.keys[1] == keys; };
  const auto found = std::find_if(table.begin(), table.end(), pressed);
  if (found == table.end() || !crossHair_ || !found->possible(*crossHair_)) return false;
  const CrossHair crossHair = *crossHair_;
  (this->*found->run)(crossHair);
  return true;
}

void ChartPointer::fillMenu(QMenu& menu) {
  std::vector<std::pair<QAction*, const Command*>> entries;
  for (const Command& command : commands()) {
    QAction* action =
        menu.addAction(QString::fromUtf8(command.text) + QLatin1Char('\t') + QLatin1String(command.keyName), this,
                       [this, &command] { runCommand(command.keys[0]); });
    entries.emplace_back(action, &command);
  }
  stayWith(menu);
  connect(&menu, &QMenu::aboutToShow, this, [this, entries] {
    for (const auto& [action, command] : entries) action->setEnabled(crossHair_ && command->possible(*crossHair_));
  });
}

void ChartPointer::choose(const CrossHair& crossHair) {
  if (!crossHair.reading.state) return;
  const ChartCoordinates& place = crossHair.reading.place;
  Q_EMIT chosen(QString::fromStdString(dryBulbText(place)), QString::fromStdString(ratioText(place)));
}

void ChartPointer::locate(const CrossHair& crossHair) {
  if (!crossHair.reading.state) return;
  pressed_.reset();
  choose(crossHair);
  Q_EMIT located();
}

/// The mark stays where it is dropped if there is air there.
void ChartPointer::drop() {
  const std::size_t mark = *grabbed_;
  dragging_ = false;
  const auto moved = crossHair_ && crossHair_->reading.state
                         ? movedTo(entryOf(mark), crossHair_->reading.place, geometry_.window())
                         : std::nullopt;
  if (moved) {
    chart_.change(moving(chart_.document(), marks_[mark].entry, *moved), geometry_.window());
  } else {
    point(pointer_, {});
  }
}

/// A line of the property that the place has, as it is read there, at the pressure and between the limits of the chart.
void ChartPointer::draw(LineKind kind, const CrossHair& crossHair) {
  const std::string value = readingText(propertyOf(kind), *crossHair.reading.state);
  const char* reason =
      chart_.add({*currentChart_, PropertyLine{kind, numberText(lenientNumber(value))}}, geometry_.window());
  if (reason != nullptr) Q_EMIT refused(QString::fromUtf8(reason));
}

/// Kept on the chart, to be compared and printed.
void ChartPointer::pin(const CrossHair& crossHair) {
  if (auto pinned = readingToKeep(*currentChart_, crossHair.reading.place)) {
    pinned->corner = freeCorner(chart_.document(), *pinned, geometry_.window());
    chart_.add({*currentChart_, *pinned}, geometry_.window());
  }
}

void ChartPointer::dismiss(const CrossHair&) { hide(); }

void ChartPointer::erase(const CrossHair& crossHair) {
  if (crossHair.mark) chart_.change(deletion(chart_.document(), {marks_[*crossHair.mark].entry}), geometry_.window());
}

void ChartPointer::rename(const CrossHair& crossHair) {
  const std::size_t entry = marks_[*crossHair.mark].entry;
  const QString old = QString::fromStdString(std::get<MarkedPoint>(entryOf(*crossHair.mark).content).identification);
  bool accepted = false;
  const QString name =
      QInputDialog::getText(widget_.window(), QStringLiteral("Rename"), QStringLiteral("Point identification:"),
                            QLineEdit::Normal, old, &accepted);
  if (accepted && name != old) {
    chart_.change(renaming(chart_.document(), entry, name.toStdString()), geometry_.window());
  }
}

/// The state as lines of caption and value, for a spreadsheet too.
void ChartPointer::copy(const CrossHair& crossHair) {
  if (!crossHair.reading.state) return;
  QString text;
  for (const PropertyKind kind : shownOrder) {
    text += QString::fromUtf8(propertyOf(kind).caption) + QLatin1Char('\t') +
            QString::fromStdString(fixedDecimals(crossHair.reading.state->at(kind), 7)) + QLatin1Char('\n');
  }
  QGuiApplication::clipboard()->setText(text);
}

/// What can be done at the place that the pointer is at. The menu stays with it wherever the pointer goes then.
void ChartPointer::openMenu(const QContextMenuEvent& event) {
  if (!crossHair_ || dragging_) return;
  auto* menu = new QMenu(&widget_);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  fillMenu(*menu, *crossHair_);
  if (menu->isEmpty()) return menu->deleteLater();
  stayWith(*menu);
  const PlotBox box = geometry_.plot(currentChart_->limits);
  const ChartCoordinates& place = crossHair_->reading.place;
  const QPoint cross = widget_.mapToGlobal(QPointF(box.x(place.db), box.y(place.w)).toPoint());
  menu->popup(event.reason() == QContextMenuEvent::Keyboard ? cross : event.globalPos());
}

/// The cross hair stays while a menu is open, and goes with it if the pointer has gone.
void ChartPointer::stayWith(QMenu& menu) {
  const auto ask = [this] {
    if (!widget_.underMouse()) onLeave();
  };
  connect(&menu, &QMenu::aboutToHide, this, [this, ask] { QTimer::singleShot(0, this, ask); });
}

/// The same place with each mark that is there, one of a kind of entry after the other.
std::vector<ChartPointer::CrossHair> ChartPointer::atSameCoordinates(const CrossHair& crossHair) const {
  std::vector<CrossHair> spots;
  std::optional<std::size_t> last;  // a mixture of one air has three marks at a place
  for (std::size_t mark = marks_.size(); mark-- > 0;) {
    if (targets_[mark] != targets_[*crossHair.mark] || marks_[mark].entry == last) continue;
    spots.push_back({crossHair.reading, mark});
    last = marks_[mark].entry;
  }
  return spots;
}

void ChartPointer::fillMenu(QMenu& menu, const CrossHair& crossHair) {
  const auto add = [&](const QString& text, auto run) { menu.addAction(text, this, run); };
  if (crossHair.reading.state) {
    add(QStringLiteral("&Locate point here"), [this, crossHair] { locate(crossHair); });
    add(QStringLiteral("&Pin read-out"), [this, crossHair] { pin(crossHair); });
    menu.addSeparator();
    for (const LineKind kind :
         {LineKind::relativeHumidity, LineKind::wetBulb, LineKind::enthalpy, LineKind::specificVolume}) {
      const PropertyKind kept = propertyOf(kind);
      const QString value = QString::fromStdString(readingText(kept, *crossHair.reading.state));
      add(QStringLiteral("%1 %2 %3 through here")
              .arg(QLatin1String(captionOf(kind)), value, QLatin1String(propertyOf(kept).unit)),
          [this, kind, crossHair] { draw(kind, crossHair); });
    }
    menu.addSeparator();
  }
  if (crossHair.mark) {
    for (const CrossHair& other : atSameCoordinates(crossHair)) {
      add(QStringLiteral("&Delete ") + menuText(captionOf(entryOf(*other.mark))), [this, other] { erase(other); });
    }
    if (movable(*crossHair.mark)) add(QStringLiteral("&Rename..."), [this, crossHair] { rename(crossHair); });
    if (missesAny(entryOf(*crossHair.mark))) {
      add(QStringLiteral("Take e&xact state"),
          [this, crossHair] { Q_EMIT exactChosen(marks_[*crossHair.mark].entry); });
    }
  }
  if (crossHair.reading.state) add(QStringLiteral("&Copy state"), [this, crossHair] { copy(crossHair); });
}

}  // namespace moistair
