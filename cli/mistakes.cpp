#include "cli/mistakes.h"

#include <algorithm>

#include "cli/stream.h"

namespace moistair {

void refuseAll(const std::vector<std::string>& mistakes, ExitCode code) {
  constexpr std::size_t most = 20;
  const std::size_t shown = std::min(mistakes.size(), most);
  for (std::size_t i = 0; i + 1 < shown; ++i) say(mistakes[i]);
  if (mistakes.size() <= most) throw Fault(code, mistakes.back());
  say(mistakes[shown - 1]);
  throw Fault(code, "and " + std::to_string(mistakes.size() - most) + " more mistakes");
}

void addMistakes(std::vector<std::string>& mistakes, const std::vector<Error>& errors, const std::string& before) {
  for (const Error& error : errors) {
    const bool ofLine = !before.empty() && error.place.starts_with("line ");
    mistakes.push_back((ofLine ? before + ", " : "") + error.text());
  }
}

}  // namespace moistair
