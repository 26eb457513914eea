// The table to read: states, processes, balances, in lines of 80 characters.
#include <algorithm>
#include <array>

#include "cli/format.h"
#include "cli/processreport.h"
#include "process/words.h"
#include "text/numbertext.h"

namespace moistair {

namespace {

constexpr std::size_t lineWidth = 80;
constexpr std::size_t nameWidth = 11;

/// Appends a text and the blanks before it; at least one, if it is too long.
void appendRight(std::string& out, const std::string& text, std::size_t width) {
  out.append(text.size() < width ? width - text.size() : 1, ' ');
  out += text;
}

/// A number with so many decimals, and no point behind a whole one; a dash for no value.
std::string decimalText(double number, int decimals) {
  std::string text = hasValue(number) ? fixedDecimals(number, decimals) : "-";
  if (text.ends_with('.')) text.pop_back();
  return text;
}

/// Appends a number with as many of the decimals as there is room for.
void appendNumber(std::string& out, double number, int decimals, std::size_t width) {
  std::string text = decimalText(number, decimals);
  while (text.size() >= width && decimals > 0) text = decimalText(number, --decimals);
  appendRight(out, text, width);
}

/// Appends a name and blanks behind it. A long one gets a line of its own.
void appendName(std::string& out, const std::string& name, std::size_t width = nameWidth) {
  appendPadded(out, name, width);
  if (name.size() >= width) out += "\n" + std::string(width, ' ');
}

/// Appends remarks behind the names, broken between words.
void appendRemarks(std::string& out, const std::vector<std::string>& remarks) {
  std::string line;
  const auto flush = [&] {
    if (!line.empty()) out += std::string(nameWidth, ' ') + line + "\n";
    line.clear();
  };
  for (std::size_t i = 0; i < remarks.size(); ++i) {
    std::string_view rest = remarks[i];
    while (!rest.empty()) {
      const std::size_t end = std::min(rest.find(' '), rest.size());
      const bool last = end == rest.size();
      const std::string word = std::string(rest.substr(0, end)) + (last && i + 1 < remarks.size() ? ";" : "");
      if (!line.empty() && nameWidth + line.size() + 1 + word.size() > lineWidth) flush();
      line += (line.empty() ? "" : " ") + word;
      rest.remove_prefix(std::min(end + 1, rest.size()));
    }
  }
  flush();
}

struct StateColumn {
  const char* name;
  const char* unit;
  double StreamReadout::*value;
  int decimals;
  std::size_t width;
};

constexpr std::array<StateColumn, 9> stateColumns = {{
    {"db", "deg F", &StreamReadout::db, 2, 7},
    {"wb", "deg F", &StreamReadout::wb, 2, 7},
    {"rh", "%", &StreamReadout::rh, 1, 6},
    {"w", "lb/lb", &StreamReadout::w, 5, 8},
    {"h", "Btu/lb", &StreamReadout::h, 2, 7},
    {"dp", "deg F", &StreamReadout::dp, 2, 7},
    {"v", "cuf/lb", &StreamReadout::v, 3, 7},
    {"lbh", "lb/h", &StreamReadout::lbh, 1, 10},
    {"acfm", "cuf/min", &StreamReadout::acfm, 1, 10},
}};
constexpr std::size_t flowColumns = 2;  ///< the last ones

bool hasFlow(const StepResult& result) { return result.leaving.flowKnown() && hasValue(result.leaving.flow); }

bool anyFlow(const SolvedSystem& solved) {
  return std::any_of(solved.solution.results.begin(), solved.solution.results.end(), hasFlow);
}

void appendStates(std::string& out, const SolvedSystem& solved) {
  const std::size_t columns = stateColumns.size() - (anyFlow(solved) ? 0 : flowColumns);
  appendName(out, "State");
  for (std::size_t i = 0; i < columns; ++i) appendRight(out, stateColumns[i].name, stateColumns[i].width);
  out += '\n' + std::string(nameWidth, ' ');
  for (std::size_t i = 0; i < columns; ++i) appendRight(out, stateColumns[i].unit, stateColumns[i].width);
  out += '\n';
  for (std::size_t stream = 0; stream < solved.system.names.size(); ++stream) {
    if (solved.system.names[stream].empty()) continue;
    appendName(out, solved.system.names[stream]);
    const StreamReadout readout = readoutOf(solved.solution.streams[stream], solved.site);
    for (std::size_t i = 0; i < columns; ++i) {
      appendNumber(out, readout.*stateColumns[i].value, stateColumns[i].decimals, stateColumns[i].width);
    }
    out += '\n';
    const std::size_t step = stream / 2;
    if (!isProcess(solved.system.steps[step].kind)) appendRemarks(out, remarksOf(solved, step));
  }
}

constexpr std::size_t kindWidth = 10, fromWidth = 14;
constexpr std::array<std::size_t, loadValues> loadWidths = {12, 12, 11, 10};

void appendProcess(std::string& out, const SolvedSystem& solved, std::size_t step) {
  const StepResult& result = solved.solution.results[step];
  std::vector<std::string> remarks;
  std::string sources;
  for (const std::string& source : solved.written.steps[step].sources) {
    sources += (sources.empty() ? "" : " ") + source;
  }
  appendName(out, solved.written.steps[step].name);
  appendPadded(out, nameOf(solved.system.steps[step].kind), kindWidth);
  if (sources.size() >= fromWidth) remarks.push_back("from " + sources);
  appendPadded(out, sources.size() < fromWidth ? sources : "", fromWidth);
  const bool hasResult = solved.hasResult(step);
  const bool known = result.leaving.flowKnown();
  for (std::size_t i = 0; i < loadValues; ++i) {
    const bool water = stepValues[i].value == &StepResult::water;
    const int decimals = known ? (water ? 2 : 0) : (water ? 5 : 3);
    appendNumber(out, hasResult ? result.*stepValues[i].value : noValue, decimals, loadWidths[i]);
  }
  out += '\n';
  for (std::size_t i = loadValues; hasResult && i < stepValues.size(); ++i) {
    const double value = result.*stepValues[i].value;
    if (!hasValue(value)) continue;
    const char* unit = "";
    if (stepValues[i].value == &StepResult::adp) unit = " deg F";
    if (stepValues[i].value == &StepResult::power) unit = known ? " hp" : " hp per lb/h";
    remarks.push_back(stepValues[i].name + (" " + figure(value)) + unit);
  }
  for (std::string& remark : remarksOf(solved, step)) remarks.push_back(std::move(remark));
  appendRemarks(out, remarks);
}

void appendProcesses(std::string& out, const SolvedSystem& solved) {
  const auto& steps = solved.system.steps;
  if (std::none_of(steps.begin(), steps.end(), [](const CompiledStep& step) { return isProcess(step.kind); })) return;
  const bool known = anyFlow(solved);
  std::string heads;
  appendName(heads, "Process");
  appendPadded(heads, "kind", kindWidth);
  appendPadded(heads, "from", fromWidth);
  std::string units(heads.size(), ' ');
  for (std::size_t i = 0; i < loadValues; ++i) {
    const bool water = stepValues[i].value == &StepResult::water;
    appendRight(heads, stepValues[i].name, loadWidths[i]);
    appendRight(units, water ? (known ? "lb/h" : "lb/lb") : (known ? "Btu/h" : "Btu/lb"), loadWidths[i]);
  }
  out += "\n" + heads + "\n" + units + "\n";
  for (std::size_t step = 0; step < steps.size(); ++step) {
    if (isProcess(steps[step].kind)) appendProcess(out, solved, step);
  }
}

void appendBalances(std::string& out, const SolvedSystem& solved) {
  const Balances all = balancesOf(solved.system, solved.site, solved.solution);
  const bool known = anyFlow(solved);
  constexpr std::size_t unitWidth = 8, termWidth = 15, errorWidth = 16;
  constexpr double rounding = 1e-12;  // what doubles leave, which differs from machine to machine
  out += "\n";
  appendName(out, "Balance");
  out.append(unitWidth, ' ');
  for (const char* head : {"entering", "added", "leaving"}) appendRight(out, head, termWidth);
  appendRight(out, "closes within", errorWidth);
  out += '\n';
  const auto add = [&](const char* name, const char* unit, const Balance& balance, int decimals) {
    appendName(out, name);
    appendPadded(out, unit, unitWidth);
    for (const double term : {balance.entering, balance.added, balance.leaving}) {
      appendNumber(out, term, decimals, termWidth);
    }
    appendRight(out, balance.error() < rounding ? "rounding" : figure(balance.error()), errorWidth);
    out += '\n';
  };
  add("dry air", known ? "lb/h" : "lb/lb", all.air, known ? 2 : 5);
  add("water", known ? "lb/h" : "lb/lb", all.water, known ? 2 : 5);
  add("energy", known ? "Btu/h" : "Btu/lb", all.energy, known ? 0 : 3);
  if (known && !std::all_of(solved.solution.results.begin(), solved.solution.results.end(), hasFlow)) {
    appendRemarks(out, {"streams without a flow are not counted"});
  }
  if (all.wetBulbTerm != 0) {
    appendRemarks(out, {figure(all.wetBulbTerm) + (known ? " Btu/h" : " Btu/lb") +
                        " of the energy added is what the wet-bulb equation leaves open"});
  }
}

/// What was solved for, and what else would do.
void appendUnknowns(std::string& out, const SolvedSystem& solved) {
  const auto append = [&](const char* name, const std::vector<UnknownValue>& unknowns) {
    std::vector<std::string> words;
    for (const UnknownValue& unknown : unknowns) words.push_back(unknownWords(unknown));
    out += '\n' + std::string(name) + '\n';
    appendRemarks(out, words);
  };
  if (!solved.unknowns.empty()) append("Solved for", solved.unknowns);
  for (const auto& other : solved.others) append("Another solution", other);
}

void appendFactors(std::string& out, const SolvedSystem& solved) {
  const ClassicFactors factors = classicFactors(solved.site);
  out += "\nClassic factors at this pressure (dry air of 70 deg F): " + fixedDecimals(factors.sensible, 3) +
         " sensible,\n" + std::string(nameWidth, ' ') + decimalText(factors.latent, 0) + " latent, " +
         fixedDecimals(factors.total, 3) + " total\n";
}

}  // namespace

std::string asTable(const SolvedSystem& solved, const Pressure& pressure) {
  std::string out = "Pressure " + inhgWords(pressure.atm);
  const std::string entered = entryWords(pressure);
  if (entered != inhgWords(pressure.atm)) out += " (" + entered + ")";
  out += "\n\n";
  appendRemarks(out, solved.remarks);
  if (!solved.remarks.empty()) out += "\n";
  appendStates(out, solved);
  appendProcesses(out, solved);
  appendUnknowns(out, solved);
  const auto off = std::count_if(solved.solution.results.begin(), solved.solution.results.end(),
                                 [](const StepResult& result) { return result.off; });
  if (off > 0) out += "\n" + std::to_string(off) + (off == 1 ? " step is" : " steps are") + " off\n";
  if (solved.solution.complete && !solved.system.steps.empty()) appendBalances(out, solved);
  appendFactors(out, solved);
  return out;
}

}  // namespace moistair
