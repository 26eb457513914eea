#include "text/tablefield.h"

namespace moistair {

void appendField(std::string& out, std::string_view text, char separator) {
  if (text.find(separator) == std::string_view::npos && text.find_first_of("\"\r\n") == std::string_view::npos) {
    out += text;
    return;
  }
  out += '"';
  for (const char c : text) {
    if (c == '"') out += '"';
    out += c;
  }
  out += '"';
}

}  // namespace moistair
