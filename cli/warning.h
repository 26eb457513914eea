/// \file
/// What a command has to say of a result that it gives all the same, and the options about results that a search has
/// missed.
#pragma once

#include <string>
#include <string_view>

#include "engine/exact.h"

namespace CLI {
class App;
}

namespace moistair {

/// A line on standard error with "warning: " before it.
void warn(std::string_view text);

/// --exact and --strict.
struct ExactOptions {
  bool exact = false;   ///< exact states in place of those that a search finds
  bool strict = false;  ///< a state that visibly misses a given value is an error
};

void addExact(CLI::App& command, ExactOptions& options);
void addStrict(CLI::App& command, ExactOptions& options);

/// Warns of a state that misses something, or throws it as a failure if that was asked for.
/// @param what the state is of, such as "Point A"; empty where there is one only
/// @param words of the remark, empty if nothing is missed
void warnOrFail(const std::string& what, const std::string& words, const ExactOptions& options);

/// The exact state in place of a found one, with a warning where it is one of several; a failure where there is none,
/// and where the search has not found which of several.
/// @param what as above
Resolution exactResolution(const std::string& what, const PairOfGiven& pair, double atm, const Resolution& resolution);

}  // namespace moistair
