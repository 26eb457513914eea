#include "model/carryover.h"

#include <utility>

#include "chart/chartfinders.h"
#include "chart/pointmark.h"
#include "model/exactentry.h"
#include "model/locate.h"
#include "model/marks.h"
#include "model/pointreport.h"

namespace moistair {

namespace {

constexpr const char* secondAirHandler = "The chart has an air handler already";
constexpr const char* noExactState = "No exact state has both values";

/// Works an entry out again.
struct Reworker {
  const Setting& setting;
  const RangeFinders& finders;

  Outcome operator()(MarkedPoint& point) const {
    const auto& [one, two] = point.given;
    SolverFields fields;  // no other point can change the result
    if (point.exact) return reworkExactly(point, fields);
    const Location location = locatePoint(
        {one.kind, two.kind, one.value, two.value}, [] { return true; }, setting.pressure.atm, finders, fields);
    if (!location.outcome) return location.outcome;
    point.state = readReport(fillReport(location.resolution.point, point.identification, setting.pressure.entry));
    return {};
  }

  Outcome reworkExactly(MarkedPoint& point, SolverFields& fields) const {
    const auto& [one, two] = point.given;
    const double atm = setting.pressure.atm;
    const Resolution found = resolvePair(one.kind, one.value, two.kind, two.value, atm, finders, fields);
    const auto state = exactChoice(givenOf(point), atm, found).state;
    if (!state) return Error{ErrorCode::noResult, {}, noExactState};
    point.state = asReported(*state);
    return {};
  }

  /// A stream that does not resolve has a blank column, which is refused when it is drawn.
  Outcome operator()(MixingLine& line) const {
    MixingProblem problem;
    problem.pressure = {setting.pressure.atm, setting.pressure.entry};
    problem.streams = {line.columns.at(0), line.columns.at(1)};
    for (const std::size_t stream : {std::size_t{0}, std::size_t{1}}) {
      problem.solverFields = {};
      resolveStream(problem, stream);
    }
    problem.exactMixture = line.columns.at(2).exact;
    mixStreams(problem);
    line.columns = {problem.streams[0], problem.streams[1], problem.mixed};
    return {};
  }

  /// The same place of the other chart, where the air is another.
  Outcome operator()(PinnedReading& pinned) const {
    const auto again = readingToKeep(setting, {pinned.state.db, pinned.state.w});
    if (!again) return Error{ErrorCode::outOfRange, {}, pointOutOfLimits};
    pinned.state = again->state;
    return {};
  }

  Outcome operator()(AirHandler&) const { return {}; }  // solved again whenever it is shown
  Outcome operator()(PropertyLine&) const { return {}; }
  Outcome operator()(DrawnChart&) const { return {}; }
  Outcome operator()(HeaderLine&) const { return {}; }
};

}  // namespace

Result<Entry> workedOut(const Setting& setting, Content content, WindowSize window) {
  const PlotArea area = plotArea(setting.limits, window);
  Entry entry{setting, std::move(content)};
  const Outcome found = std::visit(Reworker{setting, chartRangeFinders([area] { return area; })}, entry.content);
  if (!found) return found.error();
  RecordingCanvas scratch;
  if (const char* message = draw(entry, scratch, window)) return Error{ErrorCode::noResult, {}, message};
  return entry;
}

CarriedOver carryOver(const std::vector<LeftOut>& previous, const Setting& setting, WindowSize window,
                      bool hasAirHandler) {
  CarriedOver result;
  for (const LeftOut& earlier : previous) {
    const bool airHandler = std::holds_alternative<AirHandler>(earlier.entry.content);
    if (airHandler && std::exchange(hasAirHandler, true)) {
      result.leftOut.push_back({earlier.entry, secondAirHandler});
      continue;
    }
    auto entry = workedOut(setting, earlier.entry.content, window);
    if (entry) {
      result.entries.push_back(std::move(*entry));
    } else {
      result.leftOut.push_back({earlier.entry, entry.error().words});
    }
  }
  return result;
}

}  // namespace moistair
