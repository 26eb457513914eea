/// \file
/// Reading the chart: what the air is at a place that somebody points at.
///
/// A chart is read at the pressure and between the limits that it was drawn with, whatever pressure is current and
/// whatever the lists hold by now. A place is read to the hundredth of a degree and to 0.00001 lb/lb, finer than an
/// eye, and its state is resolved from these two numbers as a typed pair is, with solver fields of its own: pointing
/// changes nothing that a later search could notice. What shows the reading only has to know where the plot lies
/// (`PlotBox`).
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "chart/chartframe.h"
#include "engine/state.h"

namespace moistair {

/// A place of a chart by its axes: dry bulb [deg F] and humidity ratio [lb/lb].
struct ChartCoordinates {
  double db = 0, w = 0;

  bool operator==(const ChartCoordinates&) const = default;
};

/// Where the plot of a chart lies on whatever shows it [logical pixels].
struct PlotBox {
  ChartLimits limits;
  double left = 0, top = 0, right = 0, bottom = 0;

  bool empty() const { return !(right > left && bottom > top && limits.highDb > limits.lowDb); }
  double x(double db) const;
  double y(double w) const;
  ChartCoordinates placeAt(double x, double y) const;  ///< as it is, not rounded
};

PlotBox plotBox(const PlotArea& area);

/// Why there is no state at a place.
enum class NoReading {
  none,  ///< there is one
  outsideLimits,
  aboveSaturation,
  noAir,  ///< as where there is no moisture at all
};

/// What a place says: the state, or the reason why there is none.
struct Reading {
  ChartCoordinates place;
  std::optional<StatePoint> state;
  NoReading reason = NoReading::none;
};

/// A reason in the words for the user; empty for none.
const char* wordsOf(NoReading reason);

/// @param atm pressure [in Hg] that the state is worked out at
Reading readingAt(const ChartLimits& limits, double atm, ChartCoordinates place);

/// The place as it is read: to 0.01 deg F and 0.00001 lb/lb.
ChartCoordinates readPlace(ChartCoordinates place);

/// The saturated air of a dry bulb, as near below saturation as a humidity ratio of seven decimals can be and still be
/// resolved; none where water boils and beyond what a state may be.
std::optional<ChartCoordinates> saturatedAt(double db, double atm);

/// Somebody points at a place.
struct Pointing {
  ChartCoordinates place;             ///< rounded, or what it was drawn to
  std::optional<std::size_t> target;  ///< the target that it was drawn to
};

/// What a pointer at (x, y) points at: with `whole` the next whole degree and 0.0005, else a target within a few
/// pixels, else saturation within a few pixels, else the place itself.
/// @param targets places that draw the pointer, such as marked points
Pointing pointedAt(const PlotBox& box, double atm, double x, double y, const std::vector<ChartCoordinates>& targets,
                   bool whole);

/// The target that is nearest to (x, y), within a few pixels.
std::optional<std::size_t> nearestTarget(const PlotBox& box, double x, double y,
                                         const std::vector<ChartCoordinates>& targets);

/// The target that a place is on, as near as a place can be read.
std::optional<std::size_t> targetAt(const ChartCoordinates& place, const std::vector<ChartCoordinates>& targets);

/// Where a step by keys that leads to a place ends: at the nearest target within half a step, which the steps would
/// else pass by, or at the place itself.
ChartCoordinates caughtBy(const std::vector<ChartCoordinates>& targets, const ChartCoordinates& place, bool tenths);

/// A step of the cross hair by keys: so many degrees or 0.0005s, or tenths of these; never beyond the limits.
ChartCoordinates stepped(const ChartLimits& limits, ChartCoordinates place, int degrees, int ratios, bool tenths);

/// The line of constant wet bulb of a state, from saturation to the right, and that of constant relative humidity, from
/// the left, between the limits and one step beyond: a few dozen places, for the eye.
std::vector<ChartCoordinates> wetBulbCurve(const ChartLimits& limits, double atm, const StatePoint& state);
std::vector<ChartCoordinates> humidityCurve(const ChartLimits& limits, double atm, const StatePoint& state);

/// A property as it is shown where somebody points. Dry bulb and humidity ratio, which a place is given by, have as
/// many decimals as they need.
std::string readingText(PropertyKind kind, const StatePoint& state);

/// The texts of a place for the two boxes: what the reading shows.
std::string dryBulbText(const ChartCoordinates& place);
std::string ratioText(const ChartCoordinates& place);

/// A reading in one line, for who cannot see it: "DB 75.00 Deg F, WB 62.50 Deg F, ...", or the place and the reason.
std::string readingDescription(const Reading& reading);

}  // namespace moistair
