#include "process/kinds.h"

#include <algorithm>
#include <bit>

#include "process/processes.h"
#include "process/words.h"

namespace moistair {

namespace {

using enum Parameter;

constexpr double vast = 1e12;  // beyond any plant, and far from where doubles lose what is added to them

constexpr std::array<ParameterRow, parameterCount> parameterRows = {{
    {db, "db", Quantity::temperature, -60, 300},
    {wb, "wb", Quantity::temperature, -80, 300},
    {rh, "rh", Quantity::percent, 0, 100},
    {w, "w", Quantity::ratio, 0, 0.1},
    {h, "h", Quantity::enthalpy, -100, 1000},
    {dp, "dp", Quantity::temperature, -101, 300},
    {v, "v", Quantity::volume, 0, 10000},
    {acfm, "acfm", Quantity::airVolume, 0, vast},
    {scfm, "scfm", Quantity::airVolume, 0, vast},
    {lbh, "lbh", Quantity::airMass, 0, vast},
    {share, "share", Quantity::fraction, 0, 1},
    {dt, "dt", Quantity::temperatureRise, -360, 360},
    {btuh, "btuh", Quantity::heat, -vast, vast},
    {adp, "adp", Quantity::temperature, -60, 300},
    {bf, "bf", Quantity::fraction, 0, 1},
    {shr, "shr", Quantity::fraction, -100, 100},
    {total, "total", Quantity::heat, -vast, vast},
    {sensible, "sensible", Quantity::heat, -vast, vast},
    {latent, "latent", Quantity::heat, -vast, vast},
    {condensate, "condensate", Quantity::word, 1, 1, {"counted"}},
    {waterDt, "waterdt", Quantity::temperatureRise, 0.01, 300},
    {eff, "eff", Quantity::fraction, 0, 1},
    {indirect, "indirect", Quantity::stream, 0, 0},
    {water, "water", Quantity::waterMass, -vast, vast},
    {psig, "psig", Quantity::gaugePressure, -15, 150},
    {degf, "degf", Quantity::temperature, 32, 350},
    {hg, "hg", Quantity::enthalpy, 0, 2000},
    {inwg, "inwg", Quantity::fanPressure, 0, 400},
    {motorEff, "motoreff", Quantity::fraction, 0.01, 1},
    {motor, "motor", Quantity::word, 1, 2, {"in", "out"}},
    {bhp, "bhp", Quantity::power, 0, vast},
    {sens, "sens", Quantity::fraction, 0, 1},
    {lat, "lat", Quantity::fraction, 0, 1},
    {factor, "factor", Quantity::fraction, 0, 100},
    {idle, "idle", Quantity::word, 1, 1, {"pass"}},
}};

constexpr ParameterSet stateSet = setOf(db, wb, rh, w, h, dp, v);
constexpr ParameterSet flowSet = setOf(acfm, scfm, lbh);
constexpr ParameterSet heaterSet = setOf(db, rh, dt, btuh);
constexpr ParameterSet coilSet = setOf(adp, bf, db, wb, rh, w, dp, shr, total, sensible);
constexpr ParameterSet steamSet = setOf(rh, w, dp, water);
constexpr ParameterSet sourceOfSteam = setOf(psig, degf, hg);
constexpr int any = 1000;

// kind, name, sources, second stream, heat counted as removed, accepted, required, choices, alternatives, function
const std::array<KindRow, stepKindCount> kindRows = {{
    {StepKind::air,
     "air",
     0,
     0,
     nullptr,
     false,
     stateSet | flowSet,
     0,
     {{{stateSet, 2, 2}, {flowSet, 0, 1}}},
     {},
     runAir},
    {StepKind::mix, "mix", 1, any, nullptr, false, 0, 0, {}, {}, runMix},
    {StepKind::part,
     "part",
     1,
     1,
     "rest",
     false,
     flowSet | setOf(share),
     0,
     {{{flowSet | setOf(share), 1, 1}}},
     {},
     runPart},
    {StepKind::heat, "heat", 1, 1, nullptr, false, heaterSet | setOf(idle), 0, {{{heaterSet, 1, 1}}}, {}, runHeat},
    {StepKind::cool, "cool", 1, 1, nullptr, true, heaterSet | setOf(idle), 0, {{{heaterSet, 1, 1}}}, {}, runCool},
    {StepKind::coil,
     "coil",
     1,
     1,
     nullptr,
     true,
     coilSet | setOf(condensate, waterDt, idle),
     0,
     {{{coilSet, 2, 2}}},
     {},
     runCoil},
    {StepKind::evaporate,
     "evaporate",
     1,
     1,
     nullptr,
     false,
     setOf(eff, db, rh, indirect, idle),
     0,
     {{{setOf(eff, db, rh), 1, 1}}},
     {},
     runEvaporate},
    {StepKind::steam,
     "steam",
     1,
     1,
     nullptr,
     false,
     steamSet | sourceOfSteam | setOf(idle),
     0,
     {{{steamSet, 1, 1}, {sourceOfSteam, 0, 1}}},
     {},
     runSteam},
    {StepKind::fan,
     "fan",
     1,
     1,
     nullptr,
     false,
     setOf(inwg, eff, bhp, dt, motorEff, motor),
     0,
     {},
     {{setOf(inwg, eff), setOf(bhp), setOf(dt)}},
     runFan},
    {StepKind::recover, "recover", 2, 2, "exhaust", false, setOf(sens, lat), setOf(sens), {}, {}, runRecover},
    {StepKind::dry, "dry", 1, 1, nullptr, false, setOf(w, factor, idle), setOf(w), {}, {}, runDry},
    {StepKind::room,
     "room",
     1,
     1,
     nullptr,
     false,
     setOf(sensible, latent, total, shr, water, hg),
     0,
     {},
     {{setOf(sensible, latent), setOf(total, shr), setOf(sensible, water)}},
     runRoom},
}};

constexpr bool inOrder() {
  for (std::size_t i = 0; i < parameterCount; ++i) {
    if (parameterRows[i].parameter != static_cast<Parameter>(i)) return false;
  }
  return true;
}
static_assert(inOrder());

const char* countWord(int count) { return count == 1 ? "one" : "two"; }

Error wrongSet(const std::string& words) { return {ErrorCode::unreadable, {}, words}; }

std::string givenWords(ParameterSet given) { return given == 0 ? "none is given" : "given: " + namesOf(given, "and"); }

Outcome checkChoice(const Choice& choice, ParameterSet given) {
  const ParameterSet chosen = given & choice.from;
  const int count = std::popcount(chosen);
  if (count >= choice.least && count <= choice.most) return {};
  const std::string many =
      (choice.least == choice.most ? "give " : "give at most ") + std::string(countWord(choice.most));
  return wrongSet(many + " of " + namesOf(choice.from, "or") + "; " + givenWords(chosen));
}

Outcome checkAlternatives(const KindRow& row, ParameterSet given) {
  ParameterSet all = 0;
  std::string words;
  for (const ParameterSet alternative : row.alternatives) {
    if (alternative == 0) continue;
    if (!words.empty()) words += ", or ";
    words += namesOf(alternative, "with");
    all |= alternative;
  }
  for (const ParameterSet alternative : row.alternatives) {
    if ((given & all) == alternative) return {};
  }
  return wrongSet("give " + words + "; " + givenWords(given & all));
}

}  // namespace

const ParameterRow& rowOf(Parameter parameter) { return parameterRows[static_cast<std::size_t>(parameter)]; }

std::optional<Parameter> parameterNamed(std::string_view name) {
  for (const ParameterRow& row : parameterRows) {
    if (name == row.name) return row.parameter;
  }
  return std::nullopt;
}

const char* unitOf(Quantity quantity) {
  switch (quantity) {
    case Quantity::temperature:
    case Quantity::temperatureRise: return "deg F";
    case Quantity::percent: return "percent";
    case Quantity::ratio: return "lb/lb";
    case Quantity::enthalpy: return "Btu/lb";
    case Quantity::volume: return "cu ft/lb";
    case Quantity::airVolume: return "cu ft/min";
    case Quantity::airMass:
    case Quantity::waterMass: return "lb/h";
    case Quantity::heat: return "Btu/h";
    case Quantity::fanPressure: return "in. w.g.";
    case Quantity::gaugePressure: return "psi";
    case Quantity::power: return "hp";
    default: return "";
  }
}

std::string namesOf(ParameterSet set, const char* last) {
  std::string names;
  for (const ParameterRow& row : parameterRows) {
    if (!contains(set, row.parameter)) continue;
    set &= ~bitOf(row.parameter);
    if (!names.empty()) names += set == 0 ? std::string(" ") + last + " " : ", ";
    names += row.name;
  }
  return names;
}

const KindRow& rowOf(StepKind kind) { return kindRows[static_cast<std::size_t>(kind)]; }

std::optional<StepKind> stepKindNamed(std::string_view name) {
  for (const KindRow& row : kindRows) {
    if (name == row.name) return row.kind;
  }
  return std::nullopt;
}

std::array<StepKind, stepKindCount> stepKinds() {
  std::array<StepKind, stepKindCount> kinds;
  std::transform(kindRows.begin(), kindRows.end(), kinds.begin(), [](const KindRow& row) { return row.kind; });
  return kinds;
}

Outcome checkGiven(StepKind kind, ParameterSet given) {
  const KindRow& row = rowOf(kind);
  if (const ParameterSet foreign = given & ~row.accepted; foreign != 0) {
    const std::string takes = row.accepted == 0 ? "no parameters" : namesOf(row.accepted, "and");
    return wrongSet(std::string(row.name) + " does not take " + namesOf(foreign, "and") + "; it takes " + takes);
  }
  if (const ParameterSet missing = row.required & ~given; missing != 0) {
    return wrongSet(std::string(row.name) + " needs " + namesOf(missing, "and"));
  }
  for (const Choice& choice : row.choices) {
    if (const Outcome outcome = checkChoice(choice, given); !outcome) return outcome;
  }
  if (row.alternatives[0] != 0) {
    if (const Outcome outcome = checkAlternatives(row, given); !outcome) return outcome;
  }
  return checkTogether(kind, given);
}

Outcome checkValue(Parameter parameter, double value) {
  const ParameterRow& row = rowOf(parameter);
  if (value >= row.low && value <= row.high) return {};
  const std::string unit = unitOf(row.quantity);
  const std::string range = " is not within " + figure(row.low) + " to " + figure(row.high);
  return Error{ErrorCode::outOfRange, row.name, figure(value) + range + (unit.empty() ? "" : " " + unit)};
}

}  // namespace moistair
