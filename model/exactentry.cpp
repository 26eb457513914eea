#include "model/exactentry.h"

#include <numeric>

#include "model/pointreport.h"
#include "model/table.h"
#include "text/value.h"

namespace moistair {

namespace {

std::optional<StatePoint> exactState(const PairOfGiven& pair, const StatePoint& shown, double atm) {
  const auto state = exactChoice(pair, atm, resolutionOf(shown)).state;
  return state ? std::optional(asReported(*state)) : std::nullopt;
}

/// Makes the states of an entry exact; returns whether there is any.
struct ExactMaker {
  const Pressure& pressure;

  bool operator()(MarkedPoint& point) const {
    const auto state = exactState(givenOf(point), point.state, pressure.atm);
    if (!state) return false;
    point.state = *state;
    point.exact = true;
    return true;
  }

  bool operator()(PinnedReading& pinned) const {
    const auto state = exactState(givenOf(pinned), pinned.state, pressure.atm);
    if (state) pinned.state = *state;
    return state.has_value();
  }

  bool operator()(MixingLine& line) const {
    MixingProblem problem;
    problem.pressure = {pressure.atm, pressure.entry};
    for (const std::size_t number : {std::size_t{0}, std::size_t{1}}) {
      AirStream& stream = problem.streams[number] = line.columns.at(number);
      stream.exact = true;
      if (resolveStream(problem, number).resolved()) continue;
      stream = line.columns.at(number);
    }
    problem.exactMixture = true;
    mixStreams(problem);
    if (!problem.savable) return false;
    line.columns = {problem.streams[0], problem.streams[1], problem.mixed};
    return true;
  }

  template <class Stateless>
  bool operator()(Stateless&) const {
    return false;
  }
};

}  // namespace

PairOfGiven givenOf(const MarkedPoint& point) {
  PairOfGiven pair{{{point.given[0].kind, 0}, {point.given[1].kind, 0}}};
  for (std::size_t i = 0; i < pair.size(); ++i) assign(pair[i].value, strictNumber(point.given[i].value));
  return pair;
}

PairOfGiven givenOf(const PinnedReading& pinned) {
  return {{{PropertyKind::db, pinned.state.db}, {PropertyKind::w, pinned.state.w}}};
}

std::optional<Entry> exactEntry(const Entry& entry) {
  Entry exact = entry;
  if (!std::visit(ExactMaker{entry.setting.pressure}, exact.content)) return std::nullopt;
  return exact;
}

std::vector<std::pair<std::size_t, Entry>> exactEntries(const Document& document, std::vector<std::size_t> places) {
  constexpr WindowSize anySize{15000, 10000};  // what lies within the limits does not depend on it
  std::vector<std::pair<std::size_t, Entry>> entries;
  if (places.empty()) {
    places.resize(document.entries.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
  }
  for (const std::size_t place : places) {
    if (place >= document.entries.size() || !missesAny(document.entries[place])) continue;
    auto exact = exactEntry(document.entries[place]);
    RecordingCanvas scratch;
    if (exact && draw(*exact, scratch, anySize) == nullptr) entries.emplace_back(place, std::move(*exact));
  }
  return entries;
}

StatePoint asReported(const StatePoint& state) { return readReport(fillReport(state, {}, {})); }

}  // namespace moistair
