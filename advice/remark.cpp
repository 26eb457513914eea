#include "advice/remark.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

#include "text/numbertext.h"
#include "text/value.h"

namespace moistair {

namespace {

/// Decimals that a property is told with.
constexpr std::array<int, kindcount> decimals = {2, 2, 2, 5, 2, 2, 3};

constexpr const char* thisstatehas = "this state has ";
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
    text += hasvalue(off) ? told(given.kind, given.value + off) : std::string("no ") + propertyname(given.kind);
    text += " for the " + numbertext(given.value) + " given";
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

Remark remarkon(Given first, Given second, double atm, const Resolution& resolution, bool chartstands) {
  const Answers found = answers(first, second, atm);
  if (found.reason == NoAnswer::nopair) return {};
  const StatePoint& point = resolution.point;
  std::vector<StatePoint> states = found.states;
  if (!resolution.resolved()) {
    const std::string why = unfound(first, second, resolution, chartstands);
    if (!states.empty()) return {why + "; " + exactly + told(states), bulbsof(states.front(), atm)};
    return {resolution.reason == Unresolved::givenvalue ? why : nonefound + whynone(found), {}};
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

Remark remarkon(const PairInput& input, double atm, const Resolution& resolution, bool chartstands) {
  if (inputfault(input.kind1, input.kind2, input.value1, input.value2) != Unresolved::none) return {};
  if (!input.kind1 || !input.kind2) return {};
  const Given first{*input.kind1, strictnumber(input.value1)};
  const Given second{*input.kind2, strictnumber(input.value2)};
  if (!hasvalue(first.value) || !hasvalue(second.value)) return {};
  return remarkon(first, second, atm, resolution, chartstands);
}

}  // namespace moistair
