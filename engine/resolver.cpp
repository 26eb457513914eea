#include "engine/resolver.h"

#include <cmath>
#include <initializer_list>
#include <utility>

#include "engine/moistair.h"
#include "engine/nested.h"
#include "engine/pairranges.h"
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
  std::optional<PropertyKind> unseenLine{};  ///< given property whose line no range finder saw
};

/// What is tested before a search runs: the target against the property at the ends of the bracket.
enum class Guard { none, between, aboveLow };

/// One search of the pair table: `Found` as a function of its variable, one property held fixed, takes a target.
/// `Guarded` is the property that the guard looks at.
template <class Found, class Guarded = Found>
struct Search {
  PropertyKind finds;
  PropertyKind fixed;
  PropertyKind target;
  Bracket bracket;
  Guard guard;
  PropertyKind guardTarget;
  bool mayFail;  ///< whether the row fails with it; if not, x counts as it is after the last iteration

  bool allowed(const Run& run) const {
    if (guard == Guard::none) return true;
    const Guarded property(run.point.at(fixed), run.atm);
    const double value = run.point.at(guardTarget);
    return guard == Guard::between ? liesBetween(property, value) : value > property(Bracket{}.low);
  }

  /// False if the row fails with it.
  bool operator()(Run& run) const {
    const Found f(run.point.at(fixed), run.atm);
    const SearchResult result = bracketSearch(f, run.point.at(target), bracket, allowed(run), run.finders.mode);
    run.point.at(finds) = result.x;
    run.iterations = result.iterations;
    run.sought = finds == wb ? wb : db;
    return !(mayFail && result.failed());
  }
};

constexpr Bracket temperature{};
constexpr Bracket temperatureFalling{.direction = Direction::falls};
constexpr Bracket vaporPressure{.high = 1.628817};  // a dew point of about 94.4 deg F

constexpr Search<RhOfWb> wbOfDbAndRh{wb, db, rh, temperature, Guard::between, rh, true};
constexpr Search<WOfWb> wbOfDbAndW{wb, db, w, temperature, Guard::between, w, true};
constexpr Search<DpOfPv> pvOfDp{pv, db, dp, vaporPressure, Guard::none, dp, false};
constexpr Search<PvOfWb> wbOfDbAndPv{wb, db, pv, temperature, Guard::between, pv, true};
constexpr Search<VOfWb> wbOfDbAndV{wb, db, v, temperature, Guard::aboveLow, v, true};
constexpr Search<RhOfDb> dbOfWbAndRh{db, wb, rh, temperatureFalling, Guard::none, rh, true};
constexpr Search<WOfDb> dbOfWbAndW{db, wb, w, temperature, Guard::none, w, true};
constexpr Search<HOfDb> dbOfWbAndH{db, wb, h, temperature, Guard::none, h, true};
constexpr Search<PvOfDb> dbOfWbAndPv{db, wb, pv, temperature, Guard::none, pv, true};
constexpr Search<VOfDb> dbOfWbAndV{db, wb, v, temperature, Guard::none, v, true};
constexpr Search<WrhOfDb> dbOfRhAndW{db, rh, w, temperature, Guard::none, w, true};
constexpr Search<RhOfWb, WOfWb> wbOfDbAndRhWithinW{wb, db, rh, temperature, Guard::between, w, true};

/// How a row finds what its pair does not give: one or two searches, a direct equation, or a nested search.
using Solve = bool (*)(Run&);

bool nothing(Run&) { return true; }

template <const auto&... searches>
bool by(Run& run) {
  return (searches(run) && ...);
}

bool byRatioThenWetBulb(Run& run) {
  assign(run.point.w, psychro_wrh(run.point.db, run.point.rh, run.atm));
  return wbOfDbAndRh(run);
}

bool byWetBulbWalk(Run& run) {
  assign(run.point.wb, psychro_wb(run.point.db, run.point.h, run.atm, run.finders.mode));
  return true;
}

/// The pairs without a temperature.
double dewPoint(double db, double wb, double atm) { return psychro_dp(psychro_pv1(db, wb, atm)); }

constexpr auto rhRange = &RangeFinders::dbRangeOfRh;
constexpr auto hRange = &RangeFinders::dbRangeOfH;
constexpr auto vRange = &RangeFinders::dbRangeOfSpvol;
using enum Completion;

constexpr NestedSearch hOnRhLine{rhRange, PropertyKind::rh, rhSearch, psychro_h, PropertyKind::h, 1e-05, true, false,
                                 true};
constexpr NestedSearch dpOnRhLine{rhRange, PropertyKind::rh, rhSearch, dewPoint, PropertyKind::dp, 1e-05, true};
constexpr NestedSearch vOnRhLine{rhRange, PropertyKind::rh, rhSearch, psychro_v, PropertyKind::v, 1e-05, true};
constexpr NestedSearch wOnHLine{hRange, PropertyKind::h, hWalk, psychro_w, PropertyKind::w, 0.0001, false};
constexpr NestedSearch wOnVLine{vRange, PropertyKind::v, vSearch, psychro_w, PropertyKind::w, 1e-05, false};
constexpr NestedSearch dpOnHLine{hRange, PropertyKind::h, hWalk, dewPoint, PropertyKind::dp, 0.001, false, true};
constexpr NestedSearch vOnHLine{hRange, PropertyKind::h, hWalk, psychro_v, PropertyKind::v, 1e-05, true};
constexpr NestedSearch dpOnVLine{vRange, PropertyKind::v, vSearch, dewPoint, PropertyKind::dp, 0.001, false};

template <const NestedSearch& search>
bool nested(Run& run) {
  const NestedResult result = nestedSearch(search, run.point, run.atm, run.finders, run.fields);
  run.iterations = result.iterations;
  if (!result.rangeFound) run.unseenLine = search.given;
  return !result.failed;
}

constexpr Range temperatures = boundOf(db);
constexpr Range percents = boundOf(rh);
constexpr Range ratios = boundOf(w);
constexpr Range enthalpies{0, 62};
constexpr Range lowerEnthalpies{0, 61.9};
constexpr Range dewPoints{-55, 120};
constexpr Range lowerDewPoints{-55, 89};
constexpr Range volumes{0, 78};

struct PairRow {
  PropertyKind first, second;
  Range firstRange, secondRange;
  Solve solve;
};

/// All pairs but humidity ratio with dew point, which say the same thing twice.
constexpr std::array<PairRow, 20> pairTable = {{
    {db, wb, temperatures, temperatures, nothing},
    {db, rh, temperatures, percents, byRatioThenWetBulb},
    {db, w, temperatures, ratios, by<wbOfDbAndW>},
    {db, h, temperatures, lowerEnthalpies, byWetBulbWalk},
    {db, dp, temperatures, dewPoints, by<pvOfDp, wbOfDbAndPv>},
    {db, v, temperatures, volumes, by<wbOfDbAndV>},
    {wb, rh, temperatures, percents, by<dbOfWbAndRh>},
    {wb, w, temperatures, ratios, by<dbOfWbAndW>},
    {wb, h, temperatures, enthalpies, by<dbOfWbAndH>},
    {wb, dp, temperatures, lowerDewPoints, by<pvOfDp, dbOfWbAndPv>},
    {wb, v, temperatures, volumes, by<dbOfWbAndV>},
    {rh, w, percents, ratios, by<dbOfRhAndW, wbOfDbAndRhWithinW>},
    {rh, h, percents, enthalpies, nested<hOnRhLine>},
    {rh, dp, percents, dewPoints, nested<dpOnRhLine>},
    {rh, v, percents, volumes, nested<vOnRhLine>},
    {w, h, ratios, lowerEnthalpies, nested<wOnHLine>},
    {w, v, ratios, volumes, nested<wOnVLine>},
    {h, dp, lowerEnthalpies, dewPoints, nested<dpOnHLine>},
    {h, v, lowerEnthalpies, volumes, nested<vOnHLine>},
    {dp, v, dewPoints, volumes, nested<dpOnVLine>},
}};

const PairRow* rowOf(PropertyKind first, PropertyKind second) {
  for (const PairRow& row : pairTable) {
    if (row.first == first && row.second == second) return &row;
  }
  return nullptr;
}

/// Computes what is neither given nor found. The humidity ratio of the pair db, rh is found by psychro_wrh and stays
/// so.
void derive(const PairRow& row, StatePoint& point, double atm) {
  const auto derived = [&](PropertyKind kind) { return kind != row.first && kind != row.second; };
  const double pv = psychro_pv1(point.db, point.wb, atm);
  const double ratio = ratioOf(pv, atm);
  if (derived(rh)) assign(point.rh, humidityOf(pv, psychro_pvs(point.db)));
  if (derived(h)) assign(point.h, enthalpyOf(point.db, ratio));
  if (derived(w) && row.solve != byRatioThenWetBulb) assign(point.w, ratio);
  if (derived(v)) assign(point.v, volumeOf(volumeFactor(point.db), ratio, atm));
  if (derived(dp)) assign(point.dp, psychro_dp(pv));
  assign(point.pv, pv);
}

}  // namespace

std::optional<std::array<Range, 2>> rangesOf(PropertyKind first, PropertyKind second) {
  if (const PairRow* row = rowOf(first, second)) return {{row->firstRange, row->secondRange}};
  if (const PairRow* row = rowOf(second, first)) return {{row->secondRange, row->firstRange}};
  return std::nullopt;
}

Unresolved inputFault(std::optional<PropertyKind> kind1, std::optional<PropertyKind> kind2, std::string_view value1,
                      std::string_view value2) {
  if (kind1 == kind2) return Unresolved::sameKind;
  if ((kind1 == w && kind2 == dp) || (kind1 == dp && kind2 == w)) return Unresolved::humidityRatioWithDewPoint;
  if (value1.empty() || value2.empty()) return Unresolved::blankValue;
  return Unresolved::none;
}

Resolution resolvePair(Given first, Given second, double atm, const RangeFinders& finders, SolverFields& fields) {
  if (first.kind > second.kind) std::swap(first, second);
  Resolution resolution;
  StatePoint& point = resolution.point;
  const auto unresolved = [&](Unresolved reason, PropertyKind kind = db, const Range& range = {}) {
    resolution.reason = reason;
    resolution.kind = kind;
    resolution.range = range;
    return resolution;
  };
  const PairRow* row = rowOf(first.kind, second.kind);
  if (row == nullptr) {
    return unresolved(first.kind == second.kind ? Unresolved::sameKind : Unresolved::humidityRatioWithDewPoint);
  }
  assign(point.at(first.kind), first.value);
  assign(point.at(second.kind), second.value);
  for (const auto& [kind, range] : {StateBound{row->first, row->firstRange}, {row->second, row->secondRange}}) {
    if (!range.accept(point.at(kind))) return unresolved(Unresolved::givenValue, kind, range);
  }
  Run run{point, atm, finders, fields};
  const bool found = row->solve(run);
  resolution.iterations = run.iterations;
  resolution.unseenLine = run.unseenLine;
  if (!found) return unresolved(Unresolved::search, run.sought);
  derive(*row, point, atm);
  if (const auto broken = violatedBound(point)) return unresolved(Unresolved::state, broken->kind, broken->range);
  return resolution;
}

Resolution resolvePair(std::optional<PropertyKind> kind1, std::string_view value1, std::optional<PropertyKind> kind2,
                       std::string_view value2, double atm, const RangeFinders& finders, SolverFields& fields) {
  if (!kind1 || !kind2) {
    Resolution resolution;
    resolution.reason = Unresolved::noKind;
    return resolution;
  }
  return resolvePair({*kind1, strictNumber(value1)}, {*kind2, strictNumber(value2)}, atm, finders, fields);
}

}  // namespace moistair
