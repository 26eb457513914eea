/// \file
/// Which flows of dry air a system fixes, and which are open.
///
/// Dry air is kept from step to step, so every flow is a sum of those that begin, are divided off or come around a
/// loop. Here the sums are set up and reduced: what is left are the flows that nothing gives, which count as unknowns,
/// and the closures of loops that have to be solved for. Only the structure counts; what an acfm comes to does not.
#pragma once

#include <vector>

#include "process/system.h"

namespace moistair {

/// A flow as a sum: a factor for each open flow, and at the end what is given [lb/h].
using FlowSum = std::vector<double>;

/// A flow that is not given as a number.
struct OpenFlow {
  enum class Origin { unknownParameter, airStep, tear };
  Origin origin;
  std::size_t place;  ///< index in CompiledSystem::unknowns, a step, or index in CompiledSystem::tears
  FlowSum inflow{};   ///< of a `part`: what it divides
  FlowSum balance{};  ///< zero where the balances hold, with the factor 1 for itself; empty for a free one
};

struct FlowAnalysis {
  std::vector<OpenFlow> open;         ///< all that are not given
  std::vector<bool> free;             ///< by open flow: no balance fixes it, so a goal has to
  std::vector<bool> closes;           ///< by tear: its flow is an equation of its own, not one that follows from others
  std::vector<std::size_t> contrary;  ///< tears whose flow is given twice, differently
};

/// @param system as compiled
/// @param counted by step of kind `air`: whether a flow that it does not give is to count as unknown
FlowAnalysis analyzeFlows(const CompiledSystem& system, const std::vector<bool>& counted);

/// The `air` steps without a flow that belong to a part of the system in which something is given per hour or per
/// minute, by step. The air of other parts is worked out per lb.
std::vector<bool> flowsThatCount(const CompiledSystem& system, const std::vector<bool>& goalPerHour);

}  // namespace moistair
