/// \file
/// Properties by the names that the command line and the columns of a table give them: db wb rh w h dp v.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/exact.h"
#include "text/words.h"

namespace moistair {

/// "db wb rh w h dp v"
inline const std::string kindNameList = keysOfKinds();

/// "NAME=TEXT": the name in small letters, the text as typed; both may be anything.
struct TypedValue {
  std::string name, text;
};

/// Reads "db=75"; bad usage without an equals sign.
TypedValue assignmentOf(std::string_view argument);

/// Reads "db=75,wb=62.5,flow=1000"; bad usage for a part without an equals sign and for a duplicate name.
std::vector<TypedValue> assignmentsOf(std::string_view argument);

/// The texts between the separators, none of them left out.
std::vector<std::string_view> splitAt(std::string_view text, char separator);

/// The number that the whole text is; bad usage, in words that begin with `what`, if it is none.
double numberOf(std::string_view text, std::string_view what);

struct GivenPair {
  Given first, second;
};

/// Two different kinds with their values. Bad usage for an unknown name, a text that is no number, not exactly two of
/// them, and for humidity ratio with dew point, which say the same thing.
GivenPair pairOf(const std::vector<TypedValue>& assignments);

/// Resolves a pair from scratch, so that no other pair resolved before can change the result.
Resolution resolve(const GivenPair& pair, double atm, const RangeFinders& finders);

/// Why a pair was not resolved: a text without commas and quotes.
std::string whyNot(const Resolution& resolution);

/// The same, with the exact states where the search found none although there are some; the text then has commas.
std::string whyNot(const PairOfGiven& pair, double atm, const Resolution& resolution);

}  // namespace moistair
