#include "advice/statustexts.h"

#include <algorithm>

namespace moistair {

namespace {

constexpr const char* currentSuffix = " in force";
constexpr const char* headerSays = "header says ";
constexpr const char* drawnAt = "drawn at ";
constexpr const char* noChart = "No chart";

/// The chart that has these limits, null if it has been cleared since.
const Entry* chartWith(const Document& document, const ChartLimits& limits) {
  const auto found = std::find_if(document.entries.rbegin(), document.entries.rend(), [&](const Entry& entry) {
    return std::holds_alternative<DrawnChart>(entry.content) && entry.setting.limits == limits;
  });
  return found == document.entries.rend() ? nullptr : &*found;
}

const char* typeWords(const Entry* chart) {
  if (chart == nullptr) return "Nothing drawn";
  return std::get<DrawnChart>(chart->content).type == ChartType::blank ? "Blank chart" : "Standard chart";
}

std::string limitsWords(const ChartLimits& limits) {
  return numberText(limits.lowDb) + " to " + numberText(limits.highDb) + " Deg F, " + numberText(limits.lowHr) +
         " to " + fixedDecimals(limits.highHr, 3);
}

std::array<bool, 4> changedLists(const LimitTexts& lists, const ChartLimits& limits) {
  return {strictNumber(lists.lowDb) != limits.lowDb, strictNumber(lists.highDb) != limits.highDb,
          strictNumber(lists.lowHr) != limits.lowHr, strictNumber(lists.highHr) != limits.highHr};
}

}  // namespace

StatusTexts statusTextsOf(const Document& document, const LimitTexts& lists) {
  const double atm = document.atm();
  StatusTexts statusTexts;
  const Pressure& set = document.pressure;
  const std::string header = entryWords(set);
  statusTexts.pressure = inhgWords(atm);
  if (!samePressure(atm, set.atm)) {
    statusTexts.pressure += currentSuffix;
    statusTexts.header = headerSays + header;
  } else if (header != statusTexts.pressure) {
    statusTexts.pressure += ", " + header;
  }
  const auto limits = currentLimits(document);
  if (!limits) {
    statusTexts.chart = noChart;
    return statusTexts;
  }
  statusTexts.changed = changedLists(lists, *limits);
  const Entry* chart = chartWith(document, *limits);
  statusTexts.chart = std::string(typeWords(chart)) + ", " + header + ", " + limitsWords(*limits);
  const bool change =
      std::find(statusTexts.changed.begin(), statusTexts.changed.end(), true) != statusTexts.changed.end();
  if (change) statusTexts.changes = limitsChanged;
  if (chart != nullptr && !samePressure(chart->setting.pressure.atm, set.atm)) {
    if (change) statusTexts.changes += "; ";
    statusTexts.changes += drawnAt + inhgWords(chart->setting.pressure.atm);
  }
  return statusTexts;
}

std::string recordsWords(std::size_t records) {
  if (records == 0) return "no records";
  return std::to_string(records) + (records == 1 ? " record" : " records");
}

std::array<bool, 4> emptyLines(const Document& document) {
  constexpr WindowSize anySize{15000, 10000};  // which lines cross the chart does not depend on it
  std::array<bool, 4> drawn{true, true, true, false};
  const auto limits = currentLimits(document);
  if (!limits) return drawn;
  for (std::size_t kind = 0; kind < drawn.size(); ++kind) {
    RecordingCanvas canvas;
    drawn[kind] = drawLine({canvas, plotArea(*limits, anySize), document.atm()}, static_cast<LineKind>(kind), {});
  }
  return drawn;
}

}  // namespace moistair
