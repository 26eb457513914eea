/// \file
/// `moistair-cli comfort db=74.5,rh=67 --met 1.1 --clo 0.5`: how people vote on air, whether air is within a zone, and
/// the corners of that zone.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/check.h"
#include "cli/command.h"
#include "cli/fault.h"
#include "cli/format.h"
#include "cli/limitsoption.h"
#include "cli/pressureoption.h"
#include "cli/programfolder.h"
#include "cli/stream.h"
#include "cli/warning.h"
#include "cli/zoneoptions.h"
#include "model/envelopefile.h"
#include "process/air.h"
#include "text/numberformat.h"

namespace moistair {

namespace {

struct ComfortOptions {
  std::vector<std::string> pair;
  std::map<std::string, std::string> values;  ///< by the names of zoneKeys, as typed
  std::string envelope;
  PressureOption pressure;
  LimitsOption limits;
  Format format = Format::text;
  bool corners = false, outline = false, list = false;
};

Zone zoneOf(const ComfortOptions& options, const CLI::App& command) {
  std::vector<TypedValue> values;
  for (const ZoneKey& key : zoneKeys) {
    const auto given = options.values.find(key.name);
    if (command.get_option(std::string("--") + key.name)->count() > 0) values.push_back({key.name, given->second});
  }
  if (options.envelope.empty()) return zoneOf(values);
  if (!values.empty()) throw badUsage("--" + values.front().name + " has no meaning for an envelope");
  return envelopeOfText(options.envelope);
}

AirState stateOf(const ComfortOptions& options, const Site& site) {
  std::string joined;
  for (const std::string& part : options.pair) joined += (joined.empty() ? "" : ",") + part;
  const GivenPair pair = pairOf(assignmentsOf(joined));
  const Result<AirState> state = site.air->stateOf(pair.first, pair.second, site.atm);
  if (!state) throw failure(state.error().text());
  return *state;
}

StatePoint pointOf(const OutlinePoint& at, const Site& site) {
  const AirModel& air = *site.air;
  StatePoint point;
  point.db = at.db;
  point.w = at.w;
  point.wb = air.wetBulbs(at.db, at.w, site.atm).shown();
  point.rh = air.relativeHumidity(at.db, at.w, site.atm);
  point.h = air.enthalpy(at.db, at.w);
  point.dp = air.dewPoint(at.w, site.atm);
  point.v = air.volume(at.db, at.w, site.atm);
  point.pv = pressureOfRatio(at.w, site.atm);
  return point;
}

void appendLine(std::string& out, const std::string& caption, const std::string& value) {
  std::string cell;
  appendAligned(cell, value, pointColumn);
  appendColumns(out, caption, {cell});
}

/// @param comfort none for a zone without votes
std::string asTable(const std::optional<Comfort>& comfort, bool inside, const Zone& zone, const Pressure& pressure) {
  std::string out;
  appendLine(out, pressureCaption(pressure.entry), pressure.entry.text);
  if (comfort) {
    appendLine(out, "Predicted mean vote (PMV)", fixedDecimals(comfort->pmv, 2));
    appendLine(out, "Dissatisfied (PPD, %)", fixedDecimals(comfort->ppd, 1));
    appendLine(out, "Cooling effect (Deg F)", fixedDecimals(comfort->coolingEffect, 2));
  }
  appendLine(out, "Within the zone", inside ? "yes" : "no");
  return titleOf(zone) + "\n" + out;
}

std::string asJson(const std::optional<Comfort>& comfort, bool inside) {
  Json json;
  if (comfort) {
    json["pmv"] = jsonNumber(comfort->pmv);
    json["ppd"] = jsonNumber(comfort->ppd);
    json["ce"] = jsonNumber(comfort->coolingEffect);
  }
  json["inside"] = inside;
  return jsonText(json) + "\n";
}

std::string asCsv(const std::optional<Comfort>& comfort, bool inside) {
  std::string names;
  std::string values;
  const auto add = [&](const char* name, double value) {
    names += std::string(name) + ",";
    appendSevenDecimals(values, value);
    values += ',';
  };
  if (comfort) {
    add("pmv", comfort->pmv);
    add("ppd", comfort->ppd);
    add("ce", comfort->coolingEffect);
  }
  return names + "inside\n" + values + (inside ? "yes\n" : "no\n");
}

void judgeState(const ComfortOptions& options, const Zone& zone, const Pressure& pressure) {
  const AirState air = stateOf(options, Site{.atm = pressure.atm});
  std::optional<Comfort> comfort;
  if (const auto* votes = std::get_if<ComfortZone>(&zone)) {
    const Result<Comfort> found = comfortAt(votes->occupant, air.db, air.w, pressure.atm);
    if (!found) throw failure(found.error().text());
    comfort = *found;
  }
  const bool inside = contains(zone, air.db, air.w, pressure.atm);
  switch (options.format) {
    case Format::text: writeResult(asTable(comfort, inside, zone, pressure)); break;
    case Format::json: writeResult(asJson(comfort, inside)); break;
    case Format::csv: writeResult(asCsv(comfort, inside)); break;
  }
}

std::string cornersTable(const std::vector<StatePoint>& points, const Zone& zone, const Pressure& pressure) {
  std::string out = titleOf(zone) + "\n";
  appendLine(out, pressureCaption(pressure.entry), pressure.entry.text);
  for (const Property& property : propertyTable) {
    std::vector<std::string> cells;
    for (const StatePoint& point : points) {
      const double value = valueOf(property, point, pressure.atm);
      appendAligned(cells.emplace_back(), fixedDecimals(value, property.sheetDecimals), pointColumn);
    }
    appendColumns(out, property.caption, cells);
  }
  return out;
}

std::string cornersJson(const std::vector<StatePoint>& points, const Zone& zone, double atm) {
  Json json{{"zone", titleOf(zone)}, {"corners", Json::array()}};
  for (const StatePoint& point : points) json["corners"].push_back(stateJson(point, atm));
  return jsonText(json) + "\n";
}

std::string cornersCsv(const std::vector<StatePoint>& points, double atm) {
  std::string out;
  for (const Property& property : propertyTable) out += std::string(out.empty() ? "" : ",") + property.key;
  for (const StatePoint& point : points) {
    const char* before = "\n";
    for (const Property& property : propertyTable) {
      out += before;
      appendSevenDecimals(out, valueOf(property, point, atm));
      before = ",";
    }
  }
  return out + "\n";
}

void listCorners(const ComfortOptions& options, const Zone& zone, const Pressure& pressure) {
  const ChartLimits limits = limitsOf(options.limits);
  const ZoneWindow window{limits.lowDb, limits.highDb, limits.lowHr, limits.highHr};
  std::vector<StatePoint> points;
  for (const Outline& outline : outlinesOf(zone, window, pressure.atm)) {
    for (const OutlinePoint& at : outline) {
      if (at.corner || options.outline) points.push_back(pointOf(at, Site{.atm = pressure.atm}));
    }
  }
  for (const std::string& note : notesOn(zone, pressure.atm)) warn(note);
  if (points.empty()) throw failure("no air within the limits is in the zone");
  switch (options.format) {
    case Format::text: writeResult(cornersTable(points, zone, pressure)); break;
    case Format::json: writeResult(cornersJson(points, zone, pressure.atm)); break;
    case Format::csv: writeResult(cornersCsv(points, pressure.atm)); break;
  }
}

void listEnvelopes() {
  const std::filesystem::path folder = programFolder() / envelopeFolder;
  std::string out;
  for (const std::string& name : envelopeNames(folder)) {
    const Result<Envelope> envelope = envelopeOf(name, folder);
    if (!envelope) throw failure(envelope.error().text());
    appendPadded(out, name, 16);
    out += envelope->title + "\n";
  }
  writeResult(out);
}

void runComfort(ComfortOptions options, const CLI::App& command) {
  if (options.list) return listEnvelopes();
  const Zone zone = zoneOf(options, command);
  const Pressure pressure = pressureOf(options.pressure);
  const bool zoneAsked = options.corners || options.outline;
  if (zoneAsked == !options.pair.empty()) {
    throw badUsage(zoneAsked ? "--zone and --outline take no state"
                             : "a state such as db=75,rh=50 or --zone is missing");
  }
  if (!zoneAsked) return judgeState(options, zone, pressure);
  if (command.get_option("--format")->count() == 0) options.format = Format::csv;
  listCorners(options, zone, pressure);
}

}  // namespace

void addComfortCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("comfort", "How warm people feel, and zones of comfort and of equipment");
  const auto options = std::make_shared<ComfortOptions>();
  command->add_option("pair", options->pair, "two of " + kindNameList + ", such as db=75,rh=50")
      ->type_name("KIND=VALUE,KIND=VALUE");
  for (const ZoneKey& key : zoneKeys) {
    command->add_option(std::string("--") + key.name, options->values[key.name], key.description)->type_name(key.type);
  }
  command->add_option("--envelope", options->envelope, "in place of comfort: an installed envelope, or a file")
      ->type_name("NAME");
  command->add_flag("--zone", options->corners, "print the corners of the zone; as CSV if no format is given");
  command->add_flag("--outline", options->outline, "print all of its outline in the same way");
  command->add_flag("--envelopes", options->list, "list the installed envelopes");
  addLimits(*command, options->limits, "clip the zone to these limits");
  addPressure(*command, options->pressure);
  addFormat(*command, options->format);
  command->callback([options, command] { runComfort(*options, *command); });
}

}  // namespace moistair
