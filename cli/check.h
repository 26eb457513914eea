/// \file
/// What `--check` adds to a state: how far it misses the two given values, and every state that truly has both.
///
/// The two values are in the order of the kinds, in whatever order they were given.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "cli/properties.h"
#include "engine/exactsolutions.h"
#include "model/jsonnode.h"

namespace moistair {

struct Check {
  std::array<Given, 2> given;
  double atm;                                      ///< [in Hg]
  std::optional<std::array<double, 2>> residuals;  ///< found less given, of a state that was found
  ExactSolutions solutions;
};

Check checkOf(const GivenPair& pair, double atm, const Resolution& resolution);

/// Two tables to read: the values as given and as found, and the answers side by side or why there is none.
std::string checkTable(const Check& check);

/// {"residuals":{"h":0.01,"dp":1.07},"answers":[{"db":...,"pv":...}],"reason":null}
Json checkJson(const Check& check);

/// {"db":75,...,"pv":0.44}
Json stateJson(const StatePoint& point, double atm);

/// The columns behind a row of a table, and the cells of a row: two residuals and the number of answers.
inline constexpr std::array<const char*, 3> checkColumns = {"residual1", "residual2", "answers"};
void appendCells(std::string& out, const Check& check, void (*append)(std::string&, double), char delimiter = ',');

}  // namespace moistair
