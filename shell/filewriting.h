/// \file
/// How the windows write a file under a name that the user chose.
#pragma once

#include <QString>
#include <optional>
#include <string_view>

#include "session/outputfile.h"
#include "toolkit/filename.h"

namespace moistair {

/// Writes a whole file. Returns why it was not written, nothing if it was.
inline std::optional<QString> writebytes(const QString& path, std::string_view bytes) {
  const auto name = nativename(path);
  if (!name) return QStringLiteral("Its name holds characters that cannot be shown.");
  const auto failure = writefile(*name, bytes);
  return failure ? std::optional(QString::fromStdString(failure->reason())) : std::nullopt;
}

}  // namespace moistair
