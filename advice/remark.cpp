#include "advice/remark.h"

#include <array>
#include <cmath>
#include <vector>

#include "text/numbertext.h"
#include "text/value.h"

namespace moistair {

namespace {

constexpr const char* thisStateHas = "this state has ";
constexpr const char* theMixtureHas = "the mixed stream has ";
constexpr const char* exactly = "exact: ";
constexpr const char* another = "another state has both values: ";
constexpr const char* noneHasBoth = "no state has both values: ";
constexpr const char* noneFound = "no state found: ";
constexpr const char* notFound = "no state found by the search";
constexpr const char* drawFirst = ": draw a chart to search on";

/// "dew point 28.72"
std::string inWords(PropertyKind kind, double value) {
  return std::string(propertyName(kind)) + ' ' + fixedDecimals(value, propertyOf(kind).decimals);
}

/// "dew point 28.72 for the 27.65 given", or "wet bulb 59.97 for 60.02" in a mixture, for each value.
std::string missedWords(const std::vector<Miss>& values, bool mixture) {
  std::string text;
  for (const Miss& miss : values) {
    const int digits = propertyOf(miss.kind).decimals;
    if (!text.empty()) text += " and ";
    text += hasValue(miss.found) ? inWords(miss.kind, miss.found) : std::string("no ") + propertyName(miss.kind);
    text += mixture ? " for " + fixedDecimals(miss.wanted, digits) : " for the " + numberText(miss.wanted) + " given";
  }
  return text;
}

/// Why the search has nothing to show for a pair that has answers or a value beyond its limits.
std::string searchFailureWords(const Given& first, const Given& second, const Resolution& resolution,
                               bool hasCurrentChart) {
  if (resolution.reason != Unresolved::givenValue) {
    return std::string(notFound) + (resolution.unseenLine && !hasCurrentChart ? drawFirst : "");
  }
  const auto [one, other] = rangeFaults(first, second, windowWording);
  return one + (one.empty() || other.empty() ? "" : "; ") + other;
}

/// Seven decimals, as shown. Saturated air can come out a hair above saturation by that, and is then taken a little
/// drier.
Bulbs bulbsOf(const StatePoint& state, double atm) {
  constexpr int decimals = 7;
  constexpr double shown = 1e7;
  Bulbs bulbs{roundedTo(state.db, decimals), roundedTo(state.wb, decimals)};
  for (int step = 1; step <= 2 && violatedBound(stateAt(bulbs.db, bulbs.wb, atm)); ++step) {
    bulbs.wb = (std::round(state.wb * shown) - step) / shown;
  }
  return bulbs;
}

}  // namespace

std::string stateWords(const std::vector<StatePoint>& states) {
  std::string text;
  for (const StatePoint& state : states) {
    if (!text.empty()) text += ", or ";
    text += inWords(PropertyKind::db, state.db) + ", " + inWords(PropertyKind::wb, state.wb);
  }
  return text;
}

Remark remarkOn(const Missed& missed, double atm, bool mixture) {
  if (!missed.any()) return {};
  const std::string words = (mixture ? theMixtureHas : thisStateHas) + missedWords(missed.values, mixture) + "; ";
  const std::vector<StatePoint>& states = missed.exact.states;
  if (states.empty()) return {words + noneHasBoth + whyNone(missed.exact), {}};
  return {words + exactly + stateWords(states), bulbsOf(states.front(), atm)};
}

std::string severalExact(const ExactChoice& choice) {
  const std::vector<StatePoint>& states = choice.all.states;
  if (!choice.state || states.size() < 2) return {};
  return std::to_string(states.size()) +
         " states have both values; taken is the one nearest to the search: " + stateWords({states.front()}) +
         "; not taken: " + stateWords({states.begin() + 1, states.end()});
}

std::string noExact(const ExactChoice& choice) {
  const std::vector<StatePoint>& states = choice.all.states;
  if (states.empty()) return noneHasBoth + whyNone(choice.all);
  return std::to_string(states.size()) +
         " states have both values and the search found none to choose by: " + stateWords(states);
}

Remark remarkOn(Given first, Given second, double atm, const Resolution& resolution, bool hasCurrentChart) {
  const ExactChoice exact = exactChoice({first, second}, atm, resolution);
  if (exact.all.reason == NoSolution::noPair) return {};
  std::vector<StatePoint> states = exact.all.states;
  if (!resolution.resolved()) {
    const std::string why = searchFailureWords(first, second, resolution, hasCurrentChart);
    if (!states.empty()) return {why + "; " + exactly + stateWords(states), bulbsOf(states.front(), atm)};
    return {resolution.reason == Unresolved::givenValue ? why : noneFound + whyNone(exact.all), {}};
  }
  const Missed missed{missedBy({first, second}, resolution.point, atm), exact.all};
  if (missed.any()) return remarkOn(missed, atm);
  if (states.size() < 2) return {};
  states.erase(states.begin());
  return {another + stateWords(states), bulbsOf(states.front(), atm)};
}

Remark remarkOn(const PairInput& input, double atm, const Resolution& resolution, bool hasCurrentChart) {
  if (inputFault(input.kind1, input.kind2, input.value1, input.value2) != Unresolved::none) return {};
  if (!input.kind1 || !input.kind2) return {};
  const Given first{*input.kind1, strictNumber(input.value1)};
  const Given second{*input.kind2, strictNumber(input.value2)};
  if (!hasValue(first.value) || !hasValue(second.value)) return {};
  return remarkOn(first, second, atm, resolution, hasCurrentChart);
}

}  // namespace moistair
