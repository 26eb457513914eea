#include "engine/nested.h"

#include <array>
#include <cmath>

#include "engine/moistair.h"
#include "engine/solvers.h"
#include "text/value.h"

namespace moistair {

namespace {

/// Wet bulb of the candidate. A search that fails or may not run goes on with its present x: the outer search simply
/// sees a value that does not fit.
class InnerSolver {
public:
  InnerSolver(Completion completion, double given, double atm, SearchMode mode)
      : completion_(completion), given_(given), atm_(atm), mode_(mode) {
    if (completion == Completion::hWalk) walk_.emplace(given, atm, mode);
  }

  double wetBulb(double db) const {
    switch (completion_) {
      case Completion::rhSearch: {
        const Bracket bracket{.tolerance = 1e-06};
        return bracketSearch(RhOfWb(db, atm_), given_, bracket, given_ <= 100 && given_ >= 0, mode_).x;
      }
      case Completion::vSearch: {
        const VOfWb f(db, atm_);
        return bracketSearch(f, given_, Bracket{}, given_ > f(0), mode_).x;
      }
      case Completion::hWalk: break;
    }
    return (*walk_)(db);
  }

private:
  Completion completion_;
  double given_, atm_;
  SearchMode mode_;
  std::optional<WetBulbWalk> walk_;
};

void innerSolve(const NestedSearch& search, const InnerSolver& solver, double atm, SolverFields& fields) {
  const double db = fields.candidate.strict();
  const double wb = solver.wetBulb(db);
  fields.returned.set(search.returned(db, wb, atm));
  if (!search.wetBulbOfH) fields.wetBulb.set(wb);
}

/// False if the finder saw the line nowhere.
bool findRange(const NestedSearch& search, double line, double atm, const RangeFinders& finders, SolverFields& fields) {
  const RangeFinder& finder = finders.*search.finder;
  NumberText& carrier = search.completion == Completion::rhSearch ? fields.candidate : fields.given;
  carrier.set(line);
  const auto range = finder ? finder(carrier.lenient(), atm) : std::nullopt;
  if (!range) return false;
  fields.low.set(range->low);
  fields.high.set(range->high);
  return true;
}

}  // namespace

NestedResult nestedSearch(const NestedSearch& search, StatePoint& point, double atm, const RangeFinders& finders,
                          SolverFields& fields) {
  const double given = point.at(search.given);
  const double target = point.at(search.target);
  NestedResult result;
  result.rangeFound = findRange(search, given, atm, finders, fields);

  double high = fields.high.lenient();
  double low = fields.low.lenient();
  double db = 0;
  // The bracket moves to the dry bulb that was tested, as rounded in its field, and not to the unrounded midpoint:
  // where the returned property jumps, the side on which the search comes to rest depends on it (h 15 with dp 32.1 ends
  // at a dew point of 32.2567, not 31.7926).
  const auto takeToMiddle = [&] {
    fields.candidate.set((high + low) / 2);
    db = fields.candidate.strict();
  };
  const auto halve = [&](bool above) {
    (above == search.rises ? high : low) = db;
    takeToMiddle();
  };
  takeToMiddle();
  fields.given.set(given);
  const InnerSolver solver(search.completion, fields.given.strict(), atm, finders.mode);

  double returned = 0;
  const auto currentValues = [&] {
    return std::array{low, high, db, fields.returned.lenient(), fields.wetBulb.lenient()};
  };
  std::array<double, 5> before{};
  do {
    ++result.iterations;
    before = currentValues();
    innerSolve(search, solver, atm, fields);
    returned = fields.returned.lenient();
    if (returned > target) {
      halve(true);
      innerSolve(search, solver, atm, fields);
      returned = fields.returned.lenient();
    }
    if (returned < target) halve(false);
    // As in `bracketSearch`: what no longer moves never converges.
    const bool stuck = before == currentValues() && !(std::abs(returned - target) < search.tolerance);
    if (finders.mode == SearchMode::accelerated && stuck) result.iterations = iterationLimit;
  } while (!(std::abs(returned - target) < search.tolerance) && result.iterations < iterationLimit);

  result.failed = search.acceptedWithin ? !(std::abs(returned - target) < 0.5) : result.iterations == iterationLimit;
  if (result.failed) return result;
  point.db = db;
  if (search.wetBulbOfH) {
    assign(point.wb, psychro_wb(db, point.h, atm, finders.mode));
  } else {
    point.wb = fields.wetBulb.lenient();
  }
  return result;
}

}  // namespace moistair
