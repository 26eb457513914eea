#include "text/utf8.h"

#include <algorithm>

namespace moistair {

namespace {

/// Bytes of the character that begins with this one, 0 for a byte that can begin none.
std::size_t expectedLength(unsigned lead) {
  if (lead < 0x80) return 1;
  if (lead < 0xC2) return 0;
  if (lead < 0xE0) return 2;
  if (lead < 0xF0) return 3;
  return lead < 0xF5 ? 4 : 0;
}

/// Longer than need be, a half of a surrogate pair, or beyond the last character.
bool forbidden(unsigned lead, unsigned second) {
  return (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) || (lead == 0xF0 && second < 0x90) ||
         (lead == 0xF4 && second > 0x8F);
}

}  // namespace

Utf8Piece firstPiece(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned>(static_cast<unsigned char>(text[i])); };
  const std::size_t expected = expectedLength(byte(0));
  std::size_t length = 1;
  while (length < std::min(expected, text.size()) && (byte(length) & 0xC0U) == 0x80) ++length;
  return {length, length == expected && !(length > 1 && forbidden(byte(0), byte(1)))};
}

bool isUtf8(std::string_view text) {
  while (!text.empty()) {
    const Utf8Piece piece = firstPiece(text);
    if (!piece.isCharacter) return false;
    text.remove_prefix(piece.length);
  }
  return true;
}

}  // namespace moistair
