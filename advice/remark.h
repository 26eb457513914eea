/// \file
/// The remark on the state that a search found: how far it is off, what else there is, why there is nothing.
///
/// The row, the report and the log show the state that the search has found, with the two values as they were given.
/// Where that state has a visibly different value, where another state has both, or where there is none, the windows
/// and the headless tool say so in the words of this file. It judges `resolvePair` by `exactSolutions` and changes
/// neither.
#pragma once

#include <optional>
#include <string>

#include "advice/refusalwords.h"
#include "engine/exact.h"
#include "model/locate.h"

namespace moistair {

/// A dry bulb and a wet bulb to put into the two boxes [deg F], rounded to as many decimals as are shown and such that
/// the pair resolves.
struct Bulbs {
  double db, wb;
};

struct Remark {
  std::string words;           ///< one line without a full stop; empty if there is nothing to say
  std::optional<Bulbs> exact;  ///< of the answer that the words name first
};

/// What a state visibly misses and the exact states in its place; nothing if it misses nothing.
/// @param mixture whether it is the mixed stream, whose values nobody has given
Remark remarkOn(const Missed& missed, double atm, bool mixture = false);

/// That the nearest of several exact states was chosen, and what the others are; empty if there is no other.
std::string severalExact(const ExactChoice& choice);

/// Why an `ExactChoice` has no state: why no state has both values, or which ones have.
std::string noExact(const ExactChoice& choice);

/// "dry bulb 40.00, wet bulb 31.64, or dry bulb 40.00, wet bulb 32.10"
std::string stateWords(const std::vector<StatePoint>& states);

/// What there is to say of a pair:
/// - of a state that visibly misses a given value: what it has for it, and the exact answers, the nearest first
/// - of a state that does not, but is not the only one: the others
/// - of no state: what each value has to be that is beyond its limits, else that the search found none, and the exact
///   answers; or the reason
/// Nothing of a pair that the input rules refuse.
/// @param hasCurrentChart whether there is a chart for a search that keeps to one
Remark remarkOn(Given first, Given second, double atm, const Resolution& resolution, bool hasCurrentChart = true);

/// The same for what the lists and boxes of a window hold. A text that is no number gets no remark.
Remark remarkOn(const PairInput& input, double atm, const Resolution& resolution, bool hasCurrentChart = true);

}  // namespace moistair
