#include "pairs.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "engine/exactsolutions.h"
#include "engine/openfinders.h"
#include "engine/resolver.h"

namespace moistair::validation {

namespace {

void tryOut(PairMeasure& pair, const StatePoint& state, double atm) {
  const Given first{pair.kinds[0], state.at(pair.kinds[0])};
  const Given second{pair.kinds[1], state.at(pair.kinds[1])};
  const ExactSolutions all = exactSolutions(first, second, atm);
  const auto same = [&](const StatePoint& answer) {
    return std::hypot(answer.db - state.db, answer.wb - state.wb) < 1e-4;
  };
  if (std::none_of(all.states.begin(), all.states.end(), same)) throw std::runtime_error("an answer is missing");
  pair.ambiguous += all.states.size() > 1;

  SolverFields fields;
  const Resolution found = resolvePair(first, second, atm, openRangeFinders(), fields);
  Trial trial{state, found.resolved() ? Outcome::right : Outcome::notFound};
  for (std::size_t i = 0; found.resolved() && i < 2; ++i) {
    const Given& given = i == 0 ? first : second;
    const double off = residual(given, found.point, atm);
    if (canBeSeen(given.kind, off)) trial.outcome = Outcome::visiblyOff;
    if (!(std::abs(off) <= std::abs(pair.largest[i].residual))) pair.largest[i] = {off, state};
  }
  pair.trials.push_back(trial);
}

}  // namespace

double PairMeasure::share(Outcome outcome) const {
  const auto count = std::count_if(trials.begin(), trials.end(), [&](const Trial& t) { return t.outcome == outcome; });
  return 100.0 * static_cast<double>(count) / static_cast<double>(trials.size());
}

std::vector<StatePoint> gridStates(double atm) {
  std::vector<StatePoint> states;
  for (double dryBulb = 3.37; dryBulb < 120; dryBulb += 2.47) {
    for (double humidity = 3.3; humidity < 100; humidity += 5.3) {
      const ExactSolutions found = exactSolutions({PropertyKind::db, dryBulb}, {PropertyKind::rh, humidity}, atm);
      states.insert(states.end(), found.states.begin(), found.states.end());
    }
  }
  return states;
}

std::vector<PairMeasure> measurePairs(const std::vector<StatePoint>& states, double atm) {
  std::vector<PairMeasure> pairs;
  for (int i = 0; i < kindCount * kindCount; ++i) {
    PairMeasure pair{{*kindAt(i / kindCount), *kindAt(i % kindCount)}, {}, {}};
    const auto& [first, second] = pair.kinds;
    if (first >= second || (first == PropertyKind::w && second == PropertyKind::dp)) continue;
    for (const StatePoint& state : states) tryOut(pair, state, atm);
    pairs.push_back(std::move(pair));
  }
  return pairs;
}

}  // namespace moistair::validation
