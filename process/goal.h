/// \file
/// What is to come out of a system: a goal on a stream or on what a step does.
#pragma once

#include <string>
#include <vector>

#include "process/step.h"

namespace moistair {

/// "goal RM db=75,rh=50": properties and flows are those of the stream, loads and the like those of its step, with the
/// signs that the step's own parameters have.
struct Goal {
  std::string name;                ///< a stream
  std::vector<Assignment> wanted;  ///< in base units, each parameter once
  int line = 0;                    ///< where it was read, from 1; 0 if it was not

  bool operator==(const Goal&) const = default;
};

}  // namespace moistair
