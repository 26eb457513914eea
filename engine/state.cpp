#include "engine/state.h"

namespace moistair {

Limits boundof(PropertyKind kind, const StateBounds& bounds) {
  for (const StateBound& bound : bounds) {
    if (bound.kind == kind) return bound.limits;
  }
  return {-unbounded, unbounded};
}

std::optional<StateBound> brokenbound(const StatePoint& point, const StateBounds& bounds) {
  for (const StateBound& bound : bounds) {
    if (!bound.limits.accept(point.at(bound.kind))) return bound;
  }
  return std::nullopt;
}

}  // namespace moistair
