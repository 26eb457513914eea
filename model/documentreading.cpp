// How a document is read, and what is checked on the way.
#include "model/documentfile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <new>
#include <utility>

#include "model/documentnames.h"
#include "model/jsonnode.h"
#include "model/weatherjson.h"
#include "model/zonejson.h"
#include "process/systemtext.h"
#include "text/value.h"

namespace moistair {

namespace {

template <class Value, std::size_t size>
Value named(const JsonNode& node, const std::array<Name<Value>, size>& names) {
  const std::string& text = node.text();
  const auto same = [&](const Name<Value>& name) { return text == name.name; };
  const auto found = std::find_if(names.begin(), names.end(), same);
  if (found != names.end()) return found->value;
  std::string offered;
  for (const Name<Value>& name : names) offered += std::string(offered.empty() ? "" : ", ") + name.name;
  node.fail("must be one of " + offered);
}

/// A pressure that was set.
Pressure pressureOf(const JsonNode& node) {
  node.onlyKeys({"unit", "entry", "inhg"});
  Pressure pressure;
  const JsonNode unit = node.at("unit");
  pressure.entry.unit = unit.isNull() ? std::nullopt : std::optional(named(unit, unitNames));
  const JsonNode entry = node.at("entry");
  pressure.entry.text = entry.text();
  pressure.atm = node.at("inhg").number();
  if (!pressureFor(pressure.entry).accepted) {
    entry.fail(std::string("must be within the range of its unit, ") + rowOf(*pressure.entry.unit).rangeHint);
  }
  return pressure;
}

/// The pressure of the whole. Without a unit, the pressure window keeps the current one, a refused value included.
Pressure setPressureOf(const JsonNode& node) {
  const Pressure pressure = pressureOf(node);
  if (!pressure.entry.unit || isOfEntry(pressure)) return pressure;
  node.at("inhg").fail("must be " + pressureFor(pressure.entry).inhg.value_or("") + ", the pressure of its entry, or " +
                       defaultPressureText);
}

ChartLimits limitsOf(const JsonNode& node) {
  const std::vector<double> numbers =
      node.numbers({"lowest dry bulb", "highest dry bulb", "lowest humidity ratio", "highest humidity ratio"});
  return {numbers[0], numbers[1], numbers[2], numbers[3]};
}

void checkDrawable(const JsonNode& node, const ChartLimits& limits) {
  const LimitTexts texts{numberText(limits.lowDb), numberText(limits.highDb), numberText(limits.lowHr),
                         numberText(limits.highHr)};
  ChartLimits read;
  const bool drawable = validateLimits(texts, read) == nullptr && read == limits;
  if (!drawable) node.fail("limits must be four of those that the lists offer, each pair rising");
}

std::array<TypedProperty, 2> givenOf(const JsonNode& node) {
  std::vector<TypedProperty> given;
  for (const JsonNode::Member& member : node.members()) {
    const auto kind = kindNamed(member.key);
    if (!kind) member.node.fail("this key is no property");
    given.push_back({*kind, member.node.text()});
  }
  if (given.size() != 2 ||
      inputFault(given[0].kind, given[1].kind, given[0].value, given[1].value) != Unresolved::none) {
    node.fail("must be two properties that fix a state, with their values");
  }
  return {given[0], given[1]};
}

/// A shown state keeps the bounds of every state; what is too small for seven decimals was shown as 0.
void checkState(const JsonNode& node, StatePoint point) {
  constexpr double smallest = 5e-08;
  for (int i = 0; i < kindCount; ++i) {
    double& value = point.at(*kindAt(i));
    if (value == 0) value = smallest;
  }
  const auto broken = violatedBound(point);
  if (!broken) return;
  const auto& [above, upTo] = broken->range;
  node.at(nameOf(broken->kind))
      .fail("must be above " + numberText(above) + (std::isfinite(upTo) ? " and up to " + numberText(upTo) : ""));
}

StatePoint stateOf(const JsonNode& node) {
  std::vector<const char*> keys;
  for (const Property& property : heldProperties) keys.push_back(property.key);
  node.onlyKeys(keys);
  StatePoint state;
  for (const Property& property : heldProperties) state.*property.value = node.at(property.key).number();
  checkState(node, state);
  return state;
}

bool isExact(const JsonNode& node) {
  const auto exact = node.find("exact");
  return exact && exact->flag();
}

MarkedPoint pointOf(const JsonNode& node) {
  node.onlyKeys({"kind", "id", "given", "state", "exact", "limits", "pressure"});
  MarkedPoint point;
  point.identification = node.at("id").text();
  point.given = givenOf(node.at("given"));
  point.state = stateOf(node.at("state"));
  point.exact = isExact(node);
  return point;
}

PinnedReading readoutOf(const JsonNode& node) {
  node.onlyKeys({"kind", "state", "label", "limits", "pressure"});
  return {stateOf(node.at("state")), named(node.at("label"), labelCornerNames)};
}

/// The read-outs of a column; each is a number or blank, but for the pressure, which is as entered.
void readColumn(const JsonNode& node, AirStream& column) {
  for (const JsonNode::Member& member : node.members()) {
    const auto same = [&](const auto& name) { return member.key == name.name; };
    if (std::none_of(columnNames.begin(), columnNames.end(), same)) member.node.fail("this key is not known here");
  }
  for (const auto& [text, name] : columnNames) {
    const JsonNode readout = node.at(name);
    column.*text = readout.text();
    const bool asEntered = text == &AirStream::pressure;
    const bool isReadout = asEntered || (column.*text).empty() || hasValue(strictNumber(column.*text));
    if (!isReadout) readout.fail("must be a number in quotes, or blank");
  }
}

AirStream streamOf(const JsonNode& node) {
  node.onlyKeys({"given", "flow", "shown", "exact", "name"});
  AirStream stream;
  const auto [one, two] = givenOf(node.at("given"));
  stream.kind1 = one.kind;
  stream.value1 = one.value;
  stream.kind2 = two.kind;
  stream.value2 = two.value;
  stream.flow = node.at("flow").text();
  const JsonNode shown = node.at("shown");
  readColumn(shown, stream);
  StatePoint state;
  for (const Property& property : heldProperties) {
    state.*property.value = lenientNumber(shown.at(property.key).text());
  }
  checkState(shown, state);
  stream.complete = true;
  stream.exact = isExact(node);
  return stream;
}

std::string nameIn(const JsonNode& node) {
  const auto name = node.find("name");
  return name ? name->text() : std::string();
}

MixingLine mixtureOf(const JsonNode& node) {
  node.onlyKeys({"kind", "streams", "mixed", "limits", "pressure"});
  const JsonNode streams = node.at("streams");
  const std::vector<JsonNode> pair = streams.elements("stream");
  if (pair.size() != 2) streams.fail("must be two streams");
  const JsonNode mixed = node.at("mixed");
  mixed.onlyKeys({"flow", "shown", "exact", "name"});
  AirStream mixture;
  mixture.flow = mixed.at("flow").text();
  readColumn(mixed.at("shown"), mixture);
  mixture.exact = isExact(mixed);
  return {{streamOf(pair[0]), streamOf(pair[1]), mixture}, {nameIn(pair[0]), nameIn(pair[1]), nameIn(mixed)}};
}

AirHandler airHandlerOf(const JsonNode& node) {
  node.onlyKeys({"kind", "lines", "limits", "pressure"});
  AirHandler airHandler;
  std::size_t size = 0;
  for (const JsonNode& line : node.at("lines").elements("line")) {
    airHandler.lines.push_back(line.text());
    size += airHandler.lines.back().size() + 1;
  }
  if (size > longestSystemText) node.at("lines").fail("must not be longer than 256 KB in all");
  return airHandler;
}

Content contentOf(const JsonNode& node) {
  const JsonNode kind = node.at("kind");
  const std::string& name = kind.text();
  if (name == "point") return pointOf(node);
  if (name == "mixture") return mixtureOf(node);
  if (name == "readout") return readoutOf(node);
  if (name == "line") {
    node.onlyKeys({"kind", "property", "value", "limits", "pressure"});
    return PropertyLine{named(node.at("property"), lineNames), node.at("value").text()};
  }
  if (name == "chart") {
    node.onlyKeys({"kind", "type", "limits", "pressure"});
    return DrawnChart{named(node.at("type"), typeNames)};
  }
  if (name == "airhandler") return airHandlerOf(node);
  if (name != "header") kind.fail("must be one of header, chart, line, point, mixture, readout, airhandler");
  node.onlyKeys({"kind", "pressure"});
  return HeaderLine{};
}

/// A point, a mixture or a reading is marked only within its limits, and limits of a chart or a line come from the
/// lists.
void checkPlace(const JsonNode& node, const Entry& entry) {
  if (std::holds_alternative<HeaderLine>(entry.content)) return;
  if (std::holds_alternative<DrawnChart>(entry.content) || std::holds_alternative<PropertyLine>(entry.content)) {
    return checkDrawable(node, entry.setting.limits);
  }
  RecordingCanvas scratch;
  if (draw(entry, scratch, {1, 1}) != nullptr) node.fail("lies outside its limits");
}

Entry entryOf(const JsonNode& node, Setting& before) {
  if (const auto limits = node.find("limits")) before.limits = limitsOf(*limits);
  if (const auto pressure = node.find("pressure")) before.pressure = pressureOf(*pressure);
  Entry entry{before, contentOf(node)};
  if (!hasLimits(entry)) entry.setting.limits = {};
  checkPlace(node, entry);
  return entry;
}

/// An entry of the previous chart.
LeftOut leftOutOf(const JsonNode& node, Setting& before) {
  node.onlyKeys({"entry", "reason"});
  const JsonNode entry = node.at("entry");
  LeftOut left{entryOf(entry, before), node.at("reason").text()};
  const bool isChart = std::holds_alternative<DrawnChart>(left.entry.content);
  if (isChart || !hasLimits(left.entry))
    entry.at("kind").fail("must be one of line, point, mixture, readout, airhandler");
  return left;
}

TitleBlock titleBlockOf(const JsonNode& node) {
  node.onlyKeys({"title", "project", "drawnby"});
  return {node.at("title").text(), node.at("project").text(), node.at("drawnby").text()};
}

ZoneLayer zoneLayerOf(const JsonNode& node) {
  node.onlyKeys({"shown", "list"});
  ZoneLayer layer{{}, node.at("shown").flag()};
  for (const JsonNode& zone : node.at("list").elements("zone")) layer.zones.push_back(zoneOf(zone));
  return layer;
}

std::size_t backgroundOf(const JsonNode& node, std::size_t entries) {
  const double number = node.number();
  if (!(number >= 0 && number <= static_cast<double>(entries) && number == std::floor(number))) {
    node.fail("must be a whole number, up to that of the entries");
  }
  return static_cast<std::size_t>(number);
}

void checkFormat(const JsonNode& root) {
  const auto format = root.find("format");
  if (!format) root.fail("\"format\" is missing, so this is not a Moistair document");
  const double number = format->number();
  if (number > documentFormat) {
    format->fail("the file was written by a later version of the program (format " + numberText(number) + ")");
  }
  if (number < 1 || number != std::floor(number)) format->fail("must be from 1 to " + std::to_string(documentFormat));
}

ReadDocument documentOf(const JsonNode& root) {
  checkFormat(root);
  root.onlyKeys(
      {"format", "file", "pressure", "drawn", "background", "titleblock", "weather", "zones", "entries", "previous"});
  ReadDocument read;
  Document& document = read.document;
  document.pressure = setPressureOf(root.at("pressure"));
  Setting before{{}, document.pressure};
  for (const JsonNode& node : root.at("entries").elements("entry")) document.entries.push_back(entryOf(node, before));
  if (const auto previous = root.find("previous")) {
    before = {{}, document.pressure};
    for (const JsonNode& node : previous->elements("previous entry"))
      document.previous.push_back(leftOutOf(node, before));
  }
  if (const auto titleBlock = root.find("titleblock")) document.titleBlock = titleBlockOf(*titleBlock);
  if (const auto weather = root.find("weather")) document.weather = weatherOf(*weather);
  if (const auto zones = root.find("zones")) document.zoneLayer = zoneLayerOf(*zones);
  if (const auto drawn = root.find("drawn")) {
    const ChartLimits limits = limitsOf(*drawn);
    checkDrawable(*drawn, limits);
    document.chartState = chartStateOf(limits);
  }
  if (const auto background = root.find("background")) {
    document.background = backgroundOf(*background, document.entries.size());
  }
  if (const auto file = root.find("file")) read.file = pathOf(*file);
  return read;
}

}  // namespace

Result<ReadDocument> readDocument(std::string_view text) {
  if (text.size() > largestdocument)
    return Error{ErrorCode::tooLarge, {}, "the document is larger than 64 MB, the limit"};
  try {
    const Json json = parsedJson(text);
    return documentOf(JsonNode(json, ""));
  } catch (const std::bad_alloc&) {
    return Error{ErrorCode::tooLarge, {}, "there is not enough memory to read it"};
  } catch (const JsonFault& fault) {
    return fault.error();
  } catch (const std::exception& fault) {
    return Error{ErrorCode::unreadable, {}, fault.what()};
  }
}

}  // namespace moistair
