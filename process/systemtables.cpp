#include "process/systemtables.h"

#include <utility>

#include "process/words.h"
#include "text/numberformat.h"
#include "text/tablefield.h"

namespace moistair {

namespace {

SystemCell word(std::string text) { return {std::move(text)}; }
SystemCell number(double value) { return {{}, value}; }

/// What a step came to, or no value where it has no result.
struct LoadsOf {
  const SolvedSystem& solved;
  std::size_t step;

  bool any() const { return solved.hasResult(step); }
  const StepResult& result() const { return solved.solution.results[step]; }
  double value(double StepResult::*member) const { return any() ? result().*member : noValue; }
  /// With the sign of an equipment's load.
  double load(double StepResult::*member) const {
    const double sign = rowOf(solved.system.steps[step].kind).removesHeat ? -1 : 1;
    return any() && result().leaving.flowKnown() ? sign * value(member) + 0.0 : noValue;
  }
};

std::vector<SystemCell> equipmentRow(const SolvedSystem& solved, std::size_t step) {
  const LoadsOf outcome{solved, step};
  const CompiledStep& compiled = solved.system.steps[step];
  const bool enters = outcome.any() && compiled.sourceCount > 0;
  const Stream entering = enters ? solved.solution.streams[solved.system.sources[compiled.firstSource]] : Stream{};
  const StreamReadout in = readoutOf(entering, solved.site);
  const StreamReadout out = readoutOf(outcome.any() ? outcome.result().leaving : Stream{}, solved.site);
  const bool known = outcome.any() && outcome.result().leaving.flowKnown();
  const double total = outcome.load(&StepResult::total);
  const double water = known ? outcome.value(&StepResult::water) : noValue;
  return {word(solved.system.names[mainStream(step)]),
          word(nameOf(compiled.kind)),
          number(in.db),
          number(in.wb),
          number(out.db),
          number(out.wb),
          number(in.acfm),
          number(in.scfm),
          number(total / 1000),
          number(outcome.load(&StepResult::sensible) / 1000),
          number(total / btuhPerTon),
          number(outcome.value(&StepResult::shr)),
          number(outcome.value(&StepResult::adp)),
          number(outcome.value(&StepResult::bf)),
          number(known ? outcome.value(&StepResult::waterGpm) : noValue),
          number(water + 0.0),
          number(known ? outcome.value(&StepResult::power) : noValue)};
}

void appendCsv(std::string& out, const SystemTable& table) {
  const char* before = "";
  for (const SystemColumn& column : table.columns) {
    out += std::exchange(before, ",");
    appendField(out, column.head + (*column.unit != 0 ? std::string(" (") + column.unit + ")" : ""));
  }
  out += '\n';
  for (const auto& row : table.rows) {
    before = "";
    for (const SystemCell& cell : row) {
      out += std::exchange(before, ",");
      if (cell.text.empty()) {
        appendSevenDecimals(out, cell.value);
      } else {
        appendField(out, cell.text);
      }
    }
    out += '\n';
  }
}

}  // namespace

SystemTable stateTable(const SolvedSystem& solved) {
  SystemTable table{"States of the air handler",
                    {{"State", "", -1},
                     {"Dry bulb", "°F", 1},
                     {"Wet bulb", "°F", 1},
                     {"Rel. hum.", "%", 1},
                     {"Hum. ratio", "gr/lb", 1},
                     {"Enthalpy", "Btu/lb", 2},
                     {"Dew point", "°F", 1},
                     {"Volume", "cu ft/lb", 3},
                     {"Airflow", "acfm", 0}},
                    {}};
  for (std::size_t stream = 0; stream < solved.system.names.size(); ++stream) {
    if (solved.system.names[stream].empty()) continue;
    const bool any = solved.hasResult(stream / 2);
    const StreamReadout at = readoutOf(any ? solved.solution.streams[stream] : Stream{}, solved.site);
    table.rows.push_back({word(solved.system.names[stream]), number(at.db), number(at.wb), number(at.rh),
                          number(at.grains), number(at.h), number(at.dp), number(at.v), number(at.acfm)});
  }
  return table;
}

SystemTable equipmentTable(const SolvedSystem& solved) {
  SystemTable table{"Equipment schedule",
                    {{"Process", "", -1},
                     {"Kind", "", -1},
                     {"Ent. DB", "°F", 1},
                     {"Ent. WB", "°F", 1},
                     {"Lvg. DB", "°F", 1},
                     {"Lvg. WB", "°F", 1},
                     {"Airflow", "acfm", 0},
                     {"Airflow", "scfm", 0},
                     {"Total", "MBH", 1},
                     {"Sensible", "MBH", 1},
                     {"Total", "tons", 2},
                     {"SHR", "", 3},
                     {"ADP", "°F", 1},
                     {"BF", "", 3},
                     {"Water", "gpm", 1},
                     {"Moisture", "lb/h", 1},
                     {"Fan", "bhp", 2}},
                    {}};
  for (std::size_t step = 0; step < solved.system.steps.size(); ++step) {
    if (isProcess(solved.system.steps[step].kind)) table.rows.push_back(equipmentRow(solved, step));
  }
  return table;
}

std::vector<std::string> factorNotes(const Site& site) {
  const ClassicFactors factors = classicFactors(site);
  return {
      "Entering states and airflows are those of the first stream that a process takes. Heat of coils and coolers is "
      "heat removed; moisture is water given to the air.",
      "Rule-of-thumb factors at " + typeset(site.atm, 3) + " in Hg (dry air of 70 °F): sensible " +
          typeset(factors.sensible, 3) + " Btu/h per cfm and °F, latent " + typeset(factors.latent, 0) +
          " Btu/h per cfm and lb/lb, total " + typeset(factors.total, 3) + " Btu/h per cfm and Btu/lb."};
}

std::string systemCsv(const SolvedSystem& solved) {
  std::string out;
  appendCsv(out, stateTable(solved));
  out += '\n';
  appendCsv(out, equipmentTable(solved));
  return out;
}

}  // namespace moistair
