/// \file
/// Mixing problems as the tests type them.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "mixing/mixingproblem.h"

namespace moistair::test {

/// What is typed into a stream's column.
struct Typed {
  PropertyKind kind1;
  const char* value1;
  PropertyKind kind2;
  const char* value2;
  const char* flow;
};

inline Typed drywet(const char* db, const char* wb, const char* flow) {
  return {PropertyKind::db, db, PropertyKind::wb, wb, flow};
}

/// The reference case: 1000 acfm at 75 and 62.5 deg F with 500 acfm at 95 and 75 deg F.
inline const Typed one = drywet("75", "62.5", "1000"), two = drywet("95", "75", "500");

/// Air so dry that the wet bulb's grain of a tenth puts the mixture's vapour pressure below zero.
inline const Typed driest = drywet("120", "63.33", "1000");

inline void type(MixingProblem& problem, std::size_t number, const Typed& typed) {
  AirStream& stream = problem.streams[number];
  stream.kind1 = typed.kind1;
  stream.value1 = typed.value1;
  stream.kind2 = typed.kind2;
  stream.value2 = typed.value2;
  stream.flow = typed.flow;
  resolvestream(problem, number);
  mixstreams(problem);
}

inline MixingProblem problemof(const Typed& first, const Typed& second,
                               const MixingPressure& pressure = {29.92126, {}}) {
  MixingProblem problem;
  problem.pressure = pressure;
  type(problem, 0, first);
  type(problem, 1, second);
  return problem;
}

}  // namespace moistair::test
