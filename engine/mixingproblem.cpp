#include "engine/mixingproblem.h"

#include <algorithm>

#include "engine/moistair.h"
#include "engine/openfinders.h"
#include "engine/solvers.h"
#include "engine/vaporterms.h"
#include "text/value.h"

namespace moistair {

namespace {

using Text = std::string AirStream::*;

void blankState(AirStream& stream) {
  static_cast<StateTexts&>(stream) = {};
  stream.pressure.clear();
}

void blankRates(AirStream& stream) {
  for (std::string* text : {&stream.pvsAt, &stream.dryRate, &stream.vaporRate, &stream.moistRate}) text->clear();
}

void blankMixture(MixingProblem& problem) {
  problem.mixed = {};
  problem.savable = false;
}

double read(const std::string& text) { return lenientNumber(text); }

/// A number without a value leaves the read-out as it was.
void show(std::string& readout, double number) {
  if (hasValue(number)) readout = showValue(number);
}

/// In the mixed column a number that only reads as -1 once it is rounded is blanked as well.
void showMixed(std::string& readout, double number) {
  show(readout, number);
  if (read(readout) == -1) readout.clear();
}

void showState(AirStream& stream, const StatePoint& point, double atm) {
  for (const Property& property : heldProperties) {
    if (property.kind != PropertyKind::pv) show(stream.*property.text, point.*property.value);
  }
  show(stream.pv, psychro_pv1(point.db, point.wb, atm));
}

void showRates(AirStream& stream, const StatePoint& point) {
  show(stream.pvsAt, psychro_pvs(point.db));
  show(stream.dryRate, quotient(read(stream.flow), point.v));
  show(stream.vaporRate, valueOf(read(stream.dryRate) * point.w));
  show(stream.moistRate, valueOf(read(stream.dryRate) + read(stream.vaporRate)));
}

bool mixable(const AirStream& stream) { return stream.complete && read(stream.flow) > 0; }

/// The mean of a property of the two streams, weighted by their moist air rates.
double weightedMean(const MixingProblem& problem, Text property) {
  const auto& [one, two] = problem.streams;
  return quotient(read(one.*property) * read(one.moistRate) + read(two.moistRate) * read(two.*property),
                  read(problem.mixed.moistRate));
}

/// Flow and rates of the mixture are the sums of the streams'.
void addRates(MixingProblem& problem) {
  const auto& [one, two] = problem.streams;
  AirStream& mixed = problem.mixed;
  const double flow = read(one.flow) + read(two.flow);
  if (hasValue(flow)) mixed.flow = numberText(flow);
  showMixed(mixed.dryRate, read(one.dryRate) + read(two.dryRate));
  showMixed(mixed.vaporRate, read(one.vaporRate) + read(two.vaporRate));
  showMixed(mixed.moistRate, read(mixed.dryRate) + read(mixed.vaporRate));
}

/// The state of the mixture from its enthalpy and humidity ratio. The wet bulb lies on a grid of 0.1 below the dry
/// bulb, and everything that follows from the two carries that grain.
void showMixture(AirStream& mixed, double atm, SearchMode mode) {
  showMixed(mixed.db, dryBulbOfEnthalpy(read(mixed.h), read(mixed.w)));
  const double db = read(mixed.db);
  showMixed(mixed.pvsAt, psychro_pvs(db));
  showMixed(mixed.wb, psychro_wb(db, read(mixed.h), atm, mode));
  const double wb = read(mixed.wb);
  showMixed(mixed.rh, psychro_rh(db, wb, atm));
  showMixed(mixed.v, psychro_v(db, wb, atm));
  showMixed(mixed.pv, psychro_pv1(db, wb, atm));
  showMixed(mixed.dp, psychro_dp(read(mixed.pv)));
}

/// The pair that the balance gives the mixed stream.
PairOfGiven balanceOf(const AirStream& mixed) {
  return {{{PropertyKind::h, strictNumber(mixed.h)}, {PropertyKind::w, strictNumber(mixed.w)}}};
}

/// The exact state in place of that of `showMixture`, which decides between two.
void showExactMixture(AirStream& mixed, double atm) {
  const ExactChoice choice = exactChoice(balanceOf(mixed), atm, resolutionOf(shownState(mixed)));
  if (!choice.state) return;
  const StatePoint& state = *choice.state;
  mixed.exact = true;
  showMixed(mixed.wb, state.wb);
  showMixed(mixed.rh, state.rh);
  showMixed(mixed.v, state.v);
  showMixed(mixed.pv, state.pv);
  showMixed(mixed.dp, state.dp);
}

/// Whether a wet bulb lies beyond those of both streams.
bool isBeyond(double wetBulb, double one, double two) {
  return wetBulb < std::min(one, two) || wetBulb > std::max(one, two);
}

}  // namespace

std::string captionOf(const ReadoutRow& row, const MixingProblem& problem) {
  return row.caption != nullptr ? row.caption : problem.pressureCaption;
}

Resolution resolveStream(MixingProblem& problem, std::size_t number) {
  AirStream& stream = problem.streams[number];
  stream.complete = false;
  blankState(stream);
  blankState(problem.mixed);
  blankRates(stream);
  Resolution resolution;
  resolution.reason = inputFault(stream.kind1, stream.kind2, stream.value1, stream.value2);
  if (!resolution.resolved()) return resolution;
  const double atm = problem.pressure.atm;
  resolution = resolvePair(stream.kind1, stream.value1, stream.kind2, stream.value2, atm,
                           openRangeFinders(problem.mode), problem.solverFields);
  if (stream.exact) {
    const ExactChoice choice = exactChoice(*givenOf(stream), atm, resolution);
    if (choice.state) {
      resolution = resolutionOf(*choice.state);
    } else if (resolution.resolved()) {
      resolution.reason = Unresolved::search;
    }
  }
  if (!resolution.resolved()) return resolution;
  showState(stream, resolution.point, atm);
  problem.pressureCaption = pressureCaption(problem.pressure.entry);
  stream.pressure = pressureShown(problem.pressure.entry);
  showRates(stream, resolution.point);
  stream.complete = true;
  return resolution;
}

void mixStreams(MixingProblem& problem) {
  const auto& [one, two] = problem.streams;
  if (!mixable(one) || !mixable(two)) return blankMixture(problem);
  AirStream& mixed = problem.mixed;
  mixed.exact = false;
  addRates(problem);
  if (!(read(mixed.moistRate) > 0)) return blankMixture(problem);
  mixed.pressure = pressureShown(problem.pressure.entry);
  showMixed(mixed.h, weightedMean(problem, &AirStream::h));
  showMixed(mixed.w, weightedMean(problem, &AirStream::w));
  showMixture(mixed, problem.pressure.atm, problem.mode);
  if (problem.exactMixture) showExactMixture(mixed, problem.pressure.atm);
  problem.savable = true;
}

std::optional<PairOfGiven> givenOf(const AirStream& stream) {
  if (!stream.kind1 || !stream.kind2) return std::nullopt;
  PairOfGiven pair{{{*stream.kind1, 0}, {*stream.kind2, 0}}};
  assign(pair[0].value, strictNumber(stream.value1));
  assign(pair[1].value, strictNumber(stream.value2));
  return pair;
}

StatePoint shownState(const AirStream& column) {
  StatePoint state;
  for (const Property& property : heldProperties) state.*property.value = strictNumber(column.*property.text);
  return state;
}

Missed judgedMixture(const AirStream& one, const AirStream& two, const AirStream& mixed, double atm) {
  const StatePoint shown = shownState(mixed);
  const PairOfGiven pair = balanceOf(mixed);
  Missed missed{{}, exactSolutions(pair[0], pair[1], atm)};
  if (missed.exact.states.empty()) {
    missed.values = missedBy(pair, shown, atm);
    return missed;
  }
  sortNearestFirst(missed.exact.states, shown);
  const StatePoint& exact = missed.exact.states.front();
  const double low = strictNumber(one.wb);
  const double high = strictNumber(two.wb);
  for (const PropertyKind kind : {PropertyKind::wb, PropertyKind::rh, PropertyKind::dp, PropertyKind::v}) {
    const double found = shown.at(kind);
    const bool beyond = kind == PropertyKind::wb && isBeyond(found, low, high) && !isBeyond(exact.wb, low, high);
    if (beyond || (hasValue(found) && canBeSeen(kind, found - exact.at(kind)))) {
      missed.values.push_back({kind, exact.at(kind), found});
    }
  }
  return missed;
}

}  // namespace moistair
