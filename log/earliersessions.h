/// \file
/// What the logs of earlier sessions held.
///
/// A log lives as long as its session. So that nothing saved is lost with it, it is moved into a folder of the user's
/// when the program ends, or at the next start if it could not: after a signal, a crash, a power failure. Work on a
/// chart that was not saved goes the same way. The folder holds the last ten of each, named by the moment of their last
/// saving, and the File menu lists them. Nothing here throws.
#pragma once

#include <ctime>
#include <filesystem>
#include <string_view>
#include <vector>

namespace moistair {

inline constexpr std::size_t keptSessions = 10;
inline constexpr std::string_view logEnding = ".txt";

struct EarlierSession {
  std::filesystem::path file;
  std::time_t lastSaved;
};

/// The latest first; what is no file of that ending in that folder is left out.
std::vector<EarlierSession> earlierSessions(const std::filesystem::path& folder, std::string_view ending = logEnding);

/// Takes a log away: into the folder, or, if it holds nothing but the empty line, altogether. The oldest beyond ten go.
/// False if it could not be kept; it then stays where it is.
bool keepSession(const std::filesystem::path& log, const std::filesystem::path& folder);

/// Takes unsaved work away in the same manner, and returns where it is now; empty if there is none or it could not be
/// kept.
std::filesystem::path keepWork(const std::filesystem::path& work, const std::filesystem::path& folder,
                               std::string_view ending);

}  // namespace moistair
