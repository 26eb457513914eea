/// \file
/// `moistair-cli batch in.csv -o out.csv`: a state for every row of a table, of any length and in constant memory.
#include <CLI/CLI.hpp>
#include <cctype>
#include <memory>
#include <string>

#include "cli/batchrows.h"
#include "cli/command.h"
#include "cli/fault.h"
#include "cli/limitsoption.h"
#include "cli/stream.h"
#include "cli/tablerun.h"
#include "cli/warning.h"

namespace moistair {

namespace {

struct BatchOptions {
  std::string input;
  std::string output;
  PressureOption pressure;
  LimitsOption limits;
  std::string delimiter = ",";
  bool full = false;
  bool check = false;
  ExactOptions exact;
  std::string jobs = "1";
};

/// One character, or "\t" as it is typed where a tab cannot be.
char delimiterOf(const std::string& text) {
  const std::string character = text == "\\t" ? "\t" : text;
  const bool one = character.size() == 1 && (character[0] == '\t' || (character[0] >= ' ' && character[0] <= '~'));
  constexpr std::string_view inNumbers = "+-.";
  if (!one || character == "\"" || std::isalnum(static_cast<unsigned char>(character[0])) != 0 ||
      inNumbers.find(character[0]) != std::string_view::npos) {
    throw badUsage(
        "delimiter must be one character that is no quote and no part of a number or a name such as ; or \\t");
  }
  return character[0];
}

/// What a user should know of a table that is read all the same.
void warnOfColumns(const BatchColumns& columns, const std::string& name) {
  if (columns.takenNames.empty()) return;
  std::string names;
  for (const std::string& taken : columns.takenNames) names += (names.empty() ? "" : ", ") + taken;
  warn(name + " has columns of the result already: " + names);
}

/// What a user should know of the rows that have a state.
void warnOfStates(const RowCounts& counts, bool strict) {
  if (counts.missed > 0 && !strict) {
    warn(countOf(counts.missed, counts.rows) +
         " have the status \"missed\": their state misses a given value (--check says by how much, --exact takes the "
         "exact state)");
  }
  if (counts.nearest > 0) {
    warn(countOf(counts.nearest, counts.rows) +
         " have the status \"nearest\": of several exact states theirs is the one nearest to the search");
  }
}

void runBatch(const BatchOptions& options) {
  const unsigned jobs = jobsOf(options.jobs);
  const char delimiter = delimiterOf(options.delimiter);
  const double atm = pressureOf(options.pressure).atm;
  const RangeFinders finders = findersOf(options.limits);
  Input input(options.input);
  TableReader table(input, delimiter);
  const CsvRecord header = table.header();
  const BatchPlan plan{.columns = columnsOf(header, input.name(), delimiter, options.check),
                       .delimiter = delimiter,
                       .lineEnd = header.lineEnd.starts_with('\r') ? "\r\n" : "\n",
                       .atm = atm,
                       .finders = &finders,
                       .full = options.full,
                       .check = options.check,
                       .exact = options.exact.exact,
                       .strict = options.exact.strict};
  Output output(options.output, &input);
  warnOfColumns(plan.columns, input.name());
  output.write(headerLine(header, plan));
  const RowCounts counts = table.run(
      plan.columns.selection.columns, [&](const std::string& block) { return resolveRows(block, plan); }, output, jobs);
  warnOfStates(counts, plan.strict);
  checkRows(counts, plan.strict ? "their state misses a given value" : "");
}

}  // namespace

void addBatchCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("batch", "Find the state for every row of a CSV table");
  const auto options = std::make_shared<BatchOptions>();
  command->add_option("input", options->input, "the table; standard input if not given, and for -")->type_name("FILE");
  command->add_option("-o,--output", options->output, "where to write it; standard output if not given, and for -")
      ->type_name("FILE");
  addPressure(*command, options->pressure);
  addLimits(*command, options->limits, "find pairs without a temperature on the chart with these limits only");
  command
      ->add_option("--delimiter", options->delimiter, "what separates the fields; a comma if not given, \\t for a tab")
      ->type_name("CHARACTER");
  command->add_flag("--full", options->full, "write numbers in full instead of with seven decimals");
  command->add_flag("--check", options->check,
                    "add how far the state misses the given values, and the number of exact answers");
  addExact(*command, options->exact);
  addStrict(*command, options->exact);
  command->add_option("--jobs", options->jobs, "threads to work on, 1 to 256; 1 if not given")->type_name("N");
  command->callback([options] { runBatch(*options); });
}

}  // namespace moistair
