/// \file
/// Several mistakes reported together, as a system of processes can have them.
#pragma once

#include <string>
#include <vector>

#include "cli/fault.h"
#include "text/error.h"

namespace moistair {

/// Says all mistakes, a line each, and throws the last. There is at least one.
[[noreturn]] void refuseAll(const std::vector<std::string>& mistakes, ExitCode code);

/// Adds mistakes in the words of messages.
/// @param before the name of the file that the lines are of; empty for none
void addMistakes(std::vector<std::string>& mistakes, const std::vector<Error>& errors, const std::string& before = "");

}  // namespace moistair
