// What a harness claims of every input.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace moistair::fuzz {

inline void must(bool holds) {
  if (!holds) __builtin_trap();
}

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
  return size == 0 ? std::string_view() : std::string_view(reinterpret_cast<const char*>(data), size);
}

}  // namespace moistair::fuzz
