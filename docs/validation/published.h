/// \file
/// The property functions against published figures.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace moistair::validation {

/// Where a figure holds; no value for what does not matter to it.
struct Conditions {
  double db, wb;     ///< [deg F]
  double inhg;       ///< [in Hg]
  double elevation;  ///< [ft]
};

/// A published figure and what the model gives for it, in the unit of the figure.
struct Comparison {
  std::string quantity;   ///< by its name in the table of figures
  std::string caption;    ///< "Saturation pressure"
  std::string condition;  ///< "77 deg F"
  std::string published;  ///< as printed
  std::string unit, source;
  double model = 0;
  double difference = 0;  ///< model less published [percent of published; deg F of a dew point]
  bool inPercent = true;  ///< false for a dew point, whose zero means nothing
};

/// Compares every row of a table of figures: quantity, dry and wet bulb [deg F], pressure [psi], elevation [ft], value,
/// unit, source. Throws for a quantity that is not known.
std::vector<Comparison> compare(std::string_view table);

}  // namespace moistair::validation
