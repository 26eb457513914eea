#include "cli/pressureoption.h"

#include <CLI/CLI.hpp>

#include "advice/refusalwords.h"
#include "cli/fault.h"
#include "text/numbertext.h"
#include "text/value.h"

namespace moistair {

namespace {

std::string rangeOf(const PressureName& name) { return rowOf(name.unit).rangeHint; }

}  // namespace

PressureOrReason pressureOf(const PressureName& name, std::string_view text) {
  const double number = strictNumber(text);
  if (!hasValue(number)) return name.name + std::string(notANumber);
  const std::optional<double> inhg = pressureOf(name.unit, number);
  if (!inhg) return std::string(name.name) + " is " + outsideRange(rowOf(name.unit).rangeHint);
  return *inhg;
}

void addPressure(CLI::App& command, PressureOption& option) {
  for (std::size_t i = 0; i < pressureNames.size(); ++i) {
    const PressureName& name = pressureNames[i];
    const std::string description = std::string(name.description) + " " + rangeOf(name);
    CLI::Option* added = command.add_option(std::string("--") + name.name, option.texts[i], description);
    added->group("Pressure (29.92126 in Hg if none is given)")->type_name("NUMBER");
    for (std::size_t other = 0; other < i; ++other) added->excludes(option.options[other]);
    option.options[i] = added;
  }
}

Pressure pressureOf(const PressureOption& option) {
  for (std::size_t i = 0; i < pressureNames.size(); ++i) {
    if (option.options[i]->count() == 0) continue;
    const PressureOrReason pressure = pressureOf(pressureNames[i], option.texts[i]);
    if (const auto* reason = std::get_if<std::string>(&pressure)) throw badUsage(*reason);
    return {{pressureNames[i].unit, option.texts[i]}, std::get<double>(pressure)};
  }
  return {};
}

}  // namespace moistair
