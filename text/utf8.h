/// \file
/// Characters of a text in UTF-8.
#pragma once

#include <string_view>

namespace moistair {

/// What a text begins with: a character, or as many bytes of a broken one as are there, so that damage is no larger
/// than it need be.
struct Utf8Piece {
  std::size_t length;  ///< [bytes], at least 1
  bool isCharacter;    ///< false also for a form that UTF-8 forbids
};

/// The text must not be empty.
Utf8Piece firstPiece(std::string_view text);

/// Whether all of the text is characters.
bool isUtf8(std::string_view text);

}  // namespace moistair
