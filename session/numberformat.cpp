#include "session/numberformat.h"

#include <array>
#include <charconv>

#include "engine/numbertext.h"
#include "engine/value.h"

namespace moistair {

void appendsevendecimals(std::string& out, double number) {
  if (number == -1) {
    out += "-1.0000000";
    return;
  }
  const std::string shown = showvalue(number);
  const std::size_t point = shown.find('.');
  const bool bare = point == 0 || (point == 1 && shown.front() == '-');
  if (!bare) {
    out += shown;
    return;
  }
  out.append(shown, 0, point);
  out += '0';
  out.append(shown, point);
}

void appendroundtrip(std::string& out, double number) {
  if (!hasvalue(number)) return;
  std::array<char, 32> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
  out.append(buffer.data(), end.ptr);
}

}  // namespace moistair
