/// \file
/// What each pair of properties can do, measured: states on a grid, each looked for by the search from two of its
/// properties, and what was found held against them.
#pragma once

#include <array>
#include <vector>

#include "engine/state.h"

namespace moistair::validation {

/// How a search did with one state.
enum class Outcome { right, visiblyOff, notFound };

struct Trial {
  StatePoint state;
  Outcome outcome;
};

/// What one given value was missed by at most, of the states that were found.
struct Residual {
  double residual = 0;
  StatePoint where{};
};

struct PairMeasure {
  std::array<PropertyKind, 2> kinds;
  std::vector<Trial> trials;
  std::array<Residual, 2> largest;
  int ambiguous = 0;  ///< states with which another one shares both values

  double share(Outcome outcome) const;  ///< [percent]
};

/// The states of the grid at the pressure atm [in Hg]: dry bulbs off the whole degrees, relative humidities from dry to
/// nearly saturated, all that lie within the bounds of a state.
std::vector<StatePoint> gridStates(double atm);

/// All twenty pairs on these states, searched as in the mixing window and by the headless tool. Throws if a state is
/// not among the answers of a pair.
std::vector<PairMeasure> measurePairs(const std::vector<StatePoint>& states, double atm);

}  // namespace moistair::validation
