#include "cli/properties.h"

#include <algorithm>

#include "advice/remark.h"
#include "cli/fault.h"
#include "model/pointreport.h"
#include "text/value.h"

namespace moistair {

const char* captionof(const StateColumn& column) {
  const auto same = [&](const ReportRow& row) { return row.value == column.value; };
  return std::find_if(reportrows.begin(), reportrows.end(), same)->caption;
}

std::vector<std::string_view> splitat(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t end = text.find(separator);
    parts.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

TypedValue assignmentof(std::string_view argument) {
  const std::size_t equals = argument.find('=');
  if (equals == std::string_view::npos) {
    throw badusage("\"" + std::string(argument) + "\" is no property with a value, such as db=75");
  }
  return {lowercase(argument.substr(0, equals)), std::string(argument.substr(equals + 1))};
}

std::vector<TypedValue> assignmentsof(std::string_view argument) {
  std::vector<TypedValue> assignments;
  for (const std::string_view part : splitat(argument, ',')) {
    TypedValue next = assignmentof(part);
    const auto samename = [&](const TypedValue& other) { return other.name == next.name; };
    if (std::any_of(assignments.begin(), assignments.end(), samename)) throw badusage(next.name + " is given twice");
    assignments.push_back(std::move(next));
  }
  return assignments;
}

double numberof(std::string_view text, std::string_view what) {
  const double number = strictnumber(text);
  if (!hasvalue(number)) throw badusage(std::string(what) + ": \"" + std::string(text) + "\"" + isnonumber);
  return number;
}

GivenPair pairof(const std::vector<TypedValue>& assignments) {
  std::vector<Given> given;
  for (const TypedValue& assignment : assignments) {
    const auto kind = kindnamed(assignment.name);
    if (!kind) throw badusage("\"" + assignment.name + "\" is none of " + kindnamelist);
    given.push_back({*kind, numberof(assignment.text, assignment.name)});
  }
  if (given.size() != 2) {
    throw badusage(std::string("a state takes two of ") + kindnamelist + ", not " + std::to_string(given.size()));
  }
  const GivenPair pair{given[0], given[1]};
  Resolution broken;
  broken.reason = inputfault(pair.first.kind, pair.second.kind, assignments[0].text, assignments[1].text);
  broken.kind = pair.first.kind;
  if (!broken.resolved()) throw badusage(whynot(broken));
  return pair;
}

Resolution resolve(const GivenPair& pair, double atm, const RangeFinders& finders) {
  SolverFields fields;
  return resolvepair(pair.first, pair.second, atm, finders, fields);
}

std::string whynot(const Resolution& resolution) { return whynot(resolution, toolwording); }

std::string whynot(const PairOfGiven& pair, double atm, const Resolution& resolution) {
  const bool searched = resolution.reason == Unresolved::search || resolution.reason == Unresolved::state;
  const std::vector<StatePoint> states = searched ? answers(pair[0], pair[1], atm).states : std::vector<StatePoint>();
  return states.empty() ? whynot(resolution) : "the search found no state; exact: " + stateWords(states);
}

}  // namespace moistair
