/// \file
/// A system run with the outdoor air of every hour of a weather file: rows for the system, and what its loads of a year
/// come to.
#pragma once

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "chart/drawing.h"
#include "cli/format.h"
#include "cli/weatheroptions.h"

namespace moistair {

struct HoursOptions {
  std::string file;
  std::string stream = "OA";  ///< that the hours are the air of
  bool ownPressure = false;
  std::string plot;  ///< file of the load-duration curves, empty for none
  WeatherOptions weather;
};

/// The hours as a table: "time,hours,OA.db,OA.w", and "inhg" where each has its own pressure. What is odd is reported.
std::string tableOfHours(const HoursOptions& options, double atm);

/// Loads of the processes of a system, gathered from the rows that `processRows` makes.
class HourLoads {
public:
  /// @param header the first line of the result
  explicit HourLoads(std::string_view header);

  /// Adds finished rows; may be called from several threads at once.
  void add(std::string_view rows);

  /// Puts the rows in order, so that sums do not hang on the threads. Before any of what follows.
  void finish();

  std::string text(Format format) const;
  Drawing plot() const;                                    ///< load-duration curves [tons, MBH]
  static constexpr int plotWidth = 900, plotHeight = 600;  ///< [pixels]

private:
  struct Row {
    std::string time;
    double hours;
    std::vector<double> values;  ///< total and water of each process in turn
  };
  struct Duration {
    std::string name;
    bool cooling;
    double peak = 0;  ///< [Btu/h]
    std::string when;
    double sum = 0;                                ///< [Btu]
    double water = 0;                              ///< [lb], into the air if above 0
    std::vector<std::pair<double, double>> loads;  ///< Btu/h and hours, the largest first
  };

  std::vector<Duration> durations() const;

  std::vector<std::string> names_;
  std::vector<std::size_t> columns_;
  std::size_t status_ = 0;  ///< its column
  std::vector<Row> rows_;
  std::size_t failed_ = 0;  ///< rows without a solution
  std::mutex mutex_;
};

}  // namespace moistair
