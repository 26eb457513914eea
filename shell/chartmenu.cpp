#include "shell/chartmenu.h"

#include <array>

namespace moistair {

namespace {

struct Entry {
  QString text;
  QPushButton* button;
  QKeySequence keys;
};

void addEntries(QMenu& menu, const std::vector<Entry>& entries) {
  for (const Entry& entry : entries) {
    QAction* action = menu.addAction(entry.text, entry.button, &QPushButton::click);
    action->setShortcut(entry.keys);
    QObject::connect(&menu, &QMenu::aboutToShow, action,
                     [action, button = entry.button] { action->setEnabled(button->isEnabled()); });
    // Keys are pressed without the menu; a button that is grayed takes no click.
    QObject::connect(&menu, &QMenu::aboutToHide, action, [action] { action->setEnabled(true); });
  }
  menu.addSeparator();
}

}  // namespace

void fillChartMenu(QMenu& menu, const Strip& strip) {
  addEntries(menu, {{QStringLiteral("&Draw chart..."), strip.drawButton, QKeySequence(Qt::CTRL | Qt::Key_D)},
                    {QStringLiteral("&Clear chart"), strip.clearButton, {}},
                    {QStringLiteral("Save chart as &bitmap..."), strip.saveChartButton, {}},
                    {QStringLiteral("&Atmospheric pressure..."), strip.pressureButton, {}}});
  addEntries(menu, {{QStringLiteral("&Locate point of the boxes..."), strip.locateButton, {}},
                    {QStringLiteral("&Relative humidity line"), strip.rhLineButton, {}},
                    {QStringLiteral("&Wet bulb line"), strip.wbLineButton, {}},
                    {QStringLiteral("&Enthalpy line"), strip.hLineButton, {}},
                    {QStringLiteral("&Specific volume line"), strip.vLineButton, {}},
                    {QStringLiteral("&Mixing problem..."), strip.mixingButton, QKeySequence(Qt::CTRL | Qt::Key_M)}});
  addEntries(menu, {{QStringLiteral("&View saved data..."), strip.viewLogButton, {}},
                    {QStringLiteral("Save data in &file..."), strip.saveLogButton, {}}});
}

void pressByReturn(const Strip& strip) {
  const std::array<std::pair<QLineEdit*, QPushButton*>, 6> pairs = {{{strip.firstValue, strip.locateButton},
                                                                     {strip.secondValue, strip.locateButton},
                                                                     {strip.rhValue, strip.rhLineButton},
                                                                     {strip.wbValue, strip.wbLineButton},
                                                                     {strip.hValue, strip.hLineButton},
                                                                     {strip.vValue, strip.vLineButton}}};
  for (const auto& [box, button] : pairs) QObject::connect(box, &QLineEdit::returnPressed, button, &QPushButton::click);
}

}  // namespace moistair
