#include "process/systemshapes.h"

#include <algorithm>
#include <cmath>

#include "process/coilline.h"

namespace moistair {

namespace {

/// Whether two states are one on any chart.
bool same(const AirState& one, const AirState& other) {
  return std::abs(one.db - other.db) < 0.005 && std::abs(one.w - other.w) < 2e-6;
}

class ShapeMaker {
public:
  explicit ShapeMaker(const SolvedSystem& solved) : solved_(solved), system_(solved.system) {}

  SystemShapes make() {
    for (std::size_t step = 0; step < system_.steps.size(); ++step) {
      if (solved_.hasResult(step)) addStep(step);
    }
    const std::size_t coils = shapes_.marks.size();
    for (SystemMark& mark : shapes_.marks) {
      mark.name = coils > 1 ? "ADP " + system_.names[mainStream(mark.step)] : "ADP";
    }
    return std::move(shapes_);
  }

private:
  const AirState& stateOf(std::size_t stream) const { return solved_.solution.streams[stream].state; }

  void addLine(std::size_t step, ShapeLook look, const AirState& from, const AirState& to, bool arrow = true) {
    if (hasValue(from.db) && hasValue(to.db) && !same(from, to)) shapes_.lines.push_back({step, look, from, to, arrow});
  }

  void addDot(std::size_t stream) {
    const AirState& state = stateOf(stream);
    if (!hasValue(state.db)) return;
    const auto here = [&](const SystemDot& dot) { return same(dot.at, state); };
    auto dot = std::find_if(shapes_.dots.begin(), shapes_.dots.end(), here);
    if (dot == shapes_.dots.end()) dot = shapes_.dots.insert(dot, {state, {}, {}});
    dot->streams.push_back(stream);
    // What a part leaves has the name of what it takes, unless it is alone.
    if (dot->name.empty() || system_.steps[stream / 2].kind != StepKind::part) {
      dot->name += (dot->name.empty() ? "" : ", ") + system_.names[stream];
    }
  }

  void addStep(std::size_t step) {
    const CompiledStep& compiled = system_.steps[step];
    const ShapeLook look = lookOf(compiled.kind);
    const StepResult& result = solved_.solution.results[step];
    for (std::size_t i = 0; i < compiled.sourceCount && compiled.kind != StepKind::part; ++i) {
      const bool second = compiled.kind == StepKind::recover && i == 1;
      const std::size_t source = system_.sources[compiled.firstSource + i];
      addLine(step, look, stateOf(source), stateOf(second ? secondStream(step) : mainStream(step)));
    }
    addDot(mainStream(step));
    if (!system_.names[secondStream(step)].empty()) addDot(secondStream(step));
    if (compiled.kind == StepKind::coil) addCoil(step, result);
    if (compiled.kind == StepKind::room) addRoom(step);
  }

  /// From the leaving state down to the apparatus dew point.
  void addCoil(std::size_t step, const StepResult& result) {
    if (!hasValue(result.adp)) return;
    const AirState adp{result.adp, solved_.site.saturationRatio(result.adp)};
    if (!std::isfinite(adp.w)) return;
    addLine(step, ShapeLook::construction, stateOf(mainStream(step)), adp, false);
    shapes_.marks.push_back({step, adp, {}});
  }

  /// The line of the room's sensible heat ratio, beyond the supply air on to saturation.
  void addRoom(std::size_t step) {
    const AirState& supply = stateOf(system_.sources[system_.steps[step].firstSource]);
    const AirState& room = stateOf(mainStream(step));
    if (same(supply, room) || supply.db >= room.db) return;
    const double db = apparatusDewPoint(room, supply, solved_.site);
    if (!hasValue(db)) return;
    addLine(step, ShapeLook::construction, supply, {db, solved_.site.saturationRatio(db)}, false);
  }

  const SolvedSystem& solved_;
  const CompiledSystem& system_;
  SystemShapes shapes_;
};

}  // namespace

ShapeLook lookOf(StepKind kind) {
  switch (kind) {
    case StepKind::heat:
    case StepKind::cool:
    case StepKind::fan: return ShapeLook::sensible;
    case StepKind::coil: return ShapeLook::coil;
    case StepKind::evaporate:
    case StepKind::steam:
    case StepKind::dry: return ShapeLook::moisture;
    case StepKind::recover: return ShapeLook::recovery;
    case StepKind::room: return ShapeLook::room;
    default: return ShapeLook::mixing;
  }
}

SystemShapes shapesOf(const SolvedSystem& solved) { return ShapeMaker(solved).make(); }

std::optional<SystemLine> clipped(const SystemLine& line, const ShapeLimits& limits) {
  double first = 0, last = 1;
  const double along[] = {line.to.db - line.from.db, line.to.w - line.from.w};
  const double start[] = {line.from.db, line.from.w};
  const double low[] = {limits.lowDb, limits.lowW}, high[] = {limits.highDb, limits.highW};
  for (int axis = 0; axis < 2; ++axis) {
    if (along[axis] == 0) {
      if (start[axis] < low[axis] || start[axis] > high[axis]) return std::nullopt;
      continue;
    }
    const double one = (low[axis] - start[axis]) / along[axis];
    const double other = (high[axis] - start[axis]) / along[axis];
    first = std::max(first, std::min(one, other));
    last = std::min(last, std::max(one, other));
  }
  if (!(first < last)) return std::nullopt;
  const auto at = [&](double part) { return AirState{start[0] + part * along[0], start[1] + part * along[1]}; };
  SystemLine visible = line;
  if (first > 0) visible.from = at(first);
  if (last < 1) visible.to = at(last);
  visible.arrow = line.arrow && last == 1;
  return visible;
}

}  // namespace moistair
