/// \file
/// A state of the air handler put elsewhere on the chart, and what that writes.
///
/// Air that begins at given properties takes them from the place; a mixed state moves along its line, which sets the
/// flow of one of its streams; what a coil or a heater leaves sets the parameters that it was given. Whatever is to be
/// solved for ("?") stays so. All other states follow from these and cannot be moved.
#pragma once

#include "model/airhandlerrows.h"

namespace moistair {

/// Whether a stream's state can be moved.
bool isMovable(const SolvedAirHandler& solved, const std::vector<std::string>& lines, std::size_t stream);

/// The lines that put a stream's state at a place, or as near to it as what was given allows. The error says why the
/// step cannot be there.
Result<std::vector<std::string>> movedState(const SolvedAirHandler& solved, std::vector<std::string> lines,
                                            std::size_t stream, const AirState& place);

/// What a document's air handler comes to with other lines, or with another point in place of one: nothing is changed.
/// @param point with its place in the document; null for none
SolvedAirHandler triedAirHandler(const Document& document, const std::vector<std::string>& lines,
                                 const std::pair<std::size_t, MarkedPoint>* point, const SolvedAirHandler& near);

}  // namespace moistair
