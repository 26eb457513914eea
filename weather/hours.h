/// \file
/// The states of a weather file's rows at the pressure of a chart.
///
/// Each row is drawn at its dry bulb and relative humidity (by the dew point where it has no other) at the pressure of
/// the chart, whatever the pressure of the file's site was: so no state is above saturation. The states come from the
/// equations in closed form and not from the searches.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "weather/condition.h"
#include "weather/weatherfile.h"

namespace moistair {

/// The state of two properties at a pressure [in Hg], on a chart or not; no dry bulb where there is none, or where
/// there are two. A dew point or wet bulb above the dry bulb counts as saturated.
StatePoint weatherState(const Given& first, const Given& second, double atm);

/// The state of a design condition; a heating dry bulb that comes alone is taken as saturated, as design days have it.
StatePoint stateOf(const DesignCondition& condition, double atm);

/// A row of the file with its state.
struct WeatherHour {
  LocalTime time;
  double hours = 1;
  double atm = defaultPressure;  ///< at which the state is [in Hg]
  StatePoint state;              ///< the dew point of dry air, and a wet bulb in the step at 32 deg F, have no value
};

/// Months and hours of the day that count.
struct HourFilter {
  std::uint16_t months = 0xFFF;   ///< a bit for each, January first
  int fromHour = 0, toHour = 24;  ///< up to and without the last; across midnight if the first is larger

  bool accepts(const LocalTime& time) const;
  bool all() const { return months == 0xFFF && fromHour == 0 && toHour == 24; }
  bool operator==(const HourFilter&) const = default;
};

/// "6-9", "12,1,2" to months; "8-17" to hours. An error in words for anything else.
Result<std::uint16_t> readMonths(std::string_view text);
Outcome readHourRange(std::string_view text, HourFilter& filter);

/// What a chart shows; not the room chart's type, since weather needs none of a chart.
struct VisibleRange {
  double lowDb = 0, highDb = 120, lowW = 0, highW = greatestRatio;

  bool has(const StatePoint& state) const {
    return state.db >= lowDb && state.db <= highDb && state.w >= lowW && state.w <= highW;
  }
};

struct HourOptions {
  double atm = defaultPressure;  ///< of the chart [in Hg]
  bool ownPressure = false;      ///< each row's own where it has one
  HourFilter filter;
};

/// The hours that the filter accepts. Counts rows without a state, and a site whose mean pressure differs by more than
/// 1.5 %.
std::vector<WeatherHour> hoursOf(const WeatherFile& file, const HourOptions& options, Oddities& oddities);

/// Counts the hours that a chart does not show.
void countUnseen(std::span<const WeatherHour> hours, const VisibleRange& range, Oddities& oddities);

/// Mean pressure of the rows that have one [in Hg]; no value if none has.
double meanPressure(const WeatherFile& file);

/// How many hours there are for which a predicate holds.
double hoursWith(std::span<const WeatherHour> hours, const StatePredicate& holds);
double totalHours(std::span<const WeatherHour> hours);

}  // namespace moistair
