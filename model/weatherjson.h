/// \file
/// A layer of weather in a document's file.
#pragma once

#include "model/jsonnode.h"
#include "model/weatherlayer.h"

namespace moistair {

Json jsonOf(const WeatherLayer& layer);

/// Fails, as all reading of a document does, for what makes no layer.
WeatherLayer weatherOf(const JsonNode& node);

}  // namespace moistair
