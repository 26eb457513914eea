/// \file
/// Numbers and their texts, which the engine finds by arithmetic of its own, against the C++ library's printing and
/// reading and a rounding digit by digit, as on paper: fuzznumbers COUNT [SEED]. Numbers around powers of ten, halves
/// of the last decimal shown and ties of the fifteenth digit are tried most, since a lost bit shows there.

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <utility>

#include "text/numbertext.h"

using namespace moistair;

namespace {

long tried = 0;
long differing = 0;

template <class... Format>
std::string printed(double number, Format... format) {
  std::array<char, 32> buffer;
  return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, format...).ptr};
}

double plainRead(const std::string& text) {
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

std::string plainText(double number) {
  std::string text = number == 0 ? "0" : printed(number, std::chars_format::general, 15);
  if (const std::size_t mark = text.find('e'); mark != std::string::npos) text[mark] = 'E';
  return text;
}

std::string plainFixed(double number, std::size_t decimals, const char* zero) {
  const std::string shown = printed(std::abs(number), std::chars_format::scientific, 14);
  std::string digits = shown.substr(0, 1) + shown.substr(2, 14);
  int exponent = std::stoi(shown.substr(shown.find('e') + 1));
  if (exponent < 0) digits.insert(0, static_cast<std::size_t>(-std::exchange(exponent, 0)), '0');
  const std::size_t keep = static_cast<std::size_t>(exponent) + 1 + decimals;
  digits.append(keep, '0');
  const bool up = digits[keep] >= '5';
  digits = '0' + digits.substr(0, keep);
  const std::size_t last = digits.find_last_not_of('9');
  if (up) digits = digits.substr(0, last) + static_cast<char>(digits[last] + 1) + std::string(keep - last, '0');
  const std::size_t first = digits.find_first_not_of('0');
  const std::size_t point = digits.size() - decimals;
  const std::string sign = number < 0 && first != std::string::npos ? "-" : "";
  return sign + (first < point ? digits.substr(first, point - first) : zero) + '.' + digits.substr(point);
}

void compare(double magnitude) {
  for (const double number : {magnitude, -magnitude}) {
    ++tried;
    const std::string text = plainText(number);
    if (showValue(number) == (number == -1 ? "" : plainFixed(number, 7, "")) &&
        fixedDecimals(number, 4) == plainFixed(number, 4, "0") && numberText(number) == text &&
        fifteenDigits(number) == plainRead(text) && strictNumber(printed(number)) == number) {
      continue;
    }
    if (++differing <= 20)
      std::printf("%s %s %s differ\n", printed(number).c_str(), text.c_str(), showValue(number).c_str());
  }
}

void compareAround(double number) {
  double up = number;
  double down = number;
  for (int i = 0; i < 10; ++i) {
    compare(up);
    compare(down);
    up = std::nextafter(up, HUGE_VAL);
    down = std::nextafter(down, 0);
  }
}

}  // namespace

int main(int argc, char** argv) {
  const long count = argc > 1 ? std::atol(argv[1]) : 1000;
  std::mt19937_64 random(argc > 2 ? static_cast<unsigned>(std::atol(argv[2])) : 1);
  std::uniform_real_distribution<double> part(0, 1);
  const auto below = [&](double limit) { return part(random) * limit; };
  for (int power = -320; power <= 308; ++power) compareAround(plainRead("1e" + std::to_string(power)));
  for (long i = 0; i < count; ++i) {
    compare(std::pow(10, below(36) - 16));
    compare(below(0.03));
    compare((std::floor(below(1e10)) + 0.5) * 1e-7);
    compare((std::floor(below(1e6)) + 0.5) * 1e-4);
    compare(std::ldexp(std::floor(below(9e15)), -static_cast<int>(below(60))));
    compare(std::bit_cast<double>(random() >> 2));
  }
  std::printf("%ld numbers, %ld differ\n", tried, differing);
  return differing == 0 ? 0 : 1;
}
