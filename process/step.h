/// \file
/// A step of a system as data, and what comes out of it.
///
/// A step has a name, a kind, the names of the streams it takes and its parameters in base units (kinds.h); any of them
/// may be unknown. Its function is pure: inlet streams, parameters and site give a result or the reason why there is
/// none. Results hold numbers and codes only, so that a system can be evaluated over and over without making texts;
/// words.h words them.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "process/air.h"
#include "process/kinds.h"

namespace moistair {

/// A parameter that a step gives.
struct Assignment {
  Parameter parameter;
  double value = noValue;  ///< in the base unit; a word's index from 1; no value where unknown or a stream's name
  bool unknown = false;    ///< given as "?": something else has to fix it
  std::string stream{};    ///< of Quantity::stream

  bool operator==(const Assignment&) const = default;
};

struct ProcessStep {
  std::string name;
  StepKind kind = StepKind::air;
  std::vector<std::string> sources;  ///< stream names: a step's, or NAME.rest, NAME.exhaust
  std::vector<Assignment> given;     ///< in the order of the text, each parameter once
  int line = 0;                      ///< where it was read, from 1; 0 if it was not

  bool operator==(const ProcessStep&) const = default;
};

/// The parameters of a step as its function reads them: one double each, and which are given.
class Parameters {
public:
  Parameters() { values_.fill(noValue); }
  double operator[](Parameter parameter) const { return values_[static_cast<std::size_t>(parameter)]; }
  void set(Parameter parameter, double value) {
    values_[static_cast<std::size_t>(parameter)] = value;
    given_ |= bitOf(parameter);
  }
  bool has(Parameter parameter) const { return contains(given_, parameter); }
  ParameterSet given() const { return given_; }

private:
  std::array<double, parameterCount> values_;
  ParameterSet given_ = 0;
};

/// Words of parameters, as the values hold them.
inline constexpr double motorIn = 1, motorOut = 2;

/// Moist air that flows. The dry air is kept from step to step.
struct Stream {
  AirState state;
  double flow = noValue;  ///< dry air [lb/h], or lb per lb of the origin's
  int origin = -1;        ///< -1 for a flow in lb/h; else the `air` step, given without a flow, that it is a part of

  bool flowKnown() const { return origin < 0; }
};

/// What is worth saying about a result. Up to two numbers go with each.
enum class NoteCode : std::uint8_t {
  off,                  ///< not needed: the air passes unchanged
  dryCoil,              ///< the coil stays above the dew point
  frostingCoil,         ///< apparatus dew point [deg F] below 32
  otherSolution,        ///< a second solution: leaving dry bulb, humidity ratio
  noApparatusDewPoint,  ///< the straight line passes through saturation from, to [deg F] before the leaving state
  atFreezingStep,       ///< saturation steps at 32 deg F and the result lies in the step
  fog,                  ///< fog leaves as water [lb/h] at [deg F]
  condensate,           ///< condensate [lb/h] in the leaving air at [deg F]
  exhaustCondensate,    ///< the same in the second stream
  frost,                ///< water below 32 deg F [lb/h], counted as liquid
  wetBulbTerm,          ///< what the wet-bulb equation leaves open [Btu/h], share of the enthalpy [percent]
  sprayWater,           ///< water evaporated [lb/h], [gal/h]
  indirectWater,        ///< the same in the other stream, if all the heat goes into evaporation
  idealized,            ///< the drying step is idealized, with factor
  motorOutside,         ///< the motor's loss [Btu/h] stays outside of the air
};

struct Note {
  NoteCode code;
  double first = noValue, second = noValue;
};

/// A few notes, without allocating.
class Notes {
public:
  void add(NoteCode code, double first = noValue, double second = noValue) {
    if (count_ < notes_.size()) notes_[count_++] = {code, first, second};
  }
  const Note* begin() const { return notes_.data(); }
  const Note* end() const { return notes_.data() + count_; }
  bool has(NoteCode code) const {
    for (const Note& note : *this) {
      if (note.code == code) return true;
    }
    return false;
  }

private:
  std::array<Note, 12> notes_{};
  std::size_t count_ = 0;
};

/// What crosses the boundary of a step with no stream of air, by the physics of its kind; the balances add these up.
struct Exchange {
  double heat = 0;         ///< heat and power into the air [Btu/h]
  double water = 0;        ///< water into the air [lb/h], liquid or steam; negative for condensate and fog
  double waterHeat = 0;    ///< enthalpy that goes with it [Btu/h]
  double wetBulbTerm = 0;  ///< what the wet-bulb equation leaves open [Btu/h]
};

/// What a step does. Loads are positive into the air: Btu/h and lb/h, or per lb of the origin's dry air.
struct StepResult {
  Stream leaving;
  Stream second;  ///< NAME.rest or NAME.exhaust, of the kinds that have one
  double total = 0, sensible = 0, latent = 0;
  double water = 0;                ///< into the air; of `recover` into the first stream
  double condensate = 0;           ///< liquid that leaves: of a coil, fog, a recovery unit [lb/h]
  double shr = noValue;            ///< sensible / total
  double adp = noValue;            ///< apparatus dew point [deg F]
  double bf = noValue;             ///< bypass factor, by dry bulb
  double power = noValue;          ///< fan shaft [hp]
  double waterGpm = noValue;       ///< through a coil with `waterDt`
  double effectiveness = noValue;  ///< of the wet-bulb depression
  double share = noValue;          ///< of `part`: of the flow; of `mix`: of the first stream in the whole
  Exchange exchange;
  Notes notes;
  bool off = false;  ///< not needed, passes the air unchanged

  double condensateGpm() const { return condensate / lbhPerGpm; }
  static constexpr double lbhPerGpm = 500;
};

/// All that a step's function may look at.
struct StepInput {
  std::span<const Stream> sources;
  const Stream* indirect = nullptr;  ///< the named stream of an indirect evaporative cooler
  const Parameters& parameters;
  const Site& site;
  int self = 0;  ///< index of the step: the origin of air without a flow
};

/// Runs one step. The error's place is the parameter it is about, or empty.
Result<StepResult> runStep(StepKind kind, const StepInput& input);

}  // namespace moistair
