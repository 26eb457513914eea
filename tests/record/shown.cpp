#include "record/shown.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPlainTextEdit>
#include <QTableView>
#include <algorithm>
#include <map>

namespace moistair::record {

namespace {

std::string quoted(const QString& text) {
  QString line = text;
  return '"' + line.replace(u'\n', QStringLiteral("\\n")).replace(u'\r', QStringLiteral("\\r")).toStdString() + '"';
}

void addText(std::string& line, const char* name, const QString& text) {
  if (!text.isEmpty()) line += std::string(" ") + name + quoted(text);
}

/// Whether a widget is all that there is to say of it and what it is made of.
bool isWhole(const QWidget& widget) {
  return widget.inherits("QComboBox") || widget.inherits("QAbstractSpinBox") || widget.inherits("QAbstractItemView") ||
         widget.inherits("QPlainTextEdit") || widget.inherits("QMenu") || widget.inherits("QMenuBar") ||
         widget.inherits("QAbstractScrollArea");
}

std::string lineOf(QWidget& widget, bool brief) {
  std::string line;
  for (const char* name : {"text", "plainText", "title", "currentText", "value"}) {
    const QVariant value = widget.property(name);
    if (value.isValid() && !value.toString().isEmpty()) line += ' ' + quoted(value.toString());
  }
  if (!widget.isEnabled()) line += " disabled";
  if (widget.property("checked").toBool()) line += " checked";
  const auto* mark = widget.findChild<QWidget*>(QStringLiteral("mark"), Qt::FindDirectChildrenOnly);
  if (mark != nullptr && mark->isVisibleTo(&widget)) line += " marked";
  addText(line, "about=", widget.accessibleDescription());
  if (brief) return line;
  if (const auto* list = qobject_cast<QComboBox*>(&widget)) {
    QStringList items;
    for (int i = 0; i < list->count(); ++i) items += list->itemText(i);
    line += " of " + quoted(items.join(u'|'));
  }
  for (const char* name : {"placeholderText", "prefix", "suffix", "specialValueText"}) {
    addText(line, (std::string(name) + "=").c_str(), widget.property(name).toString());
  }
  if (widget.property("readOnly").toBool()) line += " readonly";
  addText(line, "tip=", widget.toolTip());
  if (QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(&widget)) {
    addText(line, "named=", reader->text(QAccessible::Name));
    addText(line, "value=", reader->text(QAccessible::Value));
    line += " role=" + std::to_string(static_cast<int>(reader->role()));
  }
  return line;
}

void addTable(Lines& lines, const QAbstractItemModel& model) {
  for (int row = -1; row < model.rowCount(); ++row) {
    std::string line = "  ";
    for (int column = 0; column < model.columnCount(); ++column) {
      const QVariant cell =
          row < 0 ? model.headerData(column, Qt::Horizontal) : model.index(row, column).data(Qt::DisplayRole);
      line += "| " + cell.toString().toStdString() + " ";
    }
    lines.push_back(line);
  }
}

bool speaks(const QWidget& widget) { return !widget.objectName().isEmpty() && !widget.objectName().startsWith(u"qt_"); }

std::string nameOf(const QWidget& widget) {
  if (speaks(widget)) return widget.objectName().toStdString();
  auto* reader = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&widget));
  const QString name = reader == nullptr ? QString() : reader->text(QAccessible::Name);
  return std::string(widget.metaObject()->className()) + (name.isEmpty() ? "" : quoted(name));
}

void add(Lines& lines, QWidget& widget, bool brief, std::vector<QWidget*>& seen) {
  const std::string line = lineOf(widget, brief);
  const bool isPlain = widget.metaObject()->className() == std::string("QWidget");
  if (widget.objectName().startsWith(u"qt_") && !widget.inherits("QDialog")) return;
  if (speaks(widget) || (!isPlain && line.find('"') != std::string::npos)) {
    lines.push_back(nameOf(widget) + line);
    const bool isFrame = widget.inherits("QGroupBox") || widget.inherits("QMainWindow") || widget.isWindow();
    if (!isFrame) seen.push_back(&widget);
  }
  if (const auto* table = qobject_cast<QTableView*>(&widget)) addTable(lines, *table->model());
  if (isWhole(widget)) return;
  for (QObject* child : widget.children()) {
    auto* part = qobject_cast<QWidget*>(child);
    if (part != nullptr && !part->isWindow() && part->isVisibleTo(&widget)) add(lines, *part, brief, seen);
  }
}

/// Those that begin above the middle of one are in its row.
Lines rowsOf(const QWidget& window, std::vector<QWidget*> widgets) {
  const auto place = [&](const QWidget* widget) { return QRect(widget->mapTo(&window, QPoint()), widget->size()); };
  std::stable_sort(widgets.begin(), widgets.end(), [&](auto* a, auto* b) { return place(a).top() < place(b).top(); });
  Lines rows;
  while (!widgets.empty()) {
    const int middle = place(widgets.front()).center().y();
    auto end = std::find_if(widgets.begin(), widgets.end(), [&](auto* w) { return place(w).top() > middle; });
    std::stable_sort(widgets.begin(), end, [&](auto* a, auto* b) { return place(a).left() < place(b).left(); });
    std::string row = "row:";
    std::for_each(widgets.begin(), end, [&](auto* widget) { row += ' ' + nameOf(*widget); });
    rows.push_back(row);
    widgets.erase(widgets.begin(), end);
  }
  return rows;
}

std::string tabOrder(QWidget& window) {
  std::string order = "tab:";
  const QWidget* first = window.focusWidget() != nullptr ? window.focusWidget() : &window;
  const QWidget* widget = first;
  do {
    const bool takes =
        (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisibleTo(&window) && widget->isEnabled();
    if (takes && widget->focusProxy() == nullptr) order += ' ' + nameOf(*widget);
    widget = widget->nextInFocusChain();
  } while (widget != first);
  return order;
}

void addMenu(Lines& lines, const QMenu& menu, const std::string& indent);

void addActions(Lines& lines, const QList<QAction*>& actions, const std::string& indent) {
  for (const QAction* action : actions) {
    std::string line = indent + (action->isSeparator() ? "----" : quoted(action->text()));
    addText(line, "keys=", action->shortcut().toString());
    if (!action->isEnabled()) line += " disabled";
    if (action->isChecked()) line += " checked";
    if (!action->isVisible()) line += " hidden";
    if (action->toolTip() != QString(action->text()).remove(u'&').remove(QStringLiteral("...")))
      addText(line, "tip=", action->toolTip().section(u'\n', 0, 0));
    lines.push_back(line);
    if (action->menu() != nullptr) addMenu(lines, *action->menu(), indent + "  ");
  }
}

void addMenu(Lines& lines, const QMenu& menu, const std::string& indent) {
  Q_EMIT const_cast<QMenu&>(menu).aboutToShow();
  addActions(lines, menu.actions(), indent);
  Q_EMIT const_cast<QMenu&>(menu).aboutToHide();
}

void addOffers(std::vector<Offer>& offers, const std::string& path, const QList<QAction*>& actions) {
  for (QAction* action : actions) {
    const std::string name = path + action->text().section(u'\t', 0, 0).toStdString();
    if (action->menu() != nullptr) {
      Q_EMIT action->menu()->aboutToShow();
      addOffers(offers, name + " > ", action->menu()->actions());
      Q_EMIT action->menu()->aboutToHide();
    } else if (!action->isSeparator() && action->isEnabled()) {
      offers.push_back({name, [action] { action->trigger(); }});
    }
  }
}

/// Where a picture has this part; each place but those that others cover already.
std::vector<QPoint> placesOf(const QImage& picture, const QImage& part, const std::vector<QRect>& covered) {
  std::vector<QPoint> places;
  for (int y = 0; y + part.height() <= picture.height(); ++y) {
    for (int x = 0; x + part.width() <= picture.width(); ++x) {
      const auto sameRow = [&](int row) {
        const auto* here = reinterpret_cast<const QRgb*>(picture.constScanLine(y + row)) + x;
        return std::equal(here, here + part.width(), reinterpret_cast<const QRgb*>(part.constScanLine(row)));
      };
      bool same = sameRow(part.height() / 2);
      for (int row = 0; same && row < part.height(); ++row) same = sameRow(row);
      const QRect place(QPoint(x, y), part.size());
      same = same && std::none_of(covered.begin(), covered.end(), [&](const QRect& r) { return r.intersects(place); });
      if (same) places.emplace_back(x, y);
    }
  }
  return places;
}

/// A text as black letters on white, from a whole pixel or as a label has it in its middle, cut to what is black.
QImage letters(const QString& text, const QFont& font, bool centered) {
  const QFontMetrics metrics(font);
  QImage image(metrics.horizontalAdvance(text) + 16, 2 * metrics.height(), QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setFont(font);
  const QRect label(4, 4, metrics.horizontalAdvance(text) + 6, metrics.height() + 2);
  centered ? painter.drawText(label, Qt::AlignCenter, text) : painter.drawText(4, metrics.height(), text);
  painter.end();
  QRegion black;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixel(x, y) != qRgb(255, 255, 255)) black += QRect(x, y, 1, 1);
    }
  }
  return image.copy(black.boundingRect());
}

}  // namespace

Lines shown(QWidget& window, bool brief) {
  Lines lines = {nameOf(window) + " " + quoted(window.windowTitle())};
  std::vector<QWidget*> seen;
  for (QObject* child : window.children()) {
    auto* part = qobject_cast<QWidget*>(child);
    if (part != nullptr && !part->isWindow() && part->isVisibleTo(&window)) add(lines, *part, brief, seen);
  }
  if (brief) return lines;
  lines.push_back("focus: " + (window.focusWidget() == nullptr ? "none" : nameOf(*window.focusWidget())));
  lines.push_back(tabOrder(window));
  for (std::string& row : rowsOf(window, seen)) lines.push_back(std::move(row));
  return lines;
}

Lines menus(QWidget& owner) {
  Lines lines;
  addActions(lines, owner.actions(), "");
  return lines;
}

Lines readTexts(const QImage& picture, const QFont& font, const QStringList& texts) {
  QStringList longest = texts;
  std::stable_sort(longest.begin(), longest.end(), [](auto& a, auto& b) { return a.size() > b.size(); });
  longest.removeDuplicates();
  const QImage shown = picture.convertToFormat(QImage::Format_RGB32);
  std::vector<QRect> covered;
  std::map<int, std::map<int, std::string>> rows;  // by the middles of the texts, then from the left
  for (const QString& text : longest) {
    for (const bool centered : {false, true}) {
      const QImage part = letters(text, font, centered);
      for (const QPoint& place : placesOf(shown, part, covered)) {
        covered.emplace_back(place, part.size());
        const int middle = covered.back().center().y();
        const auto row =
            std::find_if(rows.begin(), rows.end(), [&](auto& r) { return std::abs(r.first - middle) < 5; });
        (row == rows.end() ? rows[middle] : row->second)[place.x()] = text.toStdString();
      }
    }
  }
  Lines lines;
  for (const auto& [middle, row] : rows) {
    lines.emplace_back("painted:");
    for (const auto& [left, text] : row) lines.back() += (lines.back().back() == ':' ? " " : " | ") + text;
  }
  return lines;
}

std::vector<Offer> offersOf(QWidget& window) {
  std::vector<Offer> offers;
  if (auto* menu = qobject_cast<QMenu*>(&window)) addOffers(offers, "", menu->actions());
  if (auto* bar = window.findChild<QMenuBar*>()) addOffers(offers, "", bar->actions());
  for (auto* button : window.findChildren<QAbstractButton*>()) {
    const bool there = button->isVisibleTo(&window) && button->isEnabled() && button->window() == &window;
    if (!there || button->objectName().startsWith(u"qt_") || button->text().isEmpty()) continue;
    offers.push_back({nameOf(*button) + " " + quoted(button->text()), [button] { button->click(); }});
  }
  return offers;
}

}  // namespace moistair::record
