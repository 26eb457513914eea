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

std::string tableValue(double number) {
  std::string text;
  appendfixed(text, number, 7, "");
  return text;
}

std::string atMostDecimals(double number, int decimals) { return numbertext(roundedTo(number, decimals)); }

std::string typeset(const std::string& number) { return number.starts_with('-') ? "−" + number.substr(1) : number; }

std::string typeset(double number, int decimals) {
  std::string text = fixeddecimals(number, decimals);
  if (text.ends_with('.')) text.pop_back();
  return typeset(text);
}

}  // namespace moistair
