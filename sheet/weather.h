/// \file
/// A layer of weather on a sheet: cells colored by their hours, or a dot for each hour, with a legend.
#pragma once

#include <optional>
#include <vector>

#include "model/weatherlayer.h"
#include "sheet/sheetdrawing.h"
#include "sheet/theme.h"

namespace moistair {

struct SheetWork;

/// What of a layer goes on a sheet.
struct SheetWeather {
  WeatherLayer layer;
  std::string missing;  ///< why nothing is drawn, empty where there is no reason
};

/// A layer for a chart of a pressure [in Hg]. Dots that were not read yet are read from the file; why that fails is
/// said.
SheetWeather sheetWeatherOf(const WeatherLayer& layer, double atm);

/// What is drawn of the layer on a plot, as filled polygons: cells as far as there is air, or dots.
std::vector<AreaOperation> weatherAreas(const SheetPlot& plot, const Theme& theme, const SheetWeather& weather,
                                        double dotRadius);

/// What a color of these stands for.
struct WeatherSwatch {
  Color color;
  std::string text;
};
std::vector<WeatherSwatch> weatherSwatches(const Theme& theme, const WeatherLayer& layer);

/// "Denver: 8760 h, in cells of 2 deg F by 0.0005; 12 h not on the chart"
std::string weatherCaption(const SheetPlot& plot, const SheetWeather& weather);

/// The room that the legend takes under the chart [pixels].
double weatherRoom(const std::optional<SheetWeather>& weather, double em);

/// Draws the layer, below all lines, and its legend under the bottom scale; nothing without weather.
/// @param bottom of the legend [pixels]
void drawWeather(SheetWork& work, double bottom);

}  // namespace moistair
