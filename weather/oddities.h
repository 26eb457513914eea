/// \file
/// What is odd about a weather file or a trend log, counted and in words.
///
/// Real files break every rule. Whatever a reader leaves out, corrects or assumes is counted here under its kind, with
/// the place of the first, so that no row is lost without a word.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace moistair {

enum class OddityKind {
  // of the file as a whole
  byteOrderMark,
  latinBytes,
  semicolons,
  tabs,
  decimalCommas,
  quotedFields,
  openQuote,
  assumedFahrenheit,
  assumedMonthFirst,
  noYears,
  severalYears,
  blankLeapField,
  hoursFromZero,
  noDesignData,
  unknownDesignLayout,
  designOutOfOrder,
  designDayWithoutState,
  siteWithoutElevation,
  // of rows that are left out
  shortRow,
  badTime,
  noDryBulb,
  dryBulbWord,
  dryBulbRange,
  noMoisture,
  noState,
  // of rows that count
  moistureWord,
  moistureRange,
  dewPointInstead,
  pressureMissing,
  fractionHumidity,
  humidityAbove100,
  dewPointAbove,
  wetBulbAbove,
  leapDay,
  notFullYear,
  newestFirst,
  outOfOrder,
  sameTime,
  clocksForward,
  clocksBack,
  longGap,
  stuck,
  // of the hours at a pressure
  otherSite,
  noWetBulb,
  belowZero,
  offChart,
};

struct Oddity {
  OddityKind kind;
  std::size_t count = 0;
  std::string detail;  ///< of the first: "line 120", or what the words have a place for

  bool operator==(const Oddity&) const = default;
};

class Oddities {
public:
  /// Counts one more. The detail is asked for at the first only, since its text takes time.
  template <class Detail>
  void add(OddityKind kind, const Detail& detail, std::size_t count = 1) {
    std::size_t& known = counts_[static_cast<std::size_t>(kind)];
    if (known == 0) details_[static_cast<std::size_t>(kind)] = detail();
    known += count;
  }
  void add(OddityKind kind, std::size_t count = 1) {
    add(
        kind, [] { return std::string(); }, count);
  }
  std::size_t count(OddityKind kind) const { return counts_[static_cast<std::size_t>(kind)]; }

  /// Those that there are, in the order of the kinds.
  std::vector<Oddity> all() const;

private:
  static constexpr std::size_t kinds = static_cast<std::size_t>(OddityKind::offChart) + 1;
  std::array<std::size_t, kinds> counts_{};
  std::array<std::string, kinds> details_;
};

/// Whether rows do not count because of it.
bool leavesOut(OddityKind kind);

/// One line without a full stop: "12 rows without a dry bulb are left out, the first in line 120".
std::string wordsOf(const Oddity& oddity);

}  // namespace moistair
