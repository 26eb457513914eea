/// \file
/// Files read whole.
#pragma once

#include <cstddef>
#include <filesystem>
#include <limits>
#include <string>

#include "text/error.h"

namespace moistair {

/// "8 MB", "64 KB": a limit in words.
std::string sizeWords(std::size_t bytes);

enum class Links { followed, refused };

/// Reads a regular file. Never waits: anything else, as a pipe that nobody writes into, could hold a window up for ever
/// and is refused unread. An error is in words of the system where it has any.
/// @param largest in bytes; what is larger is refused
Result<std::string> readFile(const std::filesystem::path& path, Links links,
                             std::size_t largest = std::numeric_limits<std::size_t>::max());

}  // namespace moistair
