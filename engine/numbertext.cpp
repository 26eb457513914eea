#include "engine/numbertext.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <system_error>

#include "engine/value.h"

namespace moistair {

namespace {

bool isdigit(char c) { return c >= '0' && c <= '9'; }
/// Line breaks too: a cell pasted from a spreadsheet brings one along.
bool isblank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

std::string_view withoutleadingblanks(std::string_view text) {
  while (!text.empty() && isblank(text.front())) text.remove_prefix(1);
  return text;
}

std::size_t digitsat(std::string_view text, std::size_t from) {
  std::size_t end = from;
  while (end < text.size() && isdigit(text[end])) ++end;
  return end - from;
}

/// Length of the number that the text begins with, 0 if it begins with none.
std::size_t numberlength(std::string_view text) {
  std::size_t at = 0;
  if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
  const std::size_t whole = digitsat(text, at);
  at += whole;
  std::size_t decimals = 0;
  if (at < text.size() && text[at] == '.') {
    decimals = digitsat(text, at + 1);
    if (whole + decimals > 0) at += 1 + decimals;
  }
  if (whole + decimals == 0) return 0;
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    std::size_t exponent = at + 1;
    if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-')) ++exponent;
    const std::size_t digits = digitsat(text, exponent);
    if (digits > 0) at = exponent + digits;
  }
  return at;
}

/// True if a number beyond the range of a double is so because it is too small. Such a number has a first significant
/// digit, and its decimal exponent tells the two apart by a wide margin.
bool toosmall(std::string_view number) {
  const std::size_t mark = number.find_first_of("eE");
  const std::string_view mantissa = number.substr(0, mark);
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const std::size_t first = mantissa.find_first_of("123456789");
  if (first == std::string_view::npos) return true;
  const auto place = static_cast<long long>(point) - static_cast<long long>(first);
  if (mark == std::string_view::npos) return place < 0;
  const bool negative = number[mark + 1] == '-';
  const std::string_view digits = number.substr(number.find_first_of("0123456789", mark));
  long long exponent = 0;
  for (const char digit : digits) exponent = std::min(exponent * 10 + (digit - '0'), 1'000'000'000'000LL);
  return place + (negative ? -exponent : exponent) < 0;
}

/// Reads a text of the shape that numberlength accepts.
double read(std::string_view number) {
  if (number.front() == '+') number.remove_prefix(1);
  double value = 0;
  const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
  if (result.ec == std::errc::result_out_of_range) return toosmall(number) ? 0 : novalue;
  return value;
}

/// A number in decimal: 0.DIGITS times ten to the power `point`, DIGITS without a zero at either end.
struct Decimal {
  bool negative = false;
  std::string digits;
  int point = 0;
};

Decimal decimalof(double number) {
  std::array<char, 32> buffer;
  const auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::scientific, 14);
  const std::string_view text(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
  const std::size_t mark = text.find('e');
  Decimal decimal;
  decimal.negative = text.front() == '-';
  for (const char c : text.substr(0, mark)) {
    if (isdigit(c)) decimal.digits += c;
  }
  int exponent = 0;
  const bool plus = text[mark + 1] == '+';
  std::from_chars(text.data() + mark + (plus ? 2 : 1), text.data() + text.size(), exponent);
  decimal.point = exponent + 1;
  decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
  return decimal;
}

/// Rounds half away from zero to so many decimals.
void roundto(Decimal& number, int decimals) {
  const int keep = number.point + decimals;
  if (keep >= static_cast<int>(number.digits.size())) return;
  if (keep < 0) {
    number.digits.clear();
    return;
  }
  const bool up = number.digits[static_cast<std::size_t>(keep)] >= '5';
  number.digits.resize(static_cast<std::size_t>(keep));
  if (!up) return;
  while (!number.digits.empty() && number.digits.back() == '9') number.digits.pop_back();
  if (!number.digits.empty()) {
    ++number.digits.back();
  } else {
    number.digits.assign(1, '1');
    ++number.point;
  }
}

std::string fixed(double value, int decimals, const char* zero) {
  Decimal number = decimalof(value);
  roundto(number, decimals);
  const bool iszero = number.digits.find_first_not_of('0') == std::string::npos;
  std::string text = number.negative && !iszero ? "-" : "";
  if (number.point <= 0 || iszero) text += zero;
  const auto digit = [&](int at) {
    return at >= 0 && at < static_cast<int>(number.digits.size()) ? number.digits[static_cast<std::size_t>(at)] : '0';
  };
  if (!iszero) {
    for (int i = 0; i < number.point; ++i) text += digit(i);
  }
  text += '.';
  for (int i = 0; i < decimals; ++i) text += digit(number.point + i);
  return text;
}

}  // namespace

double strictnumber(std::string_view text) {
  text = withoutleadingblanks(text);
  while (!text.empty() && isblank(text.back())) text.remove_suffix(1);
  const std::size_t length = numberlength(text);
  if (length == 0 || length != text.size()) return novalue;
  return read(text);
}

double lenientnumber(std::string_view text) {
  text = withoutleadingblanks(text);
  const std::size_t length = numberlength(text);
  if (length == 0) return 0;
  const double number = read(text.substr(0, length));
  return hasvalue(number) ? number : 0;
}

std::string numbertext(double number) {
  if (!hasvalue(number)) return {};
  if (number == 0) return "0";
  std::array<char, 32> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::general, 15);
  std::string text(buffer.data(), end.ptr);
  std::replace(text.begin(), text.end(), 'e', 'E');
  return text;
}

double fifteendigits(double number) { return strictnumber(numbertext(number)); }

std::string showvalue(double number) {
  if (!hasvalue(number) || number == -1) return {};
  return fixed(number, 7, "");
}

std::string fourdecimals(double number) { return hasvalue(number) ? fixed(number, 4, "0") : std::string(); }

std::string printednumber(double number) {
  std::string text = numbertext(number);
  const bool negative = text.starts_with('-');
  if (negative) text.erase(0, 1);
  if (text.starts_with("0.")) text.erase(0, 1);
  text.insert(0, 1, negative ? '-' : ' ');
  text += ' ';
  return text;
}

void NumberText::set(double number) {
  if (hasvalue(number)) text_ = numbertext(number);
}

}  // namespace moistair
