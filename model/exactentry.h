/// \file
/// Points, mixtures and read-outs held against the exact states: what they miss, and the exact ones in their place.
#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "engine/exact.h"
#include "model/document.h"

namespace moistair {

/// The given values of a point as they are read: a text that is no number counts as 0.
PairOfGiven givenOf(const MarkedPoint& point);

/// What a read-out was resolved from: its dry bulb and its humidity ratio.
PairOfGiven givenOf(const PinnedReading& pinned);

/// An entry with the exact states in place of those that a search found: a point, a read-out, or a mixture with its
/// streams. Of several it has the ones nearest to those that it shows. None if it is none of these or has none; a
/// stream without one stays as it is.
std::optional<Entry> exactEntry(const Entry& entry);

/// Those of some entries that miss something and have an exact entry within their limits, with their places.
/// @param places in any order; all entries if empty. One beyond the entries is of the previous chart and stays as it
/// is.
std::vector<std::pair<std::size_t, Entry>> exactEntries(const Document& document, std::vector<std::size_t> places);

/// A state as a report shows it, in seven decimals.
StatePoint asReported(const StatePoint& state);

}  // namespace moistair
