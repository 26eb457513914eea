/// \file
/// What a system of processes came to, as a table to read, as JSON and as CSV.
#pragma once

#include <string>

#include "engine/pressureunits.h"
#include "process/solvedsystem.h"

namespace moistair {

/// All of it to read, in lines of 80 characters.
std::string asTable(const SolvedSystem& solved, const Pressure& pressure);

/// {"pressure":29.92126,"states":[...],"processes":[...],"balances":{...}}; values that do not exist are null. A
/// balance is the part of its largest term by which it does not close, null if a step has no result. A system that was
/// solved backward has "unknowns" and, where there are further solutions, "others", each by the names of the unknowns.
std::string asJson(const SolvedSystem& solved);

/// A row for each stream, with the loads of the step that it leaves.
std::string asCsv(const SolvedSystem& solved);

}  // namespace moistair
