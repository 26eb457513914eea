#include "log/sessionlog.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

#include "files/inputfile.h"
#include "files/outputfile.h"
#include "log/earliersessions.h"
#include "text/singlebyte.h"

namespace moistair {

namespace {

namespace fs = std::filesystem;

constexpr mode_t newFile = 0600;  // what is saved is the user's alone
constexpr std::string_view lineEnd = "\r\n";
constexpr int mostLogs = 99;  // in one folder

/// temp.txt, temp-2.txt, temp-3.txt
fs::path logName(const fs::path& folder, int number) {
  return folder / (number == 1 ? "temp.txt" : "temp-" + std::to_string(number) + ".txt");
}

bool isSame(const struct stat& a, const struct stat& b) { return a.st_dev == b.st_dev && a.st_ino == b.st_ino; }

/// Whether an open file is still the one of this name.
bool isStill(const Descriptor& file, const fs::path& path) {
  struct stat opened, named;
  return ::fstat(file.number(), &opened) == 0 && ::lstat(path.c_str(), &named) == 0 && isSame(opened, named);
}

/// Whether something of this name is there that is no plain file, or one that has another name as well.
bool isOdd(const fs::path& path) {
  struct stat named;
  return ::lstat(path.c_str(), &named) == 0 && (!S_ISREG(named.st_mode) || named.st_nlink != 1);
}

enum class Opening { open, locked, impossible };

/// Opens a log to append to it, and locks it where the disk knows of locks.
Opening openLocked(const fs::path& path, int flags, Descriptor& file) {
  if (isOdd(path)) return Opening::impossible;
  Descriptor opened(
      ::open(path.c_str(), O_RDWR | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC | flags, newFile));
  if (!opened.isOpen()) return Opening::impossible;
  if (::flock(opened.number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return Opening::locked;
  if (!isStill(opened, path) || isOdd(path)) return Opening::locked;  // another copy was quicker
  file = std::move(opened);
  return Opening::open;
}

/// Whether this begins as a log does. Another file may have one of the further names.
bool isLog(const Descriptor& file) {
  std::array<char, 3> begin{};
  const ssize_t got = ::pread(file.number(), begin.data(), begin.size(), 0);
  const std::string_view text(begin.data(), got > 0 ? static_cast<std::size_t>(got) : 0);
  return text.empty() || text.starts_with('-') || text == lineEnd || text == "\r\n-";
}

/// Opens a log of this name that holds nothing. What it holds is kept first; where that cannot be, the name counts as
/// taken.
Opening openNew(const fs::path& path, const fs::path& sessions, Descriptor& file) {
  for (const bool keeping : {true, false}) {
    const Opening opening = openLocked(path, O_CREAT, file);
    if (opening != Opening::open) return opening;
    struct stat opened;
    if (::fstat(file.number(), &opened) == 0 && opened.st_size == 0) {
      ::fchmod(file.number(), newFile);  // one that was there
      return Opening::open;
    }
    const bool gone = keeping && (path.filename() == "temp.txt" || isLog(file)) && keepSession(path, sessions);
    file = Descriptor();
    if (!gone) break;
  }
  return Opening::locked;
}

}  // namespace

std::optional<std::string> readLogBytes(const fs::path& log) {
  Result<std::string> content = readFile(log, Links::refused);
  return content ? std::optional(std::move(*content)) : std::nullopt;
}

Result<std::string> readLog(const fs::path& log) {
  Result<std::string> content = readFile(log, Links::refused, largestshown);
  if (!content) return content;
  *content = fromSingleByte(*content);
  if (!content->empty() && !content->ends_with('\n')) *content += lineEnd;
  return content;
}

SessionLog::SessionLog(LogPlaces places) : places_(std::move(places)), path_(logName(places_.folders.front(), 1)) {}

/// Whether the log is at hand. One that was removed and put back, as by an editor, is taken up again.
bool SessionLog::hold() {
  if (file_.isOpen() && isStill(file_, path_)) return true;
  file_ = Descriptor();
  return openLocked(path_, 0, file_) == Opening::open;
}

/// Makes a log under the first name that is free, in the first folder that takes one.
bool SessionLog::claim() {
  file_ = Descriptor();
  for (const fs::path& folder : places_.folders) {
    const bool last = folder == places_.folders.back();
    for (int number = 1; number <= mostLogs; ++number) {
      const fs::path name = logName(folder, number);
      const Opening opening = openNew(name, places_.sessions, file_);
      if (opening == Opening::open) {
        path_ = name;
        return true;
      }
      if (opening == Opening::impossible && !last) break;
    }
  }
  return false;
}

/// What the runs of copies have left behind. The log of a session that lasts is locked.
void SessionLog::keepLeftBehind() const {
  for (const fs::path& folder : places_.folders) {
    for (int number = 1; number <= mostLogs; ++number) {
      const fs::path name = logName(folder, number);
      Descriptor file;
      if (openLocked(name, 0, file) == Opening::open && isLog(file)) keepSession(name, places_.sessions);
    }
  }
}

bool SessionLog::newLog() {
  const bool made = claim();
  keepLeftBehind();
  if (!made) return false;
  OutputFile file = OutputFile::through(file_.number());
  return file.write(lineEnd) && file.commit();
}

bool SessionLog::append(const std::vector<std::string>& lines) {
  std::string block;
  for (const std::string& line : lines) {
    block += toSingleByte(line);
    block += lineEnd;
  }
  const bool existed = hold();
  struct stat before;
  if ((!existed && !claim()) || ::fstat(file_.number(), &before) != 0) return false;
  OutputFile file = OutputFile::through(file_.number());
  if (file.write(block) && ::fsync(file_.number()) == 0) {
    records_ = existed ? records_ + 1 : 1;
    return true;
  }
  if (::ftruncate(file_.number(), before.st_size) == 0 && !existed) ::unlink(path_.c_str());
  return false;
}

std::size_t SessionLog::records() { return hold() ? records_ : 0; }

Result<std::string> SessionLog::read() {
  if (!hold()) return Error{ErrorCode::notOpened, {}, "It is gone."};
  return readLog(path_);
}

bool SessionLog::isAt(const fs::path& other) const {
  std::error_code ignored;
  return fs::equivalent(path_, other, ignored);
}

bool SessionLog::copyTo(const fs::path& target) {
  if (isAt(target)) return true;
  const std::optional<std::string> bytes = hold() ? readLogBytes(path_) : std::nullopt;
  return bytes && writeFile(target, *bytes);
}

bool SessionLog::end() {
  const bool kept = !hold() || keepSession(path_, places_.sessions);
  file_ = Descriptor();
  return kept;
}

}  // namespace moistair
