#include "cli/processreport.h"

#include <algorithm>
#include <cmath>

#include "model/jsonnode.h"
#include "process/words.h"
#include "text/numberformat.h"
#include "text/numbertext.h"
#include "text/tablefield.h"

namespace moistair {

namespace {

std::string tonsWords(const StepResult& result) {
  constexpr double btuhPerTon = 12000;
  const auto tons = [](double btuh) { return figure(std::abs(btuh) / btuhPerTon); };
  return tons(result.total) + " tons (" + tons(result.sensible) + " sensible, " + tons(result.latent) + " latent)";
}

void addRoomRatios(std::vector<std::string>& remarks, const ProcessReport& report, std::size_t step) {
  for (const RoomRatios& ratios : report.rooms) {
    if (ratios.room != step || ratios.coil < 0) continue;
    const std::string coil = report.written.steps[static_cast<std::size_t>(ratios.coil)].name;
    if (hasValue(ratios.grandShr)) remarks.push_back("grand SHR " + figure(ratios.grandShr) + ", of " + coil);
    if (hasValue(ratios.effectiveShr)) {
      remarks.push_back("effective SHR " + figure(ratios.effectiveShr) + ", with what of the outdoor air bypasses " +
                        coil);
    }
  }
}

/// Values that are of some kinds only and have no name in the results.
void addAmounts(std::vector<std::string>& remarks, StepKind kind, const StepResult& result) {
  const bool cools = kind == StepKind::cool || kind == StepKind::coil;
  const bool known = result.leaving.flowKnown();
  if (cools && known && !result.off) remarks.push_back(tonsWords(result));
  if (kind == StepKind::coil && known && result.condensate > 0) {
    remarks.push_back("condensate " + figure(result.condensateGpm()) + " gpm");
  }
  if (known && hasValue(result.waterGpm)) remarks.push_back("water through it " + figure(result.waterGpm) + " gpm");
  if (hasValue(result.effectiveness)) remarks.push_back("effectiveness " + figure(result.effectiveness));
  if (kind == StepKind::part && hasValue(result.share)) remarks.push_back("share " + figure(result.share));
  if (kind == StepKind::mix && hasValue(result.share)) {
    remarks.push_back("share of the first stream " + figure(result.share));
  }
}

}  // namespace

ProcessReport::ProcessReport(const AirSystem& written, const CompiledSystem& system, const Pressure& pressure)
    : written(written),
      system(system),
      pressure(pressure),
      site{.atm = pressure.atm},
      solution(solve(system, site)),
      rooms(roomRatiosOf(system, site, solution)) {}

ProcessReport::ProcessReport(const AirSystem& written, const CompiledSystem& system, const Pressure& pressure,
                             GoalAnswer answer)
    : written(written),
      system(system),
      pressure(pressure),
      site{.atm = pressure.atm},
      solution(std::move(answer.found.front().solution)),
      rooms(roomRatiosOf(system, site, solution)),
      unknowns(std::move(answer.found.front().unknowns)) {
  for (std::size_t i = 1; i < answer.found.size(); ++i) others.push_back(std::move(answer.found[i].unknowns));
}

std::string unknownWords(const UnknownValue& unknown) {
  const std::string unit = unitOf(rowOf(unknown.parameter).quantity);
  return unknown.name + ' ' + figure(unknown.value) + (unit.empty() ? "" : ' ' + unit);
}

Error errorOf(const ProcessReport& report, std::size_t step) {
  const int line = report.written.steps[step].line;
  const Error& error = report.solution.errors[step];
  return line > 0 ? error.within("line " + std::to_string(line)) : error;
}

std::vector<std::string> remarksOf(const ProcessReport& report, std::size_t step) {
  std::vector<std::string> remarks;
  if (!report.solution.solved(step)) {
    remarks.push_back("no result: " + report.solution.errors[step].words);
    return remarks;
  }
  const StepKind kind = report.system.steps[step].kind;
  const StepResult& result = report.solution.results[step];
  addAmounts(remarks, kind, result);
  if (kind == StepKind::room) addRoomRatios(remarks, report, step);
  for (std::string& note : noteWords(result)) remarks.push_back(std::move(note));
  for (const std::size_t stream : {mainStream(step), secondStream(step)}) {
    if (report.system.names[stream].empty()) continue;
    const std::string wetBulb = wordsOf(readoutOf(report.solution.streams[stream], report.site));
    if (!wetBulb.empty()) remarks.push_back(report.system.names[stream] + ": " + wetBulb);
  }
  if (isProcess(kind) && !result.leaving.flowKnown()) {
    const auto origin = static_cast<std::size_t>(result.leaving.origin);
    remarks.push_back("per lb of dry air of " + report.written.steps[origin].name + ", whose flow is not given");
  }
  return remarks;
}

namespace {

/// A number, without the sign of a zero; null for no value.
Json jsonValue(double number) { return hasValue(number) ? jsonNumber(number == 0 ? 0 : number) : Json(); }

Json statesJson(const ProcessReport& report) {
  Json states = Json::array();
  for (std::size_t stream = 0; stream < report.system.names.size(); ++stream) {
    if (report.system.names[stream].empty()) continue;
    Json state;
    state["name"] = report.system.names[stream];
    const StreamReadout readout = readoutOf(report.solution.streams[stream], report.site);
    for (const StreamValue& value : streamValues) state[value.name] = jsonValue(readout.*value.value);
    const std::size_t step = stream / 2;
    // The step that a stream begins with is no process, so what is to be said of it is said here.
    if (!isProcess(report.system.steps[step].kind)) {
      const std::vector<std::string> remarks = remarksOf(report, step);
      if (!remarks.empty()) state["notes"] = remarks;
    }
    states.push_back(std::move(state));
  }
  return states;
}

Json processesJson(const ProcessReport& report) {
  Json processes = Json::array();
  for (std::size_t step = 0; step < report.system.steps.size(); ++step) {
    const StepKind kind = report.system.steps[step].kind;
    if (!isProcess(kind)) continue;
    const StepResult& result = report.solution.results[step];
    Json process;
    process["name"] = report.written.steps[step].name;
    process["kind"] = nameOf(kind);
    process["from"] = report.written.steps[step].sources;
    for (std::size_t i = 0; i < stepValues.size(); ++i) {
      const double value = report.solution.solved(step) ? result.*stepValues[i].value : noValue;
      if (i < loadValues || hasValue(value)) process[stepValues[i].name] = jsonValue(value);
    }
    process["notes"] = remarksOf(report, step);
    processes.push_back(std::move(process));
  }
  return processes;
}

Json unknownsJson(const std::vector<UnknownValue>& unknowns) {
  Json json = Json::object();
  for (const UnknownValue& unknown : unknowns) json[unknown.name] = jsonValue(unknown.value);
  return json;
}

}  // namespace

std::string asJson(const ProcessReport& report) {
  Json json;
  json["pressure"] = jsonNumber(report.pressure.atm);
  if (!report.unknowns.empty()) json["unknowns"] = unknownsJson(report.unknowns);
  for (const auto& other : report.others) json["others"].push_back(unknownsJson(other));
  if (!report.remarks.empty()) json["remarks"] = report.remarks;
  json["states"] = statesJson(report);
  json["processes"] = processesJson(report);
  Json& balances = json["balances"];
  Balances all;
  if (report.solution.complete) all = balancesOf(report.system, report.site, report.solution);
  const auto add = [&](const char* name, const Balance& balance) {
    balances[name] = report.solution.complete ? jsonNumber(balance.error()) : Json();
  };
  add("air", all.air);
  add("water", all.water);
  add("energy", all.energy);
  return jsonText(json) + "\n";
}

namespace {

std::string joined(const std::vector<std::string>& words, const char* between) {
  std::string all;
  for (const std::string& word : words) all += (all.empty() ? "" : between) + word;
  return all;
}

}  // namespace

std::string asCsv(const ProcessReport& report) {
  std::string out = "name,kind,from";
  for (const StreamValue& value : streamValues) out += std::string(",") + value.name;
  for (const StepValue& value : stepValues) out += std::string(",") + value.name;
  out += ",notes\n";
  for (std::size_t stream = 0; stream < report.system.names.size(); ++stream) {
    if (report.system.names[stream].empty()) continue;
    const std::size_t step = stream / 2;
    appendField(out, report.system.names[stream]);
    out += std::string(",") + nameOf(report.system.steps[step].kind) + ",";
    appendField(out, joined(report.written.steps[step].sources, " "));
    const StreamReadout readout = readoutOf(report.solution.streams[stream], report.site);
    for (const StreamValue& value : streamValues) {
      out += ',';
      appendSevenDecimals(out, readout.*value.value);
    }
    const bool loads = stream == mainStream(step) && isProcess(report.system.steps[step].kind);
    for (const StepValue& value : stepValues) {
      out += ',';
      if (loads && report.solution.solved(step)) appendSevenDecimals(out, report.solution.results[step].*value.value);
    }
    out += ',';
    if (stream == mainStream(step)) appendField(out, joined(remarksOf(report, step), "; "));
    out += '\n';
  }
  return out;
}

}  // namespace moistair
