/// \file
/// `moistair-cli batch in.csv -o out.csv`: a state for every row of a table, of any length and in constant memory.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <chrono>
#include <cmath>
#include <memory>
#include <optional>
#include <string>

#include "cli/batchrows.h"
#include "cli/command.h"
#include "cli/fault.h"
#include "cli/inorder.h"
#include "cli/limitsoption.h"
#include "cli/properties.h"
#include "cli/stream.h"
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

/// How many rows are done, and the line on the terminal that says so a few times a second.
class Progress {
public:
  explicit Progress(bool visible) : visible_(visible) {}
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void add(const BatchResult& result) {
    rows_ += result.rows;
    failed_ += result.failed;
    missed_ += result.missed;
    nearest_ += result.nearest;
    openquote_ = result.openquote;
    const auto now = Clock::now();
    if (!visible_ || now - shown_ < std::chrono::milliseconds(200)) return;
    shown_ = now;
    const std::chrono::duration<double> taken = now - start_;
    const auto rate = static_cast<long long>(static_cast<double>(rows_) / taken.count());
    say("\r" + std::to_string(rows_) + " rows, " + std::to_string(failed_) + " failed, " + std::to_string(missed_) +
        " missed, " + std::to_string(rate) + " rows/s" + clearrest);
  }

  /// Leaves the terminal's line clear, also for the message of a failure.
  ~Progress() {
    if (visible_) say(std::string("\r") + clearrest);
  }

  std::size_t rows() const { return rows_; }
  std::size_t failed() const { return failed_; }
  std::size_t missed() const { return missed_; }
  std::size_t nearest() const { return nearest_; }
  std::optional<std::size_t> openquote() const { return openquote_; }

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
  std::size_t missed_ = 0;
  std::size_t nearest_ = 0;
  std::optional<std::size_t> openquote_;
};

unsigned jobsof(const std::string& text) {
  constexpr double most = 256;
  const double jobs = numberof(text, "jobs");
  if (!(jobs >= 1 && jobs <= most && jobs == std::floor(jobs)))
    throw badusage("jobs must be a whole number from 1 to 256");
  return static_cast<unsigned>(jobs);
}

/// One character, or "\t" as it is typed where a tab cannot be.
char delimiterof(const std::string& text) {
  const std::string character = text == "\\t" ? "\t" : text;
  const bool one = character.size() == 1 && (character[0] == '\t' || (character[0] >= ' ' && character[0] <= '~'));
  constexpr std::string_view innumbers = "+-.";
  if (!one || character == "\"" || std::isalnum(static_cast<unsigned char>(character[0])) != 0 ||
      innumbers.find(character[0]) != std::string_view::npos) {
    throw badusage(
        "delimiter must be one character that is no quote and no part of a number or a name such as ; or \\t");
  }
  return character[0];
}

/// The rows of a table in pieces whose results are of some size only. A wide table makes long rows of short ones: each
/// is filled up to the number of columns.
class Rows {
public:
  Rows(BlockReader& reader, char delimiter) : reader_(reader), delimiter_(delimiter) {}

  /// The table's first record, which comes first; bad usage if there is none.
  CsvRecord header(const std::string& name) {
    CsvRecord header;
    while (fetch()) {
      while (takerecord(rest_, header, delimiter_)) {
        if (!header.blank()) return header;
      }
    }
    throw badusage(reader_.gaveup() ? name + ": the first line is longer than 8 MB; lines must end in line feeds"
                                    : name + " is empty");
  }

  /// Sets the number of columns; ends the life of the header.
  void setcolumns(std::size_t columns) { columns_ = columns; }

  std::optional<std::string> next() {
    constexpr std::size_t resultsize = 1u << 20;
    if (rest_.empty() && !fetch()) return std::nullopt;
    const std::size_t rows = std::max<std::size_t>(resultsize / columns_, 1);
    std::string_view piece = rest_;
    if (static_cast<std::size_t>(std::count(rest_.begin(), rest_.end(), '\n')) <= rows) {
      rest_ = {};
    } else {
      CsvRecord record;
      for (std::size_t i = 0; i < rows; ++i) takerecord(rest_, record, delimiter_);
      piece.remove_suffix(rest_.size());
    }
    return std::string(piece);
  }

private:
  bool fetch() {
    auto block = reader_.next();
    if (!block) return false;
    block_ = std::move(*block);
    rest_ = block_;
    return true;
  }

  BlockReader& reader_;
  char delimiter_;
  std::string block_;
  std::string_view rest_;
  std::size_t columns_ = 1;
};

/// What a user should know of a table that is read all the same.
void warnOfColumns(const BatchColumns& columns, const std::string& name) {
  if (columns.takennames.empty()) return;
  std::string names;
  for (const std::string& taken : columns.takennames) names += (names.empty() ? "" : ", ") + taken;
  warn(name + " has columns of the result already: " + names);
}

/// "79 of 8760 rows"
std::string countOf(std::size_t some, std::size_t rows) {
  return std::to_string(some) + " of " + std::to_string(rows) + " rows";
}

/// What a user should know of the rows that have a state.
void warnOfStates(const Progress& progress, bool strict) {
  if (progress.missed() > 0 && !strict) {
    warn(countOf(progress.missed(), progress.rows()) +
         " have the status \"missed\": their state misses a given value (--check says by how much, --exact takes the "
         "exact state)");
  }
  if (progress.nearest() > 0) {
    warn(countOf(progress.nearest(), progress.rows()) +
         " have the status \"nearest\": of several exact states theirs is the one nearest to the search");
  }
}

/// Throws for what has gone wrong in a table that was written.
void checkrows(const Progress& progress, bool strict) {
  if (progress.failed() == 0) return;
  std::string text = countOf(progress.failed(), progress.rows()) + " failed";
  if (strict && progress.missed() > 0) {
    text += "; " + std::to_string(progress.missed()) + " of them because their state misses a given value";
  }
  if (const auto lines = progress.openquote()) {
    text += "; a quote was left open in row " + std::to_string(progress.rows()) + ", which has taken in " +
            std::to_string(*lines) + (*lines == 1 ? " line" : " lines") + " behind it";
  }
  throw failure(text);
}

void runbatch(const BatchOptions& options) {
  const unsigned jobs = jobsof(options.jobs);
  const char delimiter = delimiterof(options.delimiter);
  const double atm = pressureof(options.pressure).atm;
  const RangeFinders finders = findersof(options.limits);
  Input input(options.input);
  BlockReader reader(input, delimiter);
  Rows rows(reader, delimiter);
  const CsvRecord header = rows.header(input.name());
  const BatchPlan plan{.columns = columnsof(header, input.name(), delimiter, options.check),
                       .delimiter = delimiter,
                       .lineend = header.lineend.starts_with('\r') ? "\r\n" : "\n",
                       .atm = atm,
                       .finders = &finders,
                       .full = options.full,
                       .check = options.check,
                       .exact = options.exact.exact,
                       .strict = options.exact.strict};
  Output output(options.output, &input);
  warnOfColumns(plan.columns, input.name());
  output.write(headerline(header, plan));
  rows.setcolumns(plan.columns.selection.columns);

  Progress progress(::isatty(STDERR_FILENO) == 1 && !output.isterminal());
  runinorder({.read = [&] { return rows.next(); },
              .work = [&](const std::string& block) { return resolverows(block, plan); },
              .write =
                  [&](const BatchResult& result) {
                    output.write(result.text);
                    progress.add(result);
                  }},
             jobs);
  if (reader.gaveup()) {
    throw failure(input.name() + ", row " + std::to_string(progress.rows() + 1) +
                  ": more than 8 MB without the end of the row; a quote may have been left open");
  }
  output.close();
  warnOfStates(progress, plan.strict);
  checkrows(progress, plan.strict);
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
  command
      ->add_option("--delimiter", options->delimiter, "what separates the fields; a comma if not given, \\t for a tab")
      ->type_name("CHARACTER");
  command->add_flag("--full", options->full, "write numbers in full instead of with seven decimals");
  command->add_flag("--check", options->check,
                    "add how far the state misses the given values, and the number of exact answers");
  addexact(*command, options->exact);
  addstrict(*command, options->exact);
  command->add_option("--jobs", options->jobs, "threads to work on, 1 to 256; 1 if not given")->type_name("N");
  command->callback([options] { runbatch(*options); });
}

}  // namespace moistair
