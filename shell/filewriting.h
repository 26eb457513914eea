/// \file
/// How the windows write a file under a name that the user chose.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>
#include <string_view>

#include "files/outputfile.h"
#include "log/sessionlog.h"
#include "toolkit/filename.h"

namespace moistair {

inline constexpr const char* holdsTheLog = "This file holds the saved data of this session.";

/// Writes a whole file, but for that of the log. Returns why it was not written, nothing if it was.
inline std::optional<QString> writeBytes(const QString& path, std::string_view bytes, const SessionLog& log) {
  const auto name = nativeName(path);
  if (!name) return QStringLiteral("Its name holds characters that cannot be shown.");
  if (log.isAt(*name)) return QString::fromUtf8(holdsTheLog);
  const Outcome written = writeFile(*name, bytes);
  return written ? std::nullopt : std::optional(QString::fromStdString(written.error().words));
}

/// The same of a picture; an empty one could not be made.
inline std::optional<QString> writePicture(const QString& path, const QByteArray& picture, const SessionLog& log) {
  if (picture.isEmpty()) return QStringLiteral("There is not enough memory for it.");
  return writeBytes(path, {picture.data(), static_cast<std::size_t>(picture.size())}, log);
}

}  // namespace moistair
