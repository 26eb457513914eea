#include "model/weatherlayer.h"

#include <utility>

#include "engine/pressureunits.h"

namespace moistair {

bool WeatherLayer::operator==(const WeatherLayer& other) const {
  return file == other.file && checksum == other.checksum && show == other.show && filter == other.filter &&
         counts == other.counts && columns == other.columns && designPoints == other.designPoints && atm == other.atm &&
         hours == other.hours && size.db == other.size.db && size.w == other.size.w &&
         cells.size() == other.cells.size();
}

WeatherLayer layerOf(const WeatherFile& file, const WeatherLayer& wanted) {
  constexpr VisibleRange all{-1000, 1000, -1, 1};
  WeatherLayer layer = wanted;
  Oddities ignored;  // the caller has reported those of the file
  const auto hours = hoursOf(file, {.atm = layer.atm, .filter = layer.filter}, ignored);
  layer.checksum = file.checksum;
  layer.site = file.site.name;
  layer.design = file.design;
  layer.hours = totalHours(hours);
  layer.cells = cellsOf(hours, all, layer.size);
  layer.bins = binsOf(hours, 5);
  std::vector<WeatherDot> dots;
  dots.reserve(hours.size());
  for (const WeatherHour& hour : hours) {
    dots.push_back(
        {static_cast<float>(hour.state.db), static_cast<float>(hour.state.w), hour.time.month, hour.time.hour});
  }
  layer.dots = std::make_shared<const std::vector<WeatherDot>>(std::move(dots));
  return layer;
}

double unseenHours(const WeatherLayer& layer, const VisibleRange& range) {
  double hours = 0;
  for (const WeatherCell& cell : layer.cells) {
    const double db = cell.column * layer.size.db, w = cell.row * layer.size.w;
    const bool seen =
        db + layer.size.db > range.lowDb && db < range.highDb && w + layer.size.w > range.lowW && w < range.highW;
    hours += seen ? 0 : cell.hours;
  }
  return hours;
}

std::string otherPressure(const WeatherLayer& layer, double atm) {
  if (samePressure(layer.atm, atm)) return {};
  return "its hours are at " + inhgWords(layer.atm) + ", not at the chart's " + inhgWords(atm);
}

Outcome readDots(WeatherLayer& layer) {
  const auto file = loadWeather(layer.file, layer.columns);
  if (!file) return file.error();
  if (file->checksum != layer.checksum) {
    return Error{ErrorCode::notOpened, layer.file, "the file has changed since its hours were counted"};
  }
  layer.dots = layerOf(*file, layer).dots;
  return {};
}

}  // namespace moistair
