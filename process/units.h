/// \file
/// Values with units, as people type them: "15tons", "120MBH", "24C", "70%".
///
/// A number without a unit is in the base unit of its quantity (kinds.h). The units of each quantity are rows of one
/// table; capitals do not matter, and a degree sign or "deg" may be in front: "24degC".
#pragma once

#include <string>
#include <string_view>

#include "process/kinds.h"
#include "text/error.h"

namespace moistair {

/// The number in the base unit of a quantity that has numbers. Where there is none, the words say what would be right;
/// the place is left to the caller.
Result<double> readValue(std::string_view text, Quantity quantity);

/// "Btu/h, tons, MBH, kW, W or hp": all units of a quantity, the base unit first; empty where there are none.
std::string unitWords(Quantity quantity);

}  // namespace moistair
