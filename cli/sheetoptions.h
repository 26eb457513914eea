/// \file
/// The options of a sheet, for the commands that write one, and how it is written.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cli/chartdocument.h"
#include "sheet/content.h"
#include "sheet/options.h"

namespace CLI {
class App;
}

namespace moistair {

struct SheetCommandOptions {
  std::string output;
  ChartDocumentOptions document;
  std::string page = "letter";
  bool portrait = false;
  std::string size;
  std::string letterSize;
  std::string scale = "1";
  SheetOptions sheet;
  std::vector<std::string> zones{};
};

/// Adds how a sheet looks, and the texts of its title block.
void addSheetLook(CLI::App& command, SheetCommandOptions& options);

/// What goes on a sheet, once the document is complete.
using SheetContentOf = std::function<SheetContent(Document& document)>;

/// Writes the sheet of a command line.
void runSheet(const CLI::App& command, const SheetCommandOptions& options, const SheetContentOf& contentOfDocument);

}  // namespace moistair
