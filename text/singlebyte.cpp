#include "text/singlebyte.h"

#include "text/utf8.h"

namespace moistair {

namespace {

unsigned byteAt(std::string_view text, std::size_t at) { return static_cast<unsigned char>(text[at]); }

bool isControl(unsigned character) { return character < 0x20 || (character >= 0x7F && character < 0xA0); }

}  // namespace

std::string toSingleByte(std::string_view utf8) {
  std::string bytes;
  bytes.reserve(utf8.size());
  std::size_t length = 1;
  for (std::size_t at = 0; at < utf8.size(); at += length) {
    length = firstPiece(utf8.substr(at)).length;
    const unsigned lead = byteAt(utf8, at);
    unsigned character = '?';
    if (length == 1 && lead < 0x80) character = lead;
    if (length == 2 && lead <= 0xC3) character = ((lead & 0x1FU) << 6U) | (byteAt(utf8, at + 1) & 0x3FU);
    bytes += isControl(character) ? ' ' : static_cast<char>(character);
  }
  return bytes;
}

std::string fromSingleByte(std::string_view bytes) {
  std::string utf8;
  utf8.reserve(bytes.size());
  for (const char byte : bytes) {
    const auto character = static_cast<unsigned char>(byte);
    if (character < 0x80) {
      utf8 += byte;
    } else {
      utf8 += static_cast<char>(0xC0U | (character >> 6U));
      utf8 += static_cast<char>(0x80U | (character & 0x3FU));
    }
  }
  return utf8;
}

}  // namespace moistair
