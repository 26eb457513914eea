#include "session/remark.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

#include "engine/numbertext.h"
#include "engine/value.h"

namespace moistair {

namespace {

/// A property in a sentence: its name and the decimals that it is told with.
struct PropertyWords {
  const char* name;
  int decimals;
};

constexpr std::array<PropertyWords, kindcount> properties = {{
    {"dry bulb", 2},
    {"wet bulb", 2},
    {"relative humidity", 2},
    {"humidity ratio", 5},
    {"enthalpy", 2},
    {"dew point", 2},
    {"volume", 3},
}};

struct ReasonWords {
  NoAnswer reason;
  const char* words;
};

/// A reason that ends with a blank is one of a bound: the property stands before it and the bound behind.
constexpr std::array<ReasonWords, 7> reasons = {{
    {NoAnswer::nopair, "the two properties fix no state"},
    {NoAnswer::pressure, "no air at this pressure"},
    {NoAnswer::belowbound, " would not be above "},
    {NoAnswer::abovebound, " would be above "},
    {NoAnswer::saturation, "above saturation"},
    {NoAnswer::dewpointgap, "no air has a dew point from 31.996 to 32.214"},
    {NoAnswer::freezingstep, "in the step of the equations at freezing"},
}};

constexpr const char* thisstatehas = "this state has ";
constexpr const char* exactly = "exact: ";
constexpr const char* another = "another state has both values: ";
constexpr const char* nonehasboth = "no state has both values: ";
constexpr const char* nonefound = "no state found: ";
constexpr const char* notfound = "no state found by the search; ";

const PropertyWords& wordsof(PropertyKind kind) { return properties[static_cast<std::size_t>(kind)]; }

/// "dew point 28.72"
std::string told(PropertyKind kind, double value) {
  return std::string(wordsof(kind).name) + ' ' + fixeddecimals(value, wordsof(kind).decimals);
}

std::string told(const std::vector<StatePoint>& states) {
  std::string text;
  for (const StatePoint& state : states) {
    if (!text.empty()) text += ", or ";
    text += told(PropertyKind::db, state.db) + ", " + told(PropertyKind::wb, state.wb);
  }
  return text;
}

/// "dew point 28.72 for the 27.65 given", for each value that is visibly missed.
std::string misses(std::array<Given, 2> pair, const StatePoint& found, double atm) {
  std::string text;
  for (const Given& given : pair) {
    const double off = residual(given, found, atm);
    if (!canbeseen(given.kind, off)) continue;
    if (!text.empty()) text += " and ";
    text += hasvalue(off) ? told(given.kind, given.value + off) : std::string("no ") + wordsof(given.kind).name;
    text += " for the " + numbertext(given.value) + " given";
  }
  return text;
}

/// Seven decimals, as shown. Saturated air can come out a hair above saturation by that, and is then taken a little
/// drier.
Bulbs bulbsof(const StatePoint& state, double atm) {
  constexpr double decimals = 1e7;
  Bulbs bulbs{std::round(state.db * decimals) / decimals, std::round(state.wb * decimals) / decimals};
  for (int step = 1; step <= 2 && brokenbound(stateat(bulbs.db, bulbs.wb, atm)); ++step) {
    bulbs.wb = (std::round(state.wb * decimals) - step) / decimals;
  }
  return bulbs;
}

}  // namespace

const char* propertyname(PropertyKind kind) { return wordsof(kind).name; }

std::string whynone(const Answers& answers) {
  const auto row = std::find_if(reasons.begin(), reasons.end(),
                                [&](const ReasonWords& reason) { return reason.reason == answers.reason; });
  if (row == reasons.end()) return {};
  const bool ofbound = answers.reason == NoAnswer::belowbound || answers.reason == NoAnswer::abovebound;
  return ofbound ? propertyname(answers.kind) + (row->words + numbertext(answers.bound)) : row->words;
}

Remark remarkon(Given first, Given second, double atm, const Resolution& resolution) {
  const Answers found = answers(first, second, atm);
  if (found.reason == NoAnswer::nopair) return {};
  const StatePoint& point = resolution.point;
  std::vector<StatePoint> states = found.states;
  if (!resolution.resolved()) {
    if (states.empty()) return {nonefound + whynone(found), {}};
    return {std::string(notfound) + exactly + told(states), bulbsof(states.front(), atm)};
  }
  const auto away = [&](const StatePoint& state) { return std::hypot(state.db - point.db, state.wb - point.wb); };
  std::sort(states.begin(), states.end(),
            [&](const StatePoint& one, const StatePoint& other) { return away(one) < away(other); });
  std::string words = misses({first, second}, point, atm);
  if (!words.empty()) {
    words = thisstatehas + words + "; ";
    if (states.empty()) return {words + nonehasboth + whynone(found), {}};
    return {words + exactly + told(states), bulbsof(states.front(), atm)};
  }
  if (states.size() < 2) return {};
  states.erase(states.begin());
  return {another + told(states), bulbsof(states.front(), atm)};
}

Remark remarkon(const PairInput& input, double atm, const Resolution& resolution) {
  if (inputfault(input.kind1, input.kind2, input.value1, input.value2) != Unresolved::none) return {};
  if (!input.kind1 || !input.kind2) return {};
  const Given first{*input.kind1, strictnumber(input.value1)};
  const Given second{*input.kind2, strictnumber(input.value2)};
  if (!hasvalue(first.value) || !hasvalue(second.value)) return {};
  return remarkon(first, second, atm, resolution);
}

}  // namespace moistair
