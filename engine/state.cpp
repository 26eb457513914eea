#include "engine/state.h"

#include <algorithm>
#include <limits>

namespace moistair {

namespace {

using Field = double StatePoint::*;

constexpr Field fieldof(PropertyKind kind) {
  constexpr std::array<Field, kindcount> fields = {&StatePoint::db, &StatePoint::wb, &StatePoint::rh, &StatePoint::w,
                                                   &StatePoint::h,  &StatePoint::dp, &StatePoint::v};
  return fields[static_cast<std::size_t>(kind)];
}

}  // namespace

std::optional<PropertyKind> kindat(int index) {
  if (index < 0 || index >= kindcount) return std::nullopt;
  return static_cast<PropertyKind>(index);
}

std::optional<PropertyKind> kindnamed(std::string_view name) {
  const auto found = std::find(kindnames.begin(), kindnames.end(), name);
  return found == kindnames.end() ? std::nullopt : kindat(static_cast<int>(found - kindnames.begin()));
}

const char* nameof(PropertyKind kind) { return kindnames[static_cast<std::size_t>(kind)]; }

double& StatePoint::at(PropertyKind kind) { return this->*fieldof(kind); }
double StatePoint::at(PropertyKind kind) const { return this->*fieldof(kind); }

Limits boundof(PropertyKind kind, const StateBounds& bounds) {
  for (const StateBound& bound : bounds) {
    if (bound.kind == kind) return bound.limits;
  }
  return {-std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
}

std::optional<StateBound> brokenbound(const StatePoint& point, const StateBounds& bounds) {
  for (const StateBound& bound : bounds) {
    if (!bound.limits.accept(point.at(bound.kind))) return bound;
  }
  return std::nullopt;
}

}  // namespace moistair
