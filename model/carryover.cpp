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

/// Works an entry out again; returns nullptr, or the message with which it is refused.
struct Reworker {
  const Setting& setting;
  const RangeFinders& finders;

  const char* operator()(MarkedPoint& point) const {
    const auto& [one, two] = point.given;
    SolverFields fields;  // no other point can change the result
    if (point.exact) return reworkExactly(point, fields);
    const Location location = locatePoint(
        {one.kind, two.kind, one.value, two.value}, [] { return true; }, setting.pressure.atm, finders, fields);
    if (location.refusal) return location.refusal->text;
    point.state = readReport(fillReport(location.resolution.point, point.identification, setting.pressure.entry));
    return nullptr;
  }

  const char* reworkExactly(MarkedPoint& point, SolverFields& fields) const {
    const auto& [one, two] = point.given;
    const double atm = setting.pressure.atm;
    const Resolution found = resolvePair(one.kind, one.value, two.kind, two.value, atm, finders, fields);
    const auto state = exactChoice(givenOf(point), atm, found).state;
    if (!state) return noExactState;
    point.state = asReported(*state);
    return nullptr;
  }

  /// A stream that does not resolve has a blank column, which is refused when it is drawn.
  const char* operator()(MixingLine& line) const {
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
    return nullptr;
  }

  /// The same place of the other chart, where the air is another.
  const char* operator()(PinnedReading& pinned) const {
    const auto again = readingToKeep(setting, {pinned.state.db, pinned.state.w});
    if (!again) return pointOutOfLimits;
    pinned.state = again->state;
    return nullptr;
  }

  const char* operator()(AirHandler&) const { return nullptr; }  // solved again whenever it is shown
  const char* operator()(PropertyLine&) const { return nullptr; }
  const char* operator()(DrawnChart&) const { return nullptr; }
  const char* operator()(HeaderLine&) const { return nullptr; }
};

}  // namespace

Result<Entry> workedOut(const Setting& setting, Content content, WindowSize window) {
  const PlotArea area = plotArea(setting.limits, window);
  Entry entry{setting, std::move(content)};
  const char* message = std::visit(Reworker{setting, chartRangeFinders([area] { return area; })}, entry.content);
  RecordingCanvas scratch;
  if (message == nullptr) message = draw(entry, scratch, window);
  if (message != nullptr) return Error{ErrorCode::noResult, {}, message};
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
