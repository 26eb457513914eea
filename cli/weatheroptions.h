/// \file
/// How a command is given a weather file or a trend log, and how it reports what is odd about it.
#pragma once

#include <string>

#include "weather/hours.h"

namespace CLI {
class App;
}

namespace moistair {

struct WeatherOptions {
  std::string columns;
  std::string units;
  std::string months;
  std::string ofDay;
  std::string where;
};

/// Adds --units, --months, --of-day, --where, and --columns under the name that is free for it.
void addWeatherOptions(CLI::App& command, WeatherOptions& options, const char* columns = "--columns");

/// Reads a file; "-" for standard input. Bad usage for one that cannot be opened and for options that make no sense,
/// a failure for one that cannot be read.
WeatherFile weatherOf(const std::string& path, const WeatherOptions& options);

HourFilter filterOf(const WeatherOptions& options);

/// The conditions of --where; all of them are to hold.
std::vector<Condition> conditionsOf(const WeatherOptions& options);
StatePredicate predicateOf(const std::vector<Condition>& conditions);

/// A line on standard error for each oddity: a warning where something is left out, else a note.
void reportOddities(const Oddities& oddities);

}  // namespace moistair
