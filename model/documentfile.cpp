// How a document is written.
#include "model/documentfile.h"

#include <algorithm>
#include <array>
#include <utility>

#include "model/documentnames.h"
#include "model/jsonnode.h"
#include "model/weatherjson.h"
#include "model/zonejson.h"

namespace moistair {

namespace {

Json jsonOf(const Pressure& pressure) {
  const auto& [entry, atm] = pressure;
  return {{"unit", entry.unit ? Json(nameOf(unitNames, *entry.unit)) : Json()},
          {"entry", entry.text},
          {"inhg", jsonNumber(atm)}};
}

Json jsonOf(const ChartLimits& limits) {
  return Json::array(
      {jsonNumber(limits.lowDb), jsonNumber(limits.highDb), jsonNumber(limits.lowHr), jsonNumber(limits.highHr)});
}

Json givenOf(PropertyKind kind1, const std::string& value1, PropertyKind kind2, const std::string& value2) {
  return {{nameOf(kind1), value1}, {nameOf(kind2), value2}};
}

Json columnOf(const AirStream& column) {
  Json json = Json::object();
  for (const auto& [text, name] : columnNames) json[name] = column.*text;
  return json;
}

Json withExact(Json json, bool exact) {
  if (exact) json["exact"] = true;
  return json;
}

Json named(Json json, const std::string& name) {
  if (!name.empty()) json["name"] = name;
  return json;
}

Json streamOf(const AirStream& stream) {
  const Json json = {{"given", givenOf(stream.kind1.value_or(PropertyKind::db), stream.value1,
                                       stream.kind2.value_or(PropertyKind::db), stream.value2)},
                     {"flow", stream.flow},
                     {"shown", columnOf(stream)}};
  return withExact(json, stream.exact);
}

Json jsonOf(const StatePoint& point) {
  Json state = Json::object();
  for (const Property& property : heldProperties) state[property.key] = jsonNumber(point.*property.value);
  return state;
}

/// What an entry holds beyond its limits and its pressure.
struct ContentWriter {
  Json& json;

  void operator()(const HeaderLine&) const { json["kind"] = "header"; }

  void operator()(const DrawnChart& chart) const {
    json["kind"] = "chart";
    json["type"] = nameOf(typeNames, chart.type);
  }

  void operator()(const PropertyLine& line) const {
    json["kind"] = "line";
    json["property"] = nameOf(lineNames, line.kind);
    json["value"] = line.value;
  }

  void operator()(const MarkedPoint& point) const {
    const auto& [one, two] = point.given;
    json["kind"] = "point";
    json["id"] = point.identification;
    json["given"] = givenOf(one.kind, one.value, two.kind, two.value);
    json["state"] = jsonOf(point.state);
    json = withExact(std::move(json), point.exact);
  }

  void operator()(const PinnedReading& pinned) const {
    json["kind"] = "readout";
    json["state"] = jsonOf(pinned.state);
    json["label"] = nameOf(labelCornerNames, pinned.corner);
  }

  void operator()(const AirHandler& airHandler) const {
    json["kind"] = "airhandler";
    json["lines"] = airHandler.lines;
  }

  void operator()(const MixingLine& line) const {
    json["kind"] = "mixture";
    json["streams"] =
        Json::array({named(streamOf(line.columns[0]), line.names[0]), named(streamOf(line.columns[1]), line.names[1])});
    const AirStream& mixed = line.columns[2];
    json["mixed"] = named(withExact({{"flow", mixed.flow}, {"shown", columnOf(mixed)}}, mixed.exact), line.names[2]);
  }
};

/// @param before setting of the entry before, which becomes that of this one
Json jsonOf(const Entry& entry, Setting& before) {
  Json json = Json::object();
  std::visit(ContentWriter{json}, entry.content);
  if (hasLimits(entry) && entry.setting.limits != before.limits) {
    before.limits = entry.setting.limits;
    json["limits"] = jsonOf(before.limits);
  }
  if (entry.setting.pressure != before.pressure) {
    before.pressure = entry.setting.pressure;
    json["pressure"] = jsonOf(before.pressure);
  }
  return json;
}

/// The first format that can hold an entry.
struct FormatFinder {
  int operator()(const AirHandler&) const { return 4; }
  int operator()(const PinnedReading&) const { return 2; }
  int operator()(const MarkedPoint& point) const { return point.exact ? 3 : 1; }
  int operator()(const MixingLine& line) const {
    const auto isNamed = [](const std::string& name) { return !name.empty(); };
    if (std::any_of(line.names.begin(), line.names.end(), isNamed)) return 4;
    const bool exact = std::any_of(line.columns.begin(), line.columns.end(), [](const auto& at) { return at.exact; });
    return exact ? 3 : 1;
  }
  template <class Other>
  int operator()(const Other&) const {
    return 1;
  }
};

/// The first format that can hold a document.
int formatFor(const Document& document) {
  int format = document.previous.empty() && !document.titleBlock ? 1 : 3;
  if (document.weather) format = 4;
  if (!document.zoneLayer.zones.empty()) format = 4;
  const auto take = [&](const Entry& entry) { format = std::max(format, std::visit(FormatFinder{}, entry.content)); };
  for (const Entry& entry : document.entries) take(entry);
  for (const LeftOut& left : document.previous) take(left.entry);
  return format;
}

/// @param head members of the whole behind its format
std::string written(const Document& document, const Json& head) {
  std::string text = "{\n\"format\": " + std::to_string(formatFor(document));
  for (const auto& [key, value] : head.items()) text += ",\n\"" + key + "\": " + jsonText(value);
  const auto list = [&](const char* name, const auto& elements, const auto& json) {
    text += std::string(",\n\"") + name + "\": [";
    Setting before{{}, document.pressure};
    const char* separator = "\n";
    for (const auto& element : elements) text += std::exchange(separator, ",\n") + jsonText(json(element, before));
    text += "\n]";
  };
  list("entries", document.entries, [](const Entry& entry, Setting& before) { return jsonOf(entry, before); });
  if (!document.previous.empty()) {
    list("previous", document.previous, [](const LeftOut& left, Setting& before) {
      return Json{{"entry", jsonOf(left.entry, before)}, {"reason", left.reason}};
    });
  }
  return text + "\n}\n";
}

Json headOf(const Document& document) {
  Json head = {{"pressure", jsonOf(document.pressure)}};
  if (const auto limits = currentLimits(document)) head["drawn"] = jsonOf(*limits);
  if (document.background > 0) head["background"] = document.background;
  if (const auto& block = document.titleBlock) {
    head["titleblock"] = {{"title", block->title}, {"project", block->project}, {"drawnby", block->drawnBy}};
  }
  if (document.weather) head["weather"] = jsonOf(*document.weather);
  if (const ZoneLayer& layer = document.zoneLayer; !layer.zones.empty()) {
    Json zones = Json::array();
    for (const Zone& zone : layer.zones) zones.push_back(zoneJson(zone));
    head["zones"] = {{"shown", layer.shown}, {"list", std::move(zones)}};
  }
  return head;
}

}  // namespace

std::string fileText(const Document& document) { return written(document, headOf(document)); }

std::string recoveryText(const Document& document, std::string_view file) {
  Json head = headOf(document);
  head["file"] = jsonOfPath(file);
  return written(document, head);
}

}  // namespace moistair
