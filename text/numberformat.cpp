#include "text/numberformat.h"

#include <array>
#include <charconv>

#include "text/numbertext.h"
#include "text/value.h"

namespace moistair {

void appendsevendecimals(std::string& out, double number) { appendfixed(out, number, 7, "0"); }

void appendroundtrip(std::string& out, double number) {
  if (!hasvalue(number)) return;
  std::array<char, 32> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
  out.append(buffer.data(), end.ptr);
}

}  // namespace moistair
