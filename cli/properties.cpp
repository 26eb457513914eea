#include "cli/properties.h"

#include <algorithm>

#include "cli/fault.h"
#include "engine/solvers.h"
#include "engine/value.h"
#include "session/pointreport.h"

namespace moistair {

namespace {

/// What any pair accepts of a kind, above the first and up to the second. Single pairs accept a little less.
struct Accepted {
  double above, upto;
  const char* text;
};

constexpr std::array<Accepted, kindcount> accepted = {{{0, 120, "above 0 and up to 120"},
                                                       {0, 120, "above 0 and up to 120"},
                                                       {0, 100, "above 0 and up to 100"},
                                                       {0, 0.03, "above 0 and up to 0.03"},
                                                       {0, 62, "above 0 and up to 62"},
                                                       {-55, 120, "above -55 and up to 120"},
                                                       {0, 78, "above 0 and up to 78"}}};

std::string outside(const Given& given) {
  const Accepted& range = accepted[static_cast<std::size_t>(given.kind)];
  if (given.value > range.above && given.value <= range.upto) return {};
  return std::string(nameof(given.kind)) + " must be " + range.text;
}

/// What a state that was found has that no state may have.
struct Bound {
  double StatePoint::*value;
  double upto;
  const char* text;
};

constexpr std::array<Bound, 4> bounds = {{{&StatePoint::rh, 100, "rh would be above 100"},
                                          {&StatePoint::w, 0.03, "w would be above 0.03"},
                                          {&StatePoint::db, 120, "db would be above 120"},
                                          {&StatePoint::wb, 120, "wb would be above 120"}}};

}  // namespace

const char* captionof(const StateColumn& column) {
  const auto same = [&](const ReportRow& row) { return row.value == column.value; };
  return std::find_if(reportrows.begin(), reportrows.end(), same)->caption;
}

std::optional<PropertyKind> kindnamed(std::string_view name) {
  const auto found = std::find(kindnames.begin(), kindnames.end(), name);
  return found == kindnames.end() ? std::nullopt : kindat(static_cast<int>(found - kindnames.begin()));
}

const char* nameof(PropertyKind kind) { return kindnames[static_cast<std::size_t>(kind)]; }

std::vector<std::string_view> splitat(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t end = text.find(separator);
    parts.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

Assignment assignmentof(std::string_view argument) {
  const std::size_t equals = argument.find('=');
  if (equals == std::string_view::npos) {
    throw badusage("\"" + std::string(argument) + "\" is no property with a value, such as db=75");
  }
  return {std::string(argument.substr(0, equals)), std::string(argument.substr(equals + 1))};
}

std::vector<Assignment> assignmentsof(std::string_view argument) {
  std::vector<Assignment> assignments;
  for (const std::string_view part : splitat(argument, ',')) {
    Assignment next = assignmentof(part);
    const auto samename = [&](const Assignment& other) { return other.name == next.name; };
    if (std::any_of(assignments.begin(), assignments.end(), samename)) throw badusage(next.name + " is given twice");
    assignments.push_back(std::move(next));
  }
  return assignments;
}

double numberof(std::string_view text, std::string_view what) {
  const double number = strictnumber(text);
  if (!hasvalue(number)) throw badusage(std::string(what) + ": \"" + std::string(text) + "\" is no number");
  return number;
}

GivenPair pairof(const std::vector<Assignment>& assignments) {
  std::vector<Given> given;
  for (const Assignment& assignment : assignments) {
    const auto kind = kindnamed(assignment.name);
    if (!kind) throw badusage("\"" + assignment.name + "\" is none of " + kindnamelist);
    given.push_back({*kind, numberof(assignment.text, assignment.name)});
  }
  if (given.size() != 2) {
    throw badusage(std::string("a state takes two of ") + kindnamelist + ", not " + std::to_string(given.size()));
  }
  const GivenPair pair{given[0], given[1]};
  switch (inputfault(pair.first.kind, pair.second.kind, assignments[0].text, assignments[1].text)) {
    case InputFault::samekind: throw badusage(assignments[0].name + " is given twice");
    case InputFault::humidityratiowithdewpoint: throw badusage("w and dp say the same thing and fix no state");
    case InputFault::blankvalue:
    case InputFault::none: break;
  }
  return pair;
}

Resolution resolve(const GivenPair& pair, double atm, const RangeFinders& finders) {
  SolverFields fields;
  return resolvepair(pair.first, pair.second, atm, finders, fields);
}

std::string whynot(const GivenPair& pair, const Resolution& resolution) {
  for (const Given& given : {pair.first, pair.second}) {
    if (std::string text = outside(given); !text.empty()) return text;
  }
  std::string plain = "no such state";
  if (resolution.iterations == iterationlimit) return plain + ": the search found none";
  for (const Bound& bound : bounds) {
    if (resolution.point.*bound.value > bound.upto) return plain + ": " + bound.text;
  }
  return plain;
}

}  // namespace moistair
