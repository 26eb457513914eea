#include "advice/refusalwords.h"

#include <algorithm>
#include <array>

#include "engine/pairlimits.h"
#include "text/numbertext.h"
#include "text/value.h"

namespace moistair {

namespace {

struct ReasonWords {
  NoAnswer reason;
  const char* words;
};

/// Reasons other than a property beyond its bound.
constexpr std::array<ReasonWords, 5> reasons = {{
    {NoAnswer::nopair, "the two properties fix no state"},
    {NoAnswer::pressure, "no air at this pressure"},
    {NoAnswer::saturation, "above saturation"},
    {NoAnswer::dewpointgap, "no air has a dew point from 31.996 to 32.214"},
    {NoAnswer::freezingstep, "in the step of the equations at freezing"},
}};

constexpr const char* nosuchstate = "no such state";

}  // namespace

const char* propertyname(PropertyKind kind) { return propertyOf(kind).name; }

std::string rangewords(const Limits& limits) {
  return "above " + numbertext(limits.above) + " and up to " + numbertext(limits.upto);
}

std::string boundwords(const std::string& name, bool above, double bound) {
  return name + (above ? " would be above " : " would not be above ") + numbertext(bound);
}

std::string whynot(const Resolution& resolution, const Wording& wording) {
  const std::string name = wording.name(resolution.kind);
  switch (resolution.reason) {
    case Unresolved::samekind: return name + " is given twice";
    case Unresolved::humidityratiowithdewpoint:
      return std::string(wording.name(PropertyKind::w)) + " and " + wording.name(PropertyKind::dp) +
             " say the same thing and fix no state";
    case Unresolved::givenvalue: return name + wording.mustbe + rangewords(resolution.limits);
    case Unresolved::search: return std::string(nosuchstate) + ": the search found none";
    case Unresolved::state: {
      const bool above = resolution.point.at(resolution.kind) > resolution.limits.upto;
      const Limits& limits = resolution.limits;
      return std::string(nosuchstate) + ": " + boundwords(name, above, above ? limits.upto : limits.above);
    }
    default: break;
  }
  return nosuchstate;
}

std::array<std::string, 2> rangefaults(const Given& first, const Given& second, const Wording& wording) {
  std::array<std::string, 2> faults;
  const auto limits = limitsof(first.kind, second.kind);
  if (!limits) return faults;
  const std::array<Given, 2> pair = {first, second};
  for (std::size_t i = 0; i < pair.size(); ++i) {
    if (!hasvalue(pair[i].value) || (*limits)[i].accept(pair[i].value)) continue;
    faults[i] = wording.name(pair[i].kind) + (wording.mustbe + rangewords((*limits)[i]));
  }
  return faults;
}

std::string whynone(const Answers& answers) {
  const bool above = answers.reason == NoAnswer::abovebound;
  if (above || answers.reason == NoAnswer::belowbound) {
    return boundwords(propertyname(answers.kind), above, answers.bound);
  }
  const auto row = std::find_if(reasons.begin(), reasons.end(),
                                [&](const ReasonWords& reason) { return reason.reason == answers.reason; });
  return row == reasons.end() ? std::string() : row->words;
}

std::string outsiderange(const char* rangehint) { return std::string("outside its range ") + rangehint; }

}  // namespace moistair
