/// \file
/// The hours of a weather file gathered: bins of dry bulb with mean coincident wet bulb, degree-hours, percentiles,
/// cells of the chart.
#pragma once

#include <array>
#include <vector>

#include "weather/hours.h"

namespace moistair {

inline constexpr int shiftCount = 3;  ///< from 0, 8 and 16 o'clock

struct Bin {
  double from = 0, to = 0;  ///< dry bulbs from here up to and without there [deg F]
  double hours = 0;
  double mcwb = noValue;  ///< mean coincident wet bulb [deg F], of the hours that have one
};

/// Bins of all hours at multiples of a width [deg F], the warmest last; those in between are there with no hours.
/// Empty for a width of more than 200 or so small that there would be more than 10000 bins.
std::vector<Bin> binsOf(std::span<const WeatherHour> hours, double width);

/// Bins of one month (1 to 12, 0 for all) and one shift (0 to 2, -1 for all).
std::vector<Bin> binsOf(std::span<const WeatherHour> hours, double width, int month, int shift);

struct DegreeHours {
  double base = 65;  ///< [deg F]
  double heating = 0, cooling = 0;
};
DegreeHours degreeHours(std::span<const WeatherHour> hours, double base);

/// A value that is exceeded for some percent of the hours, with the mean of another one in the hours of its bin.
struct Percentile {
  PropertyKind kind;  ///< db, wb or dp
  double percent;     ///< of the hours in which it is exceeded
  double value;       ///< [deg F]
  double coincident;  ///< of a dry bulb the mean wet bulb, else the mean dry bulb, of the hours within 1 deg F
};

/// 0.4, 1 and 2 % of dry bulb, wet bulb and dew point, 99 and 99.6 % of dry bulb. They are of this file and no design
/// conditions: those come from many years. None for less than 8000 hours, half a year's extremes being no year's.
std::vector<Percentile> percentilesOf(std::span<const WeatherHour> hours);

/// The cells of a chart with the hours in them.
struct CellSize {
  double db = 2;      ///< [deg F]
  double w = 0.0005;  ///< [lb/lb]
};
struct WeatherCell {
  int column, row;  ///< of multiples of the size
  double hours;
};

/// Cells with hours, by row and column. Hours beyond the range are left out; countUnseen counts them.
std::vector<WeatherCell> cellsOf(std::span<const WeatherHour> hours, const VisibleRange& range,
                                 const CellSize& size = {});

}  // namespace moistair
