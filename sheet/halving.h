/// \file
/// Finds where something ceases to hold.
#pragma once

namespace moistair {

/// The place at which a condition that holds at `yes` and not at `no` ceases to hold: a number or a point, as near as
/// so many halvings come; the last of whole numbers.
template <class Condition, class ChartCoordinates>
ChartCoordinates lastWith(const Condition& holds, ChartCoordinates yes, ChartCoordinates no, int halvings = 50) {
  for (int i = 0; i < halvings; ++i) {
    const ChartCoordinates middle = (yes + no) / 2;
    if (middle == yes) break;
    (holds(middle) ? yes : no) = middle;
  }
  return yes;
}

}  // namespace moistair
