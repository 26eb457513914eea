/// \file
/// `moistair-cli batch in.csv -o out.csv`: a state for every row of a table, of any length and in constant memory.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <chrono>
#include <cmath>
#include <memory>
#include <string>

#include "cli/batchrows.h"
#include "cli/command.h"
#include "cli/fault.h"
#include "cli/inorder.h"
#include "cli/limitsoption.h"
#include "cli/properties.h"
#include "cli/stream.h"

namespace moistair {

namespace {

struct BatchOptions {
  std::string input;
  std::string output;
  PressureOption pressure;
  LimitsOption limits;
  bool full = false;
  std::string jobs = "1";
};

/// How many rows are done, and the line on the terminal that says so a few times a second.
class Progress {
public:
  explicit Progress(bool visible) : visible_(visible) {}
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void add(const BatchResult& result) {
    rows_ += result.rows;
    failed_ += result.failed;
    const auto now = Clock::now();
    if (!visible_ || now - shown_ < std::chrono::milliseconds(200)) return;
    shown_ = now;
    const std::chrono::duration<double> taken = now - start_;
    const auto rate = static_cast<long long>(static_cast<double>(rows_) / taken.count());
    say("\r" + std::to_string(rows_) + " rows, " + std::to_string(failed_) + " failed, " + std::to_string(rate) +
        " rows/s" + clearrest);
  }

  /// Leaves the terminal's line clear, also for the message of a failure.
  ~Progress() {
    if (visible_) say(std::string("\r") + clearrest);
  }

  std::size_t rows() const { return rows_; }
  std::size_t failed() const { return failed_; }

private:
  using Clock = std::chrono::steady_clock;
  static constexpr const char* clearrest = "\x1B[K";

  /// A terminal that is gone is no reason to stop.
  static void say(const std::string& text) {
    [[maybe_unused]] auto ignored = ::write(STDERR_FILENO, text.data(), text.size());
  }

  bool visible_;
  Clock::time_point start_ = Clock::now();
  Clock::time_point shown_ = start_;
  std::size_t rows_ = 0;
  std::size_t failed_ = 0;
};

unsigned jobsof(const std::string& text) {
  constexpr double most = 256;
  const double jobs = numberof(text, "jobs");
  if (!(jobs >= 1 && jobs <= most && jobs == std::floor(jobs)))
    throw badusage("jobs must be a whole number from 1 to 256");
  return static_cast<unsigned>(jobs);
}

/// The table's first record, and the block it stands in with all that follows it there.
struct Head {
  std::string block;
  std::string_view rows;
  CsvRecord header;
};

/// Reads up to the first line that is not blank.
void readhead(BlockReader& reader, const std::string& name, Head& head) {
  while (auto block = reader.next()) {
    head.block = std::move(*block);
    head.rows = head.block;
    while (takerecord(head.rows, head.header)) {
      if (!head.header.blank()) return;
    }
  }
  throw badusage(name + " is empty");
}

void runbatch(const BatchOptions& options) {
  const unsigned jobs = jobsof(options.jobs);
  const double atm = pressureof(options.pressure).atm;
  const RangeFinders finders = findersof(options.limits);
  Input input(options.input);
  BlockReader reader(input);
  Head head;
  readhead(reader, input.name(), head);
  const BatchPlan plan{.columns = columnsof(head.header, input.name()),
                       .lineend = head.header.lineend.starts_with('\r') ? "\r\n" : "\n",
                       .atm = atm,
                       .finders = &finders,
                       .full = options.full};

  Output output(options.output, &input);
  Progress progress(::isatty(STDERR_FILENO) == 1 && !output.isterminal());
  const auto write = [&](const BatchResult& result) {
    output.write(result.text);
    progress.add(result);
  };
  BatchResult first = resolverows(head.rows, plan);
  first.text.insert(0, headerline(head.header, plan.lineend));
  write(first);
  runinorder({.read = [&] { return reader.next(); },
              .work = [&](const std::string& block) { return resolverows(block, plan); },
              .write = write},
             jobs);
  output.close();
  if (progress.failed() > 0) {
    throw failure(std::to_string(progress.failed()) + " of " + std::to_string(progress.rows()) + " rows failed");
  }
}

}  // namespace

void addbatchcommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("batch", "Find the state for every row of a CSV table");
  const auto options = std::make_shared<BatchOptions>();
  command->add_option("input", options->input, "the table; standard input if not given, and for -")->type_name("FILE");
  command->add_option("-o,--output", options->output, "where to write it; standard output if not given, and for -")
      ->type_name("FILE");
  addpressure(*command, options->pressure);
  addlimits(*command, options->limits, "find pairs without a temperature on the chart with these limits only");
  command->add_flag("--full", options->full, "write numbers in full instead of with seven decimals");
  command->add_option("--jobs", options->jobs, "threads to work on, 1 to 256; 1 if not given")->type_name("N");
  command->callback([options] { runbatch(*options); });
}

}  // namespace moistair
