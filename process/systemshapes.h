/// \file
/// What is drawn of a system on a chart, as data in the chart's own coordinates.
///
/// Every process is a line from the air that it takes to the air that it leaves, with an arrow; every state a dot with
/// the names of the streams that have it. A coil has its dashed construction down to the apparatus dew point, a room
/// the line of its sensible heat ratio on to saturation, a recovery unit one line for each of its streams. The sheet
/// and the layer above the drawing turn the same shapes into pixels.
#pragma once

#include <string>
#include <vector>

#include "process/solvedsystem.h"

namespace moistair {

/// What a line stands for; each has its color and its dash.
enum class ShapeLook : std::uint8_t { mixing, sensible, coil, moisture, recovery, room, construction };
inline constexpr std::size_t shapeLookCount = 7;

ShapeLook lookOf(StepKind kind);

struct SystemLine {
  std::size_t step = 0;
  ShapeLook look = ShapeLook::mixing;
  AirState from, to;
  bool arrow = true;  ///< from the first to the second state
};

struct SystemDot {
  AirState at;
  std::vector<std::size_t> streams;  ///< all that have this state, in the order written
  std::string name;                  ///< "MA", "RM, EX"
};

/// The apparatus dew point of a coil: no stream, but a state to read off.
struct SystemMark {
  std::size_t step = 0;
  AirState at;
  std::string name;  ///< "ADP", "ADP CC" where there are several
};

struct SystemShapes {
  std::vector<SystemLine> lines;
  std::vector<SystemDot> dots;
  std::vector<SystemMark> marks;
};

/// All that has a result. States may lie outside of any chart's limits.
SystemShapes shapesOf(const SolvedSystem& solved);

/// The part of a line within limits, if there is any; its arrow is lost where its end is.
struct ShapeLimits {
  double lowDb, highDb, lowW, highW;

  bool contain(const AirState& state) const {
    return state.db >= lowDb && state.db <= highDb && state.w >= lowW && state.w <= highW;
  }
};
std::optional<SystemLine> clipped(const SystemLine& line, const ShapeLimits& limits);

}  // namespace moistair
