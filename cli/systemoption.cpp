#include "cli/systemoption.h"

#include <CLI/CLI.hpp>
#include <map>
#include <utility>

#include "cli/mistakes.h"
#include "cli/stream.h"
#include "cli/warning.h"
#include "model/airhandler.h"
#include "text/utf8.h"
#include "text/words.h"

namespace moistair {

namespace {

/// The lines of a text, without its byte order mark and the ends of its lines.
std::vector<std::string> linesOf(std::string_view text) {
  constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (line.starts_with(byteOrderMark)) line.remove_prefix(byteOrderMark.size());
    lines.emplace_back(line);
  }
  return lines;
}

std::string goalLine(const std::string& typed) {
  return lowercase(typed).starts_with("goal ") ? typed : "goal " + typed;
}

std::vector<std::string> givenLines(const CLI::App& command, const SystemOptions& options) {
  std::vector<std::string> lines;
  if (options.fileOption->count() > 0) {
    Input input(options.file);
    const std::string text = input.content(longestSystemText + 1);
    if (text.size() > longestSystemText) throw badUsage(input.name() + ": more than 256 KB is too long for a system");
    lines = linesOf(text);
  }
  std::map<const CLI::Option*, std::size_t> done;
  for (const CLI::Option* option : command.parse_order()) {
    if (option != options.stepOption && option != options.goalOption) continue;
    const std::string& typed = option->results()[done[option]++];
    lines.push_back(option == options.goalOption ? goalLine(typed) : typed);
  }
  for (const std::string& line : lines) {
    if (!isUtf8(line)) throw badUsage("steps and goals must be text in UTF-8");
  }
  return lines;
}

}  // namespace

void addSystemOptions(CLI::App& command, SystemOptions& options) {
  options.fileOption =
      command.add_option("--system", options.file, "steps and goals of a file, one a line; - for standard input");
  options.fileOption->type_name("FILE");
  const auto several = [&](const char* name, const char* description) {
    CLI::Option* option = command.add_option(
        name, [](const CLI::results_t&) { return true; }, description);
    option->take_all()->allow_extra_args(false)->type_name("TEXT");
    return option;
  };
  options.stepOption = several("--step",
                               "a step as in the command process, or one that begins at a point of the chart: \"OA: "
                               "point Outside,scfm=2000\"");
  options.goalOption = several("--goal", "what must come out, such as \"RM db=75,rh=50\"");
  for (CLI::Option* option : {options.fileOption, options.stepOption, options.goalOption}) {
    option->group("Air handler (solved at the chart's pressure)");
  }
}

void addSystem(Document& document, const CLI::App& command, const SystemOptions& options) {
  const std::vector<std::string> given = givenLines(command, options);
  if (!given.empty()) {
    if (lastChart(document) == nullptr) throw failure("there is no chart to add an air handler to");
    std::vector<std::string> lines = airHandlerLines(document);
    lines.insert(lines.end(), given.begin(), given.end());
    Change change = airHandlerChange(document, std::move(lines), {});
    carryOut(change, document);
  }
  const auto solved = solvedAirHandler(document);
  if (!solved) return;
  std::vector<std::string> mistakes;
  const std::string before = options.fileOption->count() > 0 && given.size() == airHandlerLines(document).size()
                                 ? (options.file == "-" ? "standard input" : options.file)
                                 : "";
  addMistakes(mistakes, solved->system.errors, before);
  addMistakes(mistakes, failures(solved->system), before);
  if (mistakes.empty()) return;
  if (!given.empty()) refuseAll(mistakes, solved->system.understood ? ExitCode::failure : ExitCode::badUsage);
  for (const std::string& mistake : mistakes) warn("air handler: " + mistake);
}

}  // namespace moistair
