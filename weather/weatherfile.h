/// \file
/// Weather files and trend logs, read into rows: EPW, TMY3 and any table with a time and two properties; design days
/// of DDY files.
///
/// The format is found from the content, not from the name. Rows keep what the file says, in the program's units, and
/// for how long it holds; a state is made of them at a pressure (hours.h). What is left out, corrected or assumed is
/// counted (oddities.h). A file is read whole, up to `largestWeatherFile`; anything but a regular file is refused.
///
/// Sources of the formats: Auxiliary EnergyPlus Programs (EPW data dictionary), NREL/TP-581-43156 (TMY3).
#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "engine/property.h"
#include "text/error.h"
#include "text/value.h"
#include "weather/calendar.h"
#include "weather/designconditions.h"
#include "weather/oddities.h"

namespace moistair {

/// [bytes]; some five million rows of a trend log.
inline constexpr std::size_t largestWeatherFile = 256u << 20;

enum class WeatherFormat { epw, tmy3, table, designDays };

/// Two properties that hold from a time on.
struct WeatherRow {
  LocalTime time;  ///< at which it begins to hold
  std::array<PropertyKind, 2> kinds{};
  std::array<double, 2> values{};  ///< [deg F, percent, lb/lb, ...]
  double atm = noValue;            ///< pressure of the row [in Hg]
  double hours = 1;                ///< for which it counts
};

struct WeatherSite {
  std::string name;
  std::string source;          ///< of the hours, such as "TMY3"
  double elevation = noValue;  ///< [ft]
};

struct WeatherFile {
  WeatherFormat format = WeatherFormat::table;
  WeatherSite site;
  std::vector<WeatherRow> rows;  ///< none of a file of design days
  std::vector<DesignCondition> design;
  std::string checksum;  ///< of the content, sixteen hexadecimal digits
  Oddities oddities;
};

/// Units of temperatures in heads that name none.
enum class TableUnits { byHeads, fahrenheit, celsius };

/// Which column of a table is what, by their heads; what is not named is found by itself.
struct TableColumns {
  /// "time" or a property's key, and the head of its column.
  struct Named {
    std::string key, head;

    bool operator==(const Named&) const = default;
  };
  std::vector<Named> named;
  TableUnits units = TableUnits::byHeads;

  bool operator==(const TableColumns&) const = default;
};

/// Reads "time=Timestamp,db=OAT,rh=Outdoor RH".
Result<std::vector<TableColumns::Named>> readColumns(std::string_view list);

/// The rows and design conditions of a file's content; an error if it has neither.
Result<WeatherFile> readWeather(std::string_view text, const TableColumns& columns = {});

/// The same of a regular file.
Result<WeatherFile> loadWeather(const std::filesystem::path& path, const TableColumns& columns = {});

/// The line of a table that looks most like heads, for what is remembered of files with the same.
std::string_view headsOf(std::string_view text);

/// Tells contents apart: FNV-1a of 64 bits (Fowler, Noll, Vo).
std::string checksumOf(std::string_view content);

/// The error of a content that is too large.
Error weatherTooLarge();

}  // namespace moistair
