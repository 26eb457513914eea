#include "cli/pressureoption.h"

#include <CLI/CLI.hpp>

#include "advice/refusalwords.h"
#include "cli/fault.h"
#include "text/numbertext.h"
#include "text/value.h"

namespace moistair {

namespace {

std::string rangeof(const PressureName& name) { return rowof(name.unit).rangehint; }

}  // namespace

PressureOrReason pressureof(const PressureName& name, std::string_view text) {
  const double number = strictnumber(text);
  if (!hasvalue(number)) return name.name + std::string(isnonumber);
  const std::optional<double> inhg = pressureof(name.unit, number);
  if (!inhg) return std::string(name.name) + " is " + outsiderange(rowof(name.unit).rangehint);
  return *inhg;
}

void addpressure(CLI::App& command, PressureOption& option) {
  for (std::size_t i = 0; i < pressurenames.size(); ++i) {
    const PressureName& name = pressurenames[i];
    const std::string description = std::string(name.description) + " " + rangeof(name);
    CLI::Option* added = command.add_option(std::string("--") + name.name, option.texts[i], description);
    added->group("Pressure (29.92126 in Hg if none is given)")->type_name("NUMBER");
    for (std::size_t other = 0; other < i; ++other) added->excludes(option.options[other]);
    option.options[i] = added;
  }
}

Pressure pressureof(const PressureOption& option) {
  for (std::size_t i = 0; i < pressurenames.size(); ++i) {
    if (option.options[i]->count() == 0) continue;
    const PressureOrReason pressure = pressureof(pressurenames[i], option.texts[i]);
    if (const auto* reason = std::get_if<std::string>(&pressure)) throw badusage(*reason);
    return {{pressurenames[i].unit, option.texts[i]}, std::get<double>(pressure)};
  }
  return {};
}

}  // namespace moistair
