/// \file
/// A system as a diagram: a block for each step, ducts between them, laid out by the program.
///
/// Air flows from left to right; each step is in the column after those it takes from. Ducts that pass over columns,
/// and those of a loop, run below all blocks. Places and sizes are multiples of the height of a letter, x to the right
/// and y downward from the upper left corner. Whoever shows it turns them into pixels: the window and the sheet use the
/// same.
#pragma once

#include <string>
#include <vector>

#include "process/solvedsystem.h"

namespace moistair {

struct DiagramPoint {
  double x = 0, y = 0;

  bool operator==(const DiagramPoint&) const = default;
};

struct DiagramBlock {
  std::size_t step = 0;
  StepKind kind = StepKind::air;
  double left = 0, top = 0, width = 0, height = 0;
  std::string name{};                ///< first line, bold
  std::vector<std::string> lines{};  ///< the kind, and what it came to: "34.0 tons", "SHR 0.694"
};

/// A duct from a block to another, or out of the system.
struct DiagramDuct {
  std::size_t stream = 0;
  std::vector<DiagramPoint> points;  ///< pieces upright or level; an arrow at the last
};

/// A state at the joint where a stream leaves its block.
struct DiagramJoint {
  std::size_t stream = 0;
  DiagramPoint at;                   ///< on the duct, where the texts begin
  bool below = false;                ///< whether they are below the duct
  std::vector<std::string> lines{};  ///< "81.5 / 67.2 °F", "10145 acfm"
};

struct SystemDiagram {
  double width = 0, height = 0;
  std::vector<DiagramBlock> blocks;
  std::vector<DiagramDuct> ducts;
  std::vector<DiagramJoint> joints;
};

/// Of a system whose names are known; nothing else is needed of it, so that one without a solution has a diagram, too.
SystemDiagram diagramOf(const SolvedSystem& solved);

}  // namespace moistair
