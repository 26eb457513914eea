/// \file
/// The paper that the windows offer first.
#pragma once

#include <string>

namespace moistair {

inline constexpr double paperMargin = 0.5;  // inches on all sides

/// The locale that decides on paper, as the environment names it: LC_ALL, else LC_PAPER, else LANG.
std::string paperLocale();

/// Whether a locale prints on Letter and not on A4: that of a territory that does, and that of none, as "C".
/// Source: Unicode CLDR, paper sizes by territory.
bool usesLetter(const std::string& locale);

}  // namespace moistair
