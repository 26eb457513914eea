#include "advice/remark.h"

#include <array>
#include <cmath>
#include <vector>

#include "text/numbertext.h"
#include "text/value.h"

namespace moistair {

namespace {

/// Decimals that a property is told with.
constexpr std::array<int, kindcount> decimals = {2, 2, 2, 5, 2, 2, 3};

constexpr const char* thisstatehas = "this state has ";
constexpr const char* themixturehas = "the mixed stream has ";
constexpr const char* exactly = "exact: ";
constexpr const char* another = "another state has both values: ";
constexpr const char* nonehasboth = "no state has both values: ";
constexpr const char* nonefound = "no state found: ";
constexpr const char* notfound = "no state found by the search";
constexpr const char* drawfirst = ": draw a chart to search on";

/// "dew point 28.72"
std::string told(PropertyKind kind, double value) {
  return std::string(propertyname(kind)) + ' ' + fixeddecimals(value, decimals[static_cast<std::size_t>(kind)]);
}

/// "dew point 28.72 for the 27.65 given", or "wet bulb 59.97 for 60.02" in a mixture, for each value.
std::string missedWords(const std::vector<Miss>& values, bool mixture) {
  std::string text;
  for (const Miss& miss : values) {
    const int digits = decimals[static_cast<std::size_t>(miss.kind)];
    if (!text.empty()) text += " and ";
    text += hasvalue(miss.found) ? told(miss.kind, miss.found) : std::string("no ") + propertyname(miss.kind);
    text += mixture ? " for " + fixeddecimals(miss.wanted, digits) : " for the " + numbertext(miss.wanted) + " given";
  }
  return text;
}

/// Why the search has nothing to show for a pair that has answers or a value beyond its limits.
std::string unfound(const Given& first, const Given& second, const Resolution& resolution, bool chartstands) {
  if (resolution.reason != Unresolved::givenvalue) {
    return std::string(notfound) + (resolution.unseenline && !chartstands ? drawfirst : "");
  }
  const auto [one, other] = rangefaults(first, second, windowwording);
  return one + (one.empty() || other.empty() ? "" : "; ") + other;
}

/// Seven decimals, as shown. Saturated air can come out a hair above saturation by that, and is then taken a little
/// drier.
Bulbs bulbsof(const StatePoint& state, double atm) {
  constexpr double shown = 1e7;
  Bulbs bulbs{std::round(state.db * shown) / shown, std::round(state.wb * shown) / shown};
  for (int step = 1; step <= 2 && brokenbound(stateat(bulbs.db, bulbs.wb, atm)); ++step) {
    bulbs.wb = (std::round(state.wb * shown) - step) / shown;
  }
  return bulbs;
}

}  // namespace

std::string stateWords(const std::vector<StatePoint>& states) {
  std::string text;
  for (const StatePoint& state : states) {
    if (!text.empty()) text += ", or ";
    text += told(PropertyKind::db, state.db) + ", " + told(PropertyKind::wb, state.wb);
  }
  return text;
}

Remark remarkOn(const Missed& missed, double atm, bool mixture) {
  if (!missed.any()) return {};
  const std::string words = (mixture ? themixturehas : thisstatehas) + missedWords(missed.values, mixture) + "; ";
  const std::vector<StatePoint>& states = missed.exact.states;
  if (states.empty()) return {words + nonehasboth + whynone(missed.exact), {}};
  return {words + exactly + stateWords(states), bulbsof(states.front(), atm)};
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
  if (states.empty()) return nonehasboth + whynone(choice.all);
  return std::to_string(states.size()) +
         " states have both values and the search found none to choose by: " + stateWords(states);
}

Remark remarkon(Given first, Given second, double atm, const Resolution& resolution, bool chartstands) {
  const ExactChoice exact = exactChoice({first, second}, atm, resolution);
  if (exact.all.reason == NoAnswer::nopair) return {};
  std::vector<StatePoint> states = exact.all.states;
  if (!resolution.resolved()) {
    const std::string why = unfound(first, second, resolution, chartstands);
    if (!states.empty()) return {why + "; " + exactly + stateWords(states), bulbsof(states.front(), atm)};
    return {resolution.reason == Unresolved::givenvalue ? why : nonefound + whynone(exact.all), {}};
  }
  const Missed missed{missedBy({first, second}, resolution.point, atm), exact.all};
  if (missed.any()) return remarkOn(missed, atm);
  if (states.size() < 2) return {};
  states.erase(states.begin());
  return {another + stateWords(states), bulbsof(states.front(), atm)};
}

Remark remarkon(const PairInput& input, double atm, const Resolution& resolution, bool chartstands) {
  if (inputfault(input.kind1, input.kind2, input.value1, input.value2) != Unresolved::none) return {};
  if (!input.kind1 || !input.kind2) return {};
  const Given first{*input.kind1, strictnumber(input.value1)};
  const Given second{*input.kind2, strictnumber(input.value2)};
  if (!hasvalue(first.value) || !hasvalue(second.value)) return {};
  return remarkon(first, second, atm, resolution, chartstands);
}

}  // namespace moistair
