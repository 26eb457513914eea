#include "sheet/weather.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "sheet/parts.h"
#include "text/numberformat.h"
#include "weather/calendar.h"

namespace moistair {

namespace {

constexpr double legendHeight = 2.6;  // em

Color between(Color from, Color to, double share) {
  const auto part = [&](std::uint8_t one, std::uint8_t other) {
    return static_cast<std::uint8_t>(std::lround(one + (other - one) * share));
  };
  return {part(from.red, to.red), part(from.green, to.green), part(from.blue, to.blue)};
}

/// Steps of hours for which cells have one color, up to the fullest cell: 1, 2, 5, 10, 20, ...
std::vector<double> stepsOf(const std::vector<WeatherCell>& cells) {
  constexpr std::size_t most = 7;
  double fullest = 0;
  for (const WeatherCell& cell : cells) fullest = std::max(fullest, cell.hours);
  std::vector<double> steps;
  for (double decade = 1; decade < 1e9 && (steps.empty() || steps.back() < fullest); decade *= 10) {
    for (const double step : {1.0, 2.0, 5.0}) {
      if (steps.empty() || steps.back() < fullest) steps.push_back(step * decade);
    }
  }
  if (steps.size() > most) steps.erase(steps.begin(), steps.end() - most);
  return steps;
}

std::size_t stepOf(const std::vector<double>& steps, double hours) {
  const auto found = std::lower_bound(steps.begin(), steps.end(), hours);
  return static_cast<std::size_t>(std::min(found, steps.end() - 1) - steps.begin());
}

/// From a little more than paper to full, so that the fewest hours can be seen.
Color colorOf(const Theme& theme, std::size_t step, std::size_t count) {
  const double share = count < 2 ? 1 : 0.18 + 0.72 * static_cast<double>(step) / static_cast<double>(count - 1);
  return between(theme.paper, theme.weather, share);
}

/// Twelve colors around the circle, of one lightness; in gray themes shades.
Color colorOfTwelfth(const Theme& theme, int twelfth) {
  if (theme.isGray) return between(theme.paper, theme.ink, 0.25 + 0.06 * twelfth);
  const double angle = (twelfth - 7) / 12.0 * 2 * 3.14159265358979;  // July is warm
  const auto channel = [&](double turn) {
    return static_cast<std::uint8_t>(std::lround(128 + 95 * std::cos(angle - turn)));
  };
  return {channel(0), channel(2.0944), channel(4.1888)};
}

/// A cell as far as it lies within the plot and not above saturation; empty if none of it does.
std::vector<SheetPoint> outlineOf(const SheetPlot& plot, const WeatherCell& cell, const CellSize& size) {
  const double low = std::max(cell.row * size.w, plot.limits.lowHr);
  const double high = std::min((cell.row + 1) * size.w, plot.limits.highHr);
  const double right = std::min((cell.column + 1) * size.db, plot.limits.highDb);
  const double left = std::max({cell.column * size.db, plot.limits.lowDb, saturationDb(plot, low)});
  if (!(left < right) || !(low < high)) return {};
  std::vector<SheetPoint> outline = {plot.at(left, low), plot.at(right, low)};
  constexpr int samples = 8;
  for (int i = samples; i >= 0; --i) {
    const double db = left + (right - left) * i / samples;
    outline.push_back(plot.at(db, std::clamp(topRatio(plot, db), low, high)));
  }
  return outline;
}

void addCells(std::vector<AreaOperation>& areas, const SheetPlot& plot, const Theme& theme, const WeatherLayer& layer) {
  const auto steps = stepsOf(layer.cells);
  for (const WeatherCell& cell : layer.cells) {
    auto outline = outlineOf(plot, cell, layer.size);
    if (!outline.empty())
      areas.push_back({std::move(outline), colorOf(theme, stepOf(steps, cell.hours), steps.size())});
  }
}

/// Hours in the cells, where there is room for the widest.
bool drawCounts(SheetWork& work, const WeatherLayer& layer) {
  const TextStyle style = work.theme.small(0.55 * work.em());
  const double width = work.plot.perDb() * layer.size.db, height = work.plot.perW() * layer.size.w;
  for (const WeatherCell& cell : layer.cells) {
    if (work.canvas.widthOf(atMostDecimals(cell.hours, 0), style) > width || style.size > 1.2 * height) return false;
  }
  for (const WeatherCell& cell : layer.cells) {
    if (outlineOf(work.plot, cell, layer.size).empty()) continue;
    const SheetPoint center = work.plot.at((cell.column + 0.5) * layer.size.db, (cell.row + 0.5) * layer.size.w);
    if (work.plot.holds(center)) work.canvas.text(centered(work.canvas, center, atMostDecimals(cell.hours, 0), style));
  }
  return true;
}

int twelfthOf(const WeatherLayer& layer, const WeatherDot& dot) {
  return layer.show == WeatherShow::byMonth ? dot.month - 1 : dot.hour / 2;
}

void addDots(std::vector<AreaOperation>& areas, const SheetPlot& plot, const Theme& theme, const SheetWeather& weather,
             double radius) {
  std::array<Color, 12> colors{};
  for (int i = 0; i < 12; ++i) colors[static_cast<std::size_t>(i)] = colorOfTwelfth(theme, i);
  if (!weather.layer.dots) return;
  areas.reserve(weather.layer.dots->size());
  for (const WeatherDot& dot : *weather.layer.dots) {
    if (!plot.limits.contain(dot.db, dot.w)) continue;
    const SheetPoint at = plot.at(dot.db, dot.w);
    areas.push_back({{at + SheetPoint{0, -radius}, at + SheetPoint{radius, 0}, at + SheetPoint{0, radius},
                      at + SheetPoint{-radius, 0}},
                     colors[static_cast<std::size_t>(twelfthOf(weather.layer, dot))]});
  }
}

std::string filterWords(const HourFilter& filter) {
  std::string words;
  for (int month = 0; filter.months != 0xFFF && month < 12; ++month) {
    if ((filter.months >> static_cast<unsigned>(month) & 1U) != 0)
      words += (words.empty() ? ", " : " ") + std::string(monthNames[month]);
  }
  if (filter.fromHour != 0 || filter.toHour != 24) {
    words += ", " + std::to_string(filter.fromHour) + " to " + std::to_string(filter.toHour) + " o'clock";
  }
  return words;
}

}  // namespace

SheetWeather sheetWeatherOf(const WeatherLayer& layer, double atm) {
  SheetWeather weather{layer, otherPressure(layer, atm)};
  if (!weather.missing.empty() || layer.show == WeatherShow::density || layer.dots) return weather;
  const Outcome outcome = readDots(weather.layer);
  if (!outcome) weather.missing = outcome.error().text();
  return weather;
}

std::vector<AreaOperation> weatherAreas(const SheetPlot& plot, const Theme& theme, const SheetWeather& weather,
                                        double dotRadius) {
  std::vector<AreaOperation> areas;
  if (!weather.missing.empty()) return areas;  // the legend says why
  if (weather.layer.show == WeatherShow::density) {
    if (!weather.layer.cells.empty()) addCells(areas, plot, theme, weather.layer);
  } else {
    addDots(areas, plot, theme, weather, dotRadius);
  }
  return areas;
}

std::vector<WeatherSwatch> weatherSwatches(const Theme& theme, const WeatherLayer& layer) {
  const auto steps = stepsOf(layer.cells);
  std::vector<WeatherSwatch> swatches;
  if (layer.show == WeatherShow::density) {
    for (std::size_t i = 0; i < steps.size(); ++i) {
      swatches.push_back({colorOf(theme, i, steps.size()), "to " + atMostDecimals(steps[i], 0)});
    }
    return swatches;
  }
  for (int i = 0; i < 12; ++i) {
    const bool months = layer.show == WeatherShow::byMonth;
    swatches.push_back(
        {colorOfTwelfth(theme, i), months ? monthNames[i] : std::to_string(2 * i) + "-" + std::to_string(2 * i + 2)});
  }
  return swatches;
}

std::string weatherCaption(const SheetPlot& plot, const SheetWeather& weather) {
  const WeatherLayer& layer = weather.layer;
  std::string words = layer.site.empty() ? "Weather" : layer.site;
  words += ": " + atMostDecimals(layer.hours, 0) + " h" + filterWords(layer.filter);
  if (layer.show == WeatherShow::density) {
    words += ", in cells of " + atMostDecimals(layer.size.db, 2) + " °F by " + atMostDecimals(layer.size.w, 5);
  }
  const auto& [lowDb, highDb, lowW, highW] = plot.limits;
  const double unseen = unseenHours(layer, {lowDb, highDb, lowW, highW});
  if (unseen > 0) words += "; " + atMostDecimals(unseen, 0) + " h not on the chart";
  if (!weather.missing.empty()) words += "; not drawn: " + weather.missing;
  return words;
}

namespace {

void drawLegend(SheetWork& work, const SheetWeather& weather, bool counted, double bottom) {
  const double em = work.em();
  const TextStyle style = work.theme.text(0.85 * em);
  const double left = work.plot.left, width = work.plot.right - work.plot.left;
  const std::string caption =
      weatherCaption(work.plot, weather) + (counted ? "" : "; cells too small for their counts");
  const FittedText fitted = shrunk(work.canvas, caption, style, width, 0.7 * style.size);
  work.canvas.text({left, bottom - 1.5 * em}, fitted.text, fitted.style);
  const auto swatches = weatherSwatches(work.theme, weather.layer);
  const double step = std::min(5 * em, width / static_cast<double>(std::max<std::size_t>(1, swatches.size())));
  for (std::size_t i = 0; i < swatches.size(); ++i) {
    const double x = left + step * static_cast<double>(i);
    const auto corners = boxOf({x, bottom - 0.95 * em}, {x + 0.9 * em, bottom - 0.15 * em}).corners();
    work.canvas.area({corners.begin(), corners.end()}, swatches[i].color);
    const FittedText text = shrunk(work.canvas, swatches[i].text, style, step - 1.3 * em, 0.7 * style.size);
    work.canvas.text({x + 1.15 * em, bottom - 0.25 * em}, text.text, text.style);
  }
  work.board.fix(boxOf({left, bottom - legendHeight * em}, {work.plot.right, bottom}));
}

}  // namespace

double weatherRoom(const std::optional<SheetWeather>& weather, double em) {
  return weather ? (legendHeight + 0.6) * em : 0;
}

void drawWeather(SheetWork& work, double bottom) {
  if (!work.content.weather) return;
  const SheetWeather& weather = *work.content.weather;
  work.canvas.begin(SheetPart::weather);
  for (AreaOperation& area : weatherAreas(work.plot, work.theme, weather, std::max(0.6, 0.1 * work.em()))) {
    work.canvas.area(std::move(area.outline), area.color);
  }
  const bool counts = weather.layer.counts && weather.layer.show == WeatherShow::density && weather.missing.empty();
  const bool counted = !counts || drawCounts(work, weather.layer);
  drawLegend(work, weather, counted, bottom);
}

}  // namespace moistair
