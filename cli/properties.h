/// \file
/// Properties by the names that the command line and the columns of a table give them: db wb rh w h dp v.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/exact.h"
#include "text/words.h"

namespace moistair {

inline constexpr const char* kindnamelist = "db wb rh w h dp v";

/// One property of a whole state by its name.
struct StateColumn {
  const char* name;
  double StatePoint::*value;
};

/// All of a state, the vapour pressure behind the seven kinds.
inline constexpr std::array<StateColumn, kindcount + 1> statecolumns = {{
    {"db", &StatePoint::db},
    {"wb", &StatePoint::wb},
    {"rh", &StatePoint::rh},
    {"w", &StatePoint::w},
    {"h", &StatePoint::h},
    {"dp", &StatePoint::dp},
    {"v", &StatePoint::v},
    {"pv", &StatePoint::pv},
}};

/// The words and the unit that the point report has for it.
const char* captionof(const StateColumn& column);

/// "NAME=TEXT": the name in small letters, the text as typed; both may be anything.
struct TypedValue {
  std::string name, text;
};

/// Reads "db=75"; bad usage without an equals sign.
TypedValue assignmentof(std::string_view argument);

/// Reads "db=75,wb=62.5,flow=1000"; bad usage for a part without an equals sign and for a name that stands twice.
std::vector<TypedValue> assignmentsof(std::string_view argument);

/// The texts between the separators, none of them left out.
std::vector<std::string_view> splitat(std::string_view text, char separator);

/// The number that the whole text is; bad usage, in words that begin with `what`, if it is none.
double numberof(std::string_view text, std::string_view what);

struct GivenPair {
  Given first, second;
};

/// Two different kinds with their values. Bad usage for an unknown name, a text that is no number, not exactly two of
/// them, and for humidity ratio with dew point, which say the same thing.
GivenPair pairof(const std::vector<TypedValue>& assignments);

/// Resolves a pair from scratch, so that no other pair resolved before can change the result.
Resolution resolve(const GivenPair& pair, double atm, const RangeFinders& finders);

/// Why a pair was not resolved: a text without commas and quotes.
std::string whynot(const Resolution& resolution);

/// The same, with the exact states where the search found none although there are some; the text then has commas.
std::string whynot(const PairOfGiven& pair, double atm, const Resolution& resolution);

}  // namespace moistair
