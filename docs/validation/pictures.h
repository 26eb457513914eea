/// \file
/// The pictures of the validation sheet, as SVG.
#pragma once

#include <string>
#include <vector>

#include "pairs.h"
#include "published.h"

namespace moistair::validation {

/// A bar for each published figure, as long as the logarithm of its difference in percent.
std::string differencePicture(const std::vector<Comparison>& rows);

/// The dew point about its gap, and the wet bulbs of one dry bulb about freezing.
std::string freezingPicture(double atm);

/// A small chart for each pair, with every state of the grid marked by what became of it.
std::string pairsPicture(const std::vector<PairMeasure>& pairs);

}  // namespace moistair::validation
