/// \file
/// Every state that truly has two given properties, or the reason why there is none.
///
/// The searches of resolver.h go fixed steps, stop at a tolerance and keep the given values as given. `exactSolutions`
/// finds what is there to be found: for each of the twenty pairs, all states within the bounds of a state that have
/// both values by the property functions. It looks between the points at which those have a step or turn, where each of
/// them rises or falls throughout, so nothing is left out: the step of the saturation pressure at 31.9996 deg F, the
/// change of the wet-bulb equation at 32, the two forms of the dew point, the turn of the enthalpy along a wet bulb.
/// A humidity ratio near freezing can have two wet bulbs, one on either side of 32, so a pair can have two answers, and
/// more at odd pressures. The dew point counts from its turn on, near a vapor pressure of 9e-7.
///
/// The windows and the headless tool hold the state of the search against it. It takes some microseconds, since it runs
/// at every keystroke.
#pragma once

#include <cmath>
#include <vector>

#include "engine/state.h"

namespace moistair {

/// Why no state has both values.
enum class NoSolution {
  none,          ///< one has
  noPair,        ///< one kind twice, or humidity ratio and dew point, which say the same thing
  pressure,      ///< there is no air at this pressure, or none whose properties a double can hold
  belowBound,    ///< a property would not be above its bound
  aboveBound,    ///< a property would be above its bound
  saturation,    ///< the air would be above saturation
  dewPointGap,   ///< the dew point lies between the two forms of its equation
  freezingStep,  ///< the values lie in the step that an equation makes at freezing
};

struct ExactSolutions {
  std::vector<StatePoint> states;  ///< by dry bulb, then wet bulb; every property follows from these two
  NoSolution reason = NoSolution::none;
  PropertyKind kind = PropertyKind::db;  ///< of a bound: the property beyond it
  double bound = 0;                      ///< and the bound
};

/// All states of a pair, given in either order, at the pressure atm [in Hg], any double. A value beyond the bounds of a
/// state has none; the limits of the pair's row in the resolver do not matter. A value that is no value has none.
ExactSolutions exactSolutions(Given first, Given second, double atm, const StateBounds& bounds = chartBounds);

/// The same for states by dry bulb and humidity ratio alone: the wet bulb of a state has no value unless it is given.
/// So air near freezing counts once even if it has two wet bulbs, or none.
ExactSolutions solutionsWithoutWetBulb(Given first, Given second, double atm, const StateBounds& bounds);

/// The state of a dry and a wet bulb [deg F] with all properties by their functions; no value for what has none.
StatePoint stateAt(double db, double wb, double atm);

/// One property of a dry and a wet bulb, as `stateAt` has it.
double propertyAt(PropertyKind kind, double db, double wb, double atm);

/// How far a found state misses a given value: that of its dry and wet bulb less the given one.
inline double residual(const Given& given, const StatePoint& found, double atm) {
  return propertyAt(given.kind, found.db, found.wb, atm) - given.value;
}

inline bool canBeSeen(PropertyKind kind, double residual) { return !(std::abs(residual) < propertyOf(kind).visible); }

}  // namespace moistair
