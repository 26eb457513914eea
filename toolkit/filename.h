/// \file
/// Names of files as the dialogs give them, and as the system takes them.
#pragma once

#include <QFile>
#include <QString>
#include <filesystem>
#include <optional>

namespace moistair {

/// The bytes of a name. None for one whose bytes the dialog could not show: two of them may look the same, and the one
/// that was meant is no longer known.
inline std::optional<std::filesystem::path> nativeName(const QString& name) {
  if (name.contains(QChar::ReplacementCharacter)) return std::nullopt;
  return QFile::encodeName(name).toStdString();
}

}  // namespace moistair
