/// \file
/// The readers of the formats, for weatherfile.cpp alone.
#pragma once

#include <cstdint>
#include <span>

#include "weather/weatherfile.h"

namespace moistair {

/// Values beyond these are codes for missing ones, or no air: -70 to 70 deg C as the EPW dictionary has it for weather,
/// more for a log of process air, a relative humidity of a little above 100, 31000 to 120000 Pa.
struct Plausible {
  double low, high;

  bool has(double value) const { return value >= low && value <= high; }
};
inline constexpr Plausible plausibleCelsius{-70, 70};
inline constexpr Plausible plausibleFahrenheit{-100, 250};
inline constexpr Plausible plausibleHumidity{0, 110};
inline constexpr Plausible plausiblePressure{9.15, 35.45};  ///< [in Hg]

Result<WeatherFile> readEpw(std::string_view text);

/// A table whose heads are in one of its first lines; of a TMY3 file the line before tells the site.
Result<WeatherFile> readTable(std::string_view text, const TableColumns& columns);

/// Whether a row's first property, without which it is left out, can be used; counts why not.
bool keepFirst(double value, const Plausible& range, std::string_view field, PropertyKind kind, std::size_t line,
               Oddities& oddities);

/// The same of what says how moist the air is, where an empty field is no more than that.
bool keepMoisture(double value, const Plausible& range, std::string_view field, std::size_t line, Oddities& oddities);

/// Counts relative humidities above 100, and takes those of a column that never goes beyond 1 for fractions.
void settleHumidity(std::vector<WeatherRow>& rows, Oddities& oddities);

/// Weighs the rows of a log by their durations, and puts them into the order of time. A row holds until the next one,
/// but for two hours at most, since nobody knows what comes later.
void weighByDuration(std::vector<WeatherRow>& rows, Oddities& oddities);

/// Counts stretches of a day or more in which nothing changes.
void findStuck(std::span<const WeatherRow> rows, Oddities& oddities);

/// Counts years and leap days.
void lookAtYears(std::span<const WeatherRow> rows, Oddities& oddities);

}  // namespace moistair
