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

void appendLine(std::string& out, const std::string& caption, const std::string& value) {
  std::string cell;
  appendAligned(cell, value, pointColumn);
  appendColumns(out, caption, {cell});
}

std::string asTable(const Resolution& resolution, const std::optional<Check>& check, const Pressure& pressure) {
  std::string out;
  appendLine(out, pressureCaption(pressure.entry), pressure.entry.text);
  for (const Property& property : propertyTable) {
    if (!resolution.resolved()) break;
    appendLine(out, property.caption, tableValue(valueOf(property, resolution.point, pressure.atm)));
  }
  return check ? out + checkTable(*check) : out;
}

std::string asJson(const Resolution& resolution, const std::optional<Check>& check, const Pressure& pressure) {
  Json json;
  if (resolution.resolved()) {
    json = stateJson(resolution.point, pressure.atm);
    json["iterations"] = resolution.iterations;
  }
  if (check) json["check"] = checkJson(*check);
  return jsonText(json) + "\n";
}

std::string asCsv(const Resolution& resolution, const std::optional<Check>& check, const Pressure& pressure) {
  std::string names;
  std::string values;
  for (const Property& property : propertyTable) {
    if (!names.empty()) {
      names += ',';
      values += ',';
    }
    names += property.key;
    if (resolution.resolved()) appendSevenDecimals(values, valueOf(property, resolution.point, pressure.atm));
  }
  if (check) {
    for (const char* name : checkColumns) names += std::string(",") + name;
    appendCells(values, *check, appendSevenDecimals);
  }
  return names + "\n" + values + "\n";
}

void runState(const StateOptions& options) {
  std::vector<TypedValue> assignments;
  std::transform(options.pair.begin(), options.pair.end(), std::back_inserter(assignments), assignmentOf);
  const GivenPair pair = pairOf(assignments);
  const Pressure pressure = pressureOf(options.pressure);
  const PairOfGiven given{pair.first, pair.second};
  Resolution resolution = resolve(pair, pressure.atm, findersOf(options.limits));
  if (options.exact.exact) {
    resolution = exactResolution("", given, pressure.atm, resolution);
  } else if (resolution.resolved()) {
    warnOrFail("", remarkOn(judged(given, resolution.point, pressure.atm), pressure.atm).words, options.exact);
  }
  std::optional<Check> check;
  if (options.check) check = checkOf(pair, pressure.atm, resolution);
  if (resolution.resolved() || check) {
    switch (options.format) {
      case Format::text: writeResult(asTable(resolution, check, pressure)); break;
      case Format::json: writeResult(asJson(resolution, check, pressure)); break;
      case Format::csv: writeResult(asCsv(resolution, check, pressure)); break;
    }
  }
  if (!resolution.resolved()) throw failure(whyNot(given, pressure.atm, resolution));
}

}  // namespace

void addStateCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("state", "Print the whole state of moist air from any two of its properties");
  const auto options = std::make_shared<StateOptions>();
  command->add_option("pair", options->pair, "two of " + kindNameList + ", such as db=75 wb=62.5")
      ->required()
      ->type_name("KIND=VALUE");
  addPressure(*command, options->pressure);
  addLimits(*command, options->limits, "find pairs without a temperature on the chart with these limits only");
  addFormat(*command, options->format);
  command->add_flag("--check", options->check,
                    "tell by how much the state misses the given values, and every exact answer or why there is none");
  addExact(*command, options->exact);
  addStrict(*command, options->exact);
  command->callback([options] { runState(*options); });
}

}  // namespace moistair
