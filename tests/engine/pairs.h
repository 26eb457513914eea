/// \file
/// What the tests of the pair table share: a pair resolved at a pressure by the finders that know no chart.
#pragma once

#include "engine/openfinders.h"
#include "engine/resolver.h"
#include "engine/value.h"

namespace moistair {

/// Resolves with fields of its own, as a window that was just opened does.
inline Resolution resolved(Given first, Given second, double atm, const RangeFinders& finders = openrangefinders()) {
  SolverFields fields;
  return resolvepair(first, second, atm, finders, fields);
}

inline Resolution resolved(Given first, Given second, double atm, DryBulbRange range) {
  const RangeFinder fixed = [=](double, double) { return range; };
  return resolved(first, second, atm, RangeFinders{fixed, fixed, fixed});
}

}  // namespace moistair
