/// \file
/// The validation sheet as a page and as a table of differences.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "pairs.h"
#include "published.h"

namespace moistair::validation {

struct Sheet {
  double atm;  ///< of the pairs [in Hg]
  std::vector<Comparison> published;
  std::vector<PairMeasure> pairs;
};

/// @param figures the table of published figures
Sheet worksheet(std::string_view figures);

/// The page: its text, with the tables and numbers in place of the names between two @.
std::string page(std::string text, const Sheet& sheet);

/// What differs and by how much, "what,difference", with the decimals of the page.
std::string differences(const Sheet& sheet);

}  // namespace moistair::validation
