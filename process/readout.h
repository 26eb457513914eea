/// \file
/// A stream as it is shown: all properties, its flow in every unit, and what is to be said about them.
#pragma once

#include <cstdint>

#include "process/step.h"

namespace moistair {

/// Why the wet bulb of a read-out is not simply the wet bulb.
enum class WetBulbRemark : std::uint8_t {
  none,
  twoExist,  ///< near 32 deg F there is one over ice as well; the one over water is shown
  noneExists,
};

/// The read-out of a stream. No value where there is none: the dew point of dry air, flows that are not known.
struct StreamReadout {
  double db, wb, rh, w, h, dp, v;
  double grains;           ///< of water per lb of dry air, 7000 to the lb
  double lbh, acfm, scfm;  ///< flow of dry air, and its volume here and as standard air
  WetBulbRemark wetBulb = WetBulbRemark::none;
  double wetBulbOverIce = noValue;  ///< where there are two
};

StreamReadout readoutOf(const Stream& stream, const Site& site);

/// What a step comes to for one of its parameters: a property or flow of the leaving stream, or a result with the sign
/// and unit of the parameter (of coolers positive as heat removed). No value for a parameter that is no outcome.
double outcomeOf(Parameter parameter, StepKind kind, const StepResult& result, const Site& site);

}  // namespace moistair
