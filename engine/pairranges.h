/// \file
/// What the two values of a pair may be.
#pragma once

#include <array>
#include <optional>

#include "engine/state.h"

namespace moistair {

/// The limits that the row of a pair sets to its values, in the order asked for. `resolvePair` names the first value
/// that is beyond them and stops there. None for two kinds that are no pair.
std::optional<std::array<Range, 2>> rangesOf(PropertyKind first, PropertyKind second);

}  // namespace moistair
