#include "text/numberformat.h"

#include <array>
#include <charconv>

#include "text/numbertext.h"
#include "text/value.h"

namespace moistair {

void appendSevenDecimals(std::string& out, double number) { appendFixed(out, number, 7, "0"); }

void appendRoundTrip(std::string& out, double number) {
  if (!hasValue(number)) return;
  std::array<char, 32> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
  out.append(buffer.data(), end.ptr);
}

std::string tableValue(double number) {
  std::string text;
  appendFixed(text, number, 7, "");
  return text;
}

std::string atMostDecimals(double number, int decimals) { return numberText(roundedTo(number, decimals)); }

std::string typeset(const std::string& number) { return number.starts_with('-') ? "−" + number.substr(1) : number; }

std::string typeset(double number, int decimals) {
  std::string text = fixedDecimals(number, decimals);
  if (text.ends_with('.')) text.pop_back();
  return typeset(text);
}

}  // namespace moistair
