#include "toolkit/savedialog.h"

#include <QFileDialog>
#include <QFileInfo>

#include "toolkit/dialog.h"

namespace moistair {

std::optional<QString> SaveDialog::ask(QWidget* parent, const SaveRequest& request) {
  QFileDialog dialog(parent, request.title);
  keepabove(dialog);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setNameFilters(request.filters);
  dialog.selectNameFilter(request.filters.value(0));
  if (!path_.isEmpty()) {
    dialog.setDirectory(QFileInfo(path_).absolutePath());
    dialog.selectFile(QFileInfo(path_).fileName());
  }
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  const QString path = dialog.selectedFiles().value(0);
  if (path.isEmpty() || !QFileInfo(path).absoluteDir().exists()) return std::nullopt;
  path_ = path;
  filter_ = dialog.selectedNameFilter();
  return path;
}

}  // namespace moistair
