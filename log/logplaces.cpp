#include "log/logplaces.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iterator>

namespace moistair {

namespace {

namespace fs = std::filesystem;

/// The value of a variable that holds an absolute path, else empty.
fs::path absolutePath(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && *value == '/' ? fs::path(value) : fs::path();
}

fs::path home() {
  if (const fs::path path = absolutePath("HOME"); !path.empty()) return path;
  const passwd* user = ::getpwuid(::geteuid());
  return user != nullptr ? fs::path(user->pw_dir) : fs::path("/");
}

/// Whether a program in this folder was put there for all users, or with its entry in the menu of programs.
bool isInstalled(const fs::path& folder) {
  constexpr std::array<const char*, 4> roots = {"usr", "opt", "bin", "sbin"};
  const fs::path first = *std::next(folder.begin(), folder.has_relative_path() ? 1 : 0);
  std::error_code ignored;
  return std::find(roots.begin(), roots.end(), first) != roots.end() ||
         fs::exists(folder.parent_path() / "share" / "applications" / "moistair.desktop", ignored);
}

/// Whether this is a folder of the user's own, which the user may write.
bool isOwn(const fs::path& folder) {
  struct stat facts;
  return ::stat(folder.c_str(), &facts) == 0 && facts.st_uid == ::geteuid() && ::access(folder.c_str(), W_OK) == 0;
}

}  // namespace

fs::path stateFolder() {
  const fs::path state = absolutePath("XDG_STATE_HOME");
  return (state.empty() ? home() / ".local" / "state" : state) / "moistair";
}

void makeFolders(const fs::path& folder) {
  constexpr mode_t userAlone = 0700;
  fs::path made;
  for (const fs::path& part : folder) {
    made /= part;
    ::mkdir(made.c_str(), userAlone);
  }
}

LogPlaces logPlaces(const fs::path& programFolder) {
  const fs::path state = stateFolder();
  makeFolders(state);
  LogPlaces places{{state}, state / "sessions"};
  if (isOwn(programFolder) && !isInstalled(programFolder)) places.folders.insert(places.folders.begin(), programFolder);
  return places;
}

}  // namespace moistair
