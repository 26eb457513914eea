/// \file
/// Texts of the program, which are UTF-8, to texts of one byte a character and back.
///
/// The log's columns count only if each character is one byte, so its file is Latin-1. What a user types as a point
/// identification can hold any character; it must neither widen a line nor end it early.
#pragma once

#include <string>
#include <string_view>

namespace moistair {

/// One byte for each character: Latin-1's printing characters as they are, a blank for every control character, line
/// breaks included, as on the chart, and a "?" for every other character and every byte that is no UTF-8.
std::string toSingleByte(std::string_view utf8);

/// UTF-8 of a text of one byte a character.
std::string fromSingleByte(std::string_view bytes);

}  // namespace moistair
