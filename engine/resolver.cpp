#include "engine/resolver.h"

#include <cmath>
#include <initializer_list>
#include <utility>

#include "engine/moistair.h"
#include "engine/nested.h"
#include "engine/pairlimits.h"
#include "engine/solvers.h"
#include "text/value.h"

namespace moistair {

namespace {

using enum PropertyKind;

/// The state as far as it is known while a row is carried out.
struct Run {
  StatePoint& point;
  double atm;
  const RangeFinders& finders;
  SolverFields& fields;
  int iterations = 0;
  PropertyKind sought = db;                  ///< by the last search
  std::optional<PropertyKind> unseenline{};  ///< given property whose line no range finder saw
};

/// What is tested before a search runs: the target against the property at the ends of the bracket.
enum class Guard { none, between, abovelow };

/// One search of the pair table: F as a function of its variable, one property held fixed, takes a target. G is the
/// property that the guard looks at.
template <class F, class G = F>
struct Search {
  PropertyKind finds;
  PropertyKind fixed;
  PropertyKind target;
  Bracket bracket;
  Guard guard;
  PropertyKind guardtarget;
  bool mayfail;  ///< whether the row fails with it; if not, x counts as it stands after the last iteration

  bool allowed(const Run& run) const {
    if (guard == Guard::none) return true;
    const G property(run.point.at(fixed), run.atm);
    const double value = run.point.at(guardtarget);
    return guard == Guard::between ? liesbetween(property, value) : value > property(Bracket{}.low);
  }

  /// False if the row fails with it.
  bool operator()(Run& run) const {
    const F f(run.point.at(fixed), run.atm);
    const SearchResult result = bracketsearch(f, run.point.at(target), bracket, allowed(run), run.finders.way);
    run.point.at(finds) = result.x;
    run.iterations = result.iterations;
    run.sought = finds == wb ? wb : db;
    return !(mayfail && result.failed());
  }
};

constexpr Bracket temperature{};
constexpr Bracket temperaturefalling{.direction = Direction::falls};
constexpr Bracket vaporpressure{.high = 1.628817};  // a dew point of about 94.4 deg F

constexpr Search<RhOfWb> A{wb, db, rh, temperature, Guard::between, rh, true};
constexpr Search<WOfWb> B{wb, db, w, temperature, Guard::between, w, true};
constexpr Search<DpOfPv> P{pv, db, dp, vaporpressure, Guard::none, dp, false};
constexpr Search<PvOfWb> C{wb, db, pv, temperature, Guard::between, pv, true};
constexpr Search<VOfWb> D{wb, db, v, temperature, Guard::abovelow, v, true};
constexpr Search<RhOfDb> E{db, wb, rh, temperaturefalling, Guard::none, rh, true};
constexpr Search<WOfDb> F{db, wb, w, temperature, Guard::none, w, true};
constexpr Search<HOfDb> G{db, wb, h, temperature, Guard::none, h, true};
constexpr Search<PvOfDb> H{db, wb, pv, temperature, Guard::none, pv, true};
constexpr Search<VOfDb> I{db, wb, v, temperature, Guard::none, v, true};
constexpr Search<WrhOfDb> J{db, rh, w, temperature, Guard::none, w, true};
constexpr Search<RhOfWb, WOfWb> K{wb, db, rh, temperature, Guard::between, w, true};

/// How a row finds what its pair does not give: one or two searches, a direct equation, or a nested search.
using Solve = bool (*)(Run&);

bool nothing(Run&) { return true; }

template <const auto&... searches>
bool by(Run& run) {
  return (searches(run) && ...);
}

bool by_wrh_then_A(Run& run) {
  assign(run.point.w, psychro_wrh(run.point.db, run.point.rh, run.atm));
  return A(run);
}

bool by_psychro_wb(Run& run) {
  assign(run.point.wb, psychro_wb(run.point.db, run.point.h, run.atm, run.finders.way));
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

constexpr Limits temperatures = boundof(db);
constexpr Limits percents = boundof(rh);
constexpr Limits ratios = boundof(w);
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
  const double pv = psychro_pv1(point.db, point.wb, atm);
  const double ratio = ratioof(pv, atm);
  if (derived(rh)) assign(point.rh, humidityof(pv, psychro_pvs(point.db)));
  if (derived(h)) assign(point.h, enthalpyof(point.db, ratio));
  if (derived(w) && row.solve != by_wrh_then_A) assign(point.w, ratio);
  if (derived(v)) assign(point.v, volumeof(volumefactor(point.db), ratio, atm));
  if (derived(dp)) assign(point.dp, psychro_dp(pv));
  assign(point.pv, pv);
}

}  // namespace

std::optional<std::array<Limits, 2>> limitsof(PropertyKind first, PropertyKind second) {
  if (const PairRow* row = rowof(first, second)) return {{row->firstlimits, row->secondlimits}};
  if (const PairRow* row = rowof(second, first)) return {{row->secondlimits, row->firstlimits}};
  return std::nullopt;
}

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
