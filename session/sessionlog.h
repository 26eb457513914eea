/// \file
/// The record of what the user chose to keep in one run: a text file that grows by one block at each "Save data".
///
/// Nothing of the log is held in memory: each operation opens the file, does its work and closes it, so the file may
/// vanish or become unwritable between any two of them. No operation throws, and each says whether it worked; the
/// window that asked for it tells the user. The file holds one byte a character (singlebyte.h) and ends every line with
/// carriage return and line feed. It lives as long as the session: emptied at start, removed at exit, so a copy is all
/// that outlives it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace moistair {

class SessionLog {
public:
  explicit SessionLog(std::filesystem::path path) : path_(std::move(path)) {}

  const std::filesystem::path& path() const { return path_; }

  /// Creates or empties the file and writes one empty line.
  bool newlog() const;

  /// Appends a block, in one go. A file that is gone is made anew, without the empty first line. When the block cannot
  /// be written whole, the file is left as it was.
  /// @param lines UTF-8, without line ends
  bool append(const std::vector<std::string>& lines) const;

  /// The whole file as UTF-8, every line with its line end; none if the file cannot be read.
  std::optional<std::string> read() const;

  /// Whether the log is the file of this path, by whatever name.
  bool isat(const std::filesystem::path& other) const;

  /// Writes a copy, replacing a file of that name. Copying the log onto itself changes nothing. A log
  /// that cannot be read leaves the target alone.
  bool copyto(const std::filesystem::path& target) const;

  /// Removes the file; also true if it is gone already.
  bool remove() const;

private:
  std::filesystem::path path_;
};

}  // namespace moistair
