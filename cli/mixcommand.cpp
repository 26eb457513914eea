/// \file
/// `moistair-cli mix --stream1 ... --stream2 ...`: the three columns of the mixing window.
#include <CLI/CLI.hpp>
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "advice/remark.h"
#include "cli/command.h"
#include "cli/format.h"
#include "cli/mixoptions.h"
#include "cli/stream.h"
#include "cli/warning.h"
#include "model/jsonnode.h"
#include "text/numberformat.h"

namespace moistair {

namespace {

struct MixOptions {
  std::array<std::string, 2> streams;
  PressureOption pressure;
  ExactOptions exact;
  Format format = Format::text;
};

constexpr std::array<const char*, 3> columnTitles = {"Stream 1", "Stream 2", "Mixed stream"};
constexpr std::array<const char*, 3> columnNames = {"stream1", "stream2", "mixed"};

using Columns = std::array<const AirStream*, 3>;

Columns columnsOf(const MixingProblem& problem) { return {&problem.streams[0], &problem.streams[1], &problem.mixed}; }

std::string asTable(const MixingProblem& problem) {
  std::string out;
  std::vector<std::string> cells;
  for (const char* title : columnTitles) cells.push_back(std::string("    ") + title);
  appendColumns(out, "", cells);
  for (std::size_t row = 0; row < shownReadouts; ++row) {
    cells.clear();
    for (const AirStream* column : columnsOf(problem)) {
      appendAligned(cells.emplace_back(), column->*readoutRows[row].text, pointColumn);
    }
    appendColumns(out, captionOf(readoutRows[row], problem), cells);
  }
  return out;
}

std::string asJson(const MixingProblem& problem) {
  Json json;
  const Columns columns = columnsOf(problem);
  for (std::size_t column = 0; column < columns.size(); ++column) {
    Json& stream = json[columnNames[column]];
    for (std::size_t row = 0; row < shownReadouts; ++row) {
      const std::string& readout = columns[column]->*readoutRows[row].text;
      stream[readoutRows[row].key] = readout.empty() ? Json() : jsonNumber(lenientNumber(readout));
    }
  }
  return jsonText(json) + "\n";
}

/// A read-out as a number; nothing for a blank one.
void appendNumber(std::string& out, const std::string& readout, void (*append)(std::string&, double)) {
  if (!readout.empty()) append(out, lenientNumber(readout));
}

std::string asCsv(const MixingProblem& problem) {
  std::string out = "stream";
  for (std::size_t row = 0; row < shownReadouts; ++row) out += std::string(",") + readoutRows[row].key;
  out += '\n';
  const Columns columns = columnsOf(problem);
  for (std::size_t column = 0; column < columns.size(); ++column) {
    out += columnNames[column];
    for (std::size_t row = 0; row < shownReadouts; ++row) {
      out += ',';
      const bool entered = row < enteredReadouts;
      appendNumber(out, columns[column]->*readoutRows[row].text, entered ? appendRoundTrip : appendSevenDecimals);
    }
    out += '\n';
  }
  return out;
}

/// Warns of states that visibly miss something.
void judge(const MixingProblem& problem, const ExactOptions& options) {
  const double atm = problem.pressure.atm;
  const auto& [one, two] = problem.streams;
  for (const AirStream* stream : {&one, &two}) {
    const Missed missed = judged(*givenOf(*stream), shownState(*stream), atm);
    warnOrFail(stream == &one ? "stream 1" : "stream 2", remarkOn(missed, atm).words, options);
  }
  warnOrFail("", remarkOn(judgedMixture(one, two, problem.mixed, atm), atm, true).words, options);
}

void runMix(const MixOptions& options) {
  const MixingProblem problem =
      solvedMixing(options.streams[0], options.streams[1], pressureOf(options.pressure), options.exact.exact);
  judge(problem, options.exact);
  switch (options.format) {
    case Format::text: writeResult(asTable(problem)); break;
    case Format::json: writeResult(asJson(problem)); break;
    case Format::csv: writeResult(asCsv(problem)); break;
  }
}

}  // namespace

void addMixCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("mix", "Mix two streams of moist air");
  const auto options = std::make_shared<MixOptions>();
  for (std::size_t i = 0; i < options->streams.size(); ++i) {
    command
        ->add_option("--stream" + std::to_string(i + 1), options->streams[i],
                     "two properties and the air flow rate in acfm, such as db=75,wb=62.5,flow=1000")
        ->required()
        ->type_name("KIND=VALUE,KIND=VALUE,flow=VALUE");
  }
  addPressure(*command, options->pressure);
  addExact(*command, options->exact);
  addStrict(*command, options->exact);
  addFormat(*command, options->format);
  command->callback([options] { runMix(*options); });
}

}  // namespace moistair
