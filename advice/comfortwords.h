/// \file
/// How people vote at a place of the chart, in words for a read-out.
#pragma once

#include <string>

#include "model/document.h"

namespace moistair {

/// "PMV 0.12, PPD 5 %" of a state by the first comfort zone that is shown; empty without one and where it has no vote.
std::string comfortText(const ZoneLayer& layer, double db, double w, double atm);

}  // namespace moistair
