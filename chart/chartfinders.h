/// \file
/// Range finders that keep to the chart: the dry bulbs at which a line crosses the plot.
///
/// The main window's nested pairs search only where the user can see the answer. Limits are those in the lists,
/// positions those of the chart last drawn: before the first chart no position has a value and nothing is found. The
/// three treat the ends of the range differently, and the last digits of a result rest on it. Limits may be any numbers
/// a person can type; every walk ends.
#pragma once

#include "chart/chartframe.h"
#include "engine/state.h"

namespace moistair {

/// Relative humidity [percent]: up from 1 deg F; from one degree below the first dry bulb on the plot to the last.
std::optional<DryBulbRange> dbRangeOfRh(double rh, double atm, const PlotArea& area);
/// Enthalpy [Btu/lb]: down from highDb; from one degree below the last to two above the first.
std::optional<DryBulbRange> dbRangeOfH(double h, double atm, const PlotArea& area);
/// Specific volume [cu ft/lb, above 0 and up to 78]: down from highDb; from the last to one degree above the first.
std::optional<DryBulbRange> dbRangeOfSpvol(double v, double atm, const PlotArea& area);

/// All three. `area` is asked for the plot whenever one of them runs.
RangeFinders chartRangeFinders(std::function<PlotArea()> area);

}  // namespace moistair
