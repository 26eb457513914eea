/// \file
/// Pairs without a temperature: a search for the dry bulb in which every candidate is completed to a state.
///
/// No single inverse exists for such a pair. The outer search halves the range of dry bulbs that a `RangeFinder` gives;
/// at each candidate an inner solver finds the wet bulb from one of the given properties and returns the other one for
/// comparison. Each row of the pair table has a fixed sense, so there is no slope probe here. Values go from step to
/// step through `SolverFields` and are rounded there, which decides the last digits of the result.
#pragma once

#include "engine/state.h"

namespace moistair {

/// How an inner solver completes a dry bulb and the given property to a state.
enum class Completion {
  rhSearch,  ///< searches the wet bulb that gives the relative humidity
  hWalk,     ///< walks to the wet bulb of the enthalpy, in steps of 0.1
  vSearch,   ///< searches the wet bulb that gives the specific volume
};

/// One nested row of the pair table, as data.
struct NestedSearch {
  RangeFinder RangeFinders::*finder;
  PropertyKind given;  ///< the property that the range finder and the inner solver use
  Completion completion;
  double (*returned)(double db, double wb, double atm);  ///< the property that the inner solver returns
  PropertyKind target;
  double tolerance;
  bool rises;                   ///< whether the returned property rises with the dry bulb
  bool acceptedWithin = false;  ///< judged by its last value lying within 0.5 of the target, not by the iterations
  bool wetBulbOfH = false;      ///< wet bulb walked again from the enthalpy; if not, that of the last inner solver
};

struct NestedResult {
  int iterations = 0;
  bool failed = false;
  bool rangeFound = false;  ///< whether the finder saw the line; if not, the search ran on the range of an earlier one
};

/// Finds db and wb of a state whose two properties are in `point`. Without a range finder, and on a range of 0 to 0,
/// the search sits at a dry bulb of 0 for its 100 iterations and fails.
NestedResult nestedSearch(const NestedSearch& search, StatePoint& point, double atm, const RangeFinders& finders,
                          SolverFields& fields);

}  // namespace moistair
