#include "comfort/zone.h"

#include <cmath>
#include <functional>

#include "comfort/settemperature.h"
#include "comfort/zonerange.h"
#include "engine/crossing.h"
#include "engine/saturation.h"
#include "engine/vaporterms.h"
#include "text/numbertext.h"

namespace moistair {

namespace {

template <class... Kinds>
struct Overloaded : Kinds... {
  using Kinds::operator()...;
};
template <class... Kinds>
Overloaded(Kinds...) -> Overloaded<Kinds...>;

Error outside(const char* place, const Span& span, const char* unit) {
  return {ErrorCode::outOfRange, place, "must be from " + numberText(span.low) + " to " + numberText(span.high) + unit};
}

Outcome checkKind(const ComfortZone& zone) {
  const Span votes{0.01, rowOf(zone.occupant.method).mostVote};
  constexpr Span dewPoints{-40, 120};
  if (!votes.holds(zone.mostVote)) return outside("PMV limit", votes, "");
  if (!dewPoints.holds(zone.mostDewPoint)) return outside("dew point limit", dewPoints, " deg F");
  return checkOccupant(zone.occupant);
}

Outcome checkKind(const AdaptiveZone& zone) {
  constexpr Span speeds{0, 197};
  constexpr Span radiants{32, 122};
  if (!runningMeans.holds(zone.runningMean)) return outside("running mean", runningMeans, " deg F");
  if (!speeds.holds(zone.airSpeed)) return outside("air speed", speeds, " fpm");
  if (zone.radiant && !radiants.holds(*zone.radiant)) return outside("mean radiant temperature", radiants, " deg F");
  if (zone.accepting == 80 || zone.accepting == 90) return {};
  return Error{ErrorCode::outOfRange, "acceptance", "must be 80 or 90 percent"};
}

Outcome checkKind(const Envelope& envelope) { return checkEnvelope(envelope); }

/// Temperature at which air is saturated [deg F], between two; `low` where it is no higher, no value above `high`.
double saturationTemperature(double w, double low, double high, double atm) {
  const auto excess = [&](double db) { return std::min(saturationRatio(db, atm), 1e3) - w; };
  const double atLow = excess(low);
  if (atLow >= 0) return low;
  const double atHigh = excess(high);
  return atHigh >= 0 ? crossing(excess, low, atLow, high, atHigh) : noValue;
}

/// The last place towards `missing` that has a vote.
double lastVote(const std::function<double(double)>& vote, double voted, double missing) {
  for (int step = 0; step < 40; ++step) {
    const double middle = (voted + missing) / 2;
    (hasValue(vote(middle)) ? voted : missing) = middle;
  }
  return voted;
}

/// Narrows a range to the dry bulbs with votes from -most to most. Votes rise with the dry bulb, so one pass finds
/// both.
void narrowToVotes(LimitedRange& range, const std::function<double(double)>& vote, double most) {
  constexpr int steps = 6;
  const LimitedRange whole = range;
  const double step = (whole.high - whole.low) / steps;
  double before = whole.low;
  double atBefore = vote(before);
  if (!(atBefore <= most)) return range.lowerHigh(-unbounded, limitedBy::vote);
  bool cold = atBefore < -most;
  for (int i = 1; i <= steps; ++i) {
    const double place = i == steps ? whole.high : whole.low + i * step;
    const double at = vote(place);
    if (!hasValue(at)) {
      if (cold) break;
      return range.lowerHigh(lastVote(vote, before, place), limitedBy::method);
    }
    const auto edge = [&](double wanted) {
      return crossing([&](double db) { return vote(db) - wanted; }, before, atBefore - wanted, place, at - wanted);
    };
    if (cold && at >= -most) {
      range.raiseLow(edge(-most), limitedBy::vote);
      cold = false;
    }
    if (!cold && at > most) return range.lowerHigh(edge(most), limitedBy::vote);
    before = place;
    atBefore = at;
  }
  if (cold) range.lowerHigh(-unbounded, limitedBy::vote);
}

std::string speedText(double speed) { return numberText(speed) + " fpm"; }

std::string radiantText(const std::optional<double>& radiant) {
  return radiant ? ", radiant " + numberText(*radiant) + " °F" : std::string();
}

}  // namespace

Span AdaptiveZone::dryBulbs() const {
  const double middle = 0.31 * runningMean + 54.1;
  const double aside = accepting == 90 ? 4.5 : 6.3;
  // The weight of the air in the operative temperature, by its speed up to 0.2, 0.6 and 1 m/s.
  const double weight = airSpeed < 0.2 * feetPerMinute ? 0.5 : airSpeed < 0.6 * feetPerMinute ? 0.6 : 0.7;
  const auto dryBulb = [&](double operative) {
    return radiant ? (operative - (1 - weight) * *radiant) / weight : operative;
  };
  return {dryBulb(middle - aside), dryBulb(middle + aside)};
}

LimitedRange dryBulbsWithin(const ComfortZone& zone, double w, double atm) {
  const Span& method = rowOf(zone.occupant.method).db;
  LimitedRange range{method.low, method.high, limitedBy::method, limitedBy::method};
  const double saturated = saturationTemperature(w, method.low, method.high, atm);
  if (!hasValue(saturated)) return {1, 0, limitedBy::saturation, limitedBy::saturation};
  range.raiseLow(saturated, limitedBy::saturation);
  narrowToVotes(
      range, [&](double db) { return voteAt(zone.occupant, db, w, atm); }, zone.mostVote);
  return range;
}

LimitedRange dryBulbsWithin(const AdaptiveZone& zone, double w, double atm) {
  const Span band = zone.dryBulbs();
  LimitedRange range{band.low, band.high, limitedBy::vote, limitedBy::vote};
  const double saturated = saturationTemperature(w, band.low, band.high, atm);
  if (!hasValue(saturated)) return {1, 0, limitedBy::saturation, limitedBy::saturation};
  range.raiseLow(saturated, limitedBy::saturation);
  return range;
}

double topRatio(const Zone& zone, double atm) {
  const auto* comfort = std::get_if<ComfortZone>(&zone);
  if (comfort == nullptr) return unbounded;
  const double pv = std::min(pressureOfDewPoint(comfort->mostDewPoint), rowOf(comfort->occupant.method).mostPv);
  return pv < atm ? ratioOf(pv, atm) : unbounded;
}

Outcome checkZone(const Zone& zone) {
  return std::visit([](const auto& kind) { return checkKind(kind); }, zone);
}

bool contains(const Zone& zone, double db, double w, double atm) {
  if (!checkZone(zone) || !(w >= 0 && w <= saturationRatio(db, atm)) || !(w <= topRatio(zone, atm))) return false;
  const Overloaded within{
      [&](const ComfortZone& comfort) { return std::abs(voteAt(comfort.occupant, db, w, atm)) <= comfort.mostVote; },
      [&](const AdaptiveZone& adaptive) { return adaptive.dryBulbs().holds(db); },
      [&](const Envelope& envelope) {
        const PropertyLimits limits = dryBulbsOf(envelope, atm);
        const LimitedRange ratios = ratiosWithin(envelope, db, atm);
        return db >= limits.low && db <= limits.high && w >= ratios.low && w <= ratios.high;
      }};
  return std::visit(within, zone);
}

std::string titleOf(const Zone& zone) {
  const Overloaded title{
      [](const ComfortZone& comfort) {
        const Occupant& person = comfort.occupant;
        return std::string("Comfort by ") + rowOf(person.method).name + ": PMV within " + numberText(comfort.mostVote) +
               ", dew point up to " + numberText(comfort.mostDewPoint) + " °F, " + numberText(person.met) + " met, " +
               numberText(person.clo) + " clo, " + speedText(relativeAirSpeed(person)) + radiantText(person.radiant);
      },
      [](const AdaptiveZone& adaptive) {
        return "Adaptive comfort by ASHRAE 55: accepted by " + std::to_string(adaptive.accepting) +
               " %, running mean " + numberText(adaptive.runningMean) + " °F" + radiantText(adaptive.radiant);
      },
      [](const Envelope& envelope) { return envelope.title.empty() ? envelope.name : envelope.title; }};
  return std::visit(title, zone);
}

std::string labelOf(const Zone& zone) {
  const Overloaded label{
      [](const ComfortZone& comfort) {
        return numberText(comfort.occupant.clo) + " clo, " + numberText(comfort.occupant.met) + " met";
      },
      [](const AdaptiveZone& adaptive) { return "Adaptive, " + std::to_string(adaptive.accepting) + " %"; },
      [](const Envelope& envelope) { return envelope.name; }};
  return std::visit(label, zone);
}

std::vector<std::string> notesOn(const Zone& zone, double atm) {
  const auto* comfort = std::get_if<ComfortZone>(&zone);
  if (comfort == nullptr || !checkZone(zone)) return {};
  const ComfortMethodRow& row = rowOf(comfort->occupant.method);
  std::vector<std::string> notes;
  const std::string end = std::string(", the limit of ") + row.name;
  if (pressureOfDewPoint(comfort->mostDewPoint) > row.mostPv) {
    notes.push_back("the zone ends at a vapor pressure of " + numberText(row.mostPv) + " in Hg" + end);
  }
  const LimitedRange dry = dryBulbsWithin(*comfort, 0, atm);
  const LimitedRange moist = dryBulbsWithin(*comfort, std::min(topRatio(*comfort, atm), 0.02), atm);
  if (dry.empty() && moist.empty()) return {"no dry bulb for which " + std::string(row.name) + " holds is comfortable"};
  for (const LimitedRange& range : {dry, moist}) {
    if (range.empty()) continue;
    if (range.lowBy == limitedBy::method) notes.push_back("the zone ends at " + numberText(range.low) + " deg F" + end);
    if (range.highBy == limitedBy::method) {
      notes.push_back("the zone ends at " + fixedDecimals(range.high, 1) + " deg F" + end);
    }
    if (range.lowBy == limitedBy::method || range.highBy == limitedBy::method) break;
  }
  return notes;
}

}  // namespace moistair
