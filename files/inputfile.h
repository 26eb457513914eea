/// \file
/// Files read whole.
#pragma once

#include <cstddef>
#include <filesystem>
#include <limits>
#include <string>

namespace moistair {

struct FileContent {
  std::string bytes;
  std::string fault;  ///< why it was not read, in words of the system where it has any; empty if it was
};

/// "8 MB", "64 KB": a limit in words.
std::string sizewords(std::size_t bytes);

enum class Links { followed, refused };

/// Reads a regular file. Never waits: anything else, as a pipe that nobody writes into, could hold a window up for ever
/// and is refused unread.
/// @param largest in bytes; what is larger is refused
FileContent readfile(const std::filesystem::path& path, Links links,
                     std::size_t largest = std::numeric_limits<std::size_t>::max());

}  // namespace moistair
