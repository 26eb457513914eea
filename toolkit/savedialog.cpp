#include "toolkit/savedialog.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <algorithm>

#include "toolkit/messages.h"
#include "toolkit/remembered.h"

namespace moistair {

namespace {

/// Does not go away over a folder that is not there. A dialog of the desktop's own has gone by then and is shown again.
class FileDialog final : public QFileDialog {
public:
  using QFileDialog::QFileDialog;

  QString path() const { return selectedFiles().value(0); }
  bool folderExists() const { return QFileInfo(path()).absoluteDir().exists(); }

  void accept() override {
    const bool ofDesktop = testAttribute(Qt::WA_DontShowOnScreen);
    if (!folderExists()) {
      warning(this, QStringLiteral("There is no folder ") + QFileInfo(path()).absolutePath());
      if (!ofDesktop) return;
    }
    QFileDialog::accept();
  }
};

/// Gives each filter once more the pattern that its text ends with, for the dialog to use and not to show. "*.*" means
/// for all names, as it always did, where the dialog would leave out those without a dot.
QStringList withPatterns(QStringList filters) {
  for (QString& filter : filters) {
    const QString pattern = filter.mid(filter.lastIndexOf(u'('));
    filter += pattern == QStringLiteral("(*.*)") ? QStringLiteral("(*)") : pattern;
  }
  return filters;
}

}  // namespace

std::optional<QString> SaveDialog::ask(QWidget* parent, const SaveRequest& request) {
  FileDialog dialog(parent, request.title);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setNameFilters(withPatterns(request.filters));
  const QFileInfo first(request.path.isEmpty() ? path_ : request.path);
  if (first.filePath().isEmpty()) {
    dialog.setDirectory(remembered(memory::folder).toString());
  } else {
    dialog.setDirectory(first.absolutePath());
    dialog.selectFile(first.fileName());
  }
  do {
    if (dialog.exec() != QDialog::Accepted || dialog.path().isEmpty()) return std::nullopt;
  } while (!dialog.folderExists());
  path_ = dialog.path();
  remember(memory::folder, QFileInfo(path_).absolutePath());
  for (const QString& filter : request.filters) {
    if (dialog.selectedNameFilter().startsWith(filter)) filter_ = filter;
  }
  return path_;
}

std::optional<QString> completeName(QWidget* parent, const QString& title, QString path, const QStringList& endings) {
  const auto ends = [&](const QString& ending) { return path.endsWith(ending, Qt::CaseInsensitive); };
  if (std::any_of(endings.begin(), endings.end(), ends)) return path;
  path += endings.value(0);
  if (QFileInfo::exists(path) &&
      !question(parent, title, path + QStringLiteral(" already exists. Do you want to replace it?"))) {
    return std::nullopt;
  }
  return path;
}

}  // namespace moistair
