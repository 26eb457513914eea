#include "advice/refusalwords.h"

#include <algorithm>
#include <array>

#include "engine/pairranges.h"
#include "text/numbertext.h"
#include "text/value.h"

namespace moistair {

namespace {

struct ReasonWords {
  NoSolution reason;
  const char* words;
};

/// Reasons other than a property beyond its bound.
constexpr std::array<ReasonWords, 5> reasons = {{
    {NoSolution::noPair, "the two properties fix no state"},
    {NoSolution::pressure, "no air at this pressure"},
    {NoSolution::saturation, "above saturation"},
    {NoSolution::dewPointGap, "no air has a dew point from 31.996 to 32.214"},
    {NoSolution::freezingStep, "in the step of the equations at freezing"},
}};

constexpr const char* noSuchState = "no such state";

}  // namespace

const char* propertyName(PropertyKind kind) { return propertyOf(kind).name; }

std::string rangeWords(const Range& range) {
  return "above " + numberText(range.above) + " and up to " + numberText(range.upTo);
}

std::string boundWords(const std::string& name, bool above, double bound) {
  return name + (above ? " would be above " : " would not be above ") + numberText(bound);
}

std::string whyNot(const Resolution& resolution, const Wording& wording) {
  const std::string name = wording.name(resolution.kind);
  switch (resolution.reason) {
    case Unresolved::sameKind: return name + " is given twice";
    case Unresolved::humidityRatioWithDewPoint:
      return std::string(wording.name(PropertyKind::w)) + " and " + wording.name(PropertyKind::dp) +
             " say the same thing and fix no state";
    case Unresolved::givenValue: return name + wording.mustBe + rangeWords(resolution.range);
    case Unresolved::search: return std::string(noSuchState) + ": the search found none";
    case Unresolved::state: {
      const bool above = resolution.point.at(resolution.kind) > resolution.range.upTo;
      const Range& range = resolution.range;
      return std::string(noSuchState) + ": " + boundWords(name, above, above ? range.upTo : range.above);
    }
    default: break;
  }
  return noSuchState;
}

std::array<std::string, 2> rangeFaults(const Given& first, const Given& second, const Wording& wording) {
  std::array<std::string, 2> faults;
  const auto range = rangesOf(first.kind, second.kind);
  if (!range) return faults;
  const std::array<Given, 2> pair = {first, second};
  for (std::size_t i = 0; i < pair.size(); ++i) {
    if (!hasValue(pair[i].value) || (*range)[i].accept(pair[i].value)) continue;
    faults[i] = wording.name(pair[i].kind) + (wording.mustBe + rangeWords((*range)[i]));
  }
  return faults;
}

std::string whyNone(const ExactSolutions& solutions) {
  const bool above = solutions.reason == NoSolution::aboveBound;
  if (above || solutions.reason == NoSolution::belowBound) {
    return boundWords(propertyName(solutions.kind), above, solutions.bound);
  }
  const auto row = std::find_if(reasons.begin(), reasons.end(),
                                [&](const ReasonWords& reason) { return reason.reason == solutions.reason; });
  return row == reasons.end() ? std::string() : row->words;
}

std::string outsideRange(const char* rangeHint) { return std::string("outside its range ") + rangeHint; }

}  // namespace moistair
