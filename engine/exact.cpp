#include "engine/exact.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace moistair {

std::vector<Miss> missedBy(const PairOfGiven& pair, const StatePoint& found, double atm) {
  std::vector<Miss> missed;
  for (const Given& given : pair) {
    const double off = residual(given, found, atm);
    if (canBeSeen(given.kind, off)) missed.push_back({given.kind, given.value, given.value + off});
  }
  return missed;
}

Missed judged(const PairOfGiven& pair, const StatePoint& found, double atm) {
  Missed missed{missedBy(pair, found, atm), {}};
  if (!missed.any()) return missed;
  missed.exact = exactSolutions(pair[0], pair[1], atm);
  sortNearestFirst(missed.exact.states, found);
  return missed;
}

void sortNearestFirst(std::vector<StatePoint>& states, const StatePoint& found) {
  const auto away = [&](const StatePoint& state) {
    return std::pair(std::abs(state.db - found.db), std::abs(state.wb - found.wb));
  };
  std::stable_sort(states.begin(), states.end(),
                   [&](const StatePoint& one, const StatePoint& other) { return away(one) < away(other); });
}

Resolution resolutionOf(const StatePoint& state) {
  Resolution resolution;
  resolution.point = state;
  return resolution;
}

ExactChoice exactChoice(const PairOfGiven& pair, double atm, const Resolution& resolution) {
  ExactChoice choice{std::nullopt, exactSolutions(pair[0], pair[1], atm)};
  std::vector<StatePoint>& states = choice.all.states;
  if (resolution.resolved()) sortNearestFirst(states, resolution.point);
  if (states.size() == 1 || (!states.empty() && resolution.resolved())) choice.state = states.front();
  return choice;
}

}  // namespace moistair
