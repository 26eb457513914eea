// What the chart tests share.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "chart/chartframe.h"
#include "chart/drawing.h"
#include "engine/value.h"

namespace moistair::charttest {

inline constexpr ChartLimits fulllimits{0, 120, 0, 0.03};
inline constexpr WindowSize layoutwindow{12000, 6000};
inline constexpr double sealevel = 29.92126;
using Words = std::vector<std::string>;

inline PlotArea areaof(const ChartLimits& limits) { return {limits, plotframe(limits), layoutwindow}; }

/// What a drawing step records.
inline Drawing recorded(const std::function<void(const Chart&)>& draw, const ChartLimits& limits = fulllimits,
                        double atm = sealevel) {
  RecordingCanvas canvas;
  draw({canvas, areaof(limits), atm});
  return canvas.drawing();
}

inline std::vector<LineOperation> linesof(const Drawing& drawing, std::optional<Color> color) {
  std::vector<LineOperation> lines;
  for (const Operation& operation : drawing.operations) {
    const auto* line = std::get_if<LineOperation>(&operation);
    if (line != nullptr && line->color == color) lines.push_back(*line);
  }
  return lines;
}

inline Words wordsof(const Drawing& drawing) {
  Words words;
  for (const Operation& operation : drawing.operations) {
    if (const auto* text = std::get_if<TextOperation>(&operation)) words.push_back(text->text);
  }
  return words;
}

/// The dry bulb and humidity ratio at a position, the inverse of plotx and ploty.
inline double dbat(float x, const ChartLimits& limits = fulllimits) {
  return (static_cast<double>(x) - 1000) * (limits.highdb - limits.lowdb) / 10000 + limits.lowdb;
}
inline double wat(float y, const ChartLimits& limits = fulllimits) {
  return (4700 - static_cast<double>(y)) * (limits.highhr - limits.lowhr) / 4500 + limits.lowhr;
}

}  // namespace moistair::charttest
