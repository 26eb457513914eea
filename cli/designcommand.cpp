/// \file
/// `moistair-cli design NAME key=value ...`: a ready-made system, written from what the room needs and solved for the
/// equipment. Each system is a command of its own below this one, so that its help lists its keys.
#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/processrun.h"
#include "process/readymade.h"
#include "text/words.h"

namespace moistair {

namespace {

constexpr std::size_t lineWidth = 80;

struct DesignOptions {
  const ReadymadeRow* system;
  std::vector<std::string> keys;
  bool print = false;
  RunOptions run;
};

/// Appends words at an indentation, broken to lines.
void appendWrapped(std::string& out, const std::string& words, std::size_t indent) {
  std::string line;
  std::string_view rest = words;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(' '), rest.size());
    const std::string_view word = rest.substr(0, end);
    if (!line.empty() && indent + line.size() + 1 + word.size() > lineWidth) {
      out += std::string(indent, ' ') + line + '\n';
      line.clear();
    }
    line += (line.empty() ? "" : " ") + std::string(word);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  if (!line.empty()) out += std::string(indent, ' ') + line + '\n';
}

/// The keys of a system by groups, and an example.
std::string keyHelp(const ReadymadeRow& system) {
  std::string out = "Keys (a value may have a unit; what is not given is solved for):\n";
  for (const KeyGroup* group : system.groups) {
    std::string names;
    for (const KeyRow& row : keysOf(system, {"ZONE"})) {
      if (row.group != group) continue;
      names += (names.empty() ? "" : " ") + row.name;
      if (row.parameter) continue;
      std::string words;
      for (const char* word : group->word.words) {
        if (word != nullptr) words += (words.empty() ? "=" : "|") + std::string(word);
      }
      names += words;
    }
    appendWrapped(out, names, 2);
    const std::string meaning =
        group->word.meaning == nullptr || group->parameters == 0
            ? std::string(group->parameters == 0 ? group->word.meaning : group->meaning)
            : std::string(group->meaning) + "; " + group->word.name + ": " + group->word.meaning;
    appendWrapped(out, meaning, 6);
  }
  out += "Example:\n";
  appendWrapped(out, std::string("moistair-cli design ") + system.name + " " + system.example, 2);
  return out;
}

std::string systemsHelp() {
  std::string out = "Ready-made systems (moistair-cli design NAME --help lists the keys of one):\n";
  for (const ReadymadeRow& system : readymadeRows()) {
    std::string name = std::string("  ") + system.name;
    name.resize(16, ' ');
    out += name + system.meaning + "\n";
  }
  return out;
}

ReadymadeKeys keysOf(const DesignOptions& options) {
  ReadKeys read = readKeys(*options.system, options.keys);
  std::vector<std::string> mistakes;
  addMistakes(mistakes, read.errors);
  if (!mistakes.empty()) refuseAll(mistakes, ExitCode::badUsage);
  return std::move(read.keys);
}

/// Keys that do not make a system are a mistake of the command line; one without a solution is a failure.
[[noreturn]] void refuse(const Design& design) {
  std::vector<std::string> failures;
  addMistakes(failures, design.errors);
  refuseAll(failures, design.state.text.system.steps.empty() ? ExitCode::badUsage : ExitCode::failure);
}

void printLines(const Design& design, const DesignOptions& options) {
  std::string out = std::string("# ") + options.system->name;
  for (const std::string& key : options.keys) out += " " + key;
  out += "\n";
  for (const std::string& remark : design.remarks) out += "# " + remark + "\n";
  for (const std::string& line : design.state.text.lines) out += line + "\n";
  Output output(options.run.output);
  output.write(out);
  output.close();
}

void runOnce(const DesignOptions& options) {
  const Pressure pressure = pressureOf(options.run.pressure);
  Designer designer(keysOf(options), {.atm = pressure.atm});
  Design design = designer.design();
  if (options.print && !design.state.text.system.steps.empty()) {
    printLines(design, options);
    if (!design.errors.empty()) refuse(design);
    return;
  }
  if (!design.errors.empty()) refuse(design);
  GoalAnswer answer;
  answer.found = std::move(design.state.found);
  SolvedSystem solved =
      solvedSystem(design.state.text, std::move(design.state.system), {.atm = pressure.atm}, std::move(answer));
  solved.remarks = std::move(design.remarks);
  // A table has no place for a remark.
  if (options.run.format == Format::csv) {
    for (const std::string& remark : solved.remarks) say(remark);
  }
  writeReport(solved, pressure, options.run);
}

/// The system of a way with the table's columns found in it.
/// @param head the table's first record as it was read
Result<RowSystem> systemOf(const Designer& designer, const Way& way, std::string_view head, const std::string& name,
                           const std::string& columns) {
  CsvRecord header;
  takeRecord(head, header);
  const Result<std::string> lines = designer.textOf(way);
  if (!lines) return lines.error();
  SystemText text = readSystem(*lines).text;
  RowSystem made;
  made.input = inputColumns(header, name, text.system);
  Compilation compilation = compile(text.system);
  if (!compilation.errors.empty()) return compilation.errors.front();
  made.system = std::move(compilation.system);
  made.results = resultColumns(columns, made.system);
  dropGiven(made.system.unknowns, made.input);
  GoalPreparation preparation = prepare(made.system, text.goals);
  if (!preparation.errors.empty()) return preparation.errors.front();
  made.goals = std::move(preparation.problem);
  return made;
}

void runRows(const DesignOptions& options) {
  const double atm = pressureOf(options.run.pressure).atm;
  Designer designer(keysOf(options), {.atm = atm});
  const Design design = designer.design();
  if (design.state.text.system.steps.empty()) refuse(design);
  designer.forHours();
  runTable(options.run, [&](const CsvRecord& header, const Input& input) {
    const auto inWay = [&designer, head = std::string(header.raw), name = input.name(), columns = options.run.columns](
                           const Way& way) { return systemOf(designer, way, head, name, columns); };
    Result<RowSystem> first = inWay(Way{});
    if (!first) throw badUsage(input.name() + ": " + first.error().text());
    if (!design.state.found.empty()) first->last = design.state.found.front();
    ProcessPlan plan;
    plan.first = std::move(*first);
    plan.atm = atm;
    plan.designer = &designer;
    plan.systemOf = inWay;
    return plan;
  });
}

void addSystem(CLI::App& design, const ReadymadeRow& system) {
  CLI::App* command = design.add_subcommand(system.name, system.meaning);
  const auto options = std::make_shared<DesignOptions>();
  options->system = &system;
  command->add_option("keys", options->keys, "what is given, such as room.db=75")->type_name("KEY=VALUE ...");
  command->add_flag("--print", options->print, "write the system's lines, for the command process, and no results");
  addRunOptions(*command, options->run);
  command->footer(keyHelp(system));
  command->callback([options] {
    if (options->keys.empty())
      throw badUsage("give keys; " + std::string(options->system->name) + " --help lists them");
    if (runsRows(options->run)) {
      if (options->print) throw badUsage("--print is for a system that runs once");
      runRows(*options);
    } else {
      runOnce(*options);
    }
  });
}

}  // namespace

void addDesignCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("design", "Find the equipment that a room needs, by ready-made systems");
  for (const ReadymadeRow& system : readymadeRows()) addSystem(*command, system);
  command->allow_extras();  // a name that no system has, which the parser would take for one argument too many
  command->callback([command] {
    if (!command->get_subcommands().empty()) return;
    const std::vector<std::string> words = command->remaining();
    if (words.empty()) return writeResult(systemsHelp());
    ClosestWord closest(words.front());
    for (const ReadymadeRow& system : readymadeRows()) closest.offer(system.name);
    throw badUsage("no ready-made system is named " + inQuotes(words.front()) + closest.question() +
                   " (moistair-cli design lists them)");
  });
}

}  // namespace moistair
