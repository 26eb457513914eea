#include "shell/paper.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>

namespace moistair {

std::string paperLocale() {
  for (const char* name : {"LC_ALL", "LC_PAPER", "LANG"}) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') return value;
  }
  return "C";
}

bool usesLetter(const std::string& locale) {
  constexpr std::array<std::string_view, 14> territories = {"BZ", "CA", "CL", "CO", "CR", "GT", "MX",
                                                            "NI", "PA", "PH", "PR", "SV", "US", "VE"};
  const std::string_view name = std::string_view(locale).substr(0, locale.find_first_of(".@"));
  const std::size_t line = name.find('_');
  if (line == std::string_view::npos) return name.empty() || name == "C" || name == "POSIX" || name == "en";
  const std::string_view territory = name.substr(line + 1);
  return std::find(territories.begin(), territories.end(), territory) != territories.end();
}

}  // namespace moistair
