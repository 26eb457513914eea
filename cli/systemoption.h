/// \file
/// The options that put an air handler on a chart: --system, --step, --goal.
#pragma once

#include <string>
#include <vector>

#include "model/document.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace moistair {

struct SystemOptions {
  std::string file;
  CLI::Option* fileOption = nullptr;
  CLI::Option* stepOption = nullptr;
  CLI::Option* goalOption = nullptr;
};

void addSystemOptions(CLI::App& command, SystemOptions& options);

/// Puts the lines of the file, then steps and goals in the order of the command line behind those that the document
/// has, and solves them. What cannot be understood or solved is refused if any were given, else a warning.
void addSystem(Document& document, const CLI::App& command, const SystemOptions& options);

}  // namespace moistair
