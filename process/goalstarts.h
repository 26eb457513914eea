/// \file
/// Where the search for a system's unknowns begins, and how large each of them usually is.
///
/// The heat of the loads and the flows that are given say how large the open ones are; goals on a torn stream say what
/// air it is. Each further start spreads the unknowns differently over their usual ranges.
#pragma once

#include <vector>

#include "process/goalproblem.h"

namespace moistair {

class GoalStarts {
public:
  /// @param problem outlives this
  GoalStarts(const GoalProblem& problem, const Site& site);

  /// By variable: a step of a usual size, in its unit.
  const std::vector<double>& scales() const { return scales_; }
  double flowScale() const { return flowScale_; }  ///< [lb/h]

  /// Values of all variables for a start, from 0. Flows keep the balances.
  std::vector<double> values(int start) const;

private:
  void measure();
  double scaleOf(const Variable& variable) const;
  double startOf(const Variable& variable, double place) const;
  void startTears(int start, std::vector<double>& values) const;
  void balance(std::vector<double>& flows) const;
  double startOfFlow(const Variable& variable, std::size_t flow, const std::vector<double>& flows, double share) const;

  const GoalProblem& problem_;
  Site site_;
  std::vector<double> scales_;
  double flowScale_ = 1, heatScale_ = 1;  ///< [lb/h], [Btu/h]
};

}  // namespace moistair
