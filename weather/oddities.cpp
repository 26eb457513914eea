#include "weather/oddities.h"

#include <string_view>

namespace moistair {

namespace {

/// A "#" is the count, a "@" the detail; of "[one|more]" the part by the count. What is in "{}" is left out where there
/// is no detail.
struct OddityRow {
  OddityKind kind;
  const char* words;
};

using enum OddityKind;

constexpr std::array oddityTable = {
    OddityRow{byteOrderMark, "the file begins with a byte-order mark, which is skipped"},
    OddityRow{latinBytes, "# [line|lines] with bytes that are not UTF-8, read as ISO-8859-1{, the first in @}"},
    OddityRow{semicolons, "fields are separated by semicolons"},
    OddityRow{tabs, "fields are separated by tabs"},
    OddityRow{decimalCommas, "# [number has|numbers have] a decimal comma"},
    OddityRow{quotedFields, "# [line|lines] with fields in quotes"},
    OddityRow{openQuote, "# [line|lines] with a quote left open, which ends with its line{, the first in @}"},
    OddityRow{assumedFahrenheit, "no unit is given for @; read as deg F"},
    OddityRow{assumedMonthFirst, "dates such as @ are read as month/day"},
    OddityRow{noYears, "the times have no year"},
    OddityRow{severalYears, "rows of # years are mixed (@); hours are totals of the file"},
    OddityRow{blankLeapField, "the header does not say whether leap days are observed"},
    OddityRow{hoursFromZero, "hours are counted from 0 and not from 1; each is taken to begin then"},
    OddityRow{noDesignData, "the file has no design conditions"},
    OddityRow{unknownDesignLayout, "design conditions in a layout that is not known: @"},
    OddityRow{designOutOfOrder, "design conditions left out because their values contradict each other: @"},
    OddityRow{designDayWithoutState,
              "# design [day|days] left out, of wind or without a dry bulb and humidity{, the first: @}"},
    OddityRow{siteWithoutElevation, "the header gives no elevation"},
    OddityRow{shortRow, "# [row|rows] with too few fields left out, the first in @"},
    OddityRow{badTime, "# [row|rows] without a readable time left out, the first in @"},
    OddityRow{noDryBulb, "# [row|rows] left out for lack of @"},
    OddityRow{dryBulbWord, "# [row|rows] left out for a word in place of @"},
    OddityRow{dryBulbRange, "# [row|rows] left out for a missing-value code or a value beyond all measure of @"},
    OddityRow{noMoisture, "# [row|rows] without humidity or dew point left out, the first in @"},
    OddityRow{noState, "# [row|rows] with values that no air has left out, the first at @"},
    OddityRow{moistureWord, "# [humidity is a word|humidities are words] and not a number: @"},
    OddityRow{moistureRange, "# [humidity is|humidities are] a missing-value code or beyond all measure: @"},
    OddityRow{dewPointInstead, "# [row|rows] drawn by the dew point, since the humidity is missing, the first in @"},
    OddityRow{pressureMissing, "# [row|rows] without a pressure{, the first in @}"},
    OddityRow{fractionHumidity, "the relative humidity is between 0 and 1 in all rows and read as a fraction"},
    OddityRow{humidityAbove100, "# [row|rows] with a relative humidity above 100 counted as saturated, the first: @"},
    OddityRow{dewPointAbove, "# [row|rows] with a dew point above the dry bulb counted as saturated, the first at @"},
    OddityRow{wetBulbAbove, "# [row|rows] with a wet bulb above the dry bulb counted as saturated, the first at @"},
    OddityRow{leapDay, "# [row is|rows are] of February 29"},
    OddityRow{notFullYear, "the file has @ h and not a year's 8760"},
    OddityRow{newestFirst, "the newest row comes first; the order is turned round"},
    OddityRow{outOfOrder, "# [row|rows] out of order sorted by time, the first in @"},
    OddityRow{sameTime,
              "# [row repeats|rows repeat] the time of the row before and [has|have] no duration, the first at @"},
    OddityRow{clocksForward, "# [hour is|hours are] missing where clocks go forward, the first after @"},
    OddityRow{clocksBack, "# [hour comes|hours come] twice where clocks go back, the first at @; both count"},
    OddityRow{longGap, "# [gap|gaps] of more than two hours; @ h of them do not count"},
    OddityRow{stuck,
              "# [stretch|stretches] of a day or more in which no value changes: a sensor may be stuck; the first "
              "begins at @"},
    OddityRow{otherSite, "the file's mean pressure is @; humidities are kept, not humidity ratios"},
    OddityRow{noWetBulb, "# [row has|rows have] no wet bulb near 32 deg F, the first at @"},
    OddityRow{belowZero, "# [row|rows] below 0 deg F (@ h) not on the chart"},
    OddityRow{offChart, "# [row|rows] beyond the limits of the chart (@ h)"},
};

static_assert(
    [] {
      for (std::size_t i = 0; i < oddityTable.size(); ++i) {
        if (oddityTable[i].kind != static_cast<OddityKind>(i)) return false;
      }
      return oddityTable.size() == static_cast<std::size_t>(offChart) + 1;
    }(),
    "a row for each kind, in their order");

}  // namespace

std::vector<Oddity> Oddities::all() const {
  std::vector<Oddity> found;
  for (std::size_t i = 0; i < kinds; ++i) {
    if (counts_[i] > 0) found.push_back({static_cast<OddityKind>(i), counts_[i], details_[i]});
  }
  return found;
}

bool leavesOut(OddityKind kind) { return kind >= shortRow && kind <= noState; }

std::string wordsOf(const Oddity& oddity) {
  std::string out;
  enum class Part { all, one, more } part = Part::all;
  bool optional = false;
  const auto dropped = [&] {
    return (part == Part::one && oddity.count != 1) || (part == Part::more && oddity.count == 1) ||
           (optional && oddity.detail.empty());
  };
  for (const char c : std::string_view(oddityTable[static_cast<std::size_t>(oddity.kind)].words)) {
    switch (c) {
      case '[': part = Part::one; continue;
      case '|': part = Part::more; continue;
      case ']': part = Part::all; continue;
      case '{':
      case '}': optional = c == '{'; continue;
      default: break;
    }
    if (dropped()) continue;
    if (c == '#') {
      out += std::to_string(oddity.count);
    } else if (c == '@') {
      out += oddity.detail;
    } else {
      out += c;
    }
  }
  return out;
}

}  // namespace moistair
