/// \file
/// The atmospheric pressure of a command: in inches of mercury, in pounds per square inch or as a site elevation in
/// feet, each within the range of the pressure window. What is calculated with is in inches of mercury.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <variant>

#include "engine/moistair.h"
#include "engine/pressureunits.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace moistair {

/// A unit that can be given: its option without dashes, which is its column's name too.
struct PressureName {
  const char* name;
  PressureUnit unit;
  const char* description;
};

inline constexpr std::array<PressureName, 3> pressureNames = {{
    {"inhg", PressureUnit::inhg, "atmospheric pressure in inches of mercury"},
    {"psi", PressureUnit::psi, "atmospheric pressure in pounds/sq inch"},
    {"elevation", PressureUnit::elevation, "site elevation in feet"},
}};

/// Pressure [in Hg], or why a text gives none.
using PressureOrReason = std::variant<double, std::string>;

PressureOrReason pressureOf(const PressureName& name, std::string_view text);

/// The options as typed.
struct PressureOption {
  std::array<std::string, pressureNames.size()> texts;
  std::array<CLI::Option*, pressureNames.size()> options{};
};

/// Adds --inhg, --psi and --elevation, of which a command line may have one.
void addPressure(CLI::App& command, PressureOption& option);

/// Bad usage for a text that is no number and for a value outside the range of its unit.
Pressure pressureOf(const PressureOption& option);

}  // namespace moistair
