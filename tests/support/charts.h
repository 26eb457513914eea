/// \file
/// Charts as the tests draw them, and what of a drawing they look at.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "chart/chartframe.h"
#include "chart/drawing.h"

namespace moistair::test {

inline constexpr ChartLimits fullLimits{0, 120, 0, 0.03};
inline constexpr WindowSize layoutWindow{12000, 6000};
inline constexpr double seaLevel = 29.92126;

inline PlotArea areaOf(const ChartLimits& limits) { return plotArea(limits, layoutWindow); }

/// What a drawing step records.
inline std::vector<Operation> recorded(const std::function<void(const Chart&)>& draw,
                                       const ChartLimits& limits = fullLimits, double atm = seaLevel) {
  RecordingCanvas canvas;
  draw({canvas, areaOf(limits), atm});
  return canvas.drawing().operations;
}

/// The texts of a drawing in their order, a bar behind each.
inline std::string textsOf(const std::vector<Operation>& operations) {
  std::string texts;
  for (const Operation& operation : operations) {
    if (const auto* text = std::get_if<TextOperation>(&operation)) texts += text->text + "|";
  }
  return texts;
}

}  // namespace moistair::test
