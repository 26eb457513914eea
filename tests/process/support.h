/// \file
/// Systems for the tests, written as lines in base units, and results by name.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "process/readout.h"
#include "process/systemtext.h"
#include "process/words.h"

namespace moistair {

inline AirSystem systemOf(const std::string& lines) {
  const ReadSystem read = readSystem(lines);
  for (const Error& error : read.errors) ADD_FAILURE() << error.text();
  return read.text.system;
}

/// A system with its solution.
struct Solved {
  explicit Solved(const std::string& lines, double atm = defaultPressure) : Solved(systemOf(lines), atm) {}
  explicit Solved(const AirSystem& given, double atm) : system(given), site{atm}, compilation(compile(system)) {
    for (const Error& error : compilation.errors) errors += error.text() + "\n";
    if (!compilation.errors.empty()) return;
    solution = solve(compilation.system, site);
    for (const Error& error : solution.errors) {
      if (!error.words.empty()) errors += error.text() + "\n";
    }
  }

  std::size_t stream(const std::string& name) const {
    const auto& names = compilation.system.names;
    return static_cast<std::size_t>(std::find(names.begin(), names.end(), name) - names.begin());
  }
  const StepResult& result(const std::string& name) const { return solution.results.at(stream(name) / 2); }

  /// "CC.total", "BY.rest.db": a property of a stream or what a step did.
  double value(const std::string& path) const {
    const auto dot = path.rfind('.');
    const std::string key = path.substr(dot + 1);
    const std::size_t at = stream(path.substr(0, dot));
    const StepResult& step = solution.results.at(at / 2);
    const bool second = at != mainStream(at / 2);
    StepResult result = step;
    if (second) result.leaving = step.second;
    const std::pair<const char*, double> others[] = {{"condensate", step.condensate}, {"gpm", step.waterGpm}};
    for (const auto& [name, number] : others) {
      if (key == name) return number;
    }
    if (const auto parameter = parameterNamed(key)) {
      return outcomeOf(*parameter, system.steps.at(at / 2).kind, result, site);
    }
    ADD_FAILURE() << "no value " << path;
    return noValue;
  }

  AirSystem system;
  Site site;
  Compilation compilation;
  Solution solution;
  std::string errors;  ///< all, one a line
};

}  // namespace moistair
