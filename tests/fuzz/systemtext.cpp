// Any bytes as a system of processes: what is read is written so that it reads the same, every system that compiles is
// run to an end, and what has a result closes its balances.
#include "must.h"

#include "process/readout.h"
#include "process/systemtext.h"
#include "text/utf8.h"

using namespace moistair;
using fuzz::must;

namespace {

void checkErrors(const std::vector<Error>& errors) {
  for (const Error& error : errors) must(!error.words.empty() && !error.place.empty());
}

void checkSame(const SystemText& one, const SystemText& other) {
  must(one.system.steps.size() == other.system.steps.size() && one.goals.size() == other.goals.size());
  for (std::size_t i = 0; i < one.system.steps.size(); ++i) must(sameStep(one.system.steps[i], other.system.steps[i]));
  for (std::size_t i = 0; i < one.goals.size(); ++i) {
    const Goal &goal = one.goals[i], &again = other.goals[i];
    must(goal.name == again.name && goal.parameter == again.parameter && goal.value == again.value);
  }
}

void checkWritten(const SystemText& text) {
  checkSame(readSystem(textOf(text)).text, text);
  std::string lines;
  for (const ProcessStep& step : text.system.steps) lines += lineOf(step) + "\n";
  for (const Goal& goal : text.goals) lines += lineOf(goal) + "\n";
  must(isUtf8(lines));
  const ReadSystem again = readSystem(lines);
  must(again.errors.empty());
  checkSame(again.text, text);
}

void checkRun(const CompiledSystem& system, double atm) {
  const Site site{.atm = atm};
  const Solution solution = solve(system, site);
  for (std::size_t i = 0; i < system.steps.size(); ++i) {
    must(solution.solved(i) == hasValue(solution.streams[mainStream(i)].state.db));
    if (solution.solved(i)) readoutOf(solution.streams[mainStream(i)], site);
  }
  if (!solution.complete) return;
  const Balances balances = balancesOf(system, site, solution);
  for (const Balance* balance : {&balances.air, &balances.water, &balances.energy}) must(balance->error() < 1e-9);
  roomRatiosOf(system, site, solution);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const ReadSystem read = readSystem(fuzz::textOf(data, size));
  checkErrors(read.errors);
  checkWritten(read.text);
  checkErrors(checkGoals(read.text));
  const Compilation compilation = compile(read.text.system);
  checkErrors(compilation.errors);
  if (!compilation.errors.empty()) return 0;
  must(circleWords(compilation.system).empty() == compilation.system.tears.empty());
  if (compilation.system.tears.empty()) {
    for (const double atm : {defaultPressure, 5.906, 147.65}) checkRun(compilation.system, atm);
  }
  return 0;
}
