/// \file
/// The kinds of steps and the parameters each accepts, as tables.
///
/// Whoever reads, writes, checks or solves a step goes by these two tables: `parameterRows` says what a parameter is
/// (its word, quantity and range), `kindRows` which of them a kind takes and in which combinations. A new kind is a row
/// here and a function in one of the files named for what they do (sensible, coil, moisture, exchange).
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "text/error.h"

namespace moistair {

enum class StepKind : std::uint8_t {
  air,
  mix,
  part,
  heat,
  cool,
  coil,
  evaporate,
  steam,
  fan,
  recover,
  dry,
  room,
};
inline constexpr std::size_t stepKindCount = 12;

/// The first seven are those of PropertyKind, in its order.
enum class Parameter : std::uint8_t {
  db,
  wb,
  rh,
  w,
  h,
  dp,
  v,
  acfm,
  scfm,
  lbh,
  share,
  dt,
  btuh,
  adp,
  bf,
  shr,
  total,
  sensible,
  latent,
  condensate,
  waterDt,
  eff,
  indirect,
  water,
  psig,
  degf,
  hg,
  inwg,
  motorEff,
  motor,
  bhp,
  sens,
  lat,
  factor,
  idle,
};
inline constexpr std::size_t parameterCount = 35;

/// What a value measures, and the base unit it is kept in.
enum class Quantity : std::uint8_t {
  temperature,      ///< deg F
  temperatureRise,  ///< deg F, a difference
  percent,          ///< relative humidity
  ratio,            ///< lb/lb
  enthalpy,         ///< Btu/lb
  volume,           ///< cu ft/lb
  airVolume,        ///< cu ft/min
  airMass,          ///< lb/h of dry air
  waterMass,        ///< lb/h of water
  heat,             ///< Btu/h
  fraction,         ///< 0.7, not 70
  fanPressure,      ///< in. w.g.
  gaugePressure,    ///< psi above the site's
  power,            ///< hp
  word,             ///< one of the row's words; kept as its index from 1
  stream,           ///< the name of a stream, kept with the step and not as a value
};

struct ParameterRow {
  Parameter parameter;
  const char* name;
  Quantity quantity;
  double low, high;                    ///< accepted values, limits included
  std::array<const char*, 2> words{};  ///< of Quantity::word
};

const ParameterRow& rowOf(Parameter parameter);
inline const char* nameOf(Parameter parameter) { return rowOf(parameter).name; }
std::optional<Parameter> parameterNamed(std::string_view name);

/// "deg F", "Btu/h", ...: the base unit of a quantity in words; empty for one that has none.
const char* unitOf(Quantity quantity);

/// A set of parameters.
using ParameterSet = std::uint64_t;
constexpr ParameterSet bitOf(Parameter parameter) { return ParameterSet{1} << static_cast<unsigned>(parameter); }
template <class... Some>
constexpr ParameterSet setOf(Some... some) {
  return (bitOf(some) | ... | ParameterSet{0});
}
constexpr bool contains(ParameterSet set, Parameter parameter) { return (set & bitOf(parameter)) != 0; }

/// "adp, bf or db": the names of a set in the order of the table, `last` before the last one.
std::string namesOf(ParameterSet set, const char* last);

/// So many of a set are to be given.
struct Choice {
  ParameterSet from = 0;
  int least = 0, most = 0;
};

struct StepInput;  // step.h
struct StepResult;

struct KindRow {
  StepKind kind;
  const char* name;
  int leastSources, mostSources;
  const char* second;             ///< word of the second leaving stream, "rest" or "exhaust"; null without one
  bool removesHeat;               ///< `total`, `sensible`, `btuh` are positive as heat removed
  ParameterSet accepted;          ///< all that a step may give
  ParameterSet required;          ///< what it has to give
  std::array<Choice, 2> choices;  ///< of which it gives some
  std::array<ParameterSet, 3> alternatives;  ///< of which it gives exactly one whole; zeros where there are none
  Result<StepResult> (*run)(const StepInput&);
};

const KindRow& rowOf(StepKind kind);
inline const char* nameOf(StepKind kind) { return rowOf(kind).name; }
std::optional<StepKind> stepKindNamed(std::string_view name);
std::array<StepKind, stepKindCount> stepKinds();  ///< all, in the order of the table

/// Whether a step of this kind may give exactly this set; where not, what would be right. The place is left empty or
/// names the parameter.
Outcome checkGiven(StepKind kind, ParameterSet given);

/// Whether a value is within the row's range; the error's place is the parameter.
Outcome checkValue(Parameter parameter, double value);

}  // namespace moistair
