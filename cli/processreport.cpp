#include "cli/processreport.h"

#include <algorithm>

#include "model/jsonnode.h"
#include "text/numberformat.h"
#include "text/numbertext.h"
#include "text/tablefield.h"

namespace moistair {

namespace {

/// A number, without the sign of a zero; null for no value.
Json jsonValue(double number) { return hasValue(number) ? jsonNumber(number == 0 ? 0 : number) : Json(); }

Json statesJson(const SolvedSystem& solved) {
  Json states = Json::array();
  for (std::size_t stream = 0; stream < solved.system.names.size(); ++stream) {
    if (solved.system.names[stream].empty()) continue;
    Json state;
    state["name"] = solved.system.names[stream];
    const StreamReadout readout = readoutOf(solved.solution.streams[stream], solved.site);
    for (const StreamValue& value : streamValues) state[value.name] = jsonValue(readout.*value.value);
    const std::size_t step = stream / 2;
    // The step that a stream begins with is no process, so what is to be said of it is said here.
    if (!isProcess(solved.system.steps[step].kind)) {
      const std::vector<std::string> remarks = remarksOf(solved, step);
      if (!remarks.empty()) state["notes"] = remarks;
    }
    states.push_back(std::move(state));
  }
  return states;
}

Json processesJson(const SolvedSystem& solved) {
  Json processes = Json::array();
  for (std::size_t step = 0; step < solved.system.steps.size(); ++step) {
    const StepKind kind = solved.system.steps[step].kind;
    if (!isProcess(kind)) continue;
    const StepResult& result = solved.solution.results[step];
    Json process;
    process["name"] = solved.written.steps[step].name;
    process["kind"] = nameOf(kind);
    process["from"] = solved.written.steps[step].sources;
    for (std::size_t i = 0; i < stepValues.size(); ++i) {
      const double value = solved.solution.solved(step) ? result.*stepValues[i].value : noValue;
      if (i < loadValues || hasValue(value)) process[stepValues[i].name] = jsonValue(value);
    }
    process["notes"] = remarksOf(solved, step);
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

std::string asJson(const SolvedSystem& solved) {
  Json json;
  json["pressure"] = jsonNumber(solved.site.atm);
  if (!solved.unknowns.empty()) json["unknowns"] = unknownsJson(solved.unknowns);
  for (const auto& other : solved.others) json["others"].push_back(unknownsJson(other));
  if (!solved.remarks.empty()) json["remarks"] = solved.remarks;
  json["states"] = statesJson(solved);
  json["processes"] = processesJson(solved);
  Json& balances = json["balances"];
  Balances all;
  if (solved.solution.complete) all = balancesOf(solved.system, solved.site, solved.solution);
  const auto add = [&](const char* name, const Balance& balance) {
    balances[name] = solved.solution.complete ? jsonNumber(balance.error()) : Json();
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

std::string asCsv(const SolvedSystem& solved) {
  std::string out = "name,kind,from";
  for (const StreamValue& value : streamValues) out += std::string(",") + value.name;
  for (const StepValue& value : stepValues) out += std::string(",") + value.name;
  out += ",notes\n";
  for (std::size_t stream = 0; stream < solved.system.names.size(); ++stream) {
    if (solved.system.names[stream].empty()) continue;
    const std::size_t step = stream / 2;
    appendField(out, solved.system.names[stream]);
    out += std::string(",") + nameOf(solved.system.steps[step].kind) + ",";
    appendField(out, joined(solved.written.steps[step].sources, " "));
    const StreamReadout readout = readoutOf(solved.solution.streams[stream], solved.site);
    for (const StreamValue& value : streamValues) {
      out += ',';
      appendSevenDecimals(out, readout.*value.value);
    }
    const bool loads = stream == mainStream(step) && isProcess(solved.system.steps[step].kind);
    for (const StepValue& value : stepValues) {
      out += ',';
      if (loads && solved.solution.solved(step)) appendSevenDecimals(out, solved.solution.results[step].*value.value);
    }
    out += ',';
    if (stream == mainStream(step)) appendField(out, joined(remarksOf(solved, step), "; "));
    out += '\n';
  }
  return out;
}

}  // namespace moistair
