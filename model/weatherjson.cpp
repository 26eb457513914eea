#include "model/weatherjson.h"

#include <array>
#include <cmath>

#include "model/documentnames.h"
#include "text/value.h"

namespace moistair {

namespace {

constexpr std::array<Name<WeatherShow>, 3> showNames = {
    {{WeatherShow::density, "density"}, {WeatherShow::byMonth, "months"}, {WeatherShow::byHour, "hours"}}};
constexpr std::array<Name<DesignBasis>, 6> basisNames = {
    {{DesignBasis::heatingDryBulb, "heating dry bulb"},
     {DesignBasis::humidificationDewPoint, "humidification dew point"},
     {DesignBasis::coolingDryBulb, "cooling dry bulb"},
     {DesignBasis::wetBulb, "cooling wet bulb"},
     {DesignBasis::dewPoint, "dehumidification dew point"},
     {DesignBasis::enthalpy, "cooling enthalpy"}}};

constexpr std::array<Name<TableUnits>, 3> unitsNames = {
    {{TableUnits::byHeads, "by heads"}, {TableUnits::fahrenheit, "F"}, {TableUnits::celsius, "C"}}};

template <class Value, std::size_t size>
Value named(const JsonNode& node, const std::array<Name<Value>, size>& names) {
  for (const Name<Value>& name : names) {
    if (node.text() == name.name) return name.value;
  }
  node.fail("is not a name that is known here");
}

/// A number within a range, ends included.
double within(const JsonNode& node, double low, double high) {
  const double number = node.number();
  if (!(number >= low && number <= high)) node.fail("is out of range");
  return number;
}

int wholeWithin(const JsonNode& node, int low, int high) {
  const double number = within(node, low, high);
  if (number != std::floor(number)) node.fail("must be a whole number");
  return static_cast<int>(number);
}

constexpr double mostHours = 1e9;
constexpr int mostCells = 100000;  // from the origin, in either direction

Json jsonOf(const DesignCondition& condition) {
  Json json = {{"basis", nameOf(basisNames, condition.basis)},
               {"percent", jsonNumber(condition.percent)},
               {"month", condition.month},
               {"db", jsonNumber(condition.db)},
               {"source", condition.source}};
  if (condition.second) json[nameOf(condition.second->kind)] = jsonNumber(condition.second->value);
  return json;
}

DesignCondition designOf(const JsonNode& node) {
  node.onlyKeys({"basis", "percent", "month", "db", "source", "wb", "dp", "w", "h"});
  DesignCondition condition;
  condition.basis = named(node.at("basis"), basisNames);
  condition.percent = within(node.at("percent"), 0, 100);
  condition.month = wholeWithin(node.at("month"), 0, 12);
  condition.db = within(node.at("db"), -200, 300);
  condition.source = node.at("source").text();
  using enum PropertyKind;
  for (const PropertyKind kind : {wb, dp, w, h}) {
    if (const auto value = node.find(nameOf(kind))) condition.second = Given{kind, within(*value, -500, 1000)};
  }
  return condition;
}

}  // namespace

Json jsonOf(const WeatherLayer& layer) {
  Json cells = Json::array();
  for (const WeatherCell& cell : layer.cells) cells.push_back({cell.column, cell.row, jsonNumber(cell.hours)});
  Json bins = Json::array();
  for (const Bin& bin : layer.bins) {
    bins.push_back({jsonNumber(bin.from), jsonNumber(bin.to), jsonNumber(bin.hours), jsonNumber(bin.mcwb)});
  }
  Json columns = Json::array();
  for (const auto& [key, head] : layer.columns.named) columns.push_back({key, head});
  Json design = Json::array();
  for (const DesignCondition& condition : layer.design) design.push_back(jsonOf(condition));
  return {{"file", jsonOfPath(layer.file)},
          {"checksum", layer.checksum},
          {"site", layer.site},
          {"show", nameOf(showNames, layer.show)},
          {"months", layer.filter.months},
          {"hoursofday", {layer.filter.fromHour, layer.filter.toHour}},
          {"columns", columns},
          {"units", nameOf(unitsNames, layer.columns.units)},
          {"counts", layer.counts},
          {"designpoints", layer.designPoints},
          {"inhg", jsonNumber(layer.atm)},
          {"hours", jsonNumber(layer.hours)},
          {"cellsize", {jsonNumber(layer.size.db), jsonNumber(layer.size.w)}},
          {"cells", cells},
          {"bins", bins},
          {"design", design}};
}

WeatherLayer weatherOf(const JsonNode& node) {
  node.onlyKeys({"file", "checksum", "site", "show", "months", "hoursofday", "columns", "units", "counts",
                 "designpoints", "inhg", "hours", "cellsize", "cells", "bins", "design"});
  WeatherLayer layer;
  layer.file = pathOf(node.at("file"));
  layer.checksum = node.at("checksum").text();
  layer.site = node.at("site").text();
  layer.show = named(node.at("show"), showNames);
  layer.filter.months = static_cast<std::uint16_t>(wholeWithin(node.at("months"), 0, 0xFFF));
  const std::vector<JsonNode> ofDay = node.at("hoursofday").elements("hour");
  if (ofDay.size() != 2) node.at("hoursofday").fail("must be two hours");
  layer.filter.fromHour = wholeWithin(ofDay[0], 0, 24);
  layer.filter.toHour = wholeWithin(ofDay[1], 0, 24);
  for (const JsonNode& column : node.at("columns").elements("column")) {
    const std::vector<JsonNode> parts = column.elements("text");
    if (parts.size() != 2) column.fail("must be a property and a head");
    layer.columns.named.push_back({parts[0].text(), parts[1].text()});
  }
  layer.columns.units = named(node.at("units"), unitsNames);
  layer.counts = node.at("counts").flag();
  layer.designPoints = node.at("designpoints").flag();
  layer.atm = within(node.at("inhg"), 1, 200);
  layer.hours = within(node.at("hours"), 0, mostHours);
  const std::vector<JsonNode> size = node.at("cellsize").elements("side");
  if (size.size() != 2) node.at("cellsize").fail("must be two sides");
  layer.size = {within(size[0], 0.1, 100), within(size[1], 1e-5, 0.1)};
  for (const JsonNode& cell : node.at("cells").elements("cell")) {
    const std::vector<JsonNode> parts = cell.elements("number");
    if (parts.size() != 3) cell.fail("must be a column, a row and hours");
    layer.cells.push_back({wholeWithin(parts[0], -mostCells, mostCells), wholeWithin(parts[1], -mostCells, mostCells),
                           within(parts[2], 0, mostHours)});
  }
  for (const JsonNode& bin : node.at("bins").elements("bin")) {
    const std::vector<JsonNode> parts = bin.elements("number");
    if (parts.size() != 4) bin.fail("must be two dry bulbs, hours and a wet bulb");
    layer.bins.push_back({within(parts[0], -500, 1000), within(parts[1], -500, 1000), within(parts[2], 0, mostHours),
                          parts[3].isNull() ? noValue : within(parts[3], -500, 1000)});
  }
  for (const JsonNode& condition : node.at("design").elements("condition")) layer.design.push_back(designOf(condition));
  return layer;
}

}  // namespace moistair
