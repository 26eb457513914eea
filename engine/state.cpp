#include "engine/state.h"

namespace moistair {

std::optional<StateBound> brokenbound(const StatePoint& point) {
  using enum PropertyKind;
  // A wet bulb above the dry bulb shows in the relative humidity, so that comes first.
  for (const PropertyKind kind : {rh, w, db, wb, h, v}) {
    if (!boundof(kind).accept(point.at(kind))) return StateBound{kind, boundof(kind)};
  }
  return std::nullopt;
}

}  // namespace moistair
