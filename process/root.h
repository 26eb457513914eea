/// \file
/// Roots of a few nonlinear functions of as many variables.
///
/// The functions need not have values everywhere: where an evaluation says that there are none, steps become shorter.
/// This is the only place that knows the library of the solver.
#pragma once

#include <functional>
#include <span>
#include <vector>

namespace moistair {

/// Writes the residuals at a point; false where they have no value.
using Residuals = std::function<bool(std::span<const double> point, std::span<double> residuals)>;

struct RootSearch {
  std::vector<double> point;  ///< the best that was seen; empty if no evaluation had a value
  double norm = 0;            ///< of its residuals, Euclidean
};

/// Searches from `start`, in at most some hundred evaluations, by Powell's hybrid method; where that ends above `goal`,
/// by the least squares of Levenberg and Marquardt, which ends as near as it can come.
/// @param goal norm of the residuals that is near enough for a root
/// @param thorough without it the search gives up where the hybrid method does not come near a root
RootSearch findRoot(const Residuals& residuals, std::vector<double> start, double goal, bool thorough = true);

}  // namespace moistair
