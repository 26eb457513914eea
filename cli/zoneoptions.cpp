#include "cli/zoneoptions.h"

#include <algorithm>

#include "cli/fault.h"
#include "cli/programfolder.h"
#include "model/envelopefile.h"

namespace moistair {

namespace {

const ZoneKey& keyOf(const TypedValue& value) {
  const auto named = [&](const ZoneKey& key) { return value.name == key.name; };
  const auto key = std::find_if(zoneKeys.begin(), zoneKeys.end(), named);
  if (key != zoneKeys.end()) return *key;
  std::string names;
  for (const ZoneKey& offered : zoneKeys) names += std::string(names.empty() ? "" : " ") + offered.name;
  throw badUsage("\"" + value.name + "\" is none of " + names);
}

ComfortMethod methodOf(const std::string& text) {
  for (std::size_t i = 0; i < comfortMethods.size(); ++i) {
    if (lowercase(text) == comfortMethods[i].key) return static_cast<ComfortMethod>(i);
  }
  throw badUsage("method must be ashrae or iso");
}

bool flagOf(const TypedValue& value) {
  if (value.text == "yes" || value.text == "no") return value.text == "yes";
  throw badUsage(value.name + " must be yes or no");
}

void set(ComfortZone& zone, const TypedValue& value) {
  Occupant& person = zone.occupant;
  if (value.name == "method") {
    person.method = methodOf(value.text);
  } else if (value.name == "moving") {
    person.movingBody = flagOf(value);
  } else {
    const double number = numberOf(value.text, value.name);
    if (value.name == "met") person.met = number;
    if (value.name == "clo") person.clo = number;
    if (value.name == "fpm") person.airSpeed = number;
    if (value.name == "mrt") person.radiant = number;
    if (value.name == "pmv") zone.mostVote = number;
    if (value.name == "dp") zone.mostDewPoint = number;
  }
}

void set(AdaptiveZone& zone, const TypedValue& value) {
  const double number = numberOf(value.text, value.name);
  if (value.name == "adaptive") zone.runningMean = number;
  if (value.name == "accepting") zone.accepting = number == 80 ? 80 : number == 90 ? 90 : 0;
  if (value.name == "fpm") zone.airSpeed = number;
  if (value.name == "mrt") zone.radiant = number;
}

template <class Kind>
Zone zoneOfKind(const std::vector<TypedValue>& values) {
  Kind zone;
  for (const TypedValue& value : values) set(zone, value);
  return zone;
}

}  // namespace

Zone zoneOf(const std::vector<TypedValue>& values) {
  const bool adaptive =
      std::any_of(values.begin(), values.end(), [](const TypedValue& value) { return value.name == "adaptive"; });
  for (const TypedValue& value : values) {
    const ZoneKey& key = keyOf(value);
    if (adaptive && !key.ofAdaptive) throw badUsage(value.name + " has no meaning for adaptive comfort");
    if (!adaptive && !key.ofVote) throw badUsage(value.name + " is for adaptive comfort only");
  }
  Zone zone = adaptive ? zoneOfKind<AdaptiveZone>(values) : zoneOfKind<ComfortZone>(values);
  if (const Outcome checked = checkZone(zone); !checked) throw badUsage(checked.error().text());
  return zone;
}

Zone envelopeOfText(const std::string& nameOrPath) {
  const Result<Envelope> envelope = envelopeOf(nameOrPath, programFolder() / envelopeFolder);
  if (!envelope) throw badUsage(envelope.error().text());
  return *envelope;
}

Zone zoneOfText(const std::string& text) {
  if (text == "comfort") return zoneOf({});
  const bool isFile = lowercase(text).ends_with(".json");
  return !isFile && text.find('=') != std::string::npos ? zoneOf(assignmentsOf(text)) : envelopeOfText(text);
}

ZonePredicate insideOf(const std::vector<std::string>& texts) {
  std::vector<Zone> zones;
  for (const std::string& text : texts) zones.push_back(zoneOfText(text));
  return [zones](double db, double w, double atm) {
    return std::any_of(zones.begin(), zones.end(), [&](const Zone& zone) { return contains(zone, db, w, atm); });
  };
}

}  // namespace moistair
