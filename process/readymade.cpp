#include "process/readymade.h"

#include <algorithm>

#include "process/readout.h"
#include "process/readymadelines.h"
#include "process/words.h"

namespace moistair {

namespace {

constexpr double rounding = 1e-9;

}  // namespace

std::string wordsOf(const Way& way, const ReadymadeKeys& keys) {
  static constexpr const char* words[] = {"design", "humidity floats", "supply floats", "room floats"};
  std::string text = words[static_cast<std::size_t>(way.held)];
  std::string zones;
  for (std::size_t i = 0; i < way.atMinimum.size(); ++i) {
    if (way.atMinimum[i]) zones += (zones.empty() ? "" : ", ") + keys.zones()[i];
  }
  return zones.empty() ? text : text + "; at the smallest flow: " + zones;
}

double valueOf(const CompiledSystem& system, const Solution& solution, const std::string& stream, Parameter parameter,
               const Site& site) {
  const auto named = std::find(system.names.begin(), system.names.end(), stream);
  if (named == system.names.end()) return noValue;
  const auto index = static_cast<std::size_t>(named - system.names.begin());
  StepResult result = solution.results[index / 2];
  result.leaving = solution.streams[index];
  return outcomeOf(parameter, system.steps[index / 2].kind, result, site);
}

Result<DesignState> preparedState(const std::string& lines) {
  ReadSystem read = readSystem(lines);
  if (!read.errors.empty()) return read.errors.front();
  Compilation compilation = compile(read.text.system);
  if (!compilation.errors.empty()) return compilation.errors.front();
  GoalPreparation preparation = prepare(compilation.system, read.text.goals);
  if (!preparation.errors.empty()) return preparation.errors.front();
  return DesignState{std::move(read.text), std::move(compilation.system), std::move(preparation.problem), {}};
}

Result<std::string> Designer::textOf(const Way& way) const {
  return keys_.system().write({keys_, site_, way, hours_, partLoad_, sized_ ? &*sized_ : nullptr});
}

std::optional<Way> Designer::after(const Way& way, const CompiledSystem& system, const Solution* solved,
                                   const Site& site) const {
  if (way.held == Held::all) {
    if (const auto next = zonesAfter(way, system, solved, site)) return next;
  }
  if (solved != nullptr) return std::nullopt;
  Way next = way;
  const auto step = [&](Held held) {
    next = {held, {}};
    return textOf(next).operator bool();
  };
  if (!hours_) {
    // Reheat that would cool is left out, and the room comes out drier than asked for.
    const bool leavesOut = way.held == Held::all && !partLoad_ && hasReheat() && step(Held::temperature);
    return leavesOut ? std::optional(next) : std::nullopt;
  }
  if (!sized_) return std::nullopt;
  for (int held = static_cast<int>(way.held) + 1; held <= static_cast<int>(Held::nothing); ++held) {
    if (step(static_cast<Held>(held))) return next;
  }
  return std::nullopt;
}

/// Whether the system as asked has a reheat coil that is solved for.
bool Designer::hasReheat() const {
  const Result<std::string> text = textOf({});
  return text && !keys_.hasAny("reheat") && text->find("RH: ") != std::string::npos &&
         text->find("CC: ") != std::string::npos;
}

namespace {

/// The flow that a zone takes about, by its sensible gain [lb/h].
double roughFlow(const ReadymadeKeys& keys, const std::string& zone, const CompiledSystem& system) {
  const auto named = std::find(system.names.begin(), system.names.end(), zone);
  const auto step = static_cast<std::size_t>(named - system.names.begin()) / 2;
  const Parameters& given = system.steps[step].parameters;
  const double gain =
      given.has(Parameter::total) ? given[Parameter::total] * given[Parameter::shr] : given[Parameter::sensible];
  constexpr double usualSupply = 55, heatOfAir = 0.244;
  const double supply = keys.has("supply.db") ? keys.number("supply.db") : usualSupply;
  return quotient(gain, heatOfAir * (keys.number(zone + ".db") - supply));
}

}  // namespace

/// What a zone's flow may not fall below [lb/h]; 0 for none.
double Designer::smallestFlow(const std::string& zone, const CompiledSystem& system, const Solution* solved,
                              const Site& site) const {
  const std::string group = zone + ".min";
  if (keys_.has(group + ".lbh")) return keys_.number(group + ".lbh");
  if (keys_.has(group + ".scfm")) return keys_.number(group + ".scfm") * lbhPerScfm;
  if (keys_.has(group + ".share")) {
    return sized_ ? keys_.number(group + ".share") * sized_->value(zone, Parameter::lbh, site_) : 0;
  }
  if (!keys_.has(group + ".acfm")) return 0;
  const double acfm = keys_.number(group + ".acfm");
  if (solved == nullptr) return acfm * lbhPerScfm;
  const AirState air{valueOf(system, *solved, "box-" + zone, Parameter::db, site),
                     valueOf(system, *solved, "box-" + zone, Parameter::w, site)};
  return dryFlowOfAcfm(acfm, site.volume(air));
}

/// Zones whose flow came out below their smallest one are put there. Where no flows were found, those whose gains are
/// too small for it.
std::optional<Way> Designer::zonesAfter(const Way& way, const CompiledSystem& system, const Solution* solved,
                                        const Site& site) const {
  const auto& zones = keys_.zones();
  if (solved == nullptr && !way.atMinimum.empty()) return std::nullopt;
  Way next = way;
  next.atMinimum.resize(zones.size(), false);
  bool more = false;
  for (std::size_t i = 0; i < zones.size(); ++i) {
    const double least = smallestFlow(zones[i], system, solved, site);
    if (next.atMinimum[i] || !(least > 0)) continue;
    const double flow = solved != nullptr ? valueOf(system, *solved, zones[i], Parameter::lbh, site)
                                          : roughFlow(keys_, zones[i], system);
    if (!(flow >= least * (1 - rounding))) more = next.atMinimum[i] = true;
  }
  return more ? std::optional(next) : std::nullopt;
}

namespace {

/// The sensible gain of a room or zone [Btu/h].
double sensibleGain(const ReadymadeKeys& keys, const std::string& group) {
  return keys.has(group + ".total") ? keys.number(group + ".total") * keys.number(group + ".shr")
                                    : keys.number(group + ".sensible");
}

/// What an engineer would say of gains and air that cannot go together, in front of what the solver says.
void addReasons(Design& design, const ReadymadeKeys& keys, const Site& site) {
  std::vector<Error> reasons;
  const auto add = [&](const std::string& place, const std::string& words) {
    reasons.push_back({ErrorCode::noResult, place, words});
  };
  for (const std::string& zone : keys.zones()) {
    if (sensibleGain(keys, zone) > 0 || keys.hasAny(zone + ".min")) continue;
    add(zone, "cooled air cannot hold a zone without a sensible gain; give " + zone +
                  ".min.acfm, the smallest flow, at which its air is reheated");
  }
  const double room = keys.number("room.db");
  const double supply = keys.has("supply.dt") ? room - keys.number("supply.dt") : keys.number("supply.db");
  const double gain = sensibleGain(keys, "room");
  const double perLb = site.air->enthalpy(room, 0.009) - site.air->enthalpy(supply, 0.009);
  const bool cools = std::string_view(keys.system().name) != "winter" || keys.has("supply.db");
  if (hasValue(perLb) && hasValue(gain) && cools) {
    const double flow = quotient(gain, perLb);
    const AirState outdoor{keys.number("outdoor.db"), 0};
    const double outdoorFlow = keys.has("outdoor.lbh") ? keys.number("outdoor.lbh")
                               : keys.has("outdoor.scfm")
                                   ? keys.number("outdoor.scfm") * lbhPerScfm
                                   : dryFlowOfAcfm(keys.number("outdoor.acfm"), site.volume(outdoor));
    constexpr double margin = 1.05;  // of the estimates
    if (!(flow > 0)) {
      add("supply", "air of " + figure(supply) + " deg F cannot hold a room of " + figure(room) +
                        " deg F with a sensible gain of " + figure(gain) + " Btu/h");
    } else if (outdoorFlow > margin * flow) {
      add("outdoor",
          "about " + figure(outdoorFlow) + " lb/h of outdoor air are more than the " + figure(flow) +
              " lb/h of supply air that the gains need; give less outdoor air, or supply air nearer to the room");
    }
  }
  if (reasons.empty() && keys.given("room", stateKeys) != bitOf(Parameter::db) && !keys.hasAny("coil") &&
      std::string_view(keys.system().name) == "single-zone") {
    design.errors.push_back(
        {ErrorCode::noResult, "", "with coil.rh, such as coil.rh=95, reheat is solved for as well"});
  }
  design.errors.insert(design.errors.begin(), reasons.begin(), reasons.end());
}

}  // namespace

Design Designer::solveWays() {
  Design design;
  std::vector<Error> firstErrors;
  std::optional<Way> way = Way{};
  while (way) {
    design.way = *way;
    const Result<std::string> text = textOf(*way);
    Result<DesignState> state = text ? preparedState(*text) : Result<DesignState>(text.error());
    if (!state) {
      if (firstErrors.empty()) firstErrors.push_back(state.error());
      break;
    }
    design.state = std::move(*state);
    GoalAnswer answer = solveGoals(design.state.problem, site_);
    if (!answer.found.empty()) {
      design.state.found = std::move(answer.found);
      const auto next = after(*way, design.state.system, &design.state.found.front().solution, site_);
      if (!next) return accept(std::move(design), firstErrors);
      way = next;
      continue;
    }
    if (firstErrors.empty()) firstErrors = std::move(answer.errors);
    way = after(*way, design.state.system, nullptr, site_);
  }
  design.errors = std::move(firstErrors);
  if (!design.state.text.system.steps.empty()) addReasons(design, keys_, site_);
  return design;
}

/// A design that holds less than asked for is one only where no reheat is needed.
Design Designer::accept(Design design, const std::vector<Error>& firstErrors) const {
  if (design.way.held != Held::temperature || hours_) return design;
  const auto holds = [&](Parameter parameter) { return keys_.has(std::string("room.") + nameOf(parameter)); };
  for (const Parameter parameter : {Parameter::rh, Parameter::wb, Parameter::w, Parameter::dp, Parameter::h}) {
    if (!holds(parameter)) continue;
    const double wanted = keys_.number(std::string("room.") + nameOf(parameter));
    const double comes = design.state.value("RM", parameter, site_);
    const std::string unit = parameter == Parameter::rh ? "%" : unitOf(rowOf(parameter).quantity);
    if (!(comes < wanted)) break;
    design.remarks.push_back("No reheat is needed: with this coil the room comes to " + std::string(nameOf(parameter)) +
                             " " + figure(comes) + " " + unit + " instead of " + figure(wanted) + ".");
    return design;
  }
  design.errors = firstErrors;
  return design;
}

std::string Designer::sizedWords() const {
  std::string words = "At full load: ";
  if (keys_.zones().empty()) {
    words += figure(sized_->value("RM", Parameter::lbh, site_)) + " lb/h";
  } else {
    for (const std::string& zone : keys_.zones()) {
      words += (&zone == &keys_.zones().front() ? "" : ", ") + zone + " " +
               figure(sized_->value(zone, Parameter::lbh, site_)) + " lb/h";
    }
  }
  const double heat = sized_->value("CC", Parameter::total, site_);
  constexpr double btuhPerTon = 12000;
  if (hasValue(heat)) {
    words += "; the coil leaves " + figure(sized_->value("CC", Parameter::db, site_)) + " deg F, " +
             figure(sized_->value("CC", Parameter::rh, site_)) + " % and removes " + figure(heat / btuhPerTon) +
             " tons";
  }
  return words;
}

Design Designer::design() {
  const bool shares = std::any_of(keys_.zones().begin(), keys_.zones().end(),
                                  [&](const std::string& zone) { return keys_.has(zone + ".min.share"); });
  const bool parts =
      keys_.hasAny("part") || std::any_of(keys_.zones().begin(), keys_.zones().end(),
                                          [&](const std::string& zone) { return keys_.hasAny(zone + ".part"); });
  Design design = solveWays();
  if (!design.errors.empty()) return design;
  sized_ = design.state;
  if (!parts && !shares) return design;
  partLoad_ = parts;
  std::vector<std::string> remarks = std::move(design.remarks);
  design = solveWays();
  remarks.push_back(sizedWords());
  design.remarks.insert(design.remarks.begin(), remarks.begin(), remarks.end());
  if (!design.errors.empty() && parts) design.errors.front() = design.errors.front().within("at part load");
  return design;
}

}  // namespace moistair
