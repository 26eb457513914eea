/// \file
/// The record of what the user chose to keep in one run: a text file that grows by one block at each "Save data".
///
/// Nothing of the log is held in memory: each operation looks for the file again, so it may vanish or become unwritable
/// between any two of them. No operation throws, and each says whether it worked; the window that asked for it informs
/// the user. The file holds one byte a character (singlebyte.h) and ends every line with carriage return and line feed.
/// It lives as long as the session: new at start, gone at exit; what it held is then among the earlier sessions.
///
/// The file is locked while its session lasts, so that a second copy of the program neither empties nor removes it but
/// takes a name of its own, temp-2.txt and so on. A log without a lock has been left behind by a run that could not
/// close normally, and is kept before anything else happens to it. What is not a plain file (a FIFO, a folder, a link)
/// is not touched.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "files/descriptor.h"
#include "files/inputfile.h"
#include "log/logplaces.h"

namespace moistair {

/// What a window shows of a log; a larger one would hold it up.
inline constexpr std::size_t largestshown = std::size_t{8} << 20;

class SessionLog {
public:
  explicit SessionLog(LogPlaces places);

  const std::filesystem::path& path() const { return path_; }
  bool isOpen() const { return file_.isOpen(); }  ///< whether the file of that path is this session's
  const LogPlaces& places() const { return places_; }
  const std::filesystem::path& sessions() const { return places_.sessions; }

  /// Makes the file, with one empty line in it. What earlier runs have left behind is kept first.
  bool newLog();

  /// Appends a block, in one go. A file that is gone is made again, without the empty first line. When the block cannot
  /// be written whole, the file is left as it was.
  /// @param lines UTF-8, without line ends
  bool append(const std::vector<std::string>& lines);

  /// How many blocks the file holds: those appended since it was made.
  std::size_t records();

  /// The whole file as UTF-8, every line with its line end, or why it cannot be shown.
  Result<std::string> read();

  /// Whether the log is the file of this path, by whatever name.
  bool isAt(const std::filesystem::path& other) const;

  /// Writes a copy, replacing a file of that name. Copying the log onto itself changes nothing. A log
  /// that cannot be read leaves the target alone.
  bool copyTo(const std::filesystem::path& target);

  /// The end of the session: the file goes, and what it held is kept. A file that cannot be kept stays, for the next
  /// start to try again. Also true if the file is gone already.
  bool end();

private:
  bool hold();
  bool claim();
  void keepLeftBehind() const;

  LogPlaces places_;
  std::filesystem::path path_;
  Descriptor file_;  ///< the file, locked, while there is one
  std::size_t records_ = 0;
};

/// The bytes of a log; none if it is no plain file or cannot be read.
std::optional<std::string> readLogBytes(const std::filesystem::path& log);

/// The same as UTF-8, every line with its line end, or why it cannot be shown.
Result<std::string> readLog(const std::filesystem::path& log);

}  // namespace moistair
