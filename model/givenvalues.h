/// \file
/// What an entry was given, to be read and typed over.
///
/// A line has one given value, a point two, a mixture two and an air flow for each stream, a read-out the dry bulb and
/// the humidity ratio of its place. All else of an entry follows from these, so changing one of them means to work the
/// entry out again, with the limits and the pressure that it has.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/document.h"
#include "text/error.h"

namespace moistair {

struct GivenValue {
  std::size_t part = 0;              ///< of a mixture the stream, 0 or 1
  std::optional<PropertyKind> kind;  ///< none for the air flow of a stream
  std::string text;                  ///< as typed

  bool isOf(std::size_t itsPart, std::optional<PropertyKind> itsKind) const {
    return part == itsPart && kind == itsKind;
  }
};

/// In the order in which they were given; none for a chart.
std::vector<GivenValue> givenValues(const Entry& entry);

/// The entry with another text for one of its values, of the same part and kind. The error says why there is no such
/// entry: the text is not a number, or the message of the command that refuses it.
/// @param window that points without a temperature are searched in
Result<Entry> withGiven(const Entry& entry, const GivenValue& value, WindowSize window);

/// The point that a mixture, or one of its streams, is: marked by its dry bulb and humidity ratio as shown.
/// @param part its column: 0, 1 or 2, the mixed stream
Result<Entry> pointOf(const Entry& mixture, std::size_t part, WindowSize window);

/// The points on the chart.
std::vector<MarkedPoint> pointsOf(const Document& document);

/// A stream given as a marked point was, with an air flow still to be entered.
AirStream streamOf(const MarkedPoint& point);

}  // namespace moistair
