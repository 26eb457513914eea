#include "log/earliersessions.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <optional>
#include <string>
#include <system_error>

#include "files/outputfile.h"
#include "log/logplaces.h"
#include "log/sessionlog.h"

namespace moistair {

namespace {

namespace fs = std::filesystem;

constexpr const char* timeform = "%Y-%m-%dT%H-%M-%SZ";  // sorts by time
constexpr off_t emptyline = 2;                          // bytes

/// "2026-11-22T14-30-05Z.txt", with a number for a further log of that second.
std::string nameof(std::time_t lastsaved, int number, std::string_view ending) {
  std::tm utc{};
  ::gmtime_r(&lastsaved, &utc);
  std::array<char, 64> text{};
  const std::size_t length = std::strftime(text.data(), text.size(), timeform, &utc);
  return std::string(text.data(), length) + (number > 1 ? "-" + std::to_string(number) : "").append(ending);
}

std::optional<std::time_t> timeofname(const std::string& name, std::string_view ending) {
  std::tm utc{};
  const char* rest = ::strptime(name.c_str(), timeform, &utc);
  if (rest == nullptr || !name.ends_with(ending)) return std::nullopt;
  return ::timegm(&utc);
}

void dropoldest(const fs::path& folder, std::string_view ending) {
  const std::vector<EarlierSession> sessions = earliersessions(folder, ending);
  std::error_code ignored;
  for (std::size_t i = keptsessions; i < sessions.size(); ++i) fs::remove(sessions[i].file, ignored);
}

/// Moves a log to a name that is not taken; copies it where it cannot be moved, as to another disk.
bool moveaway(const fs::path& log, const fs::path& target) {
  if (::renameat2(AT_FDCWD, log.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0) return true;
  if (errno != EXDEV && errno != EINVAL) return false;
  std::error_code error;
  if (fs::exists(target, error)) {
    errno = EEXIST;
    return false;
  }
  const std::optional<std::string> bytes = readlogbytes(log);
  if (!bytes || writeownfile(target, *bytes)) return false;
  return ::unlink(log.c_str()) == 0;
}

}  // namespace

std::vector<EarlierSession> earliersessions(const fs::path& folder, std::string_view ending) {
  std::vector<EarlierSession> sessions;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    std::error_code gone;
    const auto lastsaved = timeofname(entry->path().filename(), ending);
    if (lastsaved && entry->symlink_status(gone).type() == fs::file_type::regular) {
      sessions.push_back({entry->path(), *lastsaved});
    }
  }
  std::sort(sessions.begin(), sessions.end(), [](const auto& a, const auto& b) { return a.file > b.file; });
  return sessions;
}

bool keepsession(const fs::path& log, const fs::path& folder) {
  struct stat held;
  if (::lstat(log.c_str(), &held) != 0) return errno == ENOENT;
  if (held.st_size <= emptyline) return ::unlink(log.c_str()) == 0;
  return !keepwork(log, folder, logending).empty();
}

fs::path keepwork(const fs::path& work, const fs::path& folder, std::string_view ending) {
  constexpr int mostinasecond = 100;
  struct stat held;
  if (::lstat(work.c_str(), &held) != 0) return {};
  makefolders(folder);
  for (int number = 1; number <= mostinasecond; ++number) {
    const fs::path target = folder / nameof(held.st_mtime, number, ending);
    if (moveaway(work, target)) {
      dropoldest(folder, ending);
      return target;
    }
    if (errno != EEXIST) break;
  }
  return {};
}

}  // namespace moistair
