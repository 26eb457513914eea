#include "cli/warning.h"

#include <CLI/CLI.hpp>

#include "advice/remark.h"
#include "cli/fault.h"

namespace moistair {

namespace {

std::string of(const std::string& what, const std::string& words) { return what.empty() ? words : what + ": " + words; }

}  // namespace

void warn(std::string_view text) { say("warning: " + std::string(text)); }

void addExact(CLI::App& command, ExactOptions& options) {
  command.add_flag("--exact", options.exact,
                   "take the exact state in place of the search's; of several the one nearest to it");
}

void addStrict(CLI::App& command, ExactOptions& options) {
  command.add_flag("--strict", options.strict, "fail where a state visibly misses a given value");
}

void warnOrFail(const std::string& what, const std::string& words, const ExactOptions& options) {
  if (words.empty()) return;
  if (options.strict) throw failure(of(what, words));
  warn(of(what, words));
}

Resolution exactResolution(const std::string& what, const PairOfGiven& pair, double atm, const Resolution& resolution) {
  const ExactChoice choice = exactChoice(pair, atm, resolution);
  if (!choice.state) throw failure(noExact(choice));
  if (const std::string words = severalExact(choice); !words.empty()) warn(of(what, words));
  return resolutionOf(*choice.state);
}

}  // namespace moistair
