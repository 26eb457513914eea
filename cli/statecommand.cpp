/// \file
/// `moistair-cli state db=75 wb=62.5`: one point, as a table to read, as JSON or as CSV.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "advice/remark.h"
#include "cli/check.h"
#include "cli/command.h"
#include "cli/fault.h"
#include "cli/format.h"
#include "cli/limitsoption.h"
#include "cli/pressureoption.h"
#include "cli/properties.h"
#include "cli/stream.h"
#include "cli/warning.h"
#include "model/jsonnode.h"
#include "text/numberformat.h"

namespace moistair {

namespace {

struct StateOptions {
  std::vector<std::string> pair;
  PressureOption pressure;
  LimitsOption limits;
  Format format = Format::text;
  bool check = false;
  ExactOptions exact;
};

void appendline(std::string& out, const std::string& caption, const std::string& value) {
  std::string cell;
  appendaligned(cell, value, pointcolumn);
  appendcolumns(out, caption, {cell});
}

std::string astable(const Resolution& resolution, const std::optional<Check>& check, const Pressure& pressure) {
  std::string out;
  appendline(out, pressurecaption(pressure.entry), pressure.entry.text);
  for (const StateColumn& column : statecolumns) {
    if (resolution.resolved()) appendline(out, captionof(column), shown(resolution.point.*column.value));
  }
  return check ? out + checktable(*check) : out;
}

std::string asjson(const Resolution& resolution, const std::optional<Check>& check) {
  Json json;
  if (resolution.resolved()) {
    json = statejson(resolution.point);
    json["iterations"] = resolution.iterations;
  }
  if (check) json["check"] = checkjson(*check);
  return jsontext(json) + "\n";
}

std::string ascsv(const Resolution& resolution, const std::optional<Check>& check) {
  std::string names;
  std::string values;
  for (const StateColumn& column : statecolumns) {
    if (!names.empty()) {
      names += ',';
      values += ',';
    }
    names += column.name;
    if (resolution.resolved()) appendsevendecimals(values, resolution.point.*column.value);
  }
  if (check) {
    for (const char* name : checkcolumns) names += std::string(",") + name;
    appendcells(values, *check, appendsevendecimals);
  }
  return names + "\n" + values + "\n";
}

void runstate(const StateOptions& options) {
  std::vector<TypedValue> assignments;
  std::transform(options.pair.begin(), options.pair.end(), std::back_inserter(assignments), assignmentof);
  const GivenPair pair = pairof(assignments);
  const Pressure pressure = pressureof(options.pressure);
  const PairOfGiven given{pair.first, pair.second};
  Resolution resolution = resolve(pair, pressure.atm, findersof(options.limits));
  if (options.exact.exact) {
    resolution = exactResolution("", given, pressure.atm, resolution);
  } else if (resolution.resolved()) {
    warnOrFail("", remarkOn(judged(given, resolution.point, pressure.atm), pressure.atm).words, options.exact);
  }
  std::optional<Check> check;
  if (options.check) check = checkof(pair, pressure.atm, resolution);
  if (resolution.resolved() || check) {
    switch (options.format) {
      case Format::text: writeresult(astable(resolution, check, pressure)); break;
      case Format::json: writeresult(asjson(resolution, check)); break;
      case Format::csv: writeresult(ascsv(resolution, check)); break;
    }
  }
  if (!resolution.resolved()) throw failure(whynot(given, pressure.atm, resolution));
}

}  // namespace

void addstatecommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("state", "Print the whole state of moist air from any two of its properties");
  const auto options = std::make_shared<StateOptions>();
  command->add_option("pair", options->pair, std::string("two of ") + kindnamelist + ", such as db=75 wb=62.5")
      ->required()
      ->type_name("KIND=VALUE");
  addpressure(*command, options->pressure);
  addlimits(*command, options->limits, "find pairs without a temperature on the chart with these limits only");
  addformat(*command, options->format);
  command->add_flag("--check", options->check,
                    "tell by how much the state misses the given values, and every exact answer or why there is none");
  addexact(*command, options->exact);
  addstrict(*command, options->exact);
  command->callback([options] { runstate(*options); });
}

}  // namespace moistair
