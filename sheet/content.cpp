#include "sheet/content.h"

#include <cmath>
#include <utility>

#include "advice/remark.h"
#include "engine/moistair.h"
#include "model/airhandler.h"
#include "model/table.h"
#include "sheet/halving.h"
#include "sheet/steps.h"
#include "text/numbertext.h"
#include "text/value.h"

namespace moistair {

namespace {

/// Adds what an entry is to a content.
struct ContentWriter {
  SheetContent& content;
  const Setting& setting;
  std::size_t entry;                         ///< its place in the document
  const std::vector<const TableRow*>& rows;  ///< the entry's own

  void operator()(const HeaderLine&) const {}
  void operator()(const DrawnChart&) const {}
  void operator()(const AirHandler&) const {}

  void operator()(const PropertyLine& line) const {
    double value = 0;
    assign(value, strictNumber(line.value));
    content.lines.push_back({line.kind, value, setting.pressure.atm, entry});
  }

  void operator()(const MarkedPoint&) const { addStates(); }
  void operator()(const PinnedReading&) const {
    addStates();
    content.states.back().pinned = true;
  }

  void operator()(const MixingLine& line) const {
    const std::size_t first = content.states.size();
    addStates();
    const std::size_t number = content.mixtures.size() + 1;
    for (std::size_t i = first; i < content.states.size() && number > 1; ++i) {
      content.states[i].name += " (" + std::to_string(number) + ")";
    }
    const double one = lenientNumber(line.columns.at(0).moistRate);
    const double other = lenientNumber(line.columns.at(1).moistRate);
    content.mixtures.push_back({first, first + 1, first + 2, quotient(one, one + other)});
  }

  void addStates() const {
    for (const TableRow* row : rows) {
      const int number = static_cast<int>(content.states.size()) + 1;
      content.states.push_back({number, row->identification, row->properties, row->pressure, entry});
      content.states.back().missed = row->missed.any();
      const std::string words = remarkOn(row->missed, row->pressure, row->mixture).words;
      if (!words.empty()) content.notes.push_back(noted(content.states.back()) + words);
    }
  }

  static std::string noted(const SheetState& state) {
    return state.mark() + (' ' + std::to_string(state.number)) + (state.name.empty() ? "" : " ") + state.name + ": ";
  }
};

/// The yearly design conditions of a layer, behind the points of the document.
void addDesign(SheetContent& content, const WeatherLayer& layer, std::size_t entry) {
  for (const DesignCondition& condition : layer.design) {
    const StatePoint state = stateOf(condition, content.pressure.atm);
    if (condition.month > 0 || !hasValue(state.db)) continue;
    SheetState point{static_cast<int>(content.states.size()) + 1, nameOf(condition), {}, content.pressure.atm, entry};
    if (!condition.source.empty()) point.name += ", " + condition.source;
    for (const Property& property : propertyTable) {
      point.properties[columnOf(property.kind)] = valueOf(property, state, content.pressure.atm);
    }
    content.states.push_back(std::move(point));
  }
}

/// The elevation of a pressure [ft]; no value above that of the sea.
double elevationOf(double atm) {
  constexpr double slack = 0.0005;
  constexpr double highest = 145000;
  if (!(atm > psychro_atm(highest) && atm <= psychro_atm(0) + slack)) return noValue;
  return lastWith([&](double elevation) { return psychro_atm(elevation) >= atm - 1e-9; }, 0.0, highest);
}

std::string elevationText(const Pressure& pressure) {
  if (pressure.entry.unit == PressureUnit::elevation)
    return typeset(numberText(lenientNumber(pressure.entry.text))) + " ft";
  const double elevation = elevationOf(pressure.atm);
  if (!hasValue(elevation)) return {};
  return elevation < 1 ? "sea level" : typeset(elevation, 0) + " ft";
}

}  // namespace

SheetContent contentOf(const Document& document) {
  SheetContent content;
  content.limits = wholeChart;
  content.pressure = document.pressure;
  content.omitted = document.previous.size();
  if (document.zoneLayer.shown) content.zones = document.zoneLayer.zones;
  if (const Entry* chart = lastChart(document)) {
    content.limits = chart->setting.limits;
    content.pressure = chart->setting.pressure;
    content.families = std::get<DrawnChart>(chart->content).type == ChartType::standard;
  }
  if (auto airHandler = solvedAirHandler(document)) content.system = std::move(airHandler->system);
  const std::vector<TableRow> rows = tableRows(document);
  auto row = rows.begin();
  for (std::size_t i = 0; i < document.entries.size(); ++i) {
    std::vector<const TableRow*> own;
    for (; row != rows.end() && row->entry == i; ++row) own.push_back(&*row);
    const Entry& entry = document.entries[i];
    std::visit(ContentWriter{content, entry.setting, i, own}, entry.content);
  }
  if (document.weather) {
    content.weather = sheetWeatherOf(*document.weather, content.pressure.atm);
    if (document.weather->designPoints) addDesign(content, *document.weather, document.entries.size());
  }
  return content;
}

std::string pressureText(const Pressure& pressure) {
  std::string text = typeset(pressure.atm, 3) + " in Hg (" + typeset(pressure.atm * psiPerInhg, 3) + " psi)";
  if (!isOfEntry(pressure)) return text + ", out of range";  // used though the pressure window refused it
  const std::string elevation = elevationText(pressure);
  return elevation.empty() ? text : text + ", " + elevation;
}

std::string limitsText(const ChartLimits& limits) {
  return numberText(limits.lowDb) + " to " + numberText(limits.highDb) + " °F, " + typeset(limits.lowHr, 3) + " to " +
         typeset(limits.highHr, 3) + " lb/lb";
}

std::vector<std::string> typedTexts(const SheetContent& content) {
  std::vector<std::string> texts;
  for (const SheetState& state : content.states) texts.push_back(state.name);
  if (content.weather) texts.push_back(content.weather->layer.site);
  if (content.system)
    texts.insert(texts.end(), content.system->system.names.begin(), content.system->system.names.end());
  for (const Zone& zone : content.zones) {
    if (const auto* envelope = std::get_if<Envelope>(&zone))
      texts.insert(texts.end(), {envelope->name, envelope->title});
  }
  return texts;
}

}  // namespace moistair
