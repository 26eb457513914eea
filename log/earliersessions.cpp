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

constexpr const char* timeForm = "%Y-%m-%dT%H-%M-%SZ";  // sorts by time
constexpr off_t emptyLine = 2;                          // bytes

/// "2026-11-22T14-30-05Z.txt", with a number for a further log of that second.
std::string nameOf(std::time_t lastSaved, int number, std::string_view ending) {
  std::tm utc{};
  ::gmtime_r(&lastSaved, &utc);
  std::array<char, 64> text{};
  const std::size_t length = std::strftime(text.data(), text.size(), timeForm, &utc);
  return std::string(text.data(), length) + (number > 1 ? "-" + std::to_string(number) : "").append(ending);
}

std::optional<std::time_t> timeOfName(const std::string& name, std::string_view ending) {
  std::tm utc{};
  const char* rest = ::strptime(name.c_str(), timeForm, &utc);
  if (rest == nullptr || !name.ends_with(ending)) return std::nullopt;
  return ::timegm(&utc);
}

void dropOldest(const fs::path& folder, std::string_view ending) {
  const std::vector<EarlierSession> sessions = earlierSessions(folder, ending);
  std::error_code ignored;
  for (std::size_t i = keptSessions; i < sessions.size(); ++i) fs::remove(sessions[i].file, ignored);
}

/// Moves a log to a name that is not taken; copies it where it cannot be moved, as to another disk.
bool moveAway(const fs::path& log, const fs::path& target) {
  if (::renameat2(AT_FDCWD, log.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0) return true;
  if (errno != EXDEV && errno != EINVAL) return false;
  std::error_code error;
  if (fs::exists(target, error)) {
    errno = EEXIST;
    return false;
  }
  const std::optional<std::string> bytes = readLogBytes(log);
  if (!bytes || !writeOwnFile(target, *bytes)) return false;
  return ::unlink(log.c_str()) == 0;
}

}  // namespace

std::vector<EarlierSession> earlierSessions(const fs::path& folder, std::string_view ending) {
  std::vector<EarlierSession> sessions;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    std::error_code gone;
    const auto lastSaved = timeOfName(entry->path().filename(), ending);
    if (lastSaved && entry->symlink_status(gone).type() == fs::file_type::regular) {
      sessions.push_back({entry->path(), *lastSaved});
    }
  }
  std::sort(sessions.begin(), sessions.end(), [](const auto& a, const auto& b) { return a.file > b.file; });
  return sessions;
}

bool keepSession(const fs::path& log, const fs::path& folder) {
  struct stat held;
  if (::lstat(log.c_str(), &held) != 0) return errno == ENOENT;
  if (held.st_size <= emptyLine) return ::unlink(log.c_str()) == 0;
  return !keepWork(log, folder, logEnding).empty();
}

fs::path keepWork(const fs::path& work, const fs::path& folder, std::string_view ending) {
  constexpr int mostInASecond = 100;
  struct stat held;
  if (::lstat(work.c_str(), &held) != 0) return {};
  makeFolders(folder);
  for (int number = 1; number <= mostInASecond; ++number) {
    const fs::path target = folder / nameOf(held.st_mtime, number, ending);
    if (moveAway(work, target)) {
      dropOldest(folder, ending);
      return target;
    }
    if (errno != EEXIST) break;
  }
  return {};
}

}  // namespace moistair
