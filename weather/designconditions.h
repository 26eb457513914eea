/// \file
/// Design conditions as the header of a weather file and design-day files give them.
///
/// They come from a published table of the site and not from the hours of the file, so each carries its source.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/state.h"
#include "weather/oddities.h"

namespace moistair {

/// What a design condition is the rare value of.
enum class DesignBasis { heatingDryBulb, humidificationDewPoint, coolingDryBulb, wetBulb, dewPoint, enthalpy };

struct DesignCondition {
  DesignBasis basis = DesignBasis::coolingDryBulb;
  double percent = 0;           ///< of the hours of a year that are beyond it
  int month = 0;                ///< of a monthly condition, 0 for a yearly one
  double db = noValue;          ///< [deg F]
  std::optional<Given> second;  ///< none for a heating dry bulb that comes alone
  std::string source;           ///< as the file names it
};

/// "Cooling DB 0.4%", "July wet bulb 2%"
std::string nameOf(const DesignCondition& condition);

/// The conditions of an EPW file's header line, taken apart into its fields. They are found by the words Heating and
/// Cooling and by how many values follow, since tables of different years put other values between; what contradicts
/// itself is left out and counted.
/// Source of the order of the values: ASHRAE Handbook, Fundamentals, Climatic Design Information (2001, 2009, 2021).
std::vector<DesignCondition> designOfHeader(const std::vector<std::string_view>& fields, Oddities& oddities);

/// The design days of a DDY file.
std::vector<DesignCondition> designOfDays(std::string_view text, Oddities& oddities);

}  // namespace moistair
