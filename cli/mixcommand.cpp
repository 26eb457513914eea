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

/// Names of the rows that the window shows, for programs.
constexpr std::array<const char*, shownreadouts> rownames = {"flow", "pressure", "db", "wb", "rh",
                                                             "h",    "v",        "w",  "dp", "pv"};

constexpr std::array<const char*, 3> columntitles = {"Stream 1", "Stream 2", "Mixed stream"};
constexpr std::array<const char*, 3> columnnames = {"stream1", "stream2", "mixed"};

using Columns = std::array<const AirStream*, 3>;

Columns columnsof(const MixingProblem& problem) { return {&problem.streams[0], &problem.streams[1], &problem.mixed}; }

std::string astable(const MixingProblem& problem) {
  std::string out;
  std::vector<std::string> cells;
  for (const char* title : columntitles) cells.push_back(std::string("    ") + title);
  appendcolumns(out, "", cells);
  for (std::size_t row = 0; row < shownreadouts; ++row) {
    cells.clear();
    for (const AirStream* column : columnsof(problem)) {
      appendaligned(cells.emplace_back(), column->*readoutrows[row].text, pointcolumn);
    }
    appendcolumns(out, captionof(readoutrows[row], problem), cells);
  }
  return out;
}

std::string asjson(const MixingProblem& problem) {
  Json json;
  const Columns columns = columnsof(problem);
  for (std::size_t column = 0; column < columns.size(); ++column) {
    Json& stream = json[columnnames[column]];
    for (std::size_t row = 0; row < shownreadouts; ++row) {
      const std::string& readout = columns[column]->*readoutrows[row].text;
      stream[rownames[row]] = readout.empty() ? Json() : jsonnumber(lenientnumber(readout));
    }
  }
  return jsontext(json) + "\n";
}

/// A read-out as a number; nothing for a blank one.
void appendnumber(std::string& out, const std::string& readout, void (*append)(std::string&, double)) {
  if (!readout.empty()) append(out, lenientnumber(readout));
}

std::string ascsv(const MixingProblem& problem) {
  std::string out = "stream";
  for (const char* name : rownames) out += std::string(",") + name;
  out += '\n';
  const Columns columns = columnsof(problem);
  for (std::size_t column = 0; column < columns.size(); ++column) {
    out += columnnames[column];
    for (std::size_t row = 0; row < shownreadouts; ++row) {
      out += ',';
      const bool entered = row < 2;  // the flow and the pressure have the digits that were typed
      appendnumber(out, columns[column]->*readoutrows[row].text, entered ? appendroundtrip : appendsevendecimals);
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

void runmix(const MixOptions& options) {
  const MixingProblem problem =
      solvedmixing(options.streams[0], options.streams[1], pressureof(options.pressure), options.exact.exact);
  judge(problem, options.exact);
  switch (options.format) {
    case Format::text: writeresult(astable(problem)); break;
    case Format::json: writeresult(asjson(problem)); break;
    case Format::csv: writeresult(ascsv(problem)); break;
  }
}

}  // namespace

void addmixcommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("mix", "Mix two streams of moist air");
  const auto options = std::make_shared<MixOptions>();
  for (std::size_t i = 0; i < options->streams.size(); ++i) {
    command
        ->add_option("--stream" + std::to_string(i + 1), options->streams[i],
                     "two properties and the air flow rate in acfm, such as db=75,wb=62.5,flow=1000")
        ->required()
        ->type_name("KIND=VALUE,KIND=VALUE,flow=VALUE");
  }
  addpressure(*command, options->pressure);
  addexact(*command, options->exact);
  addstrict(*command, options->exact);
  addformat(*command, options->format);
  command->callback([options] { runmix(*options); });
}

}  // namespace moistair
