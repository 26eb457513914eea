#include "process/systemdiagram.h"

#include <algorithm>
#include <map>
#include <set>

#include "process/words.h"
#include "text/numberformat.h"

namespace moistair {

namespace {

constexpr double blockWidth = 9;
constexpr double leastBlockHeight = 4.4;
constexpr double lineStep = 1.25;    // from line to line of a block
constexpr double laneGap = 2.2;      // between blocks of a column
constexpr double trackStep = 0.7;    // between ducts side by side
constexpr double firstTrack = 7.4;   // of the gap between columns: beyond the texts of the joints
constexpr double afterTracks = 1.2;  // room for the arrow
constexpr double outlet = 1.5;       // length of a duct that leaves the system, beyond the texts
constexpr double headroom = 2.6;     // above the ducts, for the texts

class DiagramMaker {
public:
  explicit DiagramMaker(const SolvedSystem& solved) : solved_(solved), system_(solved.system) {}

  SystemDiagram make() {
    if (system_.steps.empty()) return {};
    rank();
    countTracks();
    place();
    route();
    label();
    measure();
    return std::move(diagram_);
  }

private:
  std::size_t count() const { return system_.steps.size(); }

  template <class Take>
  void forSources(std::size_t step, const Take& take) const {
    const CompiledStep& compiled = system_.steps[step];
    for (std::size_t i = 0; i < compiled.sourceCount; ++i) take(system_.sources[compiled.firstSource + i]);
  }

  /// The column of each step: after all it takes from, but for the streams at which a loop is cut. What begins a
  /// stream is right before what takes it.
  void rank() {
    columns_.assign(count(), 0);
    std::vector<bool> done(count(), false);
    for (const std::size_t step : system_.order) {
      forSources(step, [&](std::size_t stream) {
        if (done[stream / 2]) columns_[step] = std::max(columns_[step], columns_[stream / 2] + 1);
      });
      done[step] = true;
    }
    std::vector<std::size_t> taker(count(), count());
    for (const std::size_t step : system_.order) {
      forSources(step, [&](std::size_t stream) {
        std::size_t& first = taker[stream / 2];
        if (first == count() || columns_[step] < columns_[first]) first = step;
      });
    }
    for (std::size_t step = 0; step < count(); ++step) {
      const bool begins = system_.steps[step].sourceCount == 0;
      if (begins && taker[step] < count()) columns_[step] = std::max<std::size_t>(1, columns_[taker[step]]) - 1;
    }
  }

  /// The lane of each step: that of the first step it takes from, or the next free one.
  void place() {
    lanes_.assign(count(), 0);
    std::set<std::pair<std::size_t, std::size_t>> taken;
    std::vector<bool> done(count(), false);
    double lane = 0;
    std::map<std::size_t, double> heights;
    for (const std::size_t step : system_.order) {
      std::size_t wanted = 0;
      bool found = false;
      forSources(step, [&](std::size_t stream) {
        if (!found && done[stream / 2]) wanted = lanes_[stream / 2] + (stream % 2);
        found = found || done[stream / 2];
      });
      while (taken.contains({columns_[step], wanted})) ++wanted;
      taken.insert({columns_[step], wanted});
      lanes_[step] = wanted;
      done[step] = true;
    }
    for (std::size_t step = 0; step < count(); ++step) {
      diagram_.blocks.push_back(blockOf(step));
      double& height = heights[lanes_[step]];
      height = std::max(height, diagram_.blocks.back().height);
    }
    std::map<std::size_t, double> tops;
    for (const auto& [number, height] : heights) {
      tops[number] = lane + headroom;
      lane += headroom + height + laneGap;
    }
    bottom_ = lane;
    for (DiagramBlock& block : diagram_.blocks) {
      block.left = leftOf(columns_[block.step]);
      block.top = tops[lanes_[block.step]];
    }
  }

  /// The gap behind a column has room for the upright ducts in it; that before the first is number 0.
  double gapWidth(std::size_t gap) const { return firstTrack + trackStep * tracks_[gap] + afterTracks; }

  double leftOf(std::size_t column) const {
    double left = loops_ ? gapWidth(0) : 0;
    for (std::size_t gap = 1; gap <= column; ++gap) left += blockWidth + gapWidth(gap);
    return left;
  }

  /// How many upright ducts there can be in each gap.
  void countTracks() {
    tracks_.assign(*std::max_element(columns_.begin(), columns_.end()) + 2, 0);
    for (std::size_t step = 0; step < count(); ++step) {
      forSources(step, [&](std::size_t stream) {
        const std::size_t from = columns_[stream / 2], to = columns_[step];
        ++tracks_[from + 1];
        if (to != from + 1) ++tracks_[to];
        loops_ = loops_ || (to == 0);
      });
    }
  }

  DiagramBlock blockOf(std::size_t step) const {
    DiagramBlock block{.step = step, .kind = system_.steps[step].kind, .width = blockWidth};
    block.name = system_.names[mainStream(step)];
    block.lines = resultLines(step);
    block.height = std::max(leastBlockHeight, lineStep * (static_cast<double>(block.lines.size()) + 1) + 1);
    return block;
  }

  std::vector<std::string> resultLines(std::size_t step) const {
    const StepKind kind = system_.steps[step].kind;
    std::vector<std::string> lines{nameOf(kind)};
    if (!solved_.hasResult(step)) {
      lines.emplace_back("no result");
      return lines;
    }
    const StepResult& result = solved_.solution.results[step];
    if (result.off) lines.emplace_back("off");
    if (kind == StepKind::part && hasValue(result.share)) lines.push_back(typeset(100 * result.share, 1) + " %");
    const bool loads = isProcess(kind) && kind != StepKind::mix && kind != StepKind::part && !result.off;
    if (!loads || !result.leaving.flowKnown()) return lines;
    const double total = std::abs(result.total);
    const bool cools = kind == StepKind::coil || kind == StepKind::cool;
    if (kind == StepKind::fan) {
      if (hasValue(result.power)) lines.push_back(typeset(result.power, 2) + " bhp");
    } else if (cools) {
      lines.push_back(typeset(total / btuhPerTon, 1) + " tons");
    } else if (std::abs(result.total) > 1) {
      lines.push_back(typeset(total / 1000, 1) + " MBH");
    }
    if ((kind == StepKind::coil || kind == StepKind::room) && hasValue(result.shr)) {
      lines.push_back("SHR " + typeset(result.shr, 2));
    }
    if (kind == StepKind::steam || kind == StepKind::evaporate) lines.push_back(typeset(result.water, 1) + " lb/h");
    return lines;
  }

  /// Where a duct leaves its block: the main stream in the middle, the second below it.
  DiagramPoint start(std::size_t stream) const {
    const DiagramBlock& block = diagram_.blocks[stream / 2];
    const bool two = !system_.names[secondStream(stream / 2)].empty();
    const double part = !two ? 0.5 : stream % 2 == 0 ? 0.3 : 0.8;
    return {block.left + block.width, block.top + part * block.height};
  }

  DiagramPoint end(std::size_t step, std::size_t source, std::size_t sources) const {
    const DiagramBlock& block = diagram_.blocks[step];
    const double part = (static_cast<double>(source) + 1) / (static_cast<double>(sources) + 1);
    return {block.left, block.top + part * block.height};
  }

  /// The next free place for an upright duct in a gap.
  double track(std::size_t gap) {
    const double begin = leftOf(gap) - gapWidth(gap);
    return begin + firstTrack + trackStep * used_[gap]++;
  }

  void route() {
    std::vector<bool> taken(2 * count(), false);
    for (const std::size_t step : system_.order) {
      const std::size_t sources = system_.steps[step].sourceCount;
      for (std::size_t i = 0; i < sources; ++i) {
        const std::size_t stream = system_.sources[system_.steps[step].firstSource + i];
        taken[stream] = true;
        diagram_.ducts.push_back({stream, pathOf(stream, step, end(step, i, sources))});
      }
    }
    for (std::size_t stream = 0; stream < taken.size(); ++stream) {
      if (taken[stream] || system_.names[stream].empty()) continue;
      const DiagramPoint from = start(stream);
      diagram_.ducts.push_back({stream, {from, {from.x + firstTrack + outlet, from.y}}});
    }
  }

  std::vector<DiagramPoint> pathOf(std::size_t stream, std::size_t step, DiagramPoint to) {
    const DiagramPoint from = start(stream);
    const std::size_t column = columns_[stream / 2];
    const double out = track(column + 1);
    if (columns_[step] == column + 1) {
      if (from.y == to.y) return {from, to};
      return {from, {out, from.y}, {out, to.y}, to};
    }
    const double in = track(columns_[step]);
    const double below = bottom_ + trackStep * buses_++;
    return {from, {out, from.y}, {out, below}, {in, below}, {in, to.y}, to};
  }

  void label() {
    for (std::size_t stream = 0; stream < system_.names.size(); ++stream) {
      if (system_.names[stream].empty() || !solved_.hasResult(stream / 2)) continue;
      const StreamReadout readout = readoutOf(solved_.solution.streams[stream], solved_.site);
      DiagramJoint joint{stream, start(stream), stream % 2 == 1};
      joint.at.x += 0.4;
      joint.lines.push_back(typeset(readout.db, 1) + " / " + (hasValue(readout.wb) ? typeset(readout.wb, 1) : "-") +
                            " °F");
      if (hasValue(readout.acfm)) joint.lines.push_back(typeset(readout.acfm, 0) + " acfm");
      diagram_.joints.push_back(std::move(joint));
    }
  }

  void measure() {
    const auto reach = [&](double x, double y) {
      diagram_.width = std::max(diagram_.width, x + 0.5);
      diagram_.height = std::max(diagram_.height, y + 0.5);
    };
    for (const DiagramBlock& block : diagram_.blocks) reach(block.left + block.width, block.top + block.height);
    for (const DiagramDuct& duct : diagram_.ducts) {
      for (const DiagramPoint& point : duct.points) reach(point.x, point.y);
    }
    for (const DiagramJoint& joint : diagram_.joints) reach(joint.at.x + firstTrack, joint.at.y);
  }

  const SolvedSystem& solved_;
  const CompiledSystem& system_;
  SystemDiagram diagram_;
  std::vector<std::size_t> columns_, lanes_;
  std::vector<int> tracks_;  ///< of each gap
  std::map<std::size_t, int> used_;
  bool loops_ = false;  ///< whether a duct comes back to the first column
  double bottom_ = 0;
  int buses_ = 0;
};

}  // namespace

SystemDiagram diagramOf(const SolvedSystem& solved) { return DiagramMaker(solved).make(); }

}  // namespace moistair
