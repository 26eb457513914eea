/// \file
/// Mixing problems as the tests and the benchmark type them.
#pragma once

#include <string>

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

inline MixingProblem emptyproblem(double atm = 29.92126, const std::string& entered = "29.92126") {
  MixingProblem problem;
  problem.pressure = {atm, "Atmos. pr (in Hg)", entered};
  return problem;
}

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

inline Typed drywet(const char* db, const char* wb, const char* flow) {
  return {PropertyKind::db, db, PropertyKind::wb, wb, flow};
}

inline MixingProblem problemof(const Typed& one, const Typed& two, double atm = 29.92126) {
  MixingProblem problem = emptyproblem(atm);
  type(problem, 0, one);
  type(problem, 1, two);
  return problem;
}

/// 1000 acfm at 75 and 62.5 deg F with 500 acfm at 95 and 75 deg F.
inline MixingProblem referenceproblem() { return problemof(drywet("75", "62.5", "1000"), drywet("95", "75", "500")); }

}  // namespace moistair::test
