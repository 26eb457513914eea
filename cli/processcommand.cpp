/// \file
/// `moistair-cli process [FILE] [--step TEXT]...`: a system of air-handling processes, once or for every row of a
/// table.
#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/processrun.h"
#include "process/systemtext.h"

namespace moistair {

namespace {

struct ProcessOptions {
  std::string file;
  std::vector<std::string> steps;
  RunOptions run;
  CLI::Option* fileOption = nullptr;
};

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

void runOnce(const ProcessOptions& options) {
  const Pressure pressure = pressureOf(options.run.pressure);
  const SolvedSystem solved = solvedSystem(readText(options), {.atm = pressure.atm});
  std::vector<std::string> mistakes;
  addMistakes(mistakes, solved.errors, nameOfFile(options));
  if (!mistakes.empty()) refuseAll(mistakes, solved.understood ? ExitCode::failure : ExitCode::badUsage);
  writeReport(solved, pressure, options.run, nameOfFile(options));
}

void runRows(const ProcessOptions& options) {
  const double atm = pressureOf(options.run.pressure).atm;
  if (options.file == "-" && options.run.rows == "-") throw badUsage("steps and rows cannot both be standard input");
  SystemText text = readText(options);
  runTable(options.run, [&](const CsvRecord& header, const Input& input) {
    ProcessPlan plan;
    plan.atm = atm;
    RowSystem& first = plan.first;
    first.input = inputColumns(header, input.name(), text.system);
    first.system = compiled(text, options);
    first.results = resultColumns(options.run.columns, first.system);
    dropGiven(first.system.unknowns, first.input);
    if (!isForward(first.system, text)) first.goals = problemOf(first.system, text, options);
    return plan;
  });
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
  addRunOptions(*command, options->run);
  command->callback([options] {
    if (runsRows(options->run)) {
      runRows(*options);
    } else {
      runOnce(*options);
    }
  });
}

}  // namespace moistair
