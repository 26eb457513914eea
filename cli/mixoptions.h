/// \file
/// A mixing problem given on the command line: two streams such as "db=75,wb=62.5,flow=1000".
#pragma once

#include <string>

#include "cli/pressureoption.h"
#include "engine/mixingproblem.h"

namespace moistair {

/// Solves the problem as the mixing window does, or with exact states. Bad usage for a stream that is no pair with a
/// flow above 0; a failure for one that has no such state, and where so little or so much flows that there is no
/// mixture to speak of.
MixingProblem solvedMixing(const std::string& stream1, const std::string& stream2, const Pressure& pressure,
                           bool exact);

}  // namespace moistair
