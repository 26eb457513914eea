/// \file
/// Dates and times of day as weather files and trend logs write them.
///
/// Times are local and kept as written: month and hour are what filters and shifts go by, also on a February 29 of a
/// year that has none. Minutes are only worked out where rows are weighed by their duration.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace moistair {

struct LocalTime {
  std::int16_t year = 0;  ///< 0 where the file gives none
  std::int8_t month = 1, day = 1, hour = 0, minute = 0, second = 0;

  bool operator==(const LocalTime&) const = default;
};

/// Whether it can be a time: a day of its month (February has 29), an hour up to 24:00.
bool isTime(const LocalTime& time);

/// Seconds since the start of 1970, of the calendar without time zones.
std::int64_t secondsOf(const LocalTime& time);
LocalTime timeOfSeconds(std::int64_t seconds);

/// "2023-07-04 13:05", without a year "07-04 13:05".
std::string timeWords(const LocalTime& time);

/// A text as written: 2023-07-04T13:05:00, 7/4/2023 1:05 PM, 04.07.2023 13:05, 4-Jul-23 13:05, 07/04 24:00:00, a
/// spreadsheet's day number, seconds since 1970. Zone letters and offsets behind it are skipped. Of a date with
/// slashes the first number is taken for the month, without a test: `dayFirst` of the whole table decides later.
struct WrittenTime {
  LocalTime time;
  bool slashes = false;  ///< month and day could be the other way round
  bool hasDate = false, hasTime = false;
};
std::optional<WrittenTime> readTime(std::string_view text);

/// "January" to 1, also by its first three letters; 0 for another word.
int monthNamed(std::string_view word);
extern const char* const monthNames[12];  ///< "Jan"

}  // namespace moistair
