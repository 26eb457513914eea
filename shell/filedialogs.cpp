#include "shell/filedialogs.h"

#include <QApplication>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMimeData>
#include <QTimer>
#include <memory>

#include "shell/filescontroller.h"
#include "toolkit/savedialog.h"

namespace moistair {

namespace {

constexpr const char* filter = "Moistair document (*.moistair)";

std::optional<QString> askOpen(QWidget& window, const QString& path) {
  QFileDialog dialog(&window, QStringLiteral("Open"));
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setNameFilters({QLatin1String(filter), QStringLiteral("All files (*)")});
  if (!path.isEmpty()) dialog.setDirectory(QFileInfo(path).absolutePath());
  return dialog.exec() == QDialog::Accepted ? std::optional(dialog.selectedFiles().value(0)) : std::nullopt;
}

std::optional<QString> askSave(QWidget& window, SaveDialog& dialog, const QString& path) {
  const QString title = QStringLiteral("Save as");
  // Without its ending, which is added again: a file that is there would be selected in the dialog's list, and come
  // back into the box when the folder has been read, over what was typed meanwhile.
  const QLatin1String ending(documentEnding);
  const QString begin = path.endsWith(ending) ? path.chopped(ending.size()) : path;
  const auto chosen = dialog.ask(&window, {title, {QLatin1String(filter), QStringLiteral("All files (*)")}, begin});
  return chosen ? completeName(&window, title, *chosen, {ending}) : std::nullopt;
}

/// The one file of a drag; empty for anything else.
QString draggedFile(const QDropEvent& event) {
  const QList<QUrl> urls = event.mimeData()->urls();
  return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

class Drops final : public QObject {
public:
  Drops(QWidget& window, FilesController& files) : QObject(&window), files_(files) {
    window.setAcceptDrops(true);
    window.installEventFilter(this);
  }

protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool drag = event->type() == QEvent::DragEnter || event->type() == QEvent::Drop;
    if (watched != parent() || !drag) return QObject::eventFilter(watched, event);
    auto& drop = *static_cast<QDropEvent*>(event);
    const QString file = draggedFile(drop);
    if (file.isEmpty() || QApplication::activeModalWidget() != nullptr) return false;
    drop.acceptProposedAction();
    // After the event: a question must not hold up whoever the file was dragged from.
    if (event->type() == QEvent::Drop) QTimer::singleShot(0, this, [this, file] { files_.open(file); });
    return true;
  }

private:
  FilesController& files_;
};

void listRecent(QMenu& menu, FilesController& files) {
  menu.clear();
  const auto [paths, fault] = files.recent();
  if (!fault.isEmpty()) menu.addAction(fault)->setEnabled(false);
  for (const QString& path : paths) {
    QString caption = path;
    menu.addAction(caption.replace(QLatin1Char('&'), QStringLiteral("&&")), &files,
                   [&files, path] { files.open(path); });
  }
  menu.setEnabled(!menu.isEmpty());
}

}  // namespace

FileDialogs fileDialogs(QWidget& window) {
  const auto dialog = std::make_shared<SaveDialog>();
  return {[&window](const QString& path) { return askOpen(window, path); },
          [&window, dialog](const QString& path) { return askSave(window, *dialog, path); },
          [&window](const QString& text) { return askToSave(&window, text); },
          [&window](const QString& text) { return question(&window, QStringLiteral("Moistair"), text); },
          [&window](const QString& text) { warning(&window, text); }};
}

void fillFileMenu(QMenu& menu, FilesController& files) {
  const auto add = [&](const QString& text, const QKeySequence& keys, auto run) {
    menu.addAction(text, &files, run)->setShortcut(keys);
  };
  add(QStringLiteral("&New"), QKeySequence(Qt::CTRL | Qt::Key_N), [&files] { files.startNew(); });
  add(QStringLiteral("&Open..."), QKeySequence(Qt::CTRL | Qt::Key_O), [&files] { files.askOpen(); });
  QMenu* recent = menu.addMenu(QStringLiteral("Open &recent"));
  QObject::connect(&menu, &QMenu::aboutToShow, recent, [recent, &files] { listRecent(*recent, files); });
  add(QStringLiteral("Sa&ve"), QKeySequence(Qt::CTRL | Qt::Key_S), [&files] { files.save(); });
  add(QStringLiteral("Save &as..."), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), [&files] { files.saveAs(); });
}

void openDropped(QWidget& window, FilesController& files) { new Drops(window, files); }

}  // namespace moistair
