/// \file
/// The notes on the inputs of a stream.
#pragma once

#include <cstddef>
#include <string>

#include "advice/pairnotes.h"
#include "engine/mixingproblem.h"

namespace moistair {

struct StreamNotes {
  PairNotes pair;  ///< its remark is all that there is to say, "Stream 1: air flow: read as 12; ..."
  BoxNote flow;
};

/// @param resolution what `resolveStream` made of it
StreamNotes streamNotes(const MixingProblem& problem, std::size_t stream, const Resolution& resolution);

/// "calculated at 29.92126 in Hg, not at 5000 ft", where the pressure that the columns show is not the current one.
std::string pressureRemark(const MixingPressure& pressure);

}  // namespace moistair
