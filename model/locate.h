/// \file
/// Locating a point: the resolution of a pair with every refusal explained.
///
/// The live row resolves while the user types and says nothing; the button "Locate point" runs the same resolution and
/// answers each refusal with a message. It also needs a current chart, since the point is meant for it. The main
/// window calls `locatePoint`, shows the message of a fault or fills the point report.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "engine/resolver.h"
#include "text/error.h"

namespace moistair {

/// What the two lists and the two boxes hold.
struct PairInput {
  std::optional<PropertyKind> kind1, kind2;
  std::string value1, value2;

  bool operator==(const PairInput&) const = default;
};

struct Location {
  Resolution resolution;  ///< as computed; its texts are rounded in the report
  Outcome outcome;        ///< why there is a message in place of the report; waiting: for a chart
};

/// @param hasCurrentChart says whether the chart on the canvas is the one of the limits in the lists. Asked only of
/// input
///   that the rules let pass, since asking reads the limits again.
/// @param atm atmospheric pressure [in Hg]
Location locatePoint(const PairInput& input, const std::function<bool()>& hasCurrentChart, double atm,
                     const RangeFinders& finders, SolverFields& fields);

}  // namespace moistair
