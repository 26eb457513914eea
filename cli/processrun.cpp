#include "cli/processrun.h"

#include <CLI/CLI.hpp>

namespace moistair {

void addRunOptions(CLI::App& command, RunOptions& options) {
  addPressure(command, options.pressure);
  addFormat(command, options.format);
  options.formatOption = command.get_option("--format");
  command.add_option("-o,--output", options.output, "where to write it; standard output if not given, and for -")
      ->type_name("FILE");
  options.rowsOption =
      command
          .add_option("--rows", options.rows,
                      "a CSV table whose columns give parameters, such as OA.db; the system runs for every row")
          ->type_name("FILE");
  options.ofRows = {
      command
          .add_option("--columns", options.columns,
                      "what of each row to write, such as SA.db,CC.total; db, w, rh and acfm of each stream and "
                      "total, sensible and water of each process if not given")
          ->type_name("LIST"),
      command.add_flag("--full", options.full, "write numbers in full instead of with seven decimals"),
      command.add_option("--jobs", options.jobs, "threads to work on, 1 to 256; 1 if not given")->type_name("N")};
}

bool runsRows(const RunOptions& options) {
  if (options.rowsOption->count() == 0) {
    for (const CLI::Option* option : options.ofRows) {
      if (option->count() > 0) throw badUsage(option->get_name() + " is for a table of --rows");
    }
    return false;
  }
  if (options.formatOption->count() > 0 && options.format != Format::csv) {
    throw badUsage("--rows writes a table as CSV; --format is for a system that runs once");
  }
  return true;
}

Input rowsOf(const RunOptions& options) { return Input(options.rows); }

void writeReport(const SolvedSystem& solved, const Pressure& pressure, const RunOptions& options,
                 const std::string& file) {
  Output output(options.output);
  switch (options.format) {
    case Format::text: output.write(asTable(solved, pressure)); break;
    case Format::json: output.write(asJson(solved)); break;
    case Format::csv: output.write(asCsv(solved)); break;
  }
  output.close();
  std::vector<std::string> mistakes;
  addMistakes(mistakes, failures(solved), file);
  if (!mistakes.empty()) refuseAll(mistakes, ExitCode::failure);
}

void runTable(const RunOptions& options, const std::function<ProcessPlan(const CsvRecord&, const Input&)>& planOf) {
  const unsigned jobs = jobsOf(options.jobs);
  Input input = rowsOf(options);
  TableReader table(input, ',');
  const CsvRecord header = table.header();
  ProcessPlan plan = planOf(header, input);
  plan.full = options.full;
  plan.shape.selection = plan.first.input.selection;
  plan.shape.lineEnd = header.lineEnd.starts_with('\r') ? "\r\n" : "\n";
  plan.shape.results = plan.first.results.size() + (plan.designer != nullptr ? 1 : 0);
  Output output(options.output, &input);
  output.write(headerLine(header, plan));
  checkRows(table.run(
      plan.shape.selection.columns + plan.shape.results,
      [&](const std::string& block) { return processRows(block, plan); }, output, jobs));
}

}  // namespace moistair
