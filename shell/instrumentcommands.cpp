// What can be done at the place that is pointed at: by a click, a menu, a key.
#include <QClipboard>
#include <QGuiApplication>
#include <QInputDialog>
#include <algorithm>
#include <array>

#include "model/pointreport.h"
#include "model/table.h"
#include "shell/instrument.h"

namespace moistair {

namespace {

QString menutext(const std::string& text) {
  return QString::fromStdString(text).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

}  // namespace

/// A command on the place of the cross hair, with its key. The keys are no shortcuts of the menu's: those would be
/// taken from a menu that is open, where the same letter chooses.
struct Instrument::Command {
  const char* text;
  const char* keyname;
  std::array<QKeyCombination, 2> keys;
  bool (*possible)(const Spot& spot);
  void (Instrument::*run)(const Spot& spot);
};

const std::vector<Instrument::Command>& Instrument::commands() {
  const auto isair = [](const Spot& spot) { return spot.reading.state.has_value(); };
  const auto isthere = [](const Spot&) { return true; };
  const auto ismark = [](const Spot& spot) { return spot.mark.has_value(); };
  static const std::vector<Command> table = {
      {QT_TR_NOOP("Locate point at the cross &hair..."),
       "Return",
       {Qt::Key_Return, Qt::Key_Enter},
       isair,
       &Instrument::locate},
      {QT_TR_NOOP("&Pin read-out"), "P", {Qt::Key_P, Qt::Key_P}, isair, &Instrument::pin},
      {QT_TR_NOOP("Cop&y state"), "Ctrl+C", {Qt::CTRL | Qt::Key_C, Qt::Key_Copy}, isair, &Instrument::copy},
      {QT_TR_NOOP("Delete mar&k"), "Del", {Qt::Key_Delete, Qt::Key_Delete}, ismark, &Instrument::erase},
      {QT_TR_NOOP("H&ide cross hair"), "Esc", {Qt::Key_Escape, Qt::Key_Cancel}, isthere, &Instrument::dismiss},
  };
  return table;
}

bool Instrument::runcommand(QKeyCombination keys) {
  const auto& table = commands();
  const auto pressed = [&](const Command& command) { return command.keys[0] == keys || command.keys[1] == keys; };
  const auto found = std::find_if(table.begin(), table.end(), pressed);
  if (found == table.end() || !spot_ || !found->possible(*spot_)) return false;
  const Spot spot = *spot_;
  (this->*found->run)(spot);
  return true;
}

void Instrument::fillmenu(QMenu& menu) {
  std::vector<std::pair<QAction*, const Command*>> entries;
  for (const Command& command : commands()) {
    QAction* action = menu.addAction(tr(command.text) + QLatin1Char('\t') + QLatin1String(command.keyname), this,
                                     [this, &command] { runcommand(command.keys[0]); });
    entries.emplace_back(action, &command);
  }
  staywith(menu);
  connect(&menu, &QMenu::aboutToShow, this, [this, entries] {
    for (const auto& [action, command] : entries) action->setEnabled(spot_ && command->possible(*spot_));
  });
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

/// A line of the property that the place has, as it is read there, at the pressure and between the limits of the chart.
void Instrument::draw(LineKind kind, const Spot& spot) {
  const std::string value = readingtext(rowof(propertyof(kind)), *spot.reading.state);
  const char* reason = chart_.add({*standing_, PropertyLine{kind, numbertext(lenientnumber(value))}}, ground_.window());
  if (reason != nullptr) Q_EMIT refused(QString::fromUtf8(reason));
}

/// Kept on the chart, to be compared and printed.
void Instrument::pin(const Spot& spot) {
  if (auto pinned = readingtokeep(*standing_, spot.reading.place)) {
    pinned->corner = freecorner(chart_.document(), *pinned, ground_.window());
    chart_.add({*standing_, *pinned}, ground_.window());
  }
}

void Instrument::dismiss(const Spot&) { hide(); }

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
void Instrument::copy(const Spot& spot) {
  if (!spot.reading.state) return;
  QString text;
  for (const ReportRow& row : reportrows) {
    text += QString::fromUtf8(row.caption) + QLatin1Char('\t') +
            QString::fromStdString(fixeddecimals(*spot.reading.state.*row.value, 7)) + QLatin1Char('\n');
  }
  QGuiApplication::clipboard()->setText(text);
}

/// What can be done at the place that the pointer is at. The menu stays with it wherever the pointer goes then.
void Instrument::openmenu(const QContextMenuEvent& event) {
  if (!spot_ || dragging_) return;
  auto* menu = new QMenu(&widget_);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  fillmenu(*menu, *spot_);
  if (menu->isEmpty()) return menu->deleteLater();
  staywith(*menu);
  const PlotBox box = ground_.plot(standing_->limits);
  const Place& place = spot_->reading.place;
  const QPoint cross = widget_.mapToGlobal(QPointF(box.x(place.db), box.y(place.w)).toPoint());
  menu->popup(event.reason() == QContextMenuEvent::Keyboard ? cross : event.globalPos());
}

/// The cross hair stays while a menu is open, and goes with it if the pointer has gone.
void Instrument::staywith(QMenu& menu) {
  const auto ask = [this] {
    if (!widget_.underMouse()) onleave();
  };
  connect(&menu, &QMenu::aboutToHide, this, [this, ask] { QTimer::singleShot(0, this, ask); });
}

/// The same place with each mark that is there, one of a kind of entry after the other.
std::vector<Instrument::Spot> Instrument::atsameplace(const Spot& spot) const {
  std::vector<Spot> spots;
  std::optional<std::size_t> last;  // a mixture of one air has three marks at a place
  for (std::size_t mark = marks_.size(); mark-- > 0;) {
    if (targets_[mark] != targets_[*spot.mark] || marks_[mark].entry == last) continue;
    spots.push_back({spot.reading, mark});
    last = marks_[mark].entry;
  }
  return spots;
}

void Instrument::fillmenu(QMenu& menu, const Spot& spot) {
  const auto add = [&](const QString& text, auto run) { menu.addAction(text, this, run); };
  if (spot.reading.state) {
    add(tr("&Locate point here"), [this, spot] { locate(spot); });
    add(tr("&Pin read-out"), [this, spot] { pin(spot); });
    menu.addSeparator();
    for (const LineKind kind :
         {LineKind::relativehumidity, LineKind::wetbulb, LineKind::enthalpy, LineKind::specificvolume}) {
      const ReadingRow& row = rowof(propertyof(kind));
      const QString value = QString::fromStdString(readingtext(row, *spot.reading.state));
      add(tr("%1 %2 %3 through here").arg(QLatin1String(captionof(kind)), value, QLatin1String(row.unit)),
          [this, kind, spot] { draw(kind, spot); });
    }
    menu.addSeparator();
  }
  if (spot.mark) {
    for (const Spot& other : atsameplace(spot)) {
      add(tr("&Delete ") + menutext(captionof(entryof(*other.mark))), [this, other] { erase(other); });
    }
    if (movable(*spot.mark)) add(tr("&Rename..."), [this, spot] { rename(spot); });
    if (missesAny(entryof(*spot.mark))) {
      add(tr("Take e&xact state"), [this, spot] { Q_EMIT exactchosen(marks_[*spot.mark].entry); });
    }
  }
  if (spot.reading.state) add(tr("&Copy state"), [this, spot] { copy(spot); });
}

}  // namespace moistair
