#include "engine/mixingproblem.h"

#include <algorithm>
#include <initializer_list>

#include "engine/moistair.h"
#include "engine/openfinders.h"
#include "engine/solvers.h"
#include "text/value.h"

namespace moistair {

namespace {

using Text = std::string AirStream::*;

constexpr std::initializer_list<Text> statetexts = {&AirStream::pressure, &AirStream::db, &AirStream::wb,
                                                    &AirStream::rh,       &AirStream::h,  &AirStream::v,
                                                    &AirStream::w,        &AirStream::dp, &AirStream::pv};
constexpr std::initializer_list<Text> ratetexts = {&AirStream::pvsat, &AirStream::dryrate, &AirStream::vaporrate,
                                                   &AirStream::moistrate};

void blank(AirStream& stream, std::initializer_list<Text> texts) {
  for (const Text text : texts) (stream.*text).clear();
}

void blankmixture(MixingProblem& problem) {
  problem.mixed = {};
  problem.savable = false;
}

double read(const std::string& text) { return lenientnumber(text); }

/// A number without a value leaves the read-out as it was.
void show(std::string& readout, double number) {
  if (hasvalue(number)) readout = showvalue(number);
}

/// In the mixed column a number that only reads as -1 once it is rounded is blanked as well.
void showmixed(std::string& readout, double number) {
  show(readout, number);
  if (read(readout) == -1) readout.clear();
}

void showstate(AirStream& stream, const StatePoint& point, double atm) {
  show(stream.db, point.db);
  show(stream.wb, point.wb);
  show(stream.rh, point.rh);
  show(stream.h, point.h);
  show(stream.v, point.v);
  show(stream.w, point.w);
  show(stream.dp, point.dp);
  show(stream.pv, psychro_pv1(point.db, point.wb, atm));
}

void showrates(AirStream& stream, const StatePoint& point) {
  show(stream.pvsat, psychro_pvs(point.db));
  show(stream.dryrate, quotient(read(stream.flow), point.v));
  show(stream.vaporrate, valueof(read(stream.dryrate) * point.w));
  show(stream.moistrate, valueof(read(stream.dryrate) + read(stream.vaporrate)));
}

bool mixable(const AirStream& stream) { return stream.complete && read(stream.flow) > 0; }

/// The mean of a property of the two streams, weighted by their moist air rates.
double weightedmean(const MixingProblem& problem, Text property) {
  const auto& [one, two] = problem.streams;
  return quotient(read(one.*property) * read(one.moistrate) + read(two.moistrate) * read(two.*property),
                  read(problem.mixed.moistrate));
}

/// Flow and rates of the mixture are the sums of the streams'.
void addrates(MixingProblem& problem) {
  const auto& [one, two] = problem.streams;
  AirStream& mixed = problem.mixed;
  const double flow = read(one.flow) + read(two.flow);
  if (hasvalue(flow)) mixed.flow = numbertext(flow);
  showmixed(mixed.dryrate, read(one.dryrate) + read(two.dryrate));
  showmixed(mixed.vaporrate, read(one.vaporrate) + read(two.vaporrate));
  showmixed(mixed.moistrate, read(mixed.dryrate) + read(mixed.vaporrate));
}

/// Dry bulb of an enthalpy and a humidity ratio: psychro_h solved for its dry bulb.
double drybulb(double h, double w) { return quotient(h - 1061 * w, 0.24 + 0.444 * w); }

/// The state of the mixture from its enthalpy and humidity ratio. The wet bulb lies on a grid of 0.1 below the dry
/// bulb, and everything that follows from the two carries that grain.
void showmixture(AirStream& mixed, double atm, Way way) {
  showmixed(mixed.db, drybulb(read(mixed.h), read(mixed.w)));
  const double db = read(mixed.db);
  showmixed(mixed.pvsat, psychro_pvs(db));
  showmixed(mixed.wb, psychro_wb(db, read(mixed.h), atm, way));
  const double wb = read(mixed.wb);
  showmixed(mixed.rh, psychro_rh(db, wb, atm));
  showmixed(mixed.v, psychro_v(db, wb, atm));
  showmixed(mixed.pv, psychro_pv1(db, wb, atm));
  showmixed(mixed.dp, psychro_dp(read(mixed.pv)));
}

/// The pair that the balance gives the mixed stream.
PairOfGiven balanceOf(const AirStream& mixed) {
  return {{{PropertyKind::h, strictnumber(mixed.h)}, {PropertyKind::w, strictnumber(mixed.w)}}};
}

/// The exact state in place of that of `showmixture`, which decides between two.
void showExactMixture(AirStream& mixed, double atm) {
  const ExactChoice choice = exactChoice(balanceOf(mixed), atm, resolutionOf(shownState(mixed)));
  if (!choice.state) return;
  const StatePoint& state = *choice.state;
  mixed.exact = true;
  showmixed(mixed.wb, state.wb);
  showmixed(mixed.rh, state.rh);
  showmixed(mixed.v, state.v);
  showmixed(mixed.pv, state.pv);
  showmixed(mixed.dp, state.dp);
}

/// Whether a wet bulb lies beyond those of both streams.
bool isBeyond(double wetBulb, double one, double two) {
  return wetBulb < std::min(one, two) || wetBulb > std::max(one, two);
}

}  // namespace

std::string captionof(const ReadoutRow& row, const MixingProblem& problem) {
  return row.caption != nullptr ? row.caption : problem.pressurecaption;
}

Resolution resolvestream(MixingProblem& problem, std::size_t number) {
  AirStream& stream = problem.streams[number];
  stream.complete = false;
  blank(stream, statetexts);
  blank(problem.mixed, statetexts);
  blank(stream, ratetexts);
  Resolution resolution;
  resolution.reason = inputfault(stream.kind1, stream.kind2, stream.value1, stream.value2);
  if (!resolution.resolved()) return resolution;
  const double atm = problem.pressure.atm;
  resolution = resolvepair(stream.kind1, stream.value1, stream.kind2, stream.value2, atm, openrangefinders(problem.way),
                           problem.solverfields);
  if (stream.exact) {
    const ExactChoice choice = exactChoice(*givenOf(stream), atm, resolution);
    if (choice.state) {
      resolution = resolutionOf(*choice.state);
    } else if (resolution.resolved()) {
      resolution.reason = Unresolved::search;
    }
  }
  if (!resolution.resolved()) return resolution;
  showstate(stream, resolution.point, atm);
  problem.pressurecaption = pressurecaption(problem.pressure.entry);
  stream.pressure = pressureshown(problem.pressure.entry);
  showrates(stream, resolution.point);
  stream.complete = true;
  return resolution;
}

void mixstreams(MixingProblem& problem) {
  const auto& [one, two] = problem.streams;
  if (!mixable(one) || !mixable(two)) return blankmixture(problem);
  AirStream& mixed = problem.mixed;
  mixed.exact = false;
  addrates(problem);
  if (!(read(mixed.moistrate) > 0)) return blankmixture(problem);
  mixed.pressure = pressureshown(problem.pressure.entry);
  showmixed(mixed.h, weightedmean(problem, &AirStream::h));
  showmixed(mixed.w, weightedmean(problem, &AirStream::w));
  showmixture(mixed, problem.pressure.atm, problem.way);
  if (problem.exactMixture) showExactMixture(mixed, problem.pressure.atm);
  problem.savable = true;
}

std::optional<PairOfGiven> givenOf(const AirStream& stream) {
  if (!stream.kind1 || !stream.kind2) return std::nullopt;
  PairOfGiven pair{{{*stream.kind1, 0}, {*stream.kind2, 0}}};
  assign(pair[0].value, strictnumber(stream.value1));
  assign(pair[1].value, strictnumber(stream.value2));
  return pair;
}

StatePoint shownState(const AirStream& column) {
  return {strictnumber(column.db), strictnumber(column.wb), strictnumber(column.rh), strictnumber(column.w),
          strictnumber(column.h),  strictnumber(column.dp), strictnumber(column.v),  strictnumber(column.pv)};
}

Missed judgedMixture(const AirStream& one, const AirStream& two, const AirStream& mixed, double atm) {
  const StatePoint shown = shownState(mixed);
  const PairOfGiven pair = balanceOf(mixed);
  Missed missed{{}, answers(pair[0], pair[1], atm)};
  if (missed.exact.states.empty()) {
    missed.values = missedBy(pair, shown, atm);
    return missed;
  }
  sortNearestFirst(missed.exact.states, shown);
  const StatePoint& exact = missed.exact.states.front();
  const double low = strictnumber(one.wb);
  const double high = strictnumber(two.wb);
  for (const PropertyKind kind : {PropertyKind::wb, PropertyKind::rh, PropertyKind::dp, PropertyKind::v}) {
    const double found = shown.at(kind);
    const bool beyond = kind == PropertyKind::wb && isBeyond(found, low, high) && !isBeyond(exact.wb, low, high);
    if (beyond || (hasvalue(found) && canbeseen(kind, found - exact.at(kind)))) {
      missed.values.push_back({kind, exact.at(kind), found});
    }
  }
  return missed;
}

}  // namespace moistair
