/// \file
/// Zones given on the command line: comfort by its values, or an envelope by its name or file.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "cli/properties.h"
#include "comfort/zone.h"

namespace moistair {

/// A value of a comfort zone, as an option and as a part of a text.
struct ZoneKey {
  const char* name;  ///< without dashes
  const char* type;
  const char* description;
  bool ofAdaptive, ofVote;  ///< the kinds of zones that have it
};

inline constexpr std::array<ZoneKey, 10> zoneKeys = {{
    {"method", "NAME", "ashrae or iso; ashrae if not given", false, true},
    {"met", "MET", "activity; 1.1 if not given", false, true},
    {"clo", "CLO", "clothing; 0.5 if not given", false, true},
    {"fpm", "FPM", "air speed in ft/min, relative to the body; 20, still air, if not given", true, true},
    {"mrt", "F", "mean radiant temperature; that of the air if not given", true, true},
    {"moving", "WORD", "yes if the body's own movement adds to the air speed; no if not given", false, true},
    {"pmv", "VOTE", "the zone's votes are within this of neutral; 0.5 if not given", false, true},
    {"dp", "F", "the zone's highest dew point; 62.2 if not given", false, true},
    {"adaptive", "F", "adaptive comfort for this running mean of the outdoor temperature", true, false},
    {"accepting", "PERCENT", "of the people, for adaptive comfort: 80 or 90; 80 if not given", true, false},
}};

/// A comfort zone of some values. Bad usage for a value that is none, or out of its range, or has no meaning there.
Zone zoneOf(const std::vector<TypedValue>& values);

/// The envelope of an installed file by its name, or of a file. Bad usage if it cannot be read.
Zone envelopeOfText(const std::string& nameOrPath);

/// Zones as texts, and what decides whether air is in one of them at least, by its dry bulb and humidity ratio.
using ZonePredicate = std::function<bool(double db, double w, double atm)>;
ZonePredicate insideOf(const std::vector<std::string>& texts);

/// A zone as one text: "comfort", values such as "clo=1,fpm=40", or an envelope.
Zone zoneOfText(const std::string& text);

}  // namespace moistair
