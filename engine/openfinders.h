/// \file
/// Range finders that know no chart.
#pragma once

#include "engine/state.h"

namespace moistair {

/// The finders of the mixing window and of the headless tool: they look at all air between 0 and 120 deg F with
/// humidity ratios up to 0.03, whatever chart is drawn, and never report anything.
/// - relative humidity: up from 1; the range runs from one degree below the first dry bulb that counts to the last
/// - enthalpy: down from 119; from one degree below the last that counts to two above the first
/// - specific volume, 0 < v <= 78: down from 119; from the last that counts to one above the first
const RangeFinders& openRangeFinders(SearchMode mode = SearchMode::accelerated);

}  // namespace moistair
