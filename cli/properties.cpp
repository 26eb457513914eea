#include "cli/properties.h"

#include <algorithm>

#include "advice/remark.h"
#include "cli/fault.h"
#include "text/value.h"

namespace moistair {

std::vector<std::string_view> splitAt(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t end = text.find(separator);
    parts.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

TypedValue assignmentOf(std::string_view argument) {
  const std::size_t equals = argument.find('=');
  if (equals == std::string_view::npos) {
    throw badUsage("\"" + std::string(argument) + "\" is no property with a value, such as db=75");
  }
  return {lowercase(argument.substr(0, equals)), std::string(argument.substr(equals + 1))};
}

std::vector<TypedValue> assignmentsOf(std::string_view argument) {
  std::vector<TypedValue> assignments;
  for (const std::string_view part : splitAt(argument, ',')) {
    TypedValue next = assignmentOf(part);
    const auto sameName = [&](const TypedValue& other) { return other.name == next.name; };
    if (std::any_of(assignments.begin(), assignments.end(), sameName)) throw badUsage(next.name + " is given twice");
    assignments.push_back(std::move(next));
  }
  return assignments;
}

double numberOf(std::string_view text, std::string_view what) {
  const double number = strictNumber(text);
  if (!hasValue(number)) throw badUsage(std::string(what) + ": \"" + std::string(text) + "\"" + notANumber);
  return number;
}

GivenPair pairOf(const std::vector<TypedValue>& assignments) {
  std::vector<Given> given;
  for (const TypedValue& assignment : assignments) {
    const auto kind = kindNamed(assignment.name);
    if (!kind) throw badUsage("\"" + assignment.name + "\" is none of " + kindNameList);
    given.push_back({*kind, numberOf(assignment.text, assignment.name)});
  }
  if (given.size() != 2) {
    throw badUsage("a state takes two of " + kindNameList + ", not " + std::to_string(given.size()));
  }
  const GivenPair pair{given[0], given[1]};
  Resolution broken;
  broken.reason = inputFault(pair.first.kind, pair.second.kind, assignments[0].text, assignments[1].text);
  broken.kind = pair.first.kind;
  if (!broken.resolved()) throw badUsage(whyNot(broken));
  return pair;
}

Resolution resolve(const GivenPair& pair, double atm, const RangeFinders& finders) {
  SolverFields fields;
  return resolvePair(pair.first, pair.second, atm, finders, fields);
}

std::string whyNot(const Resolution& resolution) { return whyNot(resolution, toolWording); }

std::string whyNot(const PairOfGiven& pair, double atm, const Resolution& resolution) {
  const bool searched = resolution.reason == Unresolved::search || resolution.reason == Unresolved::state;
  const std::vector<StatePoint> states =
      searched ? exactSolutions(pair[0], pair[1], atm).states : std::vector<StatePoint>();
  return states.empty() ? whyNot(resolution) : "the search found no state; exact: " + stateWords(states);
}

}  // namespace moistair
