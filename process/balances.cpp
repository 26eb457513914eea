// What is worked out over all steps: balances, ratios of rooms and coils, the factors of hand calculation.
#include <algorithm>
#include <cmath>

#include "process/processes.h"
#include "process/system.h"

namespace moistair {

namespace {

using Term = double Balance::*;

void count(Balance& balance, Term side, double term) {
  balance.*side += term;
  balance.largest = std::max(balance.largest, std::abs(term));
}

void countStream(Balances& all, Term side, const Stream& stream, const Site& site) {
  count(all.air, side, stream.flow);
  count(all.water, side, stream.flow * stream.state.w);
  count(all.energy, side, stream.flow * site.enthalpy(stream.state));
}

/// The coil that the air of a room comes from, looking against the flow; -1 without one before the next room.
int coilBefore(const CompiledSystem& system, std::size_t room) {
  std::vector<bool> seen(system.steps.size(), false);
  std::vector<std::size_t> queue{room};
  for (std::size_t at = 0; at < queue.size(); ++at) {
    const CompiledStep& step = system.steps[queue[at]];
    if (step.kind == StepKind::coil) return static_cast<int>(queue[at]);
    if (step.kind == StepKind::room && at > 0) continue;
    for (std::size_t i = 0; i < step.sourceCount; ++i) {
      const std::size_t source = system.sources[step.firstSource + i] / 2;
      if (!seen[source]) queue.push_back(source);
      seen[source] = true;
    }
  }
  return -1;
}

struct OutdoorLoad {
  double sensible = 0, total = 0;
};

/// What the air that begins somewhere brings into each stream, down to a room's state; nothing after a room. Only
/// mixing and parting change how much of it a stream carries.
std::vector<OutdoorLoad> outdoorLoads(const CompiledSystem& system, const Site& site, const Solution& solution,
                                      const AirState& room) {
  std::vector<OutdoorLoad> loads(solution.streams.size());
  const auto pass = [&](std::size_t i) {
    const CompiledStep& step = system.steps[i];
    const Stream& leaving = solution.streams[mainStream(i)];
    OutdoorLoad load;
    if (step.kind == StepKind::air) {
      const Loads perLb = loadsBetween(room, leaving.state, site);
      load = {leaving.flow * perLb.sensible, leaving.flow * perLb.total()};
    } else if (step.kind != StepKind::room) {
      const std::size_t sources = step.kind == StepKind::mix ? step.sourceCount : 1;
      for (std::size_t k = 0; k < sources; ++k) {
        const OutdoorLoad& source = loads[system.sources[step.firstSource + k]];
        load = {load.sensible + source.sensible, load.total + source.total};
      }
    }
    OutdoorLoad second;
    if (step.kind == StepKind::part) {
      const double share = solution.results[i].share;
      second = {load.sensible * (1 - share), load.total * (1 - share)};
      load = {load.sensible * share, load.total * share};
    } else if (step.kind == StepKind::recover) {
      second = loads[system.sources[step.firstSource + 1]];
    }
    const double change =
        std::abs(load.total - loads[mainStream(i)].total) + std::abs(second.total - loads[secondStream(i)].total);
    loads[mainStream(i)] = load;
    loads[secondStream(i)] = second;
    return change;
  };
  // Air that goes around a circle more than once counts each time, less and less.
  for (int round = 0; round < 100; ++round) {
    double change = 0;
    double largest = 0;
    for (const std::size_t i : system.order) {
      change += pass(i);
      largest = std::max(largest, std::abs(loads[mainStream(i)].total));
    }
    if (system.tears.empty() || !(change > 1e-12 * largest)) break;
  }
  return loads;
}

}  // namespace

Balances balancesOf(const CompiledSystem& system, const Site& site, const Solution& solution) {
  Balances all;
  // Amounts per lb of dry air add up with each other, and not with flows: what has no flow counts if nothing has.
  const bool flows = std::any_of(solution.results.begin(), solution.results.end(),
                                 [](const StepResult& result) { return result.leaving.flowKnown(); });
  for (std::size_t i = 0; i < system.steps.size(); ++i) {
    const StepResult& result = solution.results[i];
    if (flows && !result.leaving.flowKnown()) continue;
    if (system.steps[i].kind == StepKind::air) countStream(all, &Balance::entering, result.leaving, site);
    for (const std::size_t stream : {mainStream(i), secondStream(i)}) {
      if (system.names[stream].empty() || system.taken[stream]) continue;
      countStream(all, &Balance::leaving, solution.streams[stream], site);
    }
    const Exchange& exchange = result.exchange;
    count(all.water, &Balance::added, exchange.water);
    for (const double term : {exchange.heat, exchange.waterHeat, exchange.wetBulbTerm}) {
      count(all.energy, &Balance::added, term);
    }
    all.wetBulbTerm += exchange.wetBulbTerm;
  }
  for (Balance* balance : {&all.air, &all.water, &all.energy}) {
    balance->difference = balance->entering + balance->added - balance->leaving;
  }
  return all;
}

std::vector<RoomRatios> roomRatiosOf(const CompiledSystem& system, const Site& site, const Solution& solution) {
  std::vector<RoomRatios> all;
  for (std::size_t i = 0; i < system.steps.size(); ++i) {
    if (system.steps[i].kind != StepKind::room || !solution.solved(i)) continue;
    RoomRatios ratios;
    ratios.room = i;
    ratios.roomShr = solution.results[i].shr;
    ratios.coil = coilBefore(system, i);
    all.push_back(ratios);
  }
  for (RoomRatios& ratios : all) {
    if (ratios.coil < 0 || !solution.solved(static_cast<std::size_t>(ratios.coil))) continue;
    const auto coil = static_cast<std::size_t>(ratios.coil);
    const StepResult& room = solution.results[ratios.room];
    const OutdoorLoad outdoor = outdoorLoads(system, site, solution, room.leaving.state)[mainStream(coil)];
    ratios.grandShr = solution.results[coil].shr;
    ratios.outdoorSensible = outdoor.sensible;
    ratios.outdoorTotal = outdoor.total;
    // With several rooms on one coil the bypassed outdoor air belongs to none of them.
    const auto sameCoil = [&](const RoomRatios& other) { return other.coil == ratios.coil; };
    if (std::count_if(all.begin(), all.end(), sameCoil) > 1) continue;
    const double bypass = solution.results[coil].bf;
    ratios.effectiveShr = quotient(room.sensible + bypass * outdoor.sensible, room.total + bypass * outdoor.total);
  }
  return all;
}

ClassicFactors classicFactors(const Site& site) {
  constexpr double vapor = 1076;  // Btu/lb: of vapor at 75 deg F and 50 % less that of condensate at 50 deg F
  const double perCfm = quotient(60, site.volume({70, 0}));
  const double heat = site.enthalpy({1, 0}) - site.enthalpy({0, 0});
  return {perCfm * heat, perCfm * vapor, perCfm};
}

}  // namespace moistair
