/// \file
/// A year of weather, or a log, as a layer on the chart.
///
/// The document holds where the hours came from, a checksum of that file, and the hours gathered in cells and bins: so
/// the density is drawn without the file. Dots, other filters and other cells take the file, which may be gone or
/// another one by then; `loadLayer` says so. Only files of some hundred cells result, whatever the log's length.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "text/error.h"
#include "weather/bins.h"

namespace moistair {

/// A state of an hour on the chart.
struct WeatherDot {
  float db, w;
  std::int8_t month, hour;
};

enum class WeatherShow { density, byMonth, byHour };

struct WeatherLayer {
  std::string file;      ///< as chosen; bytes
  std::string checksum;  ///< of its content
  std::string site;      ///< as the file names it
  WeatherShow show = WeatherShow::density;
  HourFilter filter;
  bool counts = false;           ///< numbers in the cells
  bool designPoints = false;     ///< the yearly design conditions as points
  double atm = defaultPressure;  ///< of the states [in Hg]
  double hours = 0;              ///< that the filter accepts
  CellSize size;
  std::vector<WeatherCell> cells;
  std::vector<Bin> bins;  ///< of 5 deg F
  std::vector<DesignCondition> design;

  TableColumns columns;  ///< that its table was read by
  std::shared_ptr<const std::vector<WeatherDot>>
      dots{};  ///< of all its hours; in memory only, null until they are read

  bool operator==(const WeatherLayer& other) const;
};

/// The layer of a file's hours. Its cells are all that there are, on the chart or not, so other limits need no file.
/// @param wanted whose file, show, filter, counts, design points, atm and size are taken
WeatherLayer layerOf(const WeatherFile& file, const WeatherLayer& wanted);

/// Hours in cells of which nothing is within the range.
double unseenHours(const WeatherLayer& layer, const VisibleRange& range);

/// Why a layer is not drawn on a chart of a pressure [in Hg]; empty where it is.
std::string otherPressure(const WeatherLayer& layer, double atm);

/// Reads the layer's file again for its dots. An error if it is gone, cannot be read, or has another content.
Outcome readDots(WeatherLayer& layer);

}  // namespace moistair
