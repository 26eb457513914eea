/// \file
/// `moistair-cli process [FILE] [--step TEXT]...`: a system of air-handling processes, once or for every row of a
/// table.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/fault.h"
#include "cli/format.h"
#include "cli/pressureoption.h"
#include "cli/processreport.h"
#include "cli/processrows.h"
#include "cli/stream.h"
#include "process/systemtext.h"

namespace moistair {

namespace {

struct ProcessOptions {
  std::string file;
  std::vector<std::string> steps;
  PressureOption pressure;
  Format format = Format::text;
  std::string output;
  std::string rows;
  std::string columns;
  std::string jobs = "1";
  bool full = false;
  CLI::Option* fileOption = nullptr;
  CLI::Option* formatOption = nullptr;
  std::vector<CLI::Option*> rowsOptions;  ///< those that say something of a table
  CLI::Option* rowsOption = nullptr;
};

/// Says all mistakes, a line each, and throws the last.
[[noreturn]] void refuseAll(const std::vector<std::string>& mistakes, ExitCode code) {
  constexpr std::size_t most = 20;
  const std::size_t shown = std::min(mistakes.size(), most);
  for (std::size_t i = 0; i + 1 < shown; ++i) say(mistakes[i]);
  if (mistakes.size() <= most) throw Fault(code, mistakes.back());
  say(mistakes[shown - 1]);
  throw Fault(code, "and " + std::to_string(mistakes.size() - most) + " more mistakes");
}

/// Mistakes in the words of messages. @param before the name of the file that the lines are of, if there is one
void addMistakes(std::vector<std::string>& mistakes, const std::vector<Error>& errors, const std::string& before) {
  for (const Error& error : errors) {
    const bool ofLine = !before.empty() && error.place.starts_with("line ");
    mistakes.push_back((ofLine ? before + ", " : "") + error.text());
  }
}

std::string nameOfFile(const ProcessOptions& options) {
  return options.fileOption->count() > 0 ? (options.file == "-" ? "standard input" : options.file) : "";
}

/// The system of the file, and of the steps given one by one, which have no lines.
SystemText readText(const ProcessOptions& options) {
  ReadSystem read;
  std::vector<std::string> mistakes;
  if (options.fileOption->count() > 0) {
    Input input(options.file);
    read = readSystem(input.content(longestSystemText));
    for (Error& error : read.errors) {
      if (error.place.empty()) error.place = input.name();
    }
    addMistakes(mistakes, read.errors, input.name());
  }
  for (std::size_t i = 0; i < options.steps.size(); ++i) {
    const Outcome outcome = readLine(options.steps[i], 0, read.text);
    if (!outcome) mistakes.push_back(outcome.error().within("step " + std::to_string(i + 1)).text());
  }
  if (!mistakes.empty()) refuseAll(mistakes, ExitCode::badUsage);
  if (read.text.system.steps.empty()) throw badUsage("there are no steps, such as --step \"OA: air db=95,wb=75\"");
  return std::move(read.text);
}

/// The system with all its names known.
CompiledSystem compiled(const SystemText& text, const ProcessOptions& options) {
  Compilation compilation = compile(text.system);
  std::vector<std::string> mistakes;
  addMistakes(mistakes, compilation.errors, nameOfFile(options));
  addMistakes(mistakes, checkGoals(text), nameOfFile(options));
  if (!mistakes.empty()) refuseAll(mistakes, ExitCode::badUsage);
  return std::move(compilation.system);
}

void checkSolved(const ProcessReport& report, const std::string& file) {
  std::vector<std::string> failures;
  for (const std::size_t step : report.system.order) {
    if (report.solution.solved(step) || report.solution.errors[step].code == ErrorCode::waiting) continue;
    addMistakes(failures, {errorOf(report, step)}, file);
  }
  if (!failures.empty()) refuseAll(failures, ExitCode::failure);
}

/// What is open in a system, in as many goals as unknowns.
GoalProblem problemOf(const CompiledSystem& system, const SystemText& text, const ProcessOptions& options) {
  GoalPreparation preparation = prepare(system, text.goals);
  std::vector<std::string> mistakes;
  addMistakes(mistakes, preparation.errors, nameOfFile(options));
  if (!mistakes.empty()) refuseAll(mistakes, ExitCode::badUsage);
  return std::move(preparation.problem);
}

bool isForward(const CompiledSystem& system, const SystemText& text) {
  return system.tears.empty() && system.unknowns.empty() && text.goals.empty();
}

ProcessReport solved(const SystemText& text, const CompiledSystem& system, const Pressure& pressure,
                     const ProcessOptions& options) {
  if (isForward(system, text)) return {text.system, system, pressure};
  const GoalProblem problem = problemOf(system, text, options);
  GoalAnswer answer = solveGoals(problem, {.atm = pressure.atm});
  if (!answer.found.empty()) return {text.system, system, pressure, std::move(answer)};
  std::vector<std::string> failures;
  addMistakes(failures, answer.errors, nameOfFile(options));
  refuseAll(failures, ExitCode::failure);
}

void runOnce(const ProcessOptions& options) {
  const Pressure pressure = pressureOf(options.pressure);
  const SystemText text = readText(options);
  const CompiledSystem system = compiled(text, options);
  const ProcessReport report = solved(text, system, pressure, options);
  Output output(options.output);
  switch (options.format) {
    case Format::text: output.write(asTable(report)); break;
    case Format::json: output.write(asJson(report)); break;
    case Format::csv: output.write(asCsv(report)); break;
  }
  output.close();
  checkSolved(report, nameOfFile(options));
}

void runRows(const ProcessOptions& options) {
  const unsigned jobs = jobsOf(options.jobs);
  const double atm = pressureOf(options.pressure).atm;
  if (options.file == "-" && options.rows == "-") throw badUsage("steps and rows cannot both be standard input");
  SystemText text = readText(options);
  Input input(options.rows);
  TableReader table(input, ',');
  const CsvRecord header = table.header();
  ProcessPlan plan;
  plan.atm = atm;
  plan.full = options.full;
  plan.input = inputColumns(header, input.name(), text.system);
  plan.system = compiled(text, options);
  plan.results = resultColumns(options.columns, plan.system);
  dropGiven(plan.system.unknowns, plan.input);
  if (!isForward(plan.system, text)) plan.goals = problemOf(plan.system, text, options);
  plan.shape.selection = plan.input.selection;
  plan.shape.lineEnd = header.lineEnd.starts_with('\r') ? "\r\n" : "\n";
  plan.shape.results = plan.results.size();
  Output output(options.output, &input);
  output.write(headerLine(header, plan));
  checkRows(table.run(
      plan.shape.selection.columns + plan.results.size(),
      [&](const std::string& block) { return processRows(block, plan); }, output, jobs));
}

void runProcess(const ProcessOptions& options) {
  if (options.rowsOption->count() == 0) {
    for (const CLI::Option* option : options.rowsOptions) {
      if (option->count() > 0) throw badUsage(option->get_name() + " is for a table of --rows");
    }
    runOnce(options);
    return;
  }
  if (options.formatOption->count() > 0 && options.format != Format::csv) {
    throw badUsage("--rows writes a table as CSV; --format is for a system that runs once");
  }
  runRows(options);
}

}  // namespace

void addProcessCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("process", "Run air through mixing, coils, fans and rooms");
  const auto options = std::make_shared<ProcessOptions>();
  options->fileOption =
      command->add_option("file", options->file, "the steps, one a line; - for standard input")->type_name("FILE");
  command
      ->add_option("--step", options->steps,
                   "one step, after those of the file, such as \"CC: coil MA db=55,rh=92\"; any number of them")
      ->take_all()
      ->allow_extra_args(false)
      ->type_name("TEXT");
  addPressure(*command, options->pressure);
  addFormat(*command, options->format);
  options->formatOption = command->get_option("--format");
  command->add_option("-o,--output", options->output, "where to write it; standard output if not given, and for -")
      ->type_name("FILE");
  options->rowsOption =
      command
          ->add_option("--rows", options->rows,
                       "a CSV table whose columns give parameters, such as OA.db; the system runs for every row")
          ->type_name("FILE");
  options->rowsOptions = {
      command
          ->add_option("--columns", options->columns,
                       "what of each row to write, such as SA.db,CC.total; db, w, rh and acfm of each stream and "
                       "total, sensible and water of each process if not given")
          ->type_name("LIST"),
      command->add_flag("--full", options->full, "write numbers in full instead of with seven decimals"),
      command->add_option("--jobs", options->jobs, "threads to work on, 1 to 256; 1 if not given")->type_name("N")};
  command->callback([options] { runProcess(*options); });
}

}  // namespace moistair
