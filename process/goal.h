/// \file
/// What is to come out of a system.
#pragma once

#include <string>

#include "process/kinds.h"
#include "text/value.h"

namespace moistair {

/// A value that must come out: a property or the flow of a stream, or a result of a step. Signs are those of the
/// step's own parameter: the total of a coil is positive as heat removed.
struct Goal {
  std::string name;  ///< of a stream: a step's, or NAME.rest, NAME.exhaust
  Parameter parameter = Parameter::db;
  double value = noValue;  ///< in the base unit
  int line = 0;            ///< where it was read, from 1; 0 if it was not

  bool operator==(const Goal&) const = default;
};

}  // namespace moistair
