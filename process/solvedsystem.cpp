#include "process/solvedsystem.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "process/words.h"

namespace moistair {

namespace {

std::string tonsWords(const StepResult& result) {
  const auto tons = [](double btuh) { return figure(std::abs(btuh) / btuhPerTon); };
  return tons(result.total) + " tons (" + tons(result.sensible) + " sensible, " + tons(result.latent) + " latent)";
}

void addRoomRatios(std::vector<std::string>& remarks, const SolvedSystem& solved, std::size_t step) {
  for (const RoomRatios& ratios : solved.rooms) {
    if (ratios.room != step || ratios.coil < 0) continue;
    const std::string coil = solved.written.steps[static_cast<std::size_t>(ratios.coil)].name;
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

void append(std::vector<Error>& to, std::vector<Error> from) {
  to.insert(to.end(), std::make_move_iterator(from.begin()), std::make_move_iterator(from.end()));
}

void take(SolvedSystem& solved, GoalSolution solution) {
  solved.solution = std::move(solution.solution);
  solved.unknowns = std::move(solution.unknowns);
  solved.values = std::move(solution.values);
}

void take(SolvedSystem& solved, GoalAnswer answer) {
  take(solved, std::move(answer.found.front()));
  for (std::size_t i = 1; i < answer.found.size(); ++i) solved.others.push_back(std::move(answer.found[i].unknowns));
}

/// Solves what is open; what can be worked out without it remains where there is no solution.
void solveOpen(SolvedSystem& solved, const GoalProblem& problem, const std::vector<double>* near) {
  GoalSolution start;
  if (near != nullptr && near->size() == problem.variables.size()) {
    start.values = *near;
    if (solveNear(problem, solved.site, start)) return take(solved, std::move(start));
  }
  GoalAnswer answer = solveGoals(problem, solved.site);
  if (answer.found.empty()) {
    solved.errors = std::move(answer.errors);
    solved.solution = solve(solved.system, solved.site);
    return;
  }
  take(solved, std::move(answer));
}

}  // namespace

SolvedSystem solvedSystem(const SystemText& text, CompiledSystem system, const Site& site, GoalAnswer answer) {
  SolvedSystem solved;
  solved.written = text.system;
  solved.goals = text.goals;
  solved.system = std::move(system);
  solved.site = site;
  solved.understood = true;
  take(solved, std::move(answer));
  solved.rooms = roomRatiosOf(solved.system, site, solved.solution);
  return solved;
}

SolvedSystem solvedSystem(const SystemText& text, const Site& site, const std::vector<double>* near) {
  SolvedSystem solved;
  solved.written = text.system;
  solved.goals = text.goals;
  solved.site = site;
  Compilation compilation = compile(text.system);
  solved.errors = std::move(compilation.errors);
  append(solved.errors, checkGoals(text));
  if (!solved.errors.empty()) return solved;
  solved.system = std::move(compilation.system);
  if (solved.system.tears.empty() && solved.system.unknowns.empty() && text.goals.empty()) {
    solved.understood = true;
    solved.solution = solve(solved.system, site);
  } else {
    const GoalPreparation preparation = prepare(solved.system, text.goals);
    solved.errors = preparation.errors;
    solved.understood = preparation.errors.empty();
    if (solved.understood) {
      solveOpen(solved, preparation.problem, near);
    } else {
      solved.solution = solve(solved.system, site);
    }
  }
  solved.rooms = roomRatiosOf(solved.system, site, solved.solution);
  return solved;
}

std::vector<Error> failures(const SolvedSystem& solved) {
  std::vector<Error> errors;
  for (const std::size_t step : solved.system.order) {
    if (solved.solution.solved(step) || solved.solution.errors[step].code == ErrorCode::waiting) continue;
    errors.push_back(errorOf(solved, step));
  }
  return errors;
}

std::string unknownWords(const UnknownValue& unknown) {
  const std::string unit = unitOf(rowOf(unknown.parameter).quantity);
  return unknown.name + ' ' + figure(unknown.value) + (unit.empty() ? "" : ' ' + unit);
}

Error errorOf(const SolvedSystem& solved, std::size_t step) {
  const int line = solved.written.steps[step].line;
  const Error& error = solved.solution.errors[step];
  return line > 0 ? error.within("line " + std::to_string(line)) : error;
}

std::vector<std::string> remarksOf(const SolvedSystem& solved, std::size_t step) {
  std::vector<std::string> remarks;
  if (!solved.solution.solved(step)) {
    remarks.push_back("no result: " + solved.solution.errors[step].words);
    return remarks;
  }
  const StepKind kind = solved.system.steps[step].kind;
  const StepResult& result = solved.solution.results[step];
  addAmounts(remarks, kind, result);
  if (kind == StepKind::room) addRoomRatios(remarks, solved, step);
  for (std::string& note : noteWords(result)) remarks.push_back(std::move(note));
  for (const std::size_t stream : {mainStream(step), secondStream(step)}) {
    if (solved.system.names[stream].empty()) continue;
    const std::string wetBulb = wordsOf(readoutOf(solved.solution.streams[stream], solved.site));
    if (!wetBulb.empty()) remarks.push_back(solved.system.names[stream] + ": " + wetBulb);
  }
  if (isProcess(kind) && !result.leaving.flowKnown()) {
    const auto origin = static_cast<std::size_t>(result.leaving.origin);
    remarks.push_back("per lb of dry air of " + solved.written.steps[origin].name + ", whose flow is not given");
  }
  return remarks;
}

}  // namespace moistair
