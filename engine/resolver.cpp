#include "engine/resolver.h"

#include <cmath>
#include <initializer_list>
#include <utility>

#include "engine/moistair.h"
#include "engine/nested.h"
#include "engine/solvers.h"
#include "engine/value.h"

namespace moistair {

namespace {

/// The state as far as it is known while a row is carried out.
struct Run {
  StatePoint& point;
  double atm;
  const RangeFinders& finders;
  SolverFields& fields;
  int iterations = 0;
  PropertyKind sought = PropertyKind::db;    ///< by the last search
  std::optional<PropertyKind> unseenline{};  ///< given property whose line no range finder saw
};

using Field = double StatePoint::*;

namespace field {
constexpr Field db = &StatePoint::db;
constexpr Field wb = &StatePoint::wb;
constexpr Field rh = &StatePoint::rh;
constexpr Field w = &StatePoint::w;
constexpr Field h = &StatePoint::h;
constexpr Field dp = &StatePoint::dp;
constexpr Field v = &StatePoint::v;
constexpr Field pv = &StatePoint::pv;
}  // namespace field

/// A property as a function of the one variable that is looked for, the rest of the state held fixed.
using Property = double (*)(double x, const StatePoint& known, double atm);

double rh_of_wb(double x, const StatePoint& known, double atm) { return psychro_rh(known.db, x, atm); }
double w_of_wb(double x, const StatePoint& known, double atm) { return psychro_w(known.db, x, atm); }
double pv_of_wb(double x, const StatePoint& known, double atm) { return psychro_pv1(known.db, x, atm); }
double v_of_wb(double x, const StatePoint& known, double atm) { return psychro_v(known.db, x, atm); }
double rh_of_db(double x, const StatePoint& known, double atm) { return psychro_rh(x, known.wb, atm); }
double w_of_db(double x, const StatePoint& known, double atm) { return psychro_w(x, known.wb, atm); }
double h_of_db(double x, const StatePoint& known, double atm) { return psychro_h(x, known.wb, atm); }
double pv_of_db(double x, const StatePoint& known, double atm) { return psychro_pv1(x, known.wb, atm); }
double v_of_db(double x, const StatePoint& known, double atm) { return psychro_v(x, known.wb, atm); }
double wrh_of_db(double x, const StatePoint& known, double atm) { return psychro_wrh(x, known.rh, atm); }
double dp_of_pv(double x, const StatePoint&, double) { return psychro_dp(x); }

/// What is tested before a search runs: the target against the property at the ends of the bracket.
struct Guard {
  Property property = nullptr;
  Field target = nullptr;
  bool lowersideonly = false;
};

bool holds(const Guard& guard, const Run& run) {
  if (guard.property == nullptr) return true;
  const Bracket range;
  const double target = run.point.*guard.target;
  const auto f = [&](double x) { return guard.property(x, run.point, run.atm); };
  return guard.lowersideonly ? target > f(range.low) : liesbetween(f, target, range);
}

/// One search of the pair table.
struct Search {
  Field finds;
  Property f;
  Field target;
  Bracket bracket;
  Guard guard;
  bool mayfail;  ///< whether the row fails with it; if not, x counts as it stands after the last iteration
};

constexpr Bracket temperature{};
constexpr Bracket temperaturefalling{.direction = Direction::falls};
constexpr Bracket vaporpressure{.high = 1.628817};  // a dew point of about 94.4 deg F

constexpr Search A{field::wb, rh_of_wb, field::rh, temperature, {rh_of_wb, field::rh}, true};
constexpr Search B{field::wb, w_of_wb, field::w, temperature, {w_of_wb, field::w}, true};
constexpr Search P{field::pv, dp_of_pv, field::dp, vaporpressure, {}, false};
constexpr Search C{field::wb, pv_of_wb, field::pv, temperature, {pv_of_wb, field::pv}, true};
constexpr Search D{field::wb, v_of_wb, field::v, temperature, {v_of_wb, field::v, true}, true};
constexpr Search E{field::db, rh_of_db, field::rh, temperaturefalling, {}, true};
constexpr Search F{field::db, w_of_db, field::w, temperature, {}, true};
constexpr Search G{field::db, h_of_db, field::h, temperature, {}, true};
constexpr Search H{field::db, pv_of_db, field::pv, temperature, {}, true};
constexpr Search I{field::db, v_of_db, field::v, temperature, {}, true};
constexpr Search J{field::db, wrh_of_db, field::w, temperature, {}, true};
constexpr Search K{field::wb, rh_of_wb, field::rh, temperature, {w_of_wb, field::w}, true};

/// Runs one search; false if the row fails with it.
bool runsearch(const Search& search, Run& run) {
  const auto f = [&](double x) { return search.f(x, run.point, run.atm); };
  const double target = run.point.*search.target;
  const SearchResult result = bracketsearch(f, target, search.bracket, holds(search.guard, run));
  run.point.*search.finds = result.x;
  run.iterations = result.iterations;
  run.sought = search.finds == field::wb ? PropertyKind::wb : PropertyKind::db;
  return !(search.mayfail && result.failed());
}

/// How a row finds what its pair does not give: one or two searches, a direct equation, or a nested search.
using Solve = bool (*)(Run&);

bool nothing(Run&) { return true; }

template <const Search&... searches>
bool by(Run& run) {
  return (runsearch(searches, run) && ...);
}

bool by_wrh_then_A(Run& run) {
  assign(run.point.w, psychro_wrh(run.point.db, run.point.rh, run.atm));
  return runsearch(A, run);
}

bool by_psychro_wb(Run& run) {
  assign(run.point.wb, psychro_wb(run.point.db, run.point.h, run.atm));
  return true;
}

/// The pairs without a temperature.
double dewpoint(double db, double wb, double atm) { return psychro_dp(psychro_pv1(db, wb, atm)); }

constexpr auto rhrange = &RangeFinders::dbrangeofrh;
constexpr auto hrange = &RangeFinders::dbrangeofh;
constexpr auto vrange = &RangeFinders::dbrangeofspvol;
using enum Completion;

constexpr NestedSearch rh_h{rhrange, PropertyKind::rh, rhsearch, psychro_h, PropertyKind::h, 1e-05, true, false, true};
constexpr NestedSearch rh_dp{rhrange, PropertyKind::rh, rhsearch, dewpoint, PropertyKind::dp, 1e-05, true};
constexpr NestedSearch rh_v{rhrange, PropertyKind::rh, rhsearch, psychro_v, PropertyKind::v, 1e-05, true};
constexpr NestedSearch w_h{hrange, PropertyKind::h, hwalk, psychro_w, PropertyKind::w, 0.0001, false};
constexpr NestedSearch w_v{vrange, PropertyKind::v, vsearch, psychro_w, PropertyKind::w, 1e-05, false};
constexpr NestedSearch h_dp{hrange, PropertyKind::h, hwalk, dewpoint, PropertyKind::dp, 0.001, false, true};
constexpr NestedSearch h_v{hrange, PropertyKind::h, hwalk, psychro_v, PropertyKind::v, 1e-05, true};
constexpr NestedSearch dp_v{vrange, PropertyKind::v, vsearch, dewpoint, PropertyKind::dp, 0.001, false};

template <const NestedSearch& search>
bool nested(Run& run) {
  const NestedResult result = nestedsearch(search, run.point, run.atm, run.finders, run.fields);
  run.iterations = result.iterations;
  if (!result.rangefound) run.unseenline = search.given;
  return !result.failed;
}

constexpr Limits temperatures{0, 120};
constexpr Limits percents{0, 100};
constexpr Limits ratios{0, 0.03};
constexpr Limits enthalpies{0, 62};
constexpr Limits lowerenthalpies{0, 61.9};
constexpr Limits dewpoints{-55, 120};
constexpr Limits lowerdewpoints{-55, 89};
constexpr Limits volumes{0, 78};

struct PairRow {
  PropertyKind first, second;
  Limits firstlimits, secondlimits;
  Solve solve;
};

using enum PropertyKind;

/// All pairs but humidity ratio with dew point, which say the same thing twice.
constexpr std::array<PairRow, 20> pairtable = {{
    {db, wb, temperatures, temperatures, nothing}, {db, rh, temperatures, percents, by_wrh_then_A},
    {db, w, temperatures, ratios, by<B>},          {db, h, temperatures, lowerenthalpies, by_psychro_wb},
    {db, dp, temperatures, dewpoints, by<P, C>},   {db, v, temperatures, volumes, by<D>},
    {wb, rh, temperatures, percents, by<E>},       {wb, w, temperatures, ratios, by<F>},
    {wb, h, temperatures, enthalpies, by<G>},      {wb, dp, temperatures, lowerdewpoints, by<P, H>},
    {wb, v, temperatures, volumes, by<I>},         {rh, w, percents, ratios, by<J, K>},
    {rh, h, percents, enthalpies, nested<rh_h>},   {rh, dp, percents, dewpoints, nested<rh_dp>},
    {rh, v, percents, volumes, nested<rh_v>},      {w, h, ratios, lowerenthalpies, nested<w_h>},
    {w, v, ratios, volumes, nested<w_v>},          {h, dp, lowerenthalpies, dewpoints, nested<h_dp>},
    {h, v, lowerenthalpies, volumes, nested<h_v>}, {dp, v, dewpoints, volumes, nested<dp_v>},
}};

const PairRow* rowof(PropertyKind first, PropertyKind second) {
  for (const PairRow& row : pairtable) {
    if (row.first == first && row.second == second) return &row;
  }
  return nullptr;
}

/// Computes what is neither given nor found. The humidity ratio of the pair db, rh is found by psychro_wrh and stays
/// so.
void derive(const PairRow& row, StatePoint& point, double atm) {
  const auto derived = [&](PropertyKind kind) { return kind != row.first && kind != row.second; };
  if (derived(rh)) assign(point.rh, psychro_rh(point.db, point.wb, atm));
  if (derived(h)) assign(point.h, psychro_h(point.db, point.wb, atm));
  if (derived(w) && row.solve != by_wrh_then_A) assign(point.w, psychro_w(point.db, point.wb, atm));
  if (derived(v)) assign(point.v, psychro_v(point.db, point.wb, atm));
  if (derived(dp)) assign(point.dp, dewpoint(point.db, point.wb, atm));
}

}  // namespace

Unresolved inputfault(std::optional<PropertyKind> kind1, std::optional<PropertyKind> kind2, std::string_view value1,
                      std::string_view value2) {
  if (kind1 == kind2) return Unresolved::samekind;
  if ((kind1 == w && kind2 == dp) || (kind1 == dp && kind2 == w)) return Unresolved::humidityratiowithdewpoint;
  if (value1.empty() || value2.empty()) return Unresolved::blankvalue;
  return Unresolved::none;
}

Resolution resolvepair(Given first, Given second, double atm, const RangeFinders& finders, SolverFields& fields) {
  if (first.kind > second.kind) std::swap(first, second);
  Resolution resolution;
  StatePoint& point = resolution.point;
  const auto unresolved = [&](Unresolved reason, PropertyKind kind = db, const Limits& limits = {}) {
    resolution.reason = reason;
    resolution.kind = kind;
    resolution.limits = limits;
    return resolution;
  };
  const PairRow* row = rowof(first.kind, second.kind);
  if (row == nullptr) {
    return unresolved(first.kind == second.kind ? Unresolved::samekind : Unresolved::humidityratiowithdewpoint);
  }
  assign(point.at(first.kind), first.value);
  assign(point.at(second.kind), second.value);
  for (const auto& [kind, limits] : {StateBound{row->first, row->firstlimits}, {row->second, row->secondlimits}}) {
    if (!limits.accept(point.at(kind))) return unresolved(Unresolved::givenvalue, kind, limits);
  }
  Run run{point, atm, finders, fields};
  const bool found = row->solve(run);
  resolution.iterations = run.iterations;
  resolution.unseenline = run.unseenline;
  if (!found) return unresolved(Unresolved::search, run.sought);
  derive(*row, point, atm);
  assign(point.pv, psychro_pv1(point.db, point.wb, atm));
  if (const auto broken = brokenbound(point)) return unresolved(Unresolved::state, broken->kind, broken->limits);
  return resolution;
}

Resolution resolvepair(std::optional<PropertyKind> kind1, std::string_view value1, std::optional<PropertyKind> kind2,
                       std::string_view value2, double atm, const RangeFinders& finders, SolverFields& fields) {
  if (!kind1 || !kind2) {
    Resolution resolution;
    resolution.reason = Unresolved::nokind;
    return resolution;
  }
  return resolvepair({*kind1, strictnumber(value1)}, {*kind2, strictnumber(value2)}, atm, finders, fields);
}

}  // namespace moistair
