/// \file
/// Why a pair of properties has no state, in words.
///
/// The windows and the headless tool refuse in the same words, from the tables of this file. They differ in what they
/// call a property: `dp` has to be typed on a command line, a person reads "dew point".
#pragma once

#include <array>
#include <string>

#include "engine/exactsolutions.h"
#include "engine/resolver.h"

namespace moistair {

/// "dry bulb", "dew point": the property within a sentence.
const char* propertyName(PropertyKind kind);

/// How somebody is spoken to.
struct Wording {
  const char* (*name)(PropertyKind kind);
  const char* mustBe;  ///< between a property and what is accepted
};

inline constexpr Wording toolWording{nameOf, " must be "};
inline constexpr Wording windowWording{propertyName, ": "};

/// "above 0 and up to 100"
std::string rangeWords(const Range& range);

/// "dry bulb would be above 120": a property beyond a bound, whatever it is called.
std::string boundWords(const std::string& name, bool above, double bound);

/// Why a pair was not resolved: a text without commas and quotes.
std::string whyNot(const Resolution& resolution, const Wording& wording);

/// What each value of a pair has to be where it is beyond its limits: "dry bulb: above 0 and up to 120". Empty for one
/// that is within them, and for one that is no value.
std::array<std::string, 2> rangeFaults(const Given& first, const Given& second, const Wording& wording);

/// Why no state has both values: "above saturation", "wet bulb would not be above 0". Empty if one has.
std::string whyNone(const ExactSolutions& solutions);

/// "outside its range (0 - 38650)": of a pressure or an elevation.
std::string outsideRange(const char* rangeHint);

/// "is no number"
inline constexpr const char* notANumber = " is no number";

}  // namespace moistair
