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

constexpr mode_t newfile = 0600;  // what is saved is the user's alone
constexpr std::string_view lineend = "\r\n";
constexpr int mostlogs = 99;  // in one folder

/// temp.txt, temp-2.txt, temp-3.txt
fs::path logname(const fs::path& folder, int number) {
  return folder / (number == 1 ? "temp.txt" : "temp-" + std::to_string(number) + ".txt");
}

bool issame(const struct stat& a, const struct stat& b) { return a.st_dev == b.st_dev && a.st_ino == b.st_ino; }

/// Whether an open file is still the one of this name.
bool isstill(const Descriptor& file, const fs::path& path) {
  struct stat opened, named;
  return ::fstat(file.number(), &opened) == 0 && ::lstat(path.c_str(), &named) == 0 && issame(opened, named);
}

/// Whether something of this name is there that is no plain file, or one that has another name as well.
bool isodd(const fs::path& path) {
  struct stat named;
  return ::lstat(path.c_str(), &named) == 0 && (!S_ISREG(named.st_mode) || named.st_nlink != 1);
}

enum class Opening { open, locked, impossible };

/// Opens a log to append to it, and locks it where the disk knows of locks.
Opening openlocked(const fs::path& path, int flags, Descriptor& file) {
  if (isodd(path)) return Opening::impossible;
  Descriptor opened(
      ::open(path.c_str(), O_RDWR | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC | flags, newfile));
  if (!opened.isopen()) return Opening::impossible;
  if (::flock(opened.number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return Opening::locked;
  if (!isstill(opened, path) || isodd(path)) return Opening::locked;  // another copy was quicker
  file = std::move(opened);
  return Opening::open;
}

/// Whether this begins as a log does. Another file may have one of the further names.
bool islog(const Descriptor& file) {
  std::array<char, 3> begin{};
  const ssize_t got = ::pread(file.number(), begin.data(), begin.size(), 0);
  const std::string_view text(begin.data(), got > 0 ? static_cast<std::size_t>(got) : 0);
  return text.empty() || text.starts_with('-') || text == lineend || text == "\r\n-";
}

/// Opens a log of this name that holds nothing. What it holds is kept first; where that cannot be, the name counts as
/// taken.
Opening opennew(const fs::path& path, const fs::path& sessions, Descriptor& file) {
  for (const bool keeping : {true, false}) {
    const Opening opening = openlocked(path, O_CREAT, file);
    if (opening != Opening::open) return opening;
    struct stat opened;
    if (::fstat(file.number(), &opened) == 0 && opened.st_size == 0) {
      ::fchmod(file.number(), newfile);  // one that was there
      return Opening::open;
    }
    const bool gone = keeping && (path.filename() == "temp.txt" || islog(file)) && keepsession(path, sessions);
    file = Descriptor();
    if (!gone) break;
  }
  return Opening::locked;
}

}  // namespace

std::optional<std::string> readlogbytes(const fs::path& log) {
  FileContent content = readfile(log, Links::refused);
  return content.fault.empty() ? std::optional(std::move(content.bytes)) : std::nullopt;
}

FileContent readlog(const fs::path& log) {
  FileContent content = readfile(log, Links::refused, largestshown);
  content.bytes = fromsinglebyte(content.bytes);
  if (!content.bytes.empty() && !content.bytes.ends_with('\n')) content.bytes += lineend;
  return content;
}

SessionLog::SessionLog(LogPlaces places) : places_(std::move(places)), path_(logname(places_.folders.front(), 1)) {}

/// Whether the log is at hand. One that was removed and put back, as by an editor, is taken up again.
bool SessionLog::hold() {
  if (file_.isopen() && isstill(file_, path_)) return true;
  file_ = Descriptor();
  return openlocked(path_, 0, file_) == Opening::open;
}

/// Makes a log under the first name that is free, in the first folder that takes one.
bool SessionLog::claim() {
  file_ = Descriptor();
  for (const fs::path& folder : places_.folders) {
    const bool last = folder == places_.folders.back();
    for (int number = 1; number <= mostlogs; ++number) {
      const fs::path name = logname(folder, number);
      const Opening opening = opennew(name, places_.sessions, file_);
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
void SessionLog::keepleftbehind() const {
  for (const fs::path& folder : places_.folders) {
    for (int number = 1; number <= mostlogs; ++number) {
      const fs::path name = logname(folder, number);
      Descriptor file;
      if (openlocked(name, 0, file) == Opening::open && islog(file)) keepsession(name, places_.sessions);
    }
  }
}

bool SessionLog::newlog() {
  const bool made = claim();
  keepleftbehind();
  if (!made) return false;
  OutputFile file = OutputFile::through(file_.number());
  return file.write(lineend) && file.commit();
}

bool SessionLog::append(const std::vector<std::string>& lines) {
  std::string block;
  for (const std::string& line : lines) {
    block += tosinglebyte(line);
    block += lineend;
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

FileContent SessionLog::read() { return hold() ? readlog(path_) : FileContent{{}, "It is gone."}; }

bool SessionLog::isat(const fs::path& other) const {
  std::error_code ignored;
  return fs::equivalent(path_, other, ignored);
}

bool SessionLog::copyto(const fs::path& target) {
  if (isat(target)) return true;
  const std::optional<std::string> bytes = hold() ? readlogbytes(path_) : std::nullopt;
  return bytes && !writefile(target, *bytes);
}

bool SessionLog::end() {
  const bool kept = !hold() || keepsession(path_, places_.sessions);
  file_ = Descriptor();
  return kept;
}

}  // namespace moistair
