/// \file
/// The record of a mixing problem in the session log.
#pragma once

#include <string>
#include <vector>

#include "engine/mixingproblem.h"

namespace moistair {

/// The 37 lines of the block, without line ends: both streams and the mixture as their texts are, every value in
/// column 57, between two rules. The flows of the streams are saved as typed. Meant for a problem that is `savable`.
std::vector<std::string> mixingBlock(const MixingProblem& problem);

}  // namespace moistair
