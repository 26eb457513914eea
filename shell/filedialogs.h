/// \file
/// What is asked about the document's file, and the ways in which a file comes into the window.
#pragma once

#include <QMenu>
#include <QString>
#include <QWidget>
#include <functional>
#include <optional>

#include "toolkit/messages.h"

namespace moistair {

class FilesController;

/// Questions and warnings about the document's file. Each waits for its answer.
struct FileDialogs {
  /// Asks which file is to be opened; none if the user canceled. @param path of the document; empty for none
  std::function<std::optional<QString>(const QString& path)> open;
  /// Asks where the document is to be written, ending included.
  std::function<std::optional<QString>(const QString& path)> save;
  std::function<Unsaved(const QString& text)> askToSave;
  std::function<bool(const QString& text)> question;
  std::function<void(const QString& text)> warn;
};

/// Those of the system, above a window.
FileDialogs fileDialogs(QWidget& window);

/// New, Open, Open recent, Save and Save as.
void fillFileMenu(QMenu& menu, FilesController& files);

/// A file that is dropped on the window is opened.
void openDropped(QWidget& window, FilesController& files);

}  // namespace moistair
