#include "weather/calendar.h"

#include <array>
#include <charconv>
#include <chrono>

#include "text/numbertext.h"
#include "text/value.h"
#include "text/words.h"

namespace moistair {

const char* const monthNames[12] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

namespace {

constexpr std::int64_t secondsPerDay = 86400;

constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

/// Reads a text from the left, number by number and word by word.
struct Scanner {
  std::string_view rest;

  bool at(char c) const { return !rest.empty() && rest.front() == c; }
  bool take(char c) {
    if (!at(c)) return false;
    rest.remove_prefix(1);
    return true;
  }
  void skipBlanks() {
    while (at(' ') || at('\t')) rest.remove_prefix(1);
  }
  /// A number of at most four digits; -1 if there is none.
  int number() {
    int value = 0;
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), value);
    const auto length = static_cast<std::size_t>(end - rest.data());
    if (error != std::errc{} || length == 0 || length > 4 || value < 0) return -1;
    rest.remove_prefix(length);
    return value;
  }
  std::string_view word() {
    std::size_t length = 0;
    while (length < rest.size() && isLetter(rest[length])) ++length;
    const std::string_view found = rest.substr(0, length);
    rest.remove_prefix(length);
    return found;
  }
};

int fullYear(int year) { return year >= 100 ? year : year < 70 ? 2000 + year : 1900 + year; }

/// Sets the parts of a date; out of range they become 0, which is no time.
void setDate(LocalTime& time, int year, int month, int day) {
  const auto small = [](int value) { return static_cast<std::int8_t>(value >= 0 && value <= 99 ? value : 0); };
  time.year = static_cast<std::int16_t>(year);
  time.month = small(month);
  time.day = small(day);
}

/// "7/4/2023", "07/04", "04.07.2023", "2023-07-04", "4-Jul-23", behind its first number.
bool readDate(Scanner& scanner, int first, WrittenTime& written) {
  const char separator = scanner.rest.empty() ? ' ' : scanner.rest.front();
  if (separator != '/' && separator != '.' && separator != '-' && separator != ' ') return false;
  scanner.rest.remove_prefix(scanner.rest.empty() ? 0 : 1);
  if (!scanner.rest.empty() && isLetter(scanner.rest.front())) {
    const int month = monthNamed(scanner.word());
    if (!scanner.take(separator)) return false;
    const int year = scanner.number();
    if (month == 0 || year < 0) return false;
    setDate(written.time, fullYear(year), month, first);
    return true;
  }
  if (separator == ' ') return false;
  const int second = scanner.number();
  if (second < 0) return false;
  if (!scanner.take(separator)) {  // no year
    setDate(written.time, 0, separator == '.' ? second : first, separator == '.' ? first : second);
    written.slashes = separator == '/';
    return separator != '-';
  }
  const int third = scanner.number();
  if (third < 0) return separator == '.' && (setDate(written.time, 0, second, first), true);
  if (first > 31) {
    setDate(written.time, first, second, third);
  } else if (separator == '.') {
    setDate(written.time, fullYear(third), second, first);
  } else {
    setDate(written.time, fullYear(third), first, second);
    written.slashes = true;
  }
  return true;
}

/// ":05:00 PM", behind the hour.
bool readClock(Scanner& scanner, int hour, LocalTime& time) {
  if (hour < 0 || hour > 24 || !scanner.take(':')) return false;
  const int minute = scanner.number();
  int second = 0;
  if (minute < 0 || minute > 60) return false;
  if (scanner.take(':')) second = scanner.number();
  if (second < 0 || second > 60) return false;
  if (scanner.take('.') || scanner.take(',')) {  // parts of a second
    while (!scanner.rest.empty() && isDigit(scanner.rest.front())) scanner.rest.remove_prefix(1);
  }
  scanner.skipBlanks();
  const bool afternoon = scanner.at('P') || scanner.at('p');
  if (afternoon || scanner.at('A') || scanner.at('a')) {
    if (hour > 12) return false;
    hour = hour % 12 + (afternoon ? 12 : 0);
  }
  time.hour = static_cast<std::int8_t>(hour);
  time.minute = static_cast<std::int8_t>(minute);
  time.second = static_cast<std::int8_t>(second);
  return true;
}

/// A spreadsheet's day number, or seconds since 1970.
std::optional<WrittenTime> timeOfNumber(double number) {
  constexpr double spreadsheetEpoch = 25569;  // 1970 as a day number
  const bool day = number >= 20000 && number < 80000;
  const bool unixSeconds = number >= 1e8 && number < 1e10;
  if (!day && !unixSeconds) return std::nullopt;
  const double seconds = day ? (number - spreadsheetEpoch) * static_cast<double>(secondsPerDay) : number;
  return WrittenTime{timeOfSeconds(static_cast<std::int64_t>(seconds + 0.5)), false, true, true};
}

}  // namespace

int monthNamed(std::string_view word) {
  if (word.size() < 3) return 0;
  const std::string start = lowercase(word.substr(0, 3));
  for (int month = 0; month < 12; ++month) {
    if (start == lowercase(monthNames[month])) return month + 1;
  }
  return 0;
}

bool isTime(const LocalTime& time) {
  constexpr std::array days = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (time.month < 1 || time.month > 12 || time.day < 1) return false;
  if (time.day > days[static_cast<std::size_t>(time.month - 1)]) return false;
  return time.hour >= 0 && time.hour <= 24 && time.minute >= 0 && time.minute <= 60;
}

std::int64_t secondsOf(const LocalTime& time) {
  using namespace std::chrono;
  // A February 29 of another year counts as the day after the 28th.
  const sys_days first = year(time.year) / month(static_cast<unsigned>(time.month)) / 1;
  const std::int64_t days = first.time_since_epoch().count() + time.day - 1;
  return days * secondsPerDay + time.hour * 3600 + time.minute * 60 + time.second;
}

LocalTime timeOfSeconds(std::int64_t seconds) {
  using namespace std::chrono;
  const std::int64_t days = (seconds >= 0 ? seconds : seconds - secondsPerDay + 1) / secondsPerDay;
  const auto ofDay = static_cast<int>(seconds - days * secondsPerDay);
  const year_month_day date{sys_days{std::chrono::days{days}}};
  LocalTime time;
  setDate(time, static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())));
  time.hour = static_cast<std::int8_t>(ofDay / 3600);
  time.minute = static_cast<std::int8_t>(ofDay / 60 % 60);
  time.second = static_cast<std::int8_t>(ofDay % 60);
  return time;
}

std::string timeWords(const LocalTime& time) {
  const auto two = [](int value) { return std::string(value < 10 ? "0" : "") + std::to_string(value); };
  const std::string year = time.year == 0 ? "" : std::to_string(time.year) + "-";
  return year + two(time.month) + "-" + two(time.day) + " " + two(time.hour) + ":" + two(time.minute);
}

std::optional<WrittenTime> readTime(std::string_view text) {
  Scanner scanner{trimmed(text)};
  if (scanner.rest.empty()) return std::nullopt;
  WrittenTime written;
  if (isLetter(scanner.rest.front())) {  // Jul 4, 2023
    const int month = monthNamed(scanner.word());
    scanner.skipBlanks();
    const int day = scanner.number();
    scanner.take(',');
    scanner.skipBlanks();
    const int year = scanner.number();
    if (month == 0 || day < 0 || year < 0) return std::nullopt;
    setDate(written.time, fullYear(year), month, day);
    written.hasDate = true;
  } else {
    const std::string_view whole = scanner.rest;
    const int first = scanner.number();
    if (first < 0 || scanner.rest.empty()) return timeOfNumber(strictNumber(whole));
    if (scanner.at(':')) {
      written.hasTime = readClock(scanner, first, written.time);
      return written.hasTime ? std::optional(written) : std::nullopt;
    }
    if (scanner.at('.') && hasValue(strictNumber(whole)) && first > 31) return timeOfNumber(strictNumber(whole));
    written.hasDate = readDate(scanner, first, written);
    if (!written.hasDate) return timeOfNumber(strictNumber(whole));
  }
  scanner.take(',');
  scanner.take('T');
  scanner.skipBlanks();
  if (scanner.rest.empty()) return written;
  written.hasTime = readClock(scanner, scanner.number(), written.time);
  return written.hasTime ? std::optional(written) : std::nullopt;
}

}  // namespace moistair
