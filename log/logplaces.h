/// \file
/// Where the session log may lie, and what it leaves behind.
#pragma once

#include <filesystem>
#include <vector>

namespace moistair {

struct LogPlaces {
  std::vector<std::filesystem::path> folders;  ///< of the log itself, the best first
  std::filesystem::path sessions;              ///< of what earlier sessions have left; made when there is something
};

/// The places for a program that lies in this folder: next to the program if it runs from a folder of its user's own,
/// and the user's state folder, which is made. An installed program has the state folder alone, for root as well.
LogPlaces logPlaces(const std::filesystem::path& programFolder);

/// "moistair" below XDG_STATE_HOME if that is an absolute path, else below .local/state in the user's home.
std::filesystem::path stateFolder();

/// Makes a folder and those it lies in, open to the user alone. What fails shows when the folder is used.
void makeFolders(const std::filesystem::path& folder);

}  // namespace moistair
