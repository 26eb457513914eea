/// \file
/// Zones as JSON, in documents and in the files of envelopes. A fault names the place of what is wrong.
#pragma once

#include "comfort/zone.h"
#include "model/jsonnode.h"

namespace moistair {

Json zoneJson(const Zone& zone);

/// A zone whose ranges are checked.
Zone zoneOf(const JsonNode& node);

/// Name, title, limits and derating, none of them checked.
Envelope envelopeOf(const JsonNode& node);

}  // namespace moistair
