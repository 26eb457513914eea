/// \file
/// How the windows write a file under a name that the user chose.
#pragma once

#include <QByteArray>
#include <QString>
#include <string_view>

#include "files/outputfile.h"
#include "log/sessionlog.h"
#include "toolkit/filename.h"

namespace moistair {

inline constexpr const char* holdsTheLog = "This file holds the saved data of this session.";

/// Writes a whole file, but for that of the log.
inline Outcome writeBytes(const QString& path, std::string_view bytes, const SessionLog& log) {
  const auto name = nativeName(path);
  if (!name) return Error{ErrorCode::notWritten, {}, "Its name holds characters that cannot be shown."};
  if (log.isAt(*name)) return Error{ErrorCode::notWritten, {}, holdsTheLog};
  return writeFile(*name, bytes);
}

/// The same of a picture; an empty one could not be made.
inline Outcome writePicture(const QString& path, const QByteArray& picture, const SessionLog& log) {
  if (picture.isEmpty()) return Error{ErrorCode::notWritten, {}, "There is not enough memory for it."};
  return writeBytes(path, {picture.data(), static_cast<std::size_t>(picture.size())}, log);
}

/// "The table could not be written to PATH", and why.
inline QString notWrittenText(const QString& what, const QString& path, const Error& error) {
  return what + QStringLiteral(" could not be written to ") + path + u'\n' + QString::fromStdString(error.words);
}

}  // namespace moistair
