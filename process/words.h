/// \file
/// Numbers and notes in the words of messages.
#pragma once

#include <string>
#include <vector>

#include "process/readout.h"
#include "process/step.h"

namespace moistair {

/// A number with five significant digits: "0.009312", "54.5", "151620".
std::string figure(double number);

/// A note: "apparatus dew point 28.3 deg F is below freezing". Amounts are per lb of dry air where no flow is known.
std::string wordsOf(const Note& note, bool flowKnown);

/// All notes of a step.
std::vector<std::string> noteWords(const StepResult& result);

/// What a read-out says about its wet bulb; empty where there is nothing to say.
std::string wordsOf(const StreamReadout& readout);

}  // namespace moistair
