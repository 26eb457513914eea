#include "shell/editmenu.h"

#include "model/carryover.h"

namespace moistair {

EditMenu::EditMenu(QMenu& menu, ChartController& chart, StatusLine& status)
    : QObject(&menu), chart_(chart), status_(status) {
  const auto add = [&](const QString& text, const QKeySequence& keys, auto run) {
    QAction* action = menu.addAction(text, &chart, run);
    action->setShortcut(keys);
    return action;
  };
  undo_ = add({}, QKeySequence(Qt::CTRL | Qt::Key_Z), &ChartController::undo);
  redo_ = add({}, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), &ChartController::redo);
  menu.addSeparator();
  carryOver_ = add(QStringLiteral("&Again on this chart"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_A),
                   &ChartController::carryOver);
  menu.addSeparator();
  connect(&chart, &ChartController::changed, this, [this](ChangedPart part) {
    if (part == ChangedPart::content) follow();
  });
  follow();
}

/// Says in the menu what could be undone and done again, and offers what is left of the previous chart.
void EditMenu::follow() {
  const auto show = [](QAction& action, const QString& word, const std::string& name) {
    action.setEnabled(!name.empty());
    action.setText(name.empty() ? word
                                : word + QLatin1Char(' ') +
                                      QString::fromStdString(name).replace(QLatin1Char('&'), QStringLiteral("&&")));
  };
  const History& history = chart_.history();
  const Document& document = chart_.document();
  show(*undo_, QStringLiteral("&Undo"), history.undoName());
  show(*redo_, QStringLiteral("&Redo"), history.redoName());
  carryOver_->setEnabled(currentLimits(document) && !document.previous.empty() && history.undoName() != carryOverName);
  const std::size_t untried = untriedCount(document);
  const QString entries = untried == 1 ? QStringLiteral("1 entry") : QStringLiteral("%1 entries").arg(untried);
  status_.offer(Offer::previous,
                untried == 0 ? QString() : entries + QStringLiteral(" of the previous chart: put them on this one"),
                QStringLiteral("Click, or press %1.").arg(carryOver_->shortcut().toString(QKeySequence::NativeText)));
}

}  // namespace moistair
