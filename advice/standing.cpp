#include "advice/standing.h"

#include <algorithm>

namespace moistair {

namespace {

constexpr const char* inforce = " in force";
constexpr const char* headersays = "header says ";
constexpr const char* drawnat = "drawn at ";
constexpr const char* nochart = "No chart";

/// The chart that has these limits, null if it has been cleared since.
const Entry* chartwith(const Document& document, const ChartLimits& limits) {
  const auto found = std::find_if(document.entries.rbegin(), document.entries.rend(), [&](const Entry& entry) {
    return std::holds_alternative<DrawnChart>(entry.content) && entry.setting.limits == limits;
  });
  return found == document.entries.rend() ? nullptr : &*found;
}

const char* typewords(const Entry* chart) {
  if (chart == nullptr) return "Nothing drawn";
  return std::get<DrawnChart>(chart->content).type == ChartType::blank ? "Blank chart" : "Standard chart";
}

std::string limitswords(const ChartLimits& limits) {
  return numbertext(limits.lowdb) + " to " + numbertext(limits.highdb) + " Deg F, " + numbertext(limits.lowhr) +
         " to " + fixeddecimals(limits.highhr, 3);
}

std::array<bool, 4> changedlists(const LimitTexts& lists, const ChartLimits& limits) {
  return {strictnumber(lists.lowdb) != limits.lowdb, strictnumber(lists.highdb) != limits.highdb,
          strictnumber(lists.lowhr) != limits.lowhr, strictnumber(lists.highhr) != limits.highhr};
}

}  // namespace

Standing standingof(const Document& document, double atm, const LimitTexts& lists) {
  Standing standing;
  const Pressure& set = document.pressure;
  const std::string header = entrywords(set);
  standing.pressure = inhgwords(atm);
  if (!samepressure(atm, set.atm)) {
    standing.pressure += inforce;
    standing.header = headersays + header;
  } else if (header != standing.pressure) {
    standing.pressure += ", " + header;
  }
  const auto limits = standinglimits(document);
  if (!limits) {
    standing.chart = nochart;
    return standing;
  }
  standing.changed = changedlists(lists, *limits);
  const Entry* chart = chartwith(document, *limits);
  standing.chart = std::string(typewords(chart)) + ", " + header + ", " + limitswords(*limits);
  const bool change = std::find(standing.changed.begin(), standing.changed.end(), true) != standing.changed.end();
  if (change) standing.changes = limitschanged;
  if (chart != nullptr && !samepressure(chart->setting.pressure.atm, set.atm)) {
    if (change) standing.changes += "; ";
    standing.changes += drawnat + inhgwords(chart->setting.pressure.atm);
  }
  return standing;
}

std::string recordswords(std::size_t records) {
  if (records == 0) return "no records";
  return std::to_string(records) + (records == 1 ? " record" : " records");
}

std::array<bool, 4> emptylines(const Document& document, double atm) {
  constexpr WindowSize anysize{15000, 10000};  // which lines cross the chart does not depend on it
  std::array<bool, 4> drawn{true, true, true, false};
  const auto limits = standinglimits(document);
  if (!limits) return drawn;
  for (std::size_t kind = 0; kind < drawn.size(); ++kind) {
    RecordingCanvas canvas;
    drawn[kind] = drawline({canvas, plotarea(*limits, anysize), atm}, static_cast<LineKind>(kind), {});
  }
  return drawn;
}

}  // namespace moistair
