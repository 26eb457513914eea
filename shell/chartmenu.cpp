#include "shell/chartmenu.h"

#include <array>

namespace moistair {

namespace {

struct Entry {
  QString text;
  QPushButton* button;
  QKeySequence keys;
};

void addentries(QMenu& menu, const std::vector<Entry>& entries) {
  for (const Entry& entry : entries) {
    QAction* action = menu.addAction(entry.text, entry.button, &QPushButton::click);
    action->setShortcut(entry.keys);
    QObject::connect(&menu, &QMenu::aboutToShow, action,
                     [action, button = entry.button] { action->setEnabled(button->isEnabled()); });
    // Keys are pressed without the menu; a button that is greyed takes no click.
    QObject::connect(&menu, &QMenu::aboutToHide, action, [action] { action->setEnabled(true); });
  }
  menu.addSeparator();
}

}  // namespace

void fillchartmenu(QMenu& menu, const Strip& strip) {
  addentries(menu, {{QStringLiteral("&Draw chart..."), strip.drawbutton, QKeySequence(Qt::CTRL | Qt::Key_D)},
                    {QStringLiteral("&Clear chart"), strip.clearbutton, {}},
                    {QStringLiteral("Save chart as &bitmap..."), strip.savechartbutton, {}},
                    {QStringLiteral("&Atmospheric pressure..."), strip.pressurebutton, {}}});
  addentries(menu, {{QStringLiteral("&Locate point of the boxes..."), strip.locatebutton, {}},
                    {QStringLiteral("&Relative humidity line"), strip.rhlinebutton, {}},
                    {QStringLiteral("&Wet bulb line"), strip.wblinebutton, {}},
                    {QStringLiteral("&Enthalpy line"), strip.hlinebutton, {}},
                    {QStringLiteral("&Specific volume line"), strip.vlinebutton, {}},
                    {QStringLiteral("&Mixing problem..."), strip.mixingbutton, QKeySequence(Qt::CTRL | Qt::Key_M)}});
  addentries(menu, {{QStringLiteral("&View saved data..."), strip.viewlogbutton, {}},
                    {QStringLiteral("Save data in &file..."), strip.savelogbutton, {}}});
}

void pressbyreturn(const Strip& strip) {
  const std::array<std::pair<QLineEdit*, QPushButton*>, 6> pairs = {{{strip.firstvalue, strip.locatebutton},
                                                                     {strip.secondvalue, strip.locatebutton},
                                                                     {strip.rhvalue, strip.rhlinebutton},
                                                                     {strip.wbvalue, strip.wblinebutton},
                                                                     {strip.hvalue, strip.hlinebutton},
                                                                     {strip.vvalue, strip.vlinebutton}}};
  for (const auto& [box, button] : pairs) QObject::connect(box, &QLineEdit::returnPressed, button, &QPushButton::click);
}

}  // namespace moistair
