/// \file
/// A system: steps that hand streams to each other, compiled, evaluated and balanced.
///
/// `AirSystem` is what a person writes, names and all. `compile` checks it once and turns names into indices;
/// `evaluate` runs the compiled steps in order on doubles, writes into a Solution that it is given, and allocates
/// nothing when that is used again. A caller that solves for unknown parameters changes `CompiledStep::parameters` and
/// evaluates again; one that closes a loop sets the streams at the tears and compares them with what comes out.
///
/// Streams are numbered: 2 i is what step i leaves, 2 i + 1 its NAME.rest or NAME.exhaust.
#pragma once

#include <string>
#include <vector>

#include "process/step.h"

namespace moistair {

struct AirSystem {
  std::vector<ProcessStep> steps;

  bool operator==(const AirSystem&) const = default;
};

inline constexpr std::size_t mainStream(std::size_t step) { return 2 * step; }
inline constexpr std::size_t secondStream(std::size_t step) { return 2 * step + 1; }

/// An unknown parameter.
struct Unknown {
  std::size_t step;
  Parameter parameter;
};

/// A step with indices for names and doubles for parameters.
struct CompiledStep {
  StepKind kind = StepKind::air;
  Parameters parameters;
  std::size_t firstSource = 0, sourceCount = 0;  ///< in CompiledSystem::sources
  int indirect = -1;                             ///< stream, or -1
};

struct CompiledSystem {
  std::vector<CompiledStep> steps;   ///< in the order written
  std::vector<std::size_t> sources;  ///< stream numbers, of all steps one after another
  std::vector<std::size_t> order;    ///< in which the steps can be evaluated
  std::vector<std::size_t> tears;    ///< streams read before they are known; empty without a loop
  std::vector<Unknown> unknowns;     ///< in the order written; their value is NaN until one is set
  std::vector<bool> taken;           ///< by stream: whether a step takes it; what nobody takes leaves the system
  std::vector<std::string> names;    ///< by stream, for messages; empty where there is no such stream
};

/// Checks names, sources, given parameters and ranges. All mistakes, each with the step's name and
/// the parameter as its place: duplicate and unknown names, a stream taken twice, sources and parameters that a kind
/// does not take. Loops and unknowns are no mistakes here.
struct Compilation {
  CompiledSystem system;
  std::vector<Error> errors;  ///< empty if the system is usable
};
Compilation compile(const AirSystem& system);

/// A circle in words, "MA takes CC, which takes MA", for who cannot close one; empty without tears.
std::string circleWords(const CompiledSystem& system);

/// What each stream is, what each step did, and why some did nothing.
struct Solution {
  std::vector<Stream> streams;      ///< by stream number; no value where there is none
  std::vector<StepResult> results;  ///< by step
  std::vector<Error> errors;        ///< by step; empty words where it has a result
  bool complete = false;            ///< every step has a result
  std::vector<Stream> gathered;     ///< the sources of one step, kept for their memory

  bool solved(std::size_t step) const { return errors[step].words.empty(); }
};

/// Evaluates all steps in order. Streams at the tears are taken as they are in `solution.streams`, and overwritten by
/// what the steps make of them. A step with an unknown parameter has the error `noResult`; those after a step without a
/// result have the error `waiting` and name it.
void evaluate(const CompiledSystem& system, const Site& site, Solution& solution);

/// compile, evaluate: for a system without loops and unknowns. Otherwise the steps concerned say what they lack.
Solution solve(const CompiledSystem& system, const Site& site);

/// One balance over all steps: what comes in with streams and otherwise, what leaves, and the part that is missing.
struct Balance {
  double entering = 0;    ///< with the streams that begin
  double added = 0;       ///< heat, power, water and what goes with it; less what is taken out
  double leaving = 0;     ///< with the streams that leave
  double difference = 0;  ///< entering + added - leaving
  double largest = 0;     ///< the largest single term, by size

  /// How far it is from closed, as a part of the largest term.
  double error() const { return largest > 0 ? std::abs(difference) / largest : 0; }
};

struct Balances {
  Balance air;             ///< lb/h
  Balance water;           ///< lb/h
  Balance energy;          ///< Btu/h, 0 for dry air at 0 deg F and water at 32
  double wetBulbTerm = 0;  ///< part of energy.added: what the wet-bulb equation leaves open
};

/// From the states and flows of the streams and what physics lets cross a step's boundary, never from its loads. Only
/// for a complete solution. Streams without a flow are counted per lb of dry air, and only if no stream has a flow.
Balances balancesOf(const CompiledSystem& system, const Site& site, const Solution& solution);

/// The ratios an engineer looks for, for each room.
struct RoomRatios {
  std::size_t room = 0;
  int coil = -1;  ///< step of the coil that its air comes from; -1 without one
  double roomShr = noValue;
  double grandShr = noValue;      ///< sensible over total of the coil
  double effectiveShr = noValue;  ///< with the bypassed part of the outdoor air's load counted to the room
  double outdoorSensible = 0, outdoorTotal = 0;  ///< of the outdoor air that reaches the coil, down to the room's state
};
std::vector<RoomRatios> roomRatiosOf(const CompiledSystem& system, const Site& site, const Solution& solution);

/// The factors of hand calculation at this pressure, for air of 70 deg F without moisture.
struct ClassicFactors {
  double sensible;  ///< Btu/h per cfm and deg F: 1.08 at sea level
  double latent;    ///< Btu/h per cfm and lb/lb: 4840
  double total;     ///< Btu/h per cfm and Btu/lb: 4.5
};
ClassicFactors classicFactors(const Site& site);

}  // namespace moistair
