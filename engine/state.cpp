#include "engine/state.h"

namespace moistair {

Range boundOf(PropertyKind kind, const StateBounds& bounds) {
  for (const StateBound& bound : bounds) {
    if (bound.kind == kind) return bound.range;
  }
  return {-unbounded, unbounded};
}

std::optional<StateBound> violatedBound(const StatePoint& point, const StateBounds& bounds) {
  for (const StateBound& bound : bounds) {
    if (!bound.range.accept(point.at(bound.kind))) return bound;
  }
  return std::nullopt;
}

}  // namespace moistair
