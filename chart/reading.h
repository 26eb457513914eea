/// \file
/// Reading the chart: what the air is at a place that somebody points at.
///
/// A chart is read at the pressure and between the limits that it was drawn with, whatever is in force or in the lists
/// by now. A place is read to the hundredth of a degree and to 0.00001 lb/lb, finer than an eye, and its state is
/// resolved from these two numbers as a typed pair is, with solver fields of its own: pointing changes nothing that a
/// later search could notice. What shows the reading only has to know where the plot lies (`PlotBox`).
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "chart/chartframe.h"
#include "engine/state.h"

namespace moistair {

/// A place of a chart by its axes: dry bulb [deg F] and humidity ratio [lb/lb].
struct Place {
  double db = 0, w = 0;

  bool operator==(const Place&) const = default;
};

/// Where the plot of a chart lies on whatever shows it [logical pixels].
struct PlotBox {
  ChartLimits limits;
  double left = 0, top = 0, right = 0, bottom = 0;

  bool empty() const { return !(right > left && bottom > top && limits.highdb > limits.lowdb); }
  double x(double db) const;
  double y(double w) const;
  Place placeat(double x, double y) const;  ///< as it is, not rounded
};

PlotBox plotbox(const PlotArea& area);

inline constexpr const char* abovesaturation = "Above saturation";
inline constexpr const char* outsidelimits = "Outside the limits";
inline constexpr const char* nostatehere = "No state of air";

/// What a place says: the state, or the reason why there is none, in the words for the user.
struct Reading {
  Place place;
  std::optional<StatePoint> state;
  const char* reason = nullptr;
};

/// @param atm pressure [in Hg] that the state is worked out at
Reading readingat(const ChartLimits& limits, double atm, Place place);

/// The place as it is read: to 0.01 deg F and 0.00001 lb/lb.
Place readplace(Place place);

/// The saturated air of a dry bulb, as near below saturation as a humidity ratio of seven decimals can be and still be
/// resolved; none where water boils and beyond what a state may be.
std::optional<Place> saturatedat(double db, double atm);

/// Somebody points at a place.
struct Pointing {
  Place place;                        ///< rounded, or what it was drawn to
  std::optional<std::size_t> target;  ///< the target that it was drawn to
};

/// What a pointer at (x, y) points at: with `whole` the next whole degree and 0.0005, else a target within a few
/// pixels, else saturation within a few pixels, else the place itself.
/// @param targets places that draw the pointer, such as marked points
Pointing pointedat(const PlotBox& box, double atm, double x, double y, const std::vector<Place>& targets, bool whole);

/// The target that is nearest to (x, y), within a few pixels.
std::optional<std::size_t> nearesttarget(const PlotBox& box, double x, double y, const std::vector<Place>& targets);

/// The target that a place is on, as near as a place can be read.
std::optional<std::size_t> targetAt(const Place& place, const std::vector<Place>& targets);

/// Where a step by keys that leads to a place ends: at the nearest target within half a step, which the steps would
/// else pass by, or at the place itself.
Place caughtBy(const std::vector<Place>& targets, const Place& place, bool tenths);

/// A step of the cross hair by keys: so many degrees or 0.0005s, or tenths of these; never beyond the limits.
Place stepped(const ChartLimits& limits, Place place, int degrees, int ratios, bool tenths);

/// The line of constant wet bulb of a state, from saturation to the right, and that of constant relative humidity, from
/// the left, between the limits and one step beyond: a few dozen places, for the eye.
std::vector<Place> wetbulbcurve(const ChartLimits& limits, double atm, const StatePoint& state);
std::vector<Place> humiditycurve(const ChartLimits& limits, double atm, const StatePoint& state);

/// One property as it is shown where somebody points.
struct ReadingRow {
  const char* caption;  ///< as in the live row
  const char* symbol;   ///< shorter, on a label
  const char* unit;
  int decimals;
  double StatePoint::*value;
};

inline constexpr std::array<ReadingRow, 8> readingrows = {{
    {"DB", "DB", "Deg F", 2, &StatePoint::db},
    {"WB", "WB", "Deg F", 2, &StatePoint::wb},
    {"RH", "RH", "%", 2, &StatePoint::rh},
    {"Enthalpy", "h", "Btu/lb", 2, &StatePoint::h},
    {"Sp vol", "v", "cuf/lb", 3, &StatePoint::v},
    {"H.ratio", "W", "lb/lb", 5, &StatePoint::w},
    {"DP", "DP", "Deg F", 2, &StatePoint::dp},
    {"V. pr", "pv", "In Hg", 4, &StatePoint::pv},
}};

/// The row of a property, which has to be one of them.
const ReadingRow& rowof(double StatePoint::*value);

/// The value of a row. Dry bulb and humidity ratio, which a place is given by, with as many decimals as they have.
std::string readingtext(const ReadingRow& row, const StatePoint& state);

/// The texts of a place for the two boxes: what the reading shows.
std::string drybulbtext(const Place& place);
std::string ratiotext(const Place& place);

/// A reading in one line, for who cannot see it: "DB 75.00 Deg F, WB 62.50 Deg F, ...", or the place and the reason.
std::string spokenreading(const Reading& reading);

}  // namespace moistair
