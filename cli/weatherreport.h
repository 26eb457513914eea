/// \file
/// What `moistair-cli weather` prints of bins, design conditions and hours.
#pragma once

#include <string>
#include <vector>

#include "cli/format.h"
#include "weather/bins.h"

namespace moistair {

struct WeatherReport {
  const WeatherFile& file;
  std::vector<WeatherHour> hours;  ///< that count
  double atm = defaultPressure;    ///< of the chart [in Hg]
  double width = 5;                ///< of bins [deg F]
  bool byMonth = false, byShift = false;
  double base = 65;  ///< of degree-hours [deg F]
  std::vector<Condition> where;
  bool inZones = false;  ///< hours outside the zones asked for do not count
  double allHours = 0;   ///< before the conditions
};

std::string binsText(const WeatherReport& report, Format format);
std::string designText(const WeatherReport& report, Format format);
/// As text the sums alone.
std::string hoursText(const WeatherReport& report, Format format);

}  // namespace moistair
