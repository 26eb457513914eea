/// \file
/// Zones of the chart: the air in which people are comfortable, by their vote or by the outdoor temperature they are
/// used to, and the envelopes of rooms and equipment.
///
/// A zone is a value. Whether a state is in it, and its outline on a chart, follow from it and the pressure.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "comfort/envelope.h"
#include "comfort/pmv.h"

namespace moistair {

/// Air whose vote is within `mostVote` of neutral, up to a dew point.
struct ComfortZone {
  Occupant occupant;
  double mostVote = 0.5;
  double mostDewPoint = 62.2;  ///< [deg F]

  bool operator==(const ComfortZone&) const = default;
};

/// Rooms without cooling, whose people open the windows: operative temperatures about one that follows the running mean
/// of the outdoor temperature. The increase of the upper limit by fast air is not counted.
/// Source: ANSI/ASHRAE Standard 55-2020, section 5.4.
struct AdaptiveZone {
  double runningMean = 70;          ///< [deg F]
  int accepting = 80;               ///< 80 or 90 percent of the people
  std::optional<double> radiant{};  ///< mean radiant temperature [deg F]; none for that of the air
  double airSpeed = 20;             ///< weighs air against radiation [ft/min]

  bool operator==(const AdaptiveZone&) const = default;

  Span dryBulbs() const;
};

inline constexpr Span runningMeans{50, 92.3};  ///< that the adaptive model holds for [deg F]

using Zone = std::variant<ComfortZone, AdaptiveZone, Envelope>;

/// What of a zone is outside of its ranges.
Outcome checkZone(const Zone& zone);

/// Whether air of a dry bulb [deg F] and a humidity ratio [lb/lb] at a pressure [in Hg] is in a zone: its edges are,
/// air above saturation is not. A zone that checkZone refuses has no air.
bool contains(const Zone& zone, double db, double w, double atm);

/// "Comfort, PMV within 0.5 (ASHRAE 55): 1.1 met, 0.5 clo, 20 fpm", "ASHRAE TC 9.9 (2021), class A1, allowable".
std::string titleOf(const Zone& zone);

/// "0.5 clo, 1.1 met", "A1": a label on the zone itself.
std::string labelOf(const Zone& zone);

/// A corner, or a place on an edge between two.
struct OutlinePoint {
  double db, w;
  bool corner;
};

using Outline = std::vector<OutlinePoint>;  ///< once around counterclockwise, not closed

/// The part of the chart that outlines are clipped to.
struct ZoneWindow {
  double lowDb = 0, highDb = 120;          ///< [deg F]
  double lowW = 0, highW = greatestRatio;  ///< [lb/lb]
};

/// The outlines of what a zone has below saturation within a window; none for a zone without air there, more than one
/// for an envelope whose limits part it. The edges of a comfort zone are solved at each of some humidity ratios.
std::vector<Outline> outlinesOf(const Zone& zone, const ZoneWindow& window, double atm);

/// Where a comfort zone ends for no other reason than that its method does: sentences for the user.
std::vector<std::string> notesOn(const Zone& zone, double atm);

}  // namespace moistair
