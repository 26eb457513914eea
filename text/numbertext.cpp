#include "text/numbertext.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <system_error>

#include "text/value.h"

namespace moistair {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
/// Line breaks too: a cell pasted from a spreadsheet brings one along.
bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

std::string_view withoutLeadingBlanks(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  return text;
}

std::size_t digitsAt(std::string_view text, std::size_t from) {
  std::size_t end = from;
  while (end < text.size() && isDigit(text[end])) ++end;
  return end - from;
}

/// Length of the number that the text begins with, 0 if it begins with none.
std::size_t numberLength(std::string_view text) {
  std::size_t at = 0;
  if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
  const std::size_t whole = digitsAt(text, at);
  at += whole;
  std::size_t decimals = 0;
  if (at < text.size() && text[at] == '.') {
    decimals = digitsAt(text, at + 1);
    if (whole + decimals > 0) at += 1 + decimals;
  }
  if (whole + decimals == 0) return 0;
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    std::size_t exponent = at + 1;
    if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-')) ++exponent;
    const std::size_t digits = digitsAt(text, exponent);
    if (digits > 0) at = exponent + digits;
  }
  return at;
}

/// True if a number beyond the range of a double is so because it is too small. Such a number has a first significant
/// digit, and its decimal exponent distinguishes the two by a wide margin.
bool tooSmall(std::string_view number) {
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

/// Powers of ten that a double holds exactly.
constexpr std::array<double, 23> powers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                           1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int mostPower = static_cast<int>(powers.size()) - 1;

double power(int exponent) { return powers[static_cast<std::size_t>(exponent)]; }
std::uint64_t wholePower(int exponent) {
  static constexpr auto wholePowers = [] {
    std::array<std::uint64_t, 19> table{};
    for (std::size_t i = 0; i < table.size(); ++i) table[i] = static_cast<std::uint64_t>(powers[i]);
    return table;
  }();
  return wholePowers[static_cast<std::size_t>(exponent)];
}

/// Numbers of few digits and no exponent, as nearly all are: both sides of the division are exact, so that its result
/// is rounded as it should be. No value for all others.
double readShort(std::string_view number) {
  constexpr std::size_t mostDigits = 17;  // beyond what is exact, and never too many for 64 bits
  constexpr std::uint64_t mostExact = std::uint64_t{1} << 53;
  const bool negative = number.front() == '-';
  if (negative) number.remove_prefix(1);
  if (number.size() > mostDigits + 1) return noValue;
  const std::size_t point = std::min(number.find('.'), number.size());
  std::uint64_t digits = 0;
  for (const char c : number) {
    if (c == '.') continue;
    if (!isDigit(c)) return noValue;
    digits = digits * 10 + static_cast<std::uint64_t>(c - '0');
  }
  if (digits > mostExact) return noValue;
  const std::size_t decimals = point < number.size() ? number.size() - point - 1 : 0;
  const double magnitude = static_cast<double>(digits) / powers[decimals];
  return negative ? -magnitude : magnitude;
}

/// Reads a text of the shape that numberLength accepts.
double read(std::string_view number) {
  if (number.front() == '+') number.remove_prefix(1);
  if (const double value = readShort(number); hasValue(value)) return value;
  double value = 0;
  const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
  if (result.ec == std::errc::result_out_of_range) return tooSmall(number) ? 0 : noValue;
  return value;
}

/// A magnitude rounded to 15 significant digits: a whole number of 15 digits, the last `decimals` of them behind the
/// point; {0, 0} for zero. There may be fewer decimals than none, or more than digits.
struct Decimal {
  std::uint64_t digits;
  int decimals;
};

constexpr int significant = 15;

/// Of a positive normal number.
int binaryExponent(double number) { return static_cast<int>(std::bit_cast<std::uint64_t>(number) >> 52) - 1023; }

/// Digits of a magnitude with so many decimals, halves to the even one, as std::to_chars rounds. A double is a whole
/// number times a power of two, and within these bounds that number times the power of ten fits into 128 bits, so that
/// nothing but the last step rounds.
constexpr double leastExact = 1e-7;
constexpr double mostExact = 1e14;
std::uint64_t digitsOf(double magnitude, int decimals) {
  __extension__ using Wide = unsigned __int128;
  constexpr int mantissaBits = 52;  // and one more, of which a normal number keeps no record
  const auto bits = std::bit_cast<std::uint64_t>(magnitude);
  const std::uint64_t mantissa = (bits & ((std::uint64_t{1} << mantissaBits) - 1)) | std::uint64_t{1} << mantissaBits;
  const int half = decimals / 2;
  const Wide product = Wide{mantissa} * wholePower(half) * wholePower(decimals - half);
  const int shift = mantissaBits - binaryExponent(magnitude);
  const Wide rest = product & ((Wide{1} << shift) - 1);
  const Wide middle = Wide{1} << (shift - 1);
  const auto digits = static_cast<std::uint64_t>(product >> shift);
  return digits + (rest > middle || (rest == middle && digits % 2 == 1) ? 1 : 0);
}

/// The same for magnitudes that are rarer.
Decimal decimalFromText(double magnitude) {
  std::array<char, 32> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, std::chars_format::scientific,
                                 significant - 1);
  std::uint64_t digits = 0;
  std::size_t at = 0;
  for (; buffer[at] != 'e'; ++at) {
    if (buffer[at] != '.') digits = digits * 10 + static_cast<std::uint64_t>(buffer[at] - '0');
  }
  int exponent = 0;
  std::from_chars(buffer.data() + at + (buffer[at + 1] == '+' ? 2 : 1), end.ptr, exponent);
  return {digits, significant - 1 - exponent};
}

Decimal decimalOf(double magnitude) {
  if (magnitude == 0) return {0, 0};
  if (!(magnitude >= leastExact && magnitude < mostExact)) return decimalFromText(magnitude);
  // The decimal exponent is the binary one times log10(2), a little less than 1233 / 4096, or one more.
  const int exponent = binaryExponent(magnitude) * 1233 >> 12;
  const int decimals = significant - 1 - exponent;
  const std::uint64_t digits = digitsOf(magnitude, decimals);
  if (digits < wholePower(significant)) return {digits, decimals};
  return {digitsOf(magnitude, decimals - 1), decimals - 1};
}

/// Rounds half away from zero to so many decimals, if there are more.
Decimal rounded(const Decimal& number, int decimals) {
  const int dropped = number.decimals - decimals;
  if (dropped <= 0) return number;
  if (dropped > significant) return {0, decimals};
  const std::uint64_t unit = wholePower(dropped);
  return {(number.digits + unit / 2) / unit, decimals};
}

void appendWhole(std::string& out, std::uint64_t number) {
  std::array<char, 20> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
  out.append(buffer.data(), end.ptr);
}

/// Appends the point and as many decimals as the power of ten `unit` has zeros, which `number` is below.
void appendDecimals(std::string& out, std::uint64_t number, std::uint64_t unit) {
  std::array<char, 20> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), unit + number);
  buffer[0] = '.';
  out.append(buffer.data(), end.ptr);
}

void appendZeros(std::string& out, int count) {
  if (count > 0) out.append(static_cast<std::size_t>(count), '0');
}

}  // namespace

double strictNumber(std::string_view text) {
  text = withoutLeadingBlanks(text);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  const std::size_t length = numberLength(text);
  if (length == 0 || length != text.size()) return noValue;
  return read(text);
}

double lenientNumber(std::string_view text) {
  text = withoutLeadingBlanks(text);
  const std::size_t length = numberLength(text);
  if (length == 0) return 0;
  const double number = read(text.substr(0, length));
  return hasValue(number) ? number : 0;
}

std::string numberText(double number) {
  if (!hasValue(number)) return {};
  Decimal decimal = decimalOf(std::abs(number));
  if (decimal.digits == 0) return "0";
  const int exponent = significant - 1 - decimal.decimals;
  int digits = significant;
  for (; decimal.digits % 10 == 0; --digits) decimal.digits /= 10;
  std::string text = number < 0 ? "-" : "";
  const bool withExponent = exponent < -4 || exponent >= significant;
  const int whole = withExponent ? 1 : exponent + 1;
  if (whole >= digits) {
    appendWhole(text, decimal.digits);
    appendZeros(text, whole - digits);
  } else {
    const std::uint64_t unit = wholePower(digits - whole);
    appendWhole(text, decimal.digits / unit);
    appendDecimals(text, decimal.digits % unit, unit);
  }
  if (withExponent) {
    text += exponent < 0 ? "E-" : "E+";
    const int magnitude = std::abs(exponent);
    if (magnitude < 10) text += '0';
    appendWhole(text, static_cast<std::uint64_t>(magnitude));
  }
  return text;
}

double roundedTo(double number, int decimals) {
  const double parts = power(decimals);
  return std::round(number * parts) / parts;
}

double fifteenDigits(double number) {
  if (!hasValue(number)) return noValue;
  const Decimal decimal = decimalOf(std::abs(number));
  if (!(decimal.decimals >= 0 && decimal.decimals <= mostPower)) return strictNumber(numberText(number));
  const double magnitude = static_cast<double>(decimal.digits) / power(decimal.decimals);
  return number < 0 ? -magnitude : magnitude;
}

void appendFixed(std::string& out, double number, int decimals, std::string_view zero) {
  if (!hasValue(number)) return;
  const Decimal decimal = rounded(decimalOf(std::abs(number)), decimals);
  const bool negative = number < 0 && decimal.digits != 0;
  const int behind = std::max(decimal.decimals, 0);
  // From the last digit to the first, which takes no division but by ten.
  std::array<char, 24> buffer;
  char* const end = buffer.data() + buffer.size();
  char* at = end;
  std::uint64_t rest = decimal.digits;
  for (; end - at < behind; rest /= 10) *--at = static_cast<char>('0' + rest % 10);
  char* const point = --at;
  *point = '.';
  if (rest == 0) at = std::copy_backward(zero.begin(), zero.end(), at);
  for (; rest > 0; rest /= 10) *--at = static_cast<char>('0' + rest % 10);
  if (negative) *--at = '-';
  if (decimal.decimals >= decimals) {
    out.append(at, end);
    return;
  }
  out.append(at, point);
  appendZeros(out, -decimal.decimals);
  out.append(point, end);
  appendZeros(out, decimals - behind);
}

std::string showValue(double number) {
  std::string text;
  if (number != -1) appendFixed(text, number, 7, "");
  return text;
}

std::string fixedDecimals(double number, int decimals) {
  std::string text;
  appendFixed(text, number, decimals, "0");
  return text;
}

std::string printedNumber(double number) {
  std::string text = numberText(number);
  const bool negative = text.starts_with('-');
  if (negative) text.erase(0, 1);
  if (text.starts_with("0.")) text.erase(0, 1);
  text.insert(0, 1, negative ? '-' : ' ');
  text += ' ';
  return text;
}

void NumberText::set(double number) {
  if (!hasValue(number)) return;
  isNumber_ = true;
  number_ = number;
  rounded_ = fifteenDigits(number);
}

void NumberText::setText(std::string text) {
  isNumber_ = false;
  text_ = std::move(text);
}

}  // namespace moistair
