/// \file
/// A state that a search has found, held against the exact ones: which given values it visibly misses, and which exact
/// state can take its place.
///
/// One rule for all who ask, for windows, tables, sheets and the headless tool: a state is marked where a value is
/// missed by what can be seen. Nothing here changes the digits that the searches find.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "engine/exactsolutions.h"
#include "engine/resolver.h"

namespace moistair {

using PairOfGiven = std::array<Given, 2>;

/// A value that a state visibly misses.
struct Miss {
  PropertyKind kind;
  double wanted;  ///< what it should be
  double found;   ///< what it is; no value where the state's dry and wet bulb make none

  bool operator==(const Miss&) const = default;
};

/// The given values that a found state visibly misses, in the order given; mostly none.
std::vector<Miss> missedBy(const PairOfGiven& pair, const StatePoint& found, double atm);

/// What a state visibly misses, and what there is in its place.
struct Missed {
  std::vector<Miss> values;
  ExactSolutions exact;  ///< the nearest to the found state first; looked for only where a value is missed

  bool any() const { return !values.empty(); }
};

Missed judged(const PairOfGiven& pair, const StatePoint& found, double atm);

/// Sorts states by how near they are to another one: by dry bulb, then by wet bulb.
void sortNearestFirst(std::vector<StatePoint>& states, const StatePoint& found);

/// The exact state in place of what a search found.
struct ExactChoice {
  std::optional<StatePoint> state;  ///< the only one, or the nearest; none of several where the search found nothing
  ExactSolutions all;               ///< the nearest first if the search found a state
};

/// A state as if a search had found it.
Resolution resolutionOf(const StatePoint& state);

ExactChoice exactChoice(const PairOfGiven& pair, double atm, const Resolution& resolution);

}  // namespace moistair
