/// \file
/// How warm people feel in a room: predicted mean vote (PMV), predicted percentage dissatisfied (PPD).
///
/// An `Occupant` is what the air does not say: activity, clothing, the radiant temperature, air movement. With the
/// air's dry bulb and humidity ratio it gives the vote on the scale from -3 (cold) to +3 (hot). Two methods differ in
/// moving air: ISO 7730 puts the speed into the heat balance of the clothed body; ASHRAE 55 above 20 fpm first finds by
/// how much cooler still air would feel the same (settemperature.h) and takes the vote of that air.
///
/// Each method holds for a range of every input; outside of it there is no vote but an error that names the range.
#pragma once

#include <array>
#include <optional>

#include "text/error.h"

namespace moistair {

enum class ComfortMethod { ashrae, iso };

/// Still air of ASHRAE 55 [ft/min]: up to this speed, this speed included, nothing is gained by moving air.
inline constexpr double stillAirSpeed = 20;

struct Occupant {
  ComfortMethod method = ComfortMethod::ashrae;
  double met = 1.1;                 ///< activity [58.2 W/m2]
  double clo = 0.5;                 ///< clothing [0.155 m2 K/W]
  double airSpeed = stillAirSpeed;  ///< average [ft/min], relative to the body
  bool movingBody = false;          ///< adds to the speed what the body's own movement makes of it above 1 met
  std::optional<double> radiant{};  ///< mean radiant temperature [deg F]; none for that of the air

  bool operator==(const Occupant&) const = default;
};

/// Lowest and highest value that a method holds for, both included.
struct Span {
  double low, high;

  bool holds(double value) const { return value >= low && value <= high; }
};

struct ComfortMethodRow {
  const char* key;   ///< on the command line and in files
  const char* name;  ///< for the user
  Span met, clo;
  Span airSpeed;  ///< [ft/min]
  Span db;        ///< [deg F]
  Span radiant;   ///< [deg F]
  double mostPv;  ///< highest vapor pressure [in Hg]; infinite for none
  double mostVote;
};

/// Source: ANSI/ASHRAE Standard 55-2020, section 5.3; ISO 7730:2005, section 4.1 (10 to 30 deg C, radiant 10 to 40 deg
/// C, up to 1 m/s and 2700 Pa, votes of -2 to 2).
inline constexpr std::array<ComfortMethodRow, 2> comfortMethods = {{
    {"ashrae", "ASHRAE 55", {1, 4}, {0, 1.5}, {0, 400}, {50, 104}, {50, 104}, 1e300, 3},
    {"iso", "ISO 7730", {0.8, 4}, {0, 2}, {0, 197}, {50, 86}, {50, 104}, 0.79731, 2},
}};

constexpr const ComfortMethodRow& rowOf(ComfortMethod method) {
  return comfortMethods[static_cast<std::size_t>(method)];
}

struct Comfort {
  double pmv = 0;            ///< vote, 0 is neutral
  double ppd = 5;            ///< people who would complain [percent]; never below 5
  double coolingEffect = 0;  ///< of the air's movement [deg F]; 0 for ISO 7730 and for still air
};

/// What of an occupant is outside of the method's ranges, whatever the air.
Outcome checkOccupant(const Occupant& occupant);

/// Vote for air of a dry bulb [deg F] and a humidity ratio [lb/lb] at an atmospheric pressure [in Hg]. An error outside
/// of the method's ranges, above saturation, and where moving air does not cool.
/// Source: ISO 7730:2005, annex D; ANSI/ASHRAE Standard 55-2020, section 5.3 and appendix D.
Result<Comfort> comfortAt(const Occupant& occupant, double db, double w, double atm);

/// The vote alone, also one beyond the scale and of air above saturation; no value where the air or the occupant is
/// outside of the method's ranges.
double voteAt(const Occupant& occupant, double db, double w, double atm);

/// Speed of the air [ft/min] relative to a body that moves, by its activity above 1 met.
/// Source: ISO 7730:2005, annex C: 0.005 m/s for each W/m2 above 58.15; ASHRAE 55, section 5.3: 0.3 m/s for each met.
double relativeAirSpeed(const Occupant& occupant);

}  // namespace moistair
