// For how long the rows of a log count: until the next one, but for two hours at most.
#include <algorithm>
#include <cmath>
#include <set>

#include "text/numberformat.h"
#include "weather/readers.h"

namespace moistair {

namespace {

constexpr std::int64_t longestHold = 7200, hourLong = 3600;  // [s]

double hoursOf(std::int64_t seconds) { return static_cast<double>(seconds) / static_cast<double>(hourLong); }

std::vector<std::int64_t> timesOf(const std::vector<WeatherRow>& rows) {
  std::vector<std::int64_t> times;
  times.reserve(rows.size());
  for (const WeatherRow& row : rows) times.push_back(secondsOf(row.time));
  return times;
}

/// Clocks are changed at night, in spring and in autumn of either hemisphere.
bool clocksMayChange(const LocalTime& time) {
  const bool season = (time.month >= 3 && time.month <= 5) || (time.month >= 9 && time.month <= 11);
  return season && time.hour <= 3;
}

/// How far apart the rows of a log are.
struct Interval {
  std::int64_t usual = hourLong;  ///< [s]
  bool fixed = false;             ///< almost always
};
Interval intervalOf(const std::vector<std::int64_t>& times) {
  std::vector<std::int64_t> gaps;
  for (std::size_t i = 1; i < times.size(); ++i) {
    if (times[i] > times[i - 1]) gaps.push_back(times[i] - times[i - 1]);
  }
  if (gaps.empty()) return {};
  const auto middle = gaps.begin() + static_cast<std::ptrdiff_t>(gaps.size() / 2);
  std::nth_element(gaps.begin(), middle, gaps.end());
  const std::int64_t usual = *middle;
  const auto same = std::count(gaps.begin(), gaps.end(), usual);
  return {usual, static_cast<std::size_t>(same) * 10 >= gaps.size() * 9};
}

/// Turns a log round that has its newest row first.
bool turnRound(std::vector<WeatherRow>& rows, std::vector<std::int64_t>& times) {
  std::size_t falling = 0, rising = 0;
  for (std::size_t i = 1; i < times.size(); ++i) ++(times[i] < times[i - 1] ? falling : rising);
  if (falling <= rising) return false;
  std::reverse(rows.begin(), rows.end());
  std::reverse(times.begin(), times.end());
  return true;
}

/// Whether a step back is the hour that comes twice.
bool isClockBack(const WeatherRow& row, std::int64_t gap) {
  return gap < 0 && gap >= -hourLong && clocksMayChange(row.time);
}

void sortByTime(std::vector<WeatherRow>& rows, std::vector<std::int64_t>& times, Oddities& oddities) {
  bool sorted = true;
  for (std::size_t i = 1; i < times.size(); ++i) {
    const std::int64_t gap = times[i] - times[i - 1];
    if (gap >= 0 || isClockBack(rows[i], gap)) continue;
    sorted = false;
    oddities.add(OddityKind::outOfOrder, [&] { return "row " + std::to_string(i + 1); });
  }
  if (sorted) return;
  std::stable_sort(rows.begin(), rows.end(), [](const WeatherRow& one, const WeatherRow& other) {
    return secondsOf(one.time) < secondsOf(other.time);
  });
  times = timesOf(rows);
}

}  // namespace

void weighByDuration(std::vector<WeatherRow>& rows, Oddities& oddities) {
  std::vector<std::int64_t> times = timesOf(rows);
  if (turnRound(rows, times)) oddities.add(OddityKind::newestFirst);
  sortByTime(rows, times, oddities);
  const Interval interval = intervalOf(times);
  std::int64_t lost = 0;
  std::size_t longGaps = 0;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const bool last = i + 1 == rows.size();
    const std::int64_t gap = last ? interval.usual : times[i + 1] - times[i];
    std::int64_t hold = gap;
    const auto at = [&] { return timeWords(rows[i].time); };
    if (gap < 0) {
      hold = gap + hourLong;
      oddities.add(OddityKind::clocksBack, [&] { return timeWords(rows[i + 1].time); });
    } else if (interval.fixed && interval.usual <= hourLong && gap == interval.usual + hourLong &&
               clocksMayChange(rows[i].time)) {
      hold = interval.usual;
      oddities.add(OddityKind::clocksForward, at);
    } else if (gap == 0) {
      oddities.add(OddityKind::sameTime, at);
    }
    if (hold > longestHold) {
      ++longGaps;
      lost += hold - longestHold;
      hold = longestHold;
    }
    rows[i].hours = hoursOf(hold);
  }
  if (longGaps > 0) {
    oddities.add(
        OddityKind::longGap, [&] { return atMostDecimals(hoursOf(lost), 1); }, longGaps);
  }
}

void findStuck(std::span<const WeatherRow> rows, Oddities& oddities) {
  constexpr double longStretch = 24;  // [h]
  constexpr std::size_t fewRows = 6;
  for (std::size_t begin = 0, end = 0; begin < rows.size(); begin = end) {
    double hours = 0;
    for (end = begin; end < rows.size() && rows[end].values == rows[begin].values; ++end) hours += rows[end].hours;
    if (hours < longStretch || end - begin < fewRows) continue;
    oddities.add(OddityKind::stuck, [&] { return timeWords(rows[begin].time); });
  }
}

void lookAtYears(std::span<const WeatherRow> rows, Oddities& oddities) {
  std::set<std::int16_t> years;
  double hours = 0;
  for (const WeatherRow& row : rows) {
    hours += row.hours;
    if (years.empty() || *years.rbegin() != row.time.year) years.insert(row.time.year);
    if (row.time.month == 2 && row.time.day == 29) oddities.add(OddityKind::leapDay);
  }
  if (years.size() > 1) {
    const auto range = [&] { return std::to_string(*years.begin()) + " to " + std::to_string(*years.rbegin()); };
    oddities.add(OddityKind::severalYears, range, years.size());
  } else if (!years.empty() && *years.begin() == 0) {
    oddities.add(OddityKind::noYears);
  }
  constexpr double year = 8760, leapYear = 8784;
  const auto is = [&](double whole) { return std::abs(hours - whole) < 0.001; };
  const bool full = is(year) || (is(leapYear) && oddities.count(OddityKind::leapDay) > 0);
  if (!full && !rows.empty()) oddities.add(OddityKind::notFullYear, [&] { return atMostDecimals(hours, 1); });
}

}  // namespace moistair
