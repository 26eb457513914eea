/// \file
/// `moistair-cli state db=75 wb=62.5`: one point, as a table to read, as JSON or as CSV.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/fault.h"
#include "cli/format.h"
#include "cli/limitsoption.h"
#include "cli/pressureoption.h"
#include "cli/properties.h"
#include "cli/stream.h"
#include "document/jsonnode.h"
#include "session/numberformat.h"

namespace moistair {

namespace {

struct StateOptions {
  std::vector<std::string> pair;
  PressureOption pressure;
  LimitsOption limits;
  Format format = Format::text;
};

void appendline(std::string& out, const std::string& caption, const std::string& value) {
  constexpr std::size_t captionwidth = 30;
  constexpr std::size_t pointcolumn = 6;
  appendpadded(out, caption, captionwidth);
  appendaligned(out, value, pointcolumn);
  out += '\n';
}

std::string astable(const StatePoint& point, const Pressure& pressure) {
  std::string out;
  appendline(out, pressurecaption(pressure.entry), pressure.entry.text);
  for (const StateColumn& column : statecolumns) appendline(out, captionof(column), shown(point.*column.value));
  return out;
}

std::string asjson(const Resolution& resolution) {
  Json json;
  for (const StateColumn& column : statecolumns) json[column.name] = jsonnumber(resolution.point.*column.value);
  json["iterations"] = resolution.iterations;
  return jsontext(json) + "\n";
}

std::string ascsv(const StatePoint& point) {
  std::string names;
  std::string values;
  for (const StateColumn& column : statecolumns) {
    if (!names.empty()) names += ',';
    if (!values.empty()) values += ',';
    names += column.name;
    appendsevendecimals(values, point.*column.value);
  }
  return names + "\n" + values + "\n";
}

void runstate(const StateOptions& options) {
  std::vector<Assignment> assignments;
  std::transform(options.pair.begin(), options.pair.end(), std::back_inserter(assignments), assignmentof);
  const GivenPair pair = pairof(assignments);
  const Pressure pressure = pressureof(options.pressure);
  const Resolution resolution = resolve(pair, pressure.atm, findersof(options.limits));
  if (!resolution.resolved()) throw failure(whynot(resolution));
  switch (options.format) {
    case Format::text: writeresult(astable(resolution.point, pressure)); break;
    case Format::json: writeresult(asjson(resolution)); break;
    case Format::csv: writeresult(ascsv(resolution.point)); break;
  }
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
  command->callback([options] { runstate(*options); });
}

}  // namespace moistair
