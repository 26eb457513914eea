/// \file
/// The headless tool: the calculations of the program on the command line, for scripts and tables.
#include <fcntl.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <csignal>
#include <exception>
#include <iostream>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "cli/command.h"
#include "cli/fault.h"
#include "cli/warning.h"

namespace moistair {

namespace {

int ended(ExitCode code, const std::string& text) {
  say(text);
  return static_cast<int>(code);
}

/// Occupies those of the standard three that are closed, so that no file opened later is taken for one of them.
void holdStandard() {
  for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(number, F_GETFD) < 0) ::open("/dev/null", number == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

/// Bad usage for a first word that is no command; the parser would only say that one is missing.
void checkCommand(const CLI::App& app, int argc, char** argv) {
  if (argc < 2 || argv[1][0] == '-') return;
  const auto named = [&](const CLI::App* command) { return command->get_name() == argv[1]; };
  if (!app.get_subcommands(named).empty()) return;
  throw badUsage("unknown command \"" + std::string(argv[1]) + "\" (see moistair-cli --help)");
}

/// Bad usage for an option in front of the command that takes it.
void checkPlace(const CLI::App& app, int argc, char** argv) {
  const std::vector<std::string> words(argv + 1, argv + argc);
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
    const auto named = std::find(words.begin(), words.end(), command->get_name());
    for (auto word = words.begin(); named != words.end() && word != named; ++word) {
      const std::string option = word->substr(0, word->find('='));
      if (!option.starts_with('-') || command->get_option_no_throw(option) == nullptr) continue;
      throw badUsage(option + " comes after the command: moistair-cli " + command->get_name() + " " + option);
    }
  }
}

/// Bad usage for an option that there is not; the parser would first say which others are missing.
void checkOptions(const CLI::App& app) {
  for (const std::string& word : app.remaining(true)) {
    if (word.size() > 1 && word.front() == '-') throw badUsage("unknown option " + word + " (see moistair-cli --help)");
  }
}

/// What CLI11 prints for --help and --version.
int printed(const CLI::App& app, const CLI::ParseError& request) {
  app.exit(request);
  std::cout.flush();
  return std::cout ? static_cast<int>(ExitCode::success)
                   : ended(ExitCode::failure, "standard output cannot be written");
}

int run(int argc, char** argv) {
  CLI::App app("Moist-air states, tables, mixtures and charts in English units", "moistair-cli");
  app.require_subcommand(1);
  addStateCommand(app);
  addBatchCommand(app);
  addMixCommand(app);
  addProcessCommand(app);
  addDesignCommand(app);
  addComfortCommand(app);
  addChartCommand(app);
  addSheetCommand(app);
  addWeatherCommand(app);
  const std::string version = std::string("moistair-cli ") + MOISTAIR_VERSION;
  app.set_version_flag("--version", version, "Print the version and exit");
  for (CLI::App* command : app.get_subcommands({})) {
    command->set_version_flag("--version", version, "Print the version and exit");
  }
  checkCommand(app, argc, argv);
  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& request) {
    return printed(app, request);
  } catch (const CLI::ParseError& error) {
    checkPlace(app, argc, argv);
    checkOptions(app);
    return ended(ExitCode::badUsage, std::string(error.what()) + " (see moistair-cli --help)");
  }
  return static_cast<int>(ExitCode::success);
}

}  // namespace

}  // namespace moistair

int main(int argc, char** argv) {
  moistair::holdStandard();
  // A closed pipe and a file that may grow no further are errors of the write, to be reported as such.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  try {
    return moistair::run(argc, argv);
  } catch (const moistair::Fault& fault) {
    return moistair::ended(fault.code(), fault.what());
  } catch (const std::bad_alloc&) {
    return moistair::ended(moistair::ExitCode::failure, "there is not enough memory");
  } catch (const std::exception& error) {
    return moistair::ended(moistair::ExitCode::failure, std::string("cannot go on: ") + error.what());
  }
}
